# Cross build for Windows with mingw-w64. The release is i686; KELVARNITE_MINGW_ARCH=x86_64
# builds the same sources for 64-bit Windows.
if(NOT KELVARNITE_MINGW_ARCH)
  set(KELVARNITE_MINGW_ARCH i686)
endif()
# The checks of the compiler run in projects of their own, which read this file anew.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES KELVARNITE_MINGW_ARCH)

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ${KELVARNITE_MINGW_ARCH})
set(CMAKE_C_COMPILER ${KELVARNITE_MINGW_ARCH}-w64-mingw32-gcc)
set(CMAKE_CXX_COMPILER ${KELVARNITE_MINGW_ARCH}-w64-mingw32-g++)
set(CMAKE_RC_COMPILER ${KELVARNITE_MINGW_ARCH}-w64-mingw32-windres)
set(CMAKE_FIND_ROOT_PATH /usr/${KELVARNITE_MINGW_ARCH}-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
# Every Windows program of the build links its C and C++ runtimes in, so that each runs from a
# folder of its own, as the release must, with nothing to install beside it.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
