// The least a Windows program can do to show a window: the baseline of the program's start-up
// and memory under Wine (tools/benchmark.sh). It registers one class, shows one empty window
// and ends when that window is closed.
#include <windows.h>

#include "quit_on_destroy.h"

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int show) {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = QuitOnDestroy;
  windowClass.hInstance = instance;
  windowClass.hCursor = ::LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
  windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  windowClass.lpszClassName = L"MinimalWindow";
  if (!::RegisterClassW(&windowClass)) return 1;
  HWND window = ::CreateWindowExW(0, L"MinimalWindow", L"Minimal window", WS_OVERLAPPEDWINDOW,
                                  CW_USEDEFAULT, CW_USEDEFAULT, 480, 360, nullptr, nullptr,
                                  instance, nullptr);
  if (window == nullptr) return 1;
  ::ShowWindow(window, show);
  ::UpdateWindow(window);
  MSG message;
  while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
  return 0;
}
