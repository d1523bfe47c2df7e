# The stand-in game: a small Windows program that meets the game's contract, so that a whole
# benchmark runs without the game. Its portable part is a library for the unit tests; the
# Windows builds add the exe and a complete game folder, out/<target>-game/.

file(GLOB STANDIN_SOURCES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/standin/*.cpp)
add_library(kelvarnite_standin STATIC ${STANDIN_SOURCES})
target_include_directories(kelvarnite_standin PUBLIC ${CMAKE_SOURCE_DIR}/src)

if(WIN32)
  set(STANDIN_OUT ${KELVARNITE_OUT}-game)

  add_executable(ut2003 WIN32 src/standin/win32/main.cpp)
  target_link_libraries(ut2003 PRIVATE kelvarnite_standin)
  target_link_options(ut2003 PRIVATE -mwindows -static)
  set_target_properties(ut2003 PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${STANDIN_OUT}/System)

  # The side files of the game folder, and its Benchmark folder where the logs go.
  file(GLOB_RECURSE STANDIN_GAME_FILES CONFIGURE_DEPENDS
    RELATIVE ${CMAKE_SOURCE_DIR}/src/standin/game ${CMAKE_SOURCE_DIR}/src/standin/game/*)
  kelvarnite_copy_files(standin_game_folder ${CMAKE_SOURCE_DIR}/src/standin/game ${STANDIN_OUT}
    FILES ${STANDIN_GAME_FILES} FOLDERS ${STANDIN_OUT}/Benchmark)
  add_dependencies(standin_game_folder ut2003)
endif()
