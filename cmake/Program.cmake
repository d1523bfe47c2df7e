# The Windows program with its resources, and the rules that install it with its side files:
# the same rules make the program folder (cmake --install) and the release package (cpack).
enable_language(RC)

add_executable(KelvarniteUT2k3Benchmark WIN32
  src/app/main.cpp
  src/app/KelvarniteUT2k3Benchmark.rc)
# The resource script finds the pictures and the manifest, which carries the project's version,
# by their plain names.
configure_file(src/app/KelvarniteUT2k3Benchmark.manifest app/KelvarniteUT2k3Benchmark.manifest @ONLY)
target_include_directories(KelvarniteUT2k3Benchmark PRIVATE
  ${PROJECT_BINARY_DIR}/app ${PROJECT_SOURCE_DIR}/data)
set(KELVARNITE_RESOURCES app.ico about.ico logo.bmp about.bmp)
list(TRANSFORM KELVARNITE_RESOURCES PREPEND ${PROJECT_SOURCE_DIR}/data/)
set_source_files_properties(src/app/KelvarniteUT2k3Benchmark.rc PROPERTIES OBJECT_DEPENDS
  "${KELVARNITE_RESOURCES};${PROJECT_BINARY_DIR}/app/KelvarniteUT2k3Benchmark.manifest")
target_link_libraries(KelvarniteUT2k3Benchmark PRIVATE kelvarnite)

# The program folder as a Windows user unpacks it: the exe, INI\D3D\ and INI\OGL\ with the
# game's ini files, the guides, and the page that compares reports.
install(TARGETS KelvarniteUT2k3Benchmark RUNTIME DESTINATION .)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/data/INI DESTINATION .)
install(FILES ${PROJECT_BINARY_DIR}/data/help.html ${PROJECT_BINARY_DIR}/data/README.txt
  ${KELVARNITE_COMPARE_PAGE} DESTINATION .)

if(PROJECT_IS_TOP_LEVEL)
  include(${CMAKE_CURRENT_LIST_DIR}/Package.cmake)
endif()
