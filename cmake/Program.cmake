# The Windows program, its resources, the check of the registry layer under Wine, and the
# program folder out/<target>/ with the side files that stand beside the program.

if(NOT KELVARNITE_TARGET)
  message(FATAL_ERROR "KELVARNITE_TARGET is not set: configure with one of the mingw presets")
endif()
set(KELVARNITE_OUT ${CMAKE_SOURCE_DIR}/out/${KELVARNITE_TARGET})

# A target that copies files, named relative to <from>, to <to>, and makes the FOLDERS, which
# exist even while no file goes into them.
function(kelvarnite_copy_files target from to)
  cmake_parse_arguments(ARG "" "" "FILES;FOLDERS" ${ARGN})
  set(outputs)
  foreach(file IN LISTS ARG_FILES)
    add_custom_command(OUTPUT ${to}/${file}
      COMMAND ${CMAKE_COMMAND} -E copy ${from}/${file} ${to}/${file}
      DEPENDS ${from}/${file} COMMENT "Copying ${file} to ${to}" VERBATIM)
    list(APPEND outputs ${to}/${file})
  endforeach()
  add_custom_target(${target} ALL COMMAND ${CMAKE_COMMAND} -E make_directory ${ARG_FOLDERS}
    DEPENDS ${outputs} VERBATIM)
endfunction()

enable_language(RC)

add_executable(KelvarniteUT2k3Benchmark WIN32
  src/app/main.cpp
  src/app/KelvarniteUT2k3Benchmark.rc)
set_target_properties(KelvarniteUT2k3Benchmark PROPERTIES
  OUTPUT_NAME KelvarniteUT2k3Benchmark
  RUNTIME_OUTPUT_DIRECTORY ${KELVARNITE_OUT})
# The resource script finds the icon and the manifest by their plain names.
target_include_directories(KelvarniteUT2k3Benchmark PRIVATE
  ${CMAKE_SOURCE_DIR}/data ${CMAKE_SOURCE_DIR}/src/app)
set_source_files_properties(src/app/KelvarniteUT2k3Benchmark.rc PROPERTIES
  OBJECT_DEPENDS "${CMAKE_SOURCE_DIR}/data/app.ico;${CMAKE_SOURCE_DIR}/data/logo.jpg;${CMAKE_SOURCE_DIR}/data/about.gif;${CMAKE_SOURCE_DIR}/data/about.ico;${CMAKE_SOURCE_DIR}/src/app/KelvarniteUT2k3Benchmark.manifest")
target_link_libraries(KelvarniteUT2k3Benchmark PRIVATE kelvarnite_platform kelvarnite_core)
target_link_options(KelvarniteUT2k3Benchmark PRIVATE -mwindows -static)

# The side files: INI\D3D\, INI\OGL\ and help.html beside the program. The two ini folders
# exist even while they are empty; a file is copied once it is there.
file(GLOB_RECURSE KELVARNITE_SIDE_FILES CONFIGURE_DEPENDS
  RELATIVE ${CMAKE_SOURCE_DIR}/data
  ${CMAKE_SOURCE_DIR}/data/INI/D3D/*
  ${CMAKE_SOURCE_DIR}/data/INI/OGL/*
  ${CMAKE_SOURCE_DIR}/data/help.html)
kelvarnite_copy_files(kelvarnite_program_folder ${CMAKE_SOURCE_DIR}/data ${KELVARNITE_OUT}
  FILES ${KELVARNITE_SIDE_FILES} FOLDERS ${KELVARNITE_OUT}/INI/D3D ${KELVARNITE_OUT}/INI/OGL)
add_dependencies(kelvarnite_program_folder KelvarniteUT2k3Benchmark)

# The check of the real registry layer, run under Wine by tests/wine/run-registry-check.sh.
add_executable(registry_check tests/wine/registry_check.cpp)
target_include_directories(registry_check PRIVATE ${CMAKE_SOURCE_DIR}/tests)
target_link_libraries(registry_check PRIVATE kelvarnite_platform kelvarnite_core)
target_link_options(registry_check PRIVATE -static)
set_target_properties(registry_check PROPERTIES
  RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests/wine)

# The end-to-end driver and its recording opener.
add_subdirectory(${CMAKE_SOURCE_DIR}/tests/e2e ${CMAKE_BINARY_DIR}/tests/e2e)

include(${CMAKE_SOURCE_DIR}/cmake/Package.cmake)
