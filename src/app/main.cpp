// The entry of the Windows program.
#include <windows.h>

#include <cstdlib>

#include "windows/application.h"

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) { return RunApplication(); }

// An exception that nothing catches ends the program at once, as it does anyway. The
// toolchain's own handler would first print the exception's type to the standard error
// stream, which a windowed program does not have, and brings the C++ name demangler and a
// whole printf into the exe for it: over a third of its size.
namespace __gnu_cxx {
void __verbose_terminate_handler() { std::abort(); }
}  // namespace __gnu_cxx
