// Native windows: one top-level Win32 window per form, whose state hangs on the window itself,
// its window procedure, and the program's event loop.
#include <memory>

#include "platform/platform.h"
#include "platform/win32/form.h"

namespace win32 {

namespace {

constexpr char kClassName[] = "KelvarniteForm";

LRESULT CALLBACK FormProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

ATOM FormClass() {
  static const ATOM atom = [] {
    WNDCLASSEXA windowClass{};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.lpfnWndProc = FormProc;
    windowClass.hInstance = Instance();
    windowClass.hIcon = ::LoadIconA(Instance(), MAKEINTRESOURCEA(1));
    windowClass.hIconSm = static_cast<HICON>(
        ::LoadImageA(Instance(), MAKEINTRESOURCEA(1), IMAGE_ICON, ::GetSystemMetrics(SM_CXSMICON),
                     ::GetSystemMetrics(SM_CYSMICON), LR_DEFAULTCOLOR));
    windowClass.hCursor = ::LoadCursorA(nullptr, MAKEINTRESOURCEA(32512));  // the arrow
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(COLOR_BTNFACE + 1));
    windowClass.lpszClassName = kClassName;
    return ::RegisterClassExA(&windowClass);
  }();
  return atom;
}

// The first control that the Tab key can reach, in tab order.
HWND FirstTabStop(HWND hwnd) {
  for (HWND child = ::GetWindow(hwnd, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT)) {
    LONG style = ::GetWindowLongA(child, GWL_STYLE);
    if ((style & WS_TABSTOP) != 0 && (style & WS_VISIBLE) != 0 && (style & WS_DISABLED) == 0) {
      return child;
    }
  }
  return nullptr;
}

// The focus leaves with the window's deactivation and comes back with its activation, to the
// control that had it where that can still take it.
bool OnActivate(HWND hwnd, FormState& state, WPARAM wParam) {
  if (LOWORD(wParam) == WA_INACTIVE) {
    HWND focus = ::GetFocus();
    if (focus != nullptr && ::IsChild(hwnd, focus)) state.lastFocus = focus;
    return true;
  }
  if (HIWORD(wParam) != 0) return false;  // minimised
  HWND focus = state.lastFocus;
  if (focus == nullptr || !::IsWindow(focus) || !::IsWindowEnabled(focus)) focus = FirstTabStop(hwnd);
  if (focus == nullptr) return false;
  ::SetFocus(focus);
  return true;
}

LRESULT CALLBACK FormProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    // The state comes with the window's creation, and is the window's from then on.
    auto* owner = static_cast<std::unique_ptr<FormState>*>(
        reinterpret_cast<CREATESTRUCTA*>(lParam)->lpCreateParams);
    ::SetWindowLongPtrA(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(owner->release()));
  } else if (message == WM_NCDESTROY) {
    std::unique_ptr<FormState> state(FormOf(hwnd));
    ::SetWindowLongPtrA(hwnd, GWLP_USERDATA, 0);
  }
  FormState* state = FormOf(hwnd);
  if (state == nullptr || state->window == nullptr) return ::DefWindowProcA(hwnd, message, wParam, lParam);
  // The forms layer may close this window inside any call below, and its state goes with it;
  // only the window object, which lives on to the end of the event, is used after such a call.
  forms::Window& window = *state->window;
  switch (message) {
    case WM_CLOSE:
      window.UserClose();
      return 0;
    case WM_PAINT:
      PaintLines(hwnd, window);
      return 0;
    case WM_CTLCOLORSTATIC:
      if (LRESULT brush = LabelColors(window, reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam))) {
        return brush;
      }
      break;
    case WM_COMMAND:
      // The dialog manager's Enter and Esc, which it sends for keys the controls did not take.
      if (LOWORD(wParam) == IDOK) {
        window.UserPressEnter(ControlOf(window, ::GetFocus()));
      } else if (LOWORD(wParam) == IDCANCEL) {
        window.UserPressEscape();
      } else if (lParam == 0) {
        if (HIWORD(wParam) == 0) OnMenu(window, LOWORD(wParam));
      } else {
        OnControl(window, LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam));
      }
      return 0;
    case WM_ACTIVATE:
      if (OnActivate(hwnd, *state, wParam)) return 0;
      break;
    default:
      break;
  }
  return ::DefWindowProcA(hwnd, message, wParam, lParam);
}

}  // namespace

FormState* FormOf(HWND hwnd) {
  if (hwnd == nullptr || static_cast<ATOM>(::GetClassLongA(hwnd, GCW_ATOM)) != FormClass()) return nullptr;
  return reinterpret_cast<FormState*>(::GetWindowLongPtrA(hwnd, GWLP_USERDATA));
}

