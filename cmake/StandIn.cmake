# The stand-in game: a small Windows program that meets the game's contract, so that a whole
# benchmark runs without the game. Its portable part is a library for the unit tests; the
# Windows builds add the exe and a complete game folder, game/ in the build folder.

set(STANDIN_SOURCES game_config.cpp game_line.cpp ini_file.cpp model.cpp record.cpp settings.cpp
  standin.cpp text.cpp)
list(TRANSFORM STANDIN_SOURCES PREPEND ${PROJECT_SOURCE_DIR}/src/standin/)
add_library(kelvarnite_standin STATIC ${STANDIN_SOURCES})
target_include_directories(kelvarnite_standin PUBLIC ${PROJECT_SOURCE_DIR}/src)
target_link_libraries(kelvarnite_standin PUBLIC kelvarnite_options)

if(WIN32)
  set(STANDIN_OUT ${PROJECT_BINARY_DIR}/game)

  add_executable(ut2003 WIN32 ${PROJECT_SOURCE_DIR}/src/standin/win32/main.cpp)
  target_link_libraries(ut2003 PRIVATE kelvarnite_standin)
  set_target_properties(ut2003 PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${STANDIN_OUT}/System)

  # The side files of the game folder, and its Benchmark folder where the logs go.
  set(standin_files ${PROJECT_SOURCE_DIR}/src/standin/game)
  file(GLOB_RECURSE STANDIN_GAME_FILES CONFIGURE_DEPENDS RELATIVE ${standin_files} ${standin_files}/*)
  set(outputs)
  foreach(file IN LISTS STANDIN_GAME_FILES)
    add_custom_command(OUTPUT ${STANDIN_OUT}/${file}
      COMMAND ${CMAKE_COMMAND} -E copy ${standin_files}/${file} ${STANDIN_OUT}/${file}
      DEPENDS ${standin_files}/${file} VERBATIM)
    list(APPEND outputs ${STANDIN_OUT}/${file})
  endforeach()
  add_custom_target(standin_game_folder ALL
    COMMAND ${CMAKE_COMMAND} -E make_directory ${STANDIN_OUT}/Benchmark DEPENDS ${outputs} VERBATIM)
  add_dependencies(standin_game_folder ut2003)
endif()
