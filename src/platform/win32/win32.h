// Shared pieces of the Win32 platform: the one place that pulls in the system headers, and
// the conversions between the portable handle numbers and the system's handle types.
#pragma once

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#include <cstdint>
#include <string>

namespace win32 {

inline HWND ToHwnd(std::uintptr_t handle) { return reinterpret_cast<HWND>(handle); }
inline std::uintptr_t FromHwnd(HWND hwnd) { return reinterpret_cast<std::uintptr_t>(hwnd); }
// The program's own module, which holds its resources.
inline HINSTANCE Instance() { return ::GetModuleHandleA(nullptr); }

// A function of a system library that is loaded at its first use rather than at the start of
// the program: null when the library or the function is not there.
template <class Function>
Function LateBound(const char* library, const char* name) {
  HMODULE module = ::LoadLibraryA(library);
  FARPROC found = module != nullptr ? ::GetProcAddress(module, name) : nullptr;
  return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(found));
}

// The system's own description of an error code, as its message table gives it (with a line
// break and a full stop at the end); empty when it has none.
std::string SystemMessage(DWORD code);

}  // namespace win32