// The chain of parents is walked by hand because GetAncestor is documented only from Windows
// 2000 on, and the program also runs on Windows 98 SE and ME.
HWND TopLevelOf(HWND hwnd) {
  while ((::GetWindowLongA(hwnd, GWL_STYLE) & WS_CHILD) != 0) {
    HWND parent = ::GetParent(hwnd);
    if (parent == nullptr) break;
    hwnd = parent;
  }
  return hwnd;
}

}  // namespace win32

namespace platform {

WindowHandle CreateNativeWindow(forms::Window& window) {
  const forms::WindowArgs& args = window.Args();
  const win32::WindowStyle style = win32::StyleOf(args.border);
  // Made at its size and with its menu at once: each change of a window costs its time.
  HMENU menu = args.hasMenu && !window.Menus().empty() ? win32::BuildMenuBar(window) : nullptr;
  const int screenDpi = win32::DpiOf(nullptr);
  RECT frame{0, 0, win32::Pixels(args.clientWidth, screenDpi), win32::Pixels(args.clientHeight, screenDpi)};
  ::AdjustWindowRectEx(&frame, style.style, menu != nullptr ? TRUE : FALSE, style.exStyle);
  auto state = std::make_unique<win32::FormState>();
  state->window = &window;
  HWND hwnd = ::CreateWindowExA(style.exStyle, MAKEINTATOM(win32::FormClass()), window.Caption().c_str(),
                                style.style, CW_USEDEFAULT, CW_USEDEFAULT, frame.right - frame.left,
                                frame.bottom - frame.top, nullptr, menu, win32::Instance(), &state);
  if (hwnd == nullptr) {
    if (menu != nullptr) ::DestroyMenu(menu);  // no window took it
    return 0;
  }
  const int dpi = win32::DpiOf(hwnd);
  win32::FitClientArea(hwnd, win32::Pixels(args.clientWidth, dpi), win32::Pixels(args.clientHeight, dpi));
  if (args.left || args.top) {
    // The position is that of the client area's corner, whatever the frame around it.
    POINT corner{0, 0};
    ::ClientToScreen(hwnd, &corner);
    RECT outer{};
    ::GetWindowRect(hwnd, &outer);
    ::SetWindowPos(hwnd, nullptr, win32::Pixels(args.left.value_or(0), screenDpi) - (corner.x - outer.left),
                   win32::Pixels(args.top.value_or(0), screenDpi) - (corner.y - outer.top), 0, 0,
                   SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  }
  return win32::FromHwnd(hwnd);
}

void ShowNativeWindow(forms::Window& window) {
  HWND hwnd = win32::ToHwnd(window.hWnd());
  if (hwnd == nullptr || !::IsWindow(hwnd)) return;
  // The controls are made as the window first shows, with what its load made of them: each
  // change to a control on the screen costs about as much as making it.
  win32::FormState* state = win32::FormOf(hwnd);
  if (state != nullptr && !state->controlsMade) {
    state->controlsMade = true;
    win32::CreateControls(hwnd, *state, win32::DpiOf(hwnd));
  }
  if (!::IsWindowVisible(hwnd)) {
    ::ShowWindow(hwnd, SW_SHOW);
    ::UpdateWindow(hwnd);
  } else {
    // Shown again while open: it comes to the front.
    ::SetForegroundWindow(hwnd);
  }
}

void UpdateNativeWindow(forms::Window& window) {
  HWND hwnd = win32::ToHwnd(window.hWnd());
  if (hwnd != nullptr && ::IsWindow(hwnd)) ::SetWindowTextA(hwnd, window.Caption().c_str());
}

// The menu bar, the tool tips and the state, pictures included, go with the window.
void DestroyNativeWindow(forms::Window& window) {
  for (const auto& control : window.Controls()) control->peer = 0;
  HWND hwnd = win32::ToHwnd(window.hWnd());
  if (hwnd != nullptr && ::IsWindow(hwnd)) ::DestroyWindow(hwnd);
}

int RunEventLoop() {
  MSG message{};
  for (;;) {
    BOOL got = ::GetMessageA(&message, nullptr, 0, 0);
    if (got == 0 || got == -1) break;
    // Tab, the arrow keys and the access keys move between the controls of a form.
    HWND root = message.hwnd != nullptr ? win32::TopLevelOf(message.hwnd) : nullptr;
    win32::FormState* form = win32::FormOf(root);
    if (form != nullptr) form->tips.Watch(root, message);
    if (form == nullptr || !::IsDialogMessageA(root, &message)) {
      ::TranslateMessage(&message);
      ::DispatchMessageA(&message);
    }
    forms::CollectClosed();
  }
  return static_cast<int>(message.wParam);
}

void PaintWindows() {
  MSG message;
  while (::PeekMessageA(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE)) ::DispatchMessageA(&message);
}

}  // namespace platform
