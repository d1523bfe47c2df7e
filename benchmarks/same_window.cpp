// The program's main window made by hand, the plainest way Win32 allows: the same class and
// icons, the same frame, menu and controls in their places and states, but no forms layer and
// no start-up work. The baseline that tells the program's own cost at start-up from the cost of
// the window it has to show (tools/benchmark.sh). measure.exe checks that its controls match
// the program's, as the program lays them out with both games installed.
#include <windows.h>

#include "quit_on_destroy.h"

namespace {

HMENU MenuBar() {
  HMENU file = ::CreatePopupMenu(), help = ::CreatePopupMenu(), bar = ::CreateMenu();
  ::AppendMenuA(bar, MF_STRING | MF_POPUP, reinterpret_cast<UINT_PTR>(file), "&File");
  ::AppendMenuA(file, MF_STRING, 1, "E&xit");
  ::AppendMenuA(bar, MF_STRING | MF_POPUP, reinterpret_cast<UINT_PTR>(help), "&Help");
  ::AppendMenuA(help, MF_STRING, 2, "&About");
  ::AppendMenuA(help, MF_STRING, 3, "H&elp");
  return bar;
}

struct Control {
  const char* className;
  const char* text;
  DWORD style;
  int left, top, width, height;  // twips, in the window's client area
  int id;
};

constexpr DWORD kChild = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS;
constexpr DWORD kButton = kChild | WS_TABSTOP | WS_GROUP;
constexpr DWORD kOption = kChild | BS_RADIOBUTTON;

// In the order of the window's stack: the controls that take the focus, in tab order, with
// the frames beneath them.
constexpr Control kControls[] = {
    {"STATIC", "", kChild | WS_GROUP | SS_NOTIFY | SS_BITMAP, 120, 0, 5175, 1285, 1000},
    {"BUTTON", "640x480", kButton | BS_AUTOCHECKBOX, 3720, 1800, 1215, 255, 1002},
    {"BUTTON", "800x600", kButton | BS_AUTOCHECKBOX, 3720, 2160, 1215, 255, 1003},
    {"BUTTON", "1024x768", kButton | BS_AUTOCHECKBOX, 3720, 2520, 1215, 255, 1004},
    {"BUTTON", "1280x1024", kButton | BS_AUTOCHECKBOX, 3720, 2880, 1215, 255, 1005},
    {"BUTTON", "1600x1200", kButton | BS_AUTOCHECKBOX, 3720, 3240, 1215, 255, 1006},
    {"BUTTON", "CPU Benchmark", kButton, 120, 2640, 1455, 495, 1007},
    {"BUTTON", "High Quality", kButton, 120, 1440, 1455, 495, 1008},
    {"BUTTON", "Low Quality", kButton, 120, 2040, 1455, 495, 1009},
    {"BUTTON", "Custom Test", kButton, 120, 3240, 1455, 495, 1010},
    {"BUTTON", "Direct3D", kOption | WS_TABSTOP | WS_GROUP, 1920, 3000, 1215, 255, 1012},
    {"BUTTON", "OpenGL", kOption, 1920, 3360, 1215, 255, 1013},
    {"BUTTON", "Full", kOption | WS_TABSTOP | WS_GROUP, 1920, 1800, 1215, 255, 1015},
    {"BUTTON", "Demo", kOption, 1920, 2160, 1215, 195, 1016},
    {"BUTTON", "Resolution", kChild | WS_GROUP | BS_GROUPBOX, 3480, 1440, 1815, 2295, 1001},
    {"BUTTON", "Rendering Engine", kChild | WS_GROUP | BS_GROUPBOX, 1680, 2640, 1695, 1095, 1011},
    {"BUTTON", "Version", kChild | WS_GROUP | BS_GROUPBOX, 1680, 1440, 1695, 1095, 1014},
};
constexpr int kChecked[] = {1012, 1015};  // Direct3D and the full game

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
  HDC screen = ::GetDC(nullptr);
  const int dpi = ::GetDeviceCaps(screen, LOGPIXELSY);
  ::ReleaseDC(nullptr, screen);
  const auto pixels = [dpi](int twips) { return ::MulDiv(twips, dpi, 1440); };

  WNDCLASSEXW windowClass{};
  windowClass.cbSize = sizeof(windowClass);
  windowClass.lpfnWndProc = QuitOnDestroy;
  windowClass.hInstance = instance;
  windowClass.hIcon = ::LoadIconW(instance, MAKEINTRESOURCEW(1));
  windowClass.hIconSm = static_cast<HICON>(
      ::LoadImageW(instance, MAKEINTRESOURCEW(1), IMAGE_ICON, ::GetSystemMetrics(SM_CXSMICON),
                   ::GetSystemMetrics(SM_CYSMICON), LR_DEFAULTCOLOR));
  windowClass.hCursor = ::LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));  // the arrow
  windowClass.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(COLOR_BTNFACE + 1));
  windowClass.lpszClassName = L"SameWindow";
  if (!::RegisterClassExW(&windowClass)) return 1;
  const DWORD style = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_BORDER;
  RECT frame{0, 0, pixels(5430), pixels(3810)};
  ::AdjustWindowRectEx(&frame, style, TRUE, 0);
  HWND window = ::CreateWindowExW(0, L"SameWindow", L"Kelvarnite UT2k3 Benchmark", style,
                                  CW_USEDEFAULT, CW_USEDEFAULT, frame.right - frame.left,
                                  frame.bottom - frame.top, nullptr, MenuBar(), instance, nullptr);
  if (window == nullptr) return 1;

  const auto font = reinterpret_cast<WPARAM>(::GetStockObject(DEFAULT_GUI_FONT));
  for (const Control& control : kControls) {
    HWND made = ::CreateWindowExA(0, control.className, control.text, control.style,
                                  pixels(control.left), pixels(control.top), pixels(control.width),
                                  pixels(control.height), window,
                                  reinterpret_cast<HMENU>(static_cast<INT_PTR>(control.id)),
                                  instance, nullptr);
    ::SendMessageA(made, WM_SETFONT, font, FALSE);
  }
  // The logo at its top left corner; the box keeps its own size.
  HWND logo = ::GetDlgItem(window, kControls[0].id);
  ::SendMessageA(logo, STM_SETIMAGE, IMAGE_BITMAP,
                 reinterpret_cast<LPARAM>(::LoadImageA(instance, "LOGO", IMAGE_BITMAP, 0, 0,
                                                       LR_DEFAULTCOLOR)));
  ::SetWindowPos(logo, nullptr, 0, 0, pixels(kControls[0].width), pixels(kControls[0].height),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  for (int id : kChecked) ::CheckDlgButton(window, id, BST_CHECKED);

  ::ShowWindow(window, SW_SHOW);
  ::UpdateWindow(window);
  MSG message;
  while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (!::IsDialogMessageW(window, &message)) {
      ::TranslateMessage(&message);
      ::DispatchMessageW(&message);
    }
  }
  return 0;
}
