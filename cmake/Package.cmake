# The release package, KelvarniteUT2k3Benchmark-<version>-win32.zip in the build folder: one
# folder named as the archive, so that unpacking keeps things together, and beside it
# KelvarniteUT2k3Benchmark-<version>-win32.zip.sha256.
set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_NAME ${PROJECT_NAME})
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  set(KELVARNITE_PACKAGE_SYSTEM win32)
else()
  set(KELVARNITE_PACKAGE_SYSTEM win64)
endif()
set(KELVARNITE_PACKAGE_NAME ${PROJECT_NAME}-${PROJECT_VERSION}-${KELVARNITE_PACKAGE_SYSTEM})
set(CPACK_PACKAGE_FILE_NAME ${KELVARNITE_PACKAGE_NAME})
set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY ON)

find_package(Python3 REQUIRED COMPONENTS Interpreter)
set(CPACK_KELVARNITE_PYTHON ${Python3_EXECUTABLE})
set(CPACK_KELVARNITE_WRITE_ZIP ${CMAKE_CURRENT_LIST_DIR}/write-zip.py)
set(CPACK_KELVARNITE_SOURCE_DIR ${PROJECT_SOURCE_DIR})
set(CPACK_POST_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/ReleaseZip.cmake)
include(CPack)
