// The window procedure of the baseline programs: the process ends with its window.
#pragma once

#include <windows.h>

inline LRESULT CALLBACK QuitOnDestroy(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_DESTROY) {
    ::PostQuitMessage(0);
    return 0;
  }
  return ::DefWindowProcW(window, message, wParam, lParam);
}
