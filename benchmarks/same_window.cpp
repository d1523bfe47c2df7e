// The program's main window made by hand, the plainest way Win32 allows: the same class and
// icons, the same frame, menu and controls in their places and states, but no forms layer and
// no start-up work. The baseline that tells the program's own cost at start-up from the cost of
// the window it has to show (tools/benchmark.sh). It reads the main window's own tables and
// makes each row as the native layer does (platform/win32/looks.h), so it follows every change
// to the window by itself; measure.exe checks that its controls match the program's, as the
// program lays them out with both games installed.
#include <algorithm>
#include <functional>
#include <iterator>
#include <string_view>

#include "platform/win32/looks.h"
#include "quit_on_destroy.h"
#include "windows/Form1_layout.h"

namespace {

using form1_layout::kControls;
using forms::ControlArgs;
using forms::ControlType;

// What the program's load changes in the table, with both games installed: Direct3D and the
// full game selected, and both variants enabled.
constexpr std::string_view kSelected[] = {"Option1", "Option3"};
constexpr std::string_view kEnabled[] = {"Option3", "Option4"};

bool Named(const auto& names, const char* name) {
  return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

// The lone control of that name, which a row names as its container.
const ControlArgs* Container(const char* name) {
  for (const ControlArgs& row : kControls) {
    if (name != nullptr && row.index == -1 && std::string_view(row.name) == name) return &row;
  }
  return nullptr;
}

// As the native layer has it: each control starts a group of its own for the arrow keys, but
// for the option buttons that follow one of their own container.
bool StartsGroup(std::size_t i) {
  if (i == 0 || kControls[i].type != ControlType::OptionButton) return true;
  const ControlArgs& previous = kControls[i - 1];
  return previous.type != ControlType::OptionButton ||
         Container(previous.container) != Container(kControls[i].container);
}

void MakeControl(HWND window, std::size_t i, int dpi) {
  const ControlArgs& row = kControls[i];
  // Placed from its containers' corners, as a child of the window itself.
  int left = row.at.left, top = row.at.top;
  for (const ControlArgs* box = Container(row.container); box != nullptr;
       box = Container(box->container)) {
    left += box->at.left;
    top += box->at.top;
  }
  const char* defaultButton = form1_layout::kWindow.defaultButton;
  const bool isDefault = defaultButton != nullptr && std::string_view(row.name) == defaultButton;
  DWORD style =
      win32::ControlStyle(row.type, StartsGroup(i), row.enabled || Named(kEnabled, row.name), isDefault);
  // Tab reaches a group of option buttons at its selected one only.
  const bool selected = row.type == ControlType::OptionButton && Named(kSelected, row.name);
  if (row.type == ControlType::OptionButton && !selected) style &= ~static_cast<DWORD>(WS_TABSTOP);
  const bool picture = row.type == ControlType::PictureBox && row.picture != nullptr;
  if (picture) style |= SS_BITMAP;  // the main window's pictures are bitmaps
  const int width = win32::Pixels(row.at.width, dpi), height = win32::Pixels(row.at.height, dpi);
  HWND made = ::CreateWindowExA(
      win32::ControlExStyle(row.type, row.flags), win32::LookOf(row.type).className, row.caption,
      style, win32::Pixels(left, dpi), win32::Pixels(top, dpi), width, height, window,
      reinterpret_cast<HMENU>(static_cast<INT_PTR>(win32::kFirstControlId + static_cast<int>(i))),
      win32::Instance(), nullptr);
  const auto font = reinterpret_cast<WPARAM>(::GetStockObject(DEFAULT_GUI_FONT));
  ::SendMessageA(made, WM_SETFONT, font, FALSE);
  if (selected || (row.type == ControlType::CheckBox && row.value == 1)) {
    ::SendMessageA(made, BM_SETCHECK, BST_CHECKED, 0);
  }
  if (picture) {
    // The picture at the box's top left corner; the box keeps its own size.
    ::SendMessageA(made, STM_SETIMAGE, IMAGE_BITMAP,
                   reinterpret_cast<LPARAM>(::LoadImageA(win32::Instance(), row.picture, IMAGE_BITMAP,
                                                         0, 0, LR_DEFAULTCOLOR)));
    ::SetWindowPos(made, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  }
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
  HDC screen = ::GetDC(nullptr);
  const int dpi = ::GetDeviceCaps(screen, LOGPIXELSY);
  ::ReleaseDC(nullptr, screen);

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

  const forms::WindowArgs& args = form1_layout::kWindow;
  const win32::WindowStyle style = win32::StyleOf(args.border);
  HMENU menu = args.hasMenu ? win32::BuildMenuBar(form1_layout::kMenus, std::identity{}) : nullptr;
  const int width = win32::Pixels(args.clientWidth, dpi), height = win32::Pixels(args.clientHeight, dpi);
  RECT frame{0, 0, width, height};
  ::AdjustWindowRectEx(&frame, style.style, menu != nullptr ? TRUE : FALSE, style.exStyle);
  // The caption as the table holds it; the system hands it on to the class's Unicode procedure.
  HWND window = ::CreateWindowExA(style.exStyle, "SameWindow", args.caption, style.style,
                                  CW_USEDEFAULT, CW_USEDEFAULT, frame.right - frame.left,
                                  frame.bottom - frame.top, nullptr, menu, instance, nullptr);
  if (window == nullptr) return 1;
  win32::FitClientArea(window, width, height);

  // Layer by layer, each in table order, as the native layer makes them: the stack is the same.
  for (int layer : {0, 1, 2}) {
    for (std::size_t i = 0; i < std::size(kControls); ++i) {
      const win32::Look& look = win32::LookOf(kControls[i].type);
      if (look.className != nullptr && look.layer == layer) MakeControl(window, i, dpi);
    }
  }

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
