# The release package: a ZIP of the program folder as Windows users unpack it, made by
# "cmake --build --preset mingw-i686 --target package" into out/.
install(TARGETS KelvarniteUT2k3Benchmark RUNTIME DESTINATION .)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/data/INI DESTINATION .)
install(FILES ${CMAKE_SOURCE_DIR}/data/help.html ${CMAKE_SOURCE_DIR}/data/README.txt DESTINATION .)

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_NAME KelvarniteUT2k3Benchmark)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  set(KELVARNITE_PACKAGE_SYSTEM win32)
else()
  set(KELVARNITE_PACKAGE_SYSTEM win64)
endif()
set(CPACK_PACKAGE_FILE_NAME KelvarniteUT2k3Benchmark-${PROJECT_VERSION}-${KELVARNITE_PACKAGE_SYSTEM})
set(CPACK_OUTPUT_FILE_PREFIX ${CMAKE_SOURCE_DIR}/out)
# One folder inside the archive, named as the archive, so that unpacking keeps things together.
set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY ON)
include(CPack)
