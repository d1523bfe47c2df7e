// Native windows: one top-level Win32 window per form, with standard controls that mirror
// the state kept by the forms layer and report the user's input back to it.
#include <map>
#include <vector>

#include "platform/forms/window.h"
#include "platform/platform.h"
#include "platform/win32/pictures.h"
#include "platform/win32/win32.h"

#include <commctrl.h>

namespace {

constexpr char kClassName[] = "KelvarniteForm";
// Menu entries and controls get command ids of their own ranges. Both stay clear of IDOK and
// IDCANCEL, which the dialog manager sends for Enter and Esc and FormProc hands to the window.
constexpr int kFirstMenuId = 100;
constexpr int kFirstControlId = 1000;
// Rows the drop-down list of a combo box shows before it scrolls.
constexpr int kComboListRows = 12;

struct NativeWindow {
  forms::Window* window = nullptr;
  HWND lastFocus = nullptr;  // restored when the window is activated again
  HWND toolTip = nullptr;    // the tool tips of its controls
  std::vector<win32::Picture> pictures;  // shown by its picture boxes, freed with it
  std::map<HWND, std::string> tips;      // the text each control's tool tip shows
};

struct WindowStyle {
  DWORD style, exStyle;
};

// Neither border can be resized, and neither has a minimise or maximise button.
WindowStyle StyleOf(const forms::WindowArgs& args) {
  if (args.border == forms::BorderStyle::FixedDialog) {
    return {WS_POPUP | WS_CAPTION | WS_SYSMENU, WS_EX_DLGMODALFRAME};
  }
  return {WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_BORDER, 0};
}

std::map<HWND, NativeWindow>& Windows() {
  static std::map<HWND, NativeWindow> windows;
  return windows;
}

// The top-level window that holds a window: the window itself unless it is a child. The
// chain of parents is walked by hand because GetAncestor is documented only from Windows 2000
// on, and the program also runs on Windows 98 SE and ME.
HWND TopLevelOf(HWND hwnd) {
  while ((::GetWindowLongA(hwnd, GWL_STYLE) & WS_CHILD) != 0) {
    HWND parent = ::GetParent(hwnd);
    if (parent == nullptr) break;
    hwnd = parent;
  }
  return hwnd;
}

// Set while a control is brought in line with the forms layer: the notifications that the
// system sends for changes made from code are not the user's input.
bool updating = false;

class UpdateScope {
 public:
  UpdateScope() : previous_(updating) { updating = true; }
  ~UpdateScope() { updating = previous_; }
  UpdateScope(const UpdateScope&) = delete;
  UpdateScope& operator=(const UpdateScope&) = delete;

 private:
  bool previous_;
};

std::string WindowText(HWND hwnd) {
  int length = ::GetWindowTextLengthA(hwnd);
  if (length <= 0) return std::string();
  std::vector<char> buffer(static_cast<std::size_t>(length) + 1, '\0');
  int copied = ::GetWindowTextA(hwnd, buffer.data(), length + 1);
  return std::string(buffer.data(), static_cast<std::size_t>(copied > 0 ? copied : 0));
}

// A colour of the forms (0xRRGGBB) as the system's.
COLORREF ColorRefOf(std::int32_t c) { return RGB((c >> 16) & 0xFF, (c >> 8) & 0xFF, c & 0xFF); }

// Dots per inch of a window: its own where the system knows it per window (Windows 10),
// else the screen's.
int DpiOf(HWND hwnd) {
  static const auto getDpiForWindow =
      win32::LateBound<UINT(WINAPI*)(HWND)>("user32.dll", "GetDpiForWindow");
  if (hwnd != nullptr && getDpiForWindow != nullptr) {
    UINT dpi = getDpiForWindow(hwnd);
    if (dpi != 0) return static_cast<int>(dpi);
  }
  HDC screen = ::GetDC(nullptr);
  int dpi = screen != nullptr ? ::GetDeviceCaps(screen, LOGPIXELSY) : 0;
  if (screen != nullptr) ::ReleaseDC(nullptr, screen);
  return dpi > 0 ? dpi : 96;
}

// Twips are 1440 to the inch.
int Pixels(int twips, int dpi) { return ::MulDiv(twips, dpi, 1440); }

// The platform's default font, or a size of it for headings and small print. The sizes are
// made once for the program's life.
HFONT ControlFont(int flags, int dpi) {
  HFONT standard = static_cast<HFONT>(::GetStockObject(DEFAULT_GUI_FONT));
  const bool large = (flags & forms::kLargeText) != 0, small = (flags & forms::kSmallText) != 0;
  if (!large && !small) return standard;
  static std::map<std::pair<int, int>, HFONT> made;
  HFONT& font = made[{flags & (forms::kLargeText | forms::kSmallText), dpi}];
  if (font == nullptr) {
    LOGFONTA look{};
    ::GetObjectA(standard, sizeof(look), &look);
    look.lfHeight = -::MulDiv(large ? 12 : 7, dpi, 72);
    if (large) look.lfWeight = FW_BOLD;
    font = ::CreateFontIndirectA(&look);
  }
  return font != nullptr ? font : standard;
}

LRESULT CALLBACK FormProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

void RegisterFormClass() {
  static bool registered = false;
  if (registered) return;
  WNDCLASSEXA windowClass{};
  windowClass.cbSize = sizeof(windowClass);
  windowClass.lpfnWndProc = FormProc;
  windowClass.hInstance = win32::Instance();
  windowClass.hIcon = ::LoadIconA(win32::Instance(), MAKEINTRESOURCEA(1));
  windowClass.hIconSm = static_cast<HICON>(
      ::LoadImageA(win32::Instance(), MAKEINTRESOURCEA(1), IMAGE_ICON, ::GetSystemMetrics(SM_CXSMICON),
                   ::GetSystemMetrics(SM_CYSMICON), LR_DEFAULTCOLOR));
  windowClass.hCursor = ::LoadCursorA(nullptr, MAKEINTRESOURCEA(32512));  // the arrow
  windowClass.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(COLOR_BTNFACE + 1));
  windowClass.lpszClassName = kClassName;
  ::RegisterClassExA(&windowClass);
  registered = true;
}

// The menu bar from the window's table. An entry that other entries name as their parent is
// a drop-down menu; every other entry is a command whose id follows from its row.
HMENU BuildMenuBar(const forms::Window& window) {
  const auto& items = window.Menus();
  std::vector<HMENU> popups(items.size(), nullptr);
  for (std::size_t i = 0; i < items.size(); ++i) {
    for (const auto& other : items) {
      if (other.args.parent != nullptr && std::string(other.args.parent) == items[i].args.name) {
        popups[i] = ::CreatePopupMenu();
        break;
      }
    }
  }
  HMENU bar = ::CreateMenu();
  for (std::size_t i = 0; i < items.size(); ++i) {
    const forms::MenuArgs& args = items[i].args;
    HMENU target = bar;
    if (args.parent != nullptr) {
      target = nullptr;
      for (std::size_t p = 0; p < items.size(); ++p) {
        if (std::string(args.parent) == items[p].args.name) target = popups[p];
      }
      if (target == nullptr) continue;
    }
    std::string caption = args.caption != nullptr ? args.caption : "";
    if (popups[i] != nullptr) {
      ::AppendMenuA(target, MF_STRING | MF_POPUP, reinterpret_cast<UINT_PTR>(popups[i]),
                    caption.c_str());
    } else if (caption == "-") {
      ::AppendMenuA(target, MF_SEPARATOR, 0, nullptr);
    } else {
      ::AppendMenuA(target, MF_STRING, static_cast<UINT_PTR>(kFirstMenuId + i), caption.c_str());
    }
  }
  return bar;
}

// The outer size of a window whose client area is width by height pixels.
SIZE FrameSize(const WindowStyle& style, bool menu, int width, int height) {
  RECT frame{0, 0, width, height};
  ::AdjustWindowRectEx(&frame, style.style, menu ? TRUE : FALSE, style.exStyle);
  return {frame.right - frame.left, frame.bottom - frame.top};
}

// Makes the client area exactly width by height pixels, where the frame's size missed it: a
// menu bar that wraps onto a second line is only known once the window has its width.
void FitClientArea(HWND hwnd, int width, int height) {
  RECT client{};
  ::GetClientRect(hwnd, &client);
  int extraWidth = width - (client.right - client.left);
  int extraHeight = height - (client.bottom - client.top);
  if (extraWidth != 0 || extraHeight != 0) {
    RECT outer{};
    ::GetWindowRect(hwnd, &outer);
    ::SetWindowPos(hwnd, nullptr, 0, 0, outer.right - outer.left + extraWidth,
                   outer.bottom - outer.top + extraHeight,
                   SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  }
}

struct NativeClass {
  const char* name;
  DWORD style;
  DWORD exStyle;
  bool focusable;
};

NativeClass ClassOf(forms::ControlType type) {
  switch (type) {
    case forms::ControlType::Frame: return {"BUTTON", BS_GROUPBOX, 0, false};
    case forms::ControlType::CheckBox: return {"BUTTON", BS_AUTOCHECKBOX, 0, true};
    // Not automatic: the forms layer decides the selection, and the buttons follow it.
    case forms::ControlType::OptionButton: return {"BUTTON", BS_RADIOBUTTON, 0, true};
    case forms::ControlType::CommandButton: return {"BUTTON", BS_PUSHBUTTON, 0, true};
    case forms::ControlType::TextBox:
      return {"EDIT", ES_LEFT | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE, true};
    case forms::ControlType::ComboBox:
      return {"COMBOBOX", CBS_DROPDOWNLIST | WS_VSCROLL, 0, true};
    // Notifying, so that a tool tip sees the mouse over it.
    case forms::ControlType::Label: return {"STATIC", SS_LEFT | SS_NOTIFY, 0, false};
    case forms::ControlType::PictureBox: return {"STATIC", SS_NOTIFY, 0, false};
    case forms::ControlType::Line: break;  // drawn by the window itself
  }
  return {"STATIC", SS_LEFT, 0, false};
}

// Each control starts a group of its own for the arrow keys, but for the option buttons that
// follow one of their own container: those form the group of that container.
bool StartsGroup(const std::vector<std::unique_ptr<forms::Control>>& controls, std::size_t i) {
  if (i == 0 || controls[i]->Type() != forms::ControlType::OptionButton) return true;
  const forms::Control& previous = *controls[i - 1];
  return previous.Type() != forms::ControlType::OptionButton ||
         previous.Container() != controls[i]->Container();
}

// Shows the stored picture of a picture box at its top left corner, unscaled. A box that takes
// the size of its picture grows or shrinks to it, border included.
void ShowPicture(HWND hwnd, forms::Control& control, NativeWindow& owner, int width, int height) {
  win32::Picture picture = win32::LoadStoredPicture(control.Picture());
  if (picture.handle == nullptr) return;
  owner.pictures.push_back(picture);
  LONG style = ::GetWindowLongA(hwnd, GWL_STYLE);
  ::SetWindowLongA(hwnd, GWL_STYLE, style | (picture.isIcon ? SS_ICON : SS_BITMAP));
  ::SendMessageA(hwnd, STM_SETIMAGE, picture.isIcon ? IMAGE_ICON : IMAGE_BITMAP,
                 reinterpret_cast<LPARAM>(picture.handle));
  if ((control.Flags() & forms::kAutoSize) != 0) {
    SIZE size = win32::PictureSize(picture);
    RECT frame{0, 0, size.cx, size.cy};
    ::AdjustWindowRectEx(&frame, static_cast<DWORD>(::GetWindowLongA(hwnd, GWL_STYLE)), FALSE,
                         static_cast<DWORD>(::GetWindowLongA(hwnd, GWL_EXSTYLE)));
    width = frame.right - frame.left;
    height = frame.bottom - frame.top;
  }
  // The static has taken the picture's size; the box keeps its own.
  ::SetWindowPos(hwnd, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CreateControl(HWND parent, const std::vector<std::unique_ptr<forms::Control>>& controls,
                   std::size_t i, int dpi) {
  forms::Control& control = *controls[i];
  if (control.Type() == forms::ControlType::Line) return;
  NativeClass native = ClassOf(control.Type());
  // Controls inside a frame are placed from the frame's corner, but are children of the
  // window itself: a group box is only a picture and must not take their messages.
  int left = control.Left();
  int top = control.Top();
  for (const forms::Control* box = control.Container(); box != nullptr; box = box->Container()) {
    left += box->Left();
    top += box->Top();
  }
  DWORD style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | native.style;
  if (native.focusable) style |= WS_TABSTOP;
  if (StartsGroup(controls, i)) style |= WS_GROUP;
  if (!control.Enabled()) style |= WS_DISABLED;
  if ((control.Flags() & forms::kBorder) != 0) native.exStyle |= WS_EX_CLIENTEDGE;
  const char* defaultButton = control.Parent().Args().defaultButton;
  if (defaultButton != nullptr && control.Name() == defaultButton) {
    style = (style & ~static_cast<DWORD>(BS_PUSHBUTTON)) | BS_DEFPUSHBUTTON;
  }
  std::string caption;
  if (control.Type() == forms::ControlType::TextBox) {
    caption = static_cast<forms::TextBox&>(control).Text();
  } else if (control.Type() != forms::ControlType::ComboBox) {
    caption = control.Caption();
  }
  HWND hwnd = ::CreateWindowExA(
      native.exStyle, native.name, caption.c_str(), style, Pixels(left, dpi), Pixels(top, dpi),
      Pixels(control.Width(), dpi), Pixels(control.Height(), dpi), parent,
      reinterpret_cast<HMENU>(static_cast<INT_PTR>(kFirstControlId + static_cast<int>(i))),
      win32::Instance(), nullptr);
  if (hwnd == nullptr) return;
  ::SendMessageA(hwnd, WM_SETFONT, reinterpret_cast<WPARAM>(ControlFont(control.Flags(), dpi)),
                 FALSE);
  if (control.Type() == forms::ControlType::PictureBox) {
    ShowPicture(hwnd, control, Windows()[parent], Pixels(control.Width(), dpi),
                Pixels(control.Height(), dpi));
  }
  if (control.Type() == forms::ControlType::ComboBox) {
    // The height of a drop-down list's field follows from its font; the height given at its
    // creation is that of the field and the opened list together.
    LRESULT field = ::SendMessageA(hwnd, CB_GETITEMHEIGHT, static_cast<WPARAM>(-1), 0);
    LRESULT row = ::SendMessageA(hwnd, CB_GETITEMHEIGHT, 0, 0);
    if (field > 0 && row > 0) {
      ::SetWindowPos(hwnd, nullptr, 0, 0, Pixels(control.Width(), dpi),
                     static_cast<int>(field + 8 + row * kComboListRows),
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
  }
  control.peer = win32::FromHwnd(hwnd);
  platform::UpdateNativeControl(control);
}

// Frames and labels are drawn beneath every other control, as backgrounds are: a control that
// lies over a frame or a label stays visible. Neither takes the focus, so the tab order of
// the others does not change.
void LayerBackgrounds(const forms::Window& window) {
  for (forms::ControlType type : {forms::ControlType::Label, forms::ControlType::Frame}) {
    for (const auto& control : window.Controls()) {
      if (control->Type() != type || control->peer == 0) continue;
      ::SetWindowPos(win32::ToHwnd(control->peer), HWND_BOTTOM, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }
  }
}

// The first control that the Tab key can reach, in tab order.
HWND FirstTabStop(HWND hwnd) {
  for (HWND child = ::GetWindow(hwnd, GW_CHILD); child != nullptr;
       child = ::GetWindow(child, GW_HWNDNEXT)) {
    LONG style = ::GetWindowLongA(child, GWL_STYLE);
    if ((style & WS_TABSTOP) != 0 && (style & WS_VISIBLE) != 0 && (style & WS_DISABLED) == 0) {
      return child;
    }
  }
  return nullptr;
}

void MirrorOptionButtons(const forms::Window& window) {
  for (const auto& control : window.Controls()) {
    if (control->Type() == forms::ControlType::OptionButton) {
      platform::UpdateNativeControl(*control);
    }
  }
}

// The control's tool tip, in the tool tips of its window: added, changed or taken away. A
// control is updated at every change of its state, its tip only when its text changes.
void UpdateToolTip(HWND hwnd, const forms::Control& control) {
  auto found = Windows().find(TopLevelOf(hwnd));
  if (found == Windows().end() || found->second.toolTip == nullptr) return;
  auto shown = found->second.tips.find(hwnd);
  if (shown != found->second.tips.end() && shown->second == control.ToolTipText()) return;
  found->second.tips[hwnd] = control.ToolTipText();
  TOOLINFOA tool{};
  // The size that every version of the common controls knows.
  tool.cbSize = TTTOOLINFOA_V2_SIZE;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = ::GetParent(hwnd);
  tool.uId = reinterpret_cast<UINT_PTR>(hwnd);
  ::SendMessageA(found->second.toolTip, TTM_DELTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
  if (control.ToolTipText().empty()) return;
  std::string text = control.ToolTipText();
  tool.lpszText = text.data();
  ::SendMessageA(found->second.toolTip, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
}

// The tool tips of a window's controls, made once it is on the screen: nobody can point at a
// control before, and the common controls and a window of their own would hold up the first
// showing.
void AddToolTips(HWND hwnd, forms::Window& window) {
  NativeWindow& native = Windows()[hwnd];
  if (native.toolTip != nullptr) return;
  static const auto initControls =
      win32::LateBound<decltype(&::InitCommonControlsEx)>("comctl32.dll", "InitCommonControlsEx");
  INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_WIN95_CLASSES};
  if (initControls == nullptr || !initControls(&classes)) return;
  native.toolTip = ::CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, nullptr,
                                     WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT,
                                     CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, hwnd, nullptr,
                                     win32::Instance(), nullptr);
  for (const auto& control : window.Controls()) {
    if (control->peer != 0) UpdateToolTip(win32::ToHwnd(control->peer), *control);
  }
}

void OnMenu(forms::Window& window, int id) {
  if (id < kFirstMenuId) return;
  auto index = static_cast<std::size_t>(id - kFirstMenuId);
  if (index >= window.Menus().size()) return;
  std::string name = window.Menus()[index].args.name;
  window.UserMenuClick(name);
}

void OnControl(forms::Window& window, int id, int code, HWND hwnd) {
  if (updating || id < kFirstControlId) return;
  auto index = static_cast<std::size_t>(id - kFirstControlId);
  if (index >= window.Controls().size()) return;
  forms::Control& control = *window.Controls()[index];
  switch (control.Type()) {
    case forms::ControlType::CheckBox:
      if (code != BN_CLICKED) return;
      control.UserClick();
      // The box changed itself already; a refused click (disabled) is undone here.
      platform::UpdateNativeControl(control);
      return;
    case forms::ControlType::OptionButton:
      if (code != BN_CLICKED) return;
      control.UserClick();
      MirrorOptionButtons(window);
      return;
    case forms::ControlType::CommandButton:
      if (code == BN_CLICKED) control.UserClick();
      return;
    case forms::ControlType::PictureBox:
      if (code == STN_CLICKED) control.UserClick();
      return;
    case forms::ControlType::TextBox:
      if (code == EN_CHANGE) static_cast<forms::TextBox&>(control).UserSetText(WindowText(hwnd));
      return;
    case forms::ControlType::ComboBox:
      if (code == CBN_SELCHANGE) {
        auto selected = static_cast<int>(::SendMessageA(hwnd, CB_GETCURSEL, 0, 0));
        if (!static_cast<forms::ComboBox&>(control).UserSelect(selected)) {
          platform::UpdateNativeControl(control);
        }
      }
      return;
    case forms::ControlType::Frame:
    case forms::ControlType::Label:
    case forms::ControlType::Line:
      return;
  }
}

// The lines of the window, beneath its controls.
void PaintLines(HWND hwnd, const forms::Window& window) {
  PAINTSTRUCT paint;
  HDC dc = ::BeginPaint(hwnd, &paint);
  const int dpi = DpiOf(hwnd);
  for (const auto& control : window.Controls()) {
    if (control->Type() != forms::ControlType::Line) continue;
    const std::int32_t c = control->ForeColor() == forms::kSystemColor ? 0 : control->ForeColor();
    // Drawn inside its width, as a frame is, so that a wide line grows downwards.
    HPEN pen = ::CreatePen(PS_INSIDEFRAME, control->BorderWidth(), ColorRefOf(c));
    HGDIOBJ old = ::SelectObject(dc, pen);
    ::MoveToEx(dc, Pixels(control->Left(), dpi), Pixels(control->Top(), dpi), nullptr);
    ::LineTo(dc, Pixels(control->Left() + control->Width(), dpi),
             Pixels(control->Top() + control->Height(), dpi));
    ::SelectObject(dc, old);
    ::DeleteObject(pen);
  }
  ::EndPaint(hwnd, &paint);
}

forms::Control* ControlOfWindow(forms::Window& window, HWND hwnd) {
  for (const auto& control : window.Controls()) {
    if (control->peer != 0 && win32::ToHwnd(control->peer) == hwnd) return control.get();
  }
  return nullptr;
}

// A label of a colour of its own; the others keep the system's.
LRESULT LabelColors(forms::Window& window, HDC dc, HWND label) {
  forms::Control* control = ControlOfWindow(window, label);
  if (control == nullptr || control->ForeColor() == forms::kSystemColor) return 0;
  const std::int32_t c = control->ForeColor();
  ::SetTextColor(dc, ColorRefOf(c));
  ::SetBkColor(dc, ::GetSysColor(COLOR_BTNFACE));
  return reinterpret_cast<LRESULT>(::GetSysColorBrush(COLOR_BTNFACE));
}

LRESULT CALLBACK FormProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
  auto found = Windows().find(hwnd);
  if (found == Windows().end()) return ::DefWindowProcA(hwnd, message, wParam, lParam);
  // The forms layer may close this window inside any call below; only the window object,
  // which lives on to the end of the event, is used after it.
  forms::Window& window = *found->second.window;
  switch (message) {
    case WM_CLOSE:
      window.UserClose();
      return 0;
    case WM_PAINT:
      PaintLines(hwnd, window);
      return 0;
    case WM_CTLCOLORSTATIC:
      if (LRESULT brush = LabelColors(window, reinterpret_cast<HDC>(wParam),
                                      reinterpret_cast<HWND>(lParam))) {
        return brush;
      }
      break;
    case WM_COMMAND:
      // The dialog manager's Enter and Esc, which it sends for keys the controls did not take.
      if (LOWORD(wParam) == IDOK) {
        window.UserPressEnter(ControlOfWindow(window, ::GetFocus()));
        return 0;
      }
      if (LOWORD(wParam) == IDCANCEL) {
        window.UserPressEscape();
        return 0;
      }
      if (lParam == 0) {
        if (HIWORD(wParam) == 0) OnMenu(window, LOWORD(wParam));
      } else {
        OnControl(window, LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam));
      }
      return 0;
    case WM_ACTIVATE: {
      if (LOWORD(wParam) == WA_INACTIVE) {
        HWND focus = ::GetFocus();
        if (focus != nullptr && ::IsChild(hwnd, focus)) found->second.lastFocus = focus;
        return 0;
      }
      if (HIWORD(wParam) != 0) break;  // minimised
      HWND focus = found->second.lastFocus;
      if (focus == nullptr || !::IsWindow(focus) || !::IsWindowEnabled(focus)) {
        focus = FirstTabStop(hwnd);
      }
      if (focus == nullptr) break;
      ::SetFocus(focus);
      return 0;
    }
    default:
      break;
  }
  return ::DefWindowProcA(hwnd, message, wParam, lParam);
}

}  // namespace

namespace platform {

WindowHandle CreateNativeWindow(forms::Window& window) {
  RegisterFormClass();
  const forms::WindowArgs& args = window.Args();
  const WindowStyle style = StyleOf(args);
  // Made at its size and with its menu at once: each change of a window costs its time.
  HMENU menu = args.hasMenu && !window.Menus().empty() ? BuildMenuBar(window) : nullptr;
  const int screenDpi = DpiOf(nullptr);
  const SIZE frame = FrameSize(style, menu != nullptr, Pixels(args.clientWidth, screenDpi),
                               Pixels(args.clientHeight, screenDpi));
  HWND hwnd = ::CreateWindowExA(style.exStyle, kClassName, window.Caption().c_str(), style.style,
                                CW_USEDEFAULT, CW_USEDEFAULT, frame.cx, frame.cy, nullptr, menu,
                                win32::Instance(), nullptr);
  if (hwnd == nullptr) return 0;
  Windows()[hwnd].window = &window;
  int dpi = DpiOf(hwnd);
  FitClientArea(hwnd, Pixels(args.clientWidth, dpi), Pixels(args.clientHeight, dpi));
  if (args.left || args.top) {
    // The position is that of the client area's corner, whatever the frame around it.
    POINT corner{0, 0};
    ::ClientToScreen(hwnd, &corner);
    RECT outer{};
    ::GetWindowRect(hwnd, &outer);
    ::SetWindowPos(hwnd, nullptr,
                   Pixels(args.left.value_or(0), screenDpi) - (corner.x - outer.left),
                   Pixels(args.top.value_or(0), screenDpi) - (corner.y - outer.top), 0, 0,
                   SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  }
  // In table order, which is the tab order.
  const auto& controls = window.Controls();
  for (std::size_t i = 0; i < controls.size(); ++i) CreateControl(hwnd, controls, i, dpi);
  LayerBackgrounds(window);
  return win32::FromHwnd(hwnd);
}

void ShowNativeWindow(forms::Window& window) {
  HWND hwnd = win32::ToHwnd(window.hWnd());
  if (hwnd == nullptr || !::IsWindow(hwnd)) return;
  if (!::IsWindowVisible(hwnd)) {
    ::ShowWindow(hwnd, SW_SHOW);
    ::UpdateWindow(hwnd);
    AddToolTips(hwnd, window);
  } else {
    // Shown again while open: it comes to the front.
    ::SetForegroundWindow(hwnd);
  }
}

void UpdateNativeWindow(forms::Window& window) {
  HWND hwnd = win32::ToHwnd(window.hWnd());
  if (hwnd != nullptr && ::IsWindow(hwnd)) ::SetWindowTextA(hwnd, window.Caption().c_str());
}

void DestroyNativeWindow(forms::Window& window) {
  for (const auto& control : window.Controls()) control->peer = 0;
  HWND hwnd = win32::ToHwnd(window.hWnd());
  if (hwnd == nullptr) return;
  auto found = Windows().find(hwnd);
  std::vector<win32::Picture> pictures;
  if (found != Windows().end()) pictures = std::move(found->second.pictures);
  Windows().erase(hwnd);
  // The menu bar and the tool tips, which it owns, go with it.
  if (::IsWindow(hwnd)) ::DestroyWindow(hwnd);
  for (const win32::Picture& picture : pictures) {
    if (picture.isIcon) {
      ::DestroyIcon(static_cast<HICON>(picture.handle));
    } else {
      ::DeleteObject(picture.handle);
    }
  }
}

void UpdateNativeControl(forms::Control& control) {
  HWND hwnd = win32::ToHwnd(control.peer);
  if (hwnd == nullptr || !::IsWindow(hwnd)) return;
  UpdateScope scope;
  switch (control.Type()) {
    case forms::ControlType::TextBox: {
      const std::string& text = static_cast<forms::TextBox&>(control).Text();
      if (WindowText(hwnd) != text) ::SetWindowTextA(hwnd, text.c_str());
      break;
    }
    case forms::ControlType::ComboBox: {
      auto& combo = static_cast<forms::ComboBox&>(control);
      // Entries are only ever added, so the native list is a prefix of the forms list.
      auto shown = static_cast<int>(::SendMessageA(hwnd, CB_GETCOUNT, 0, 0));
      if (shown < 0 || shown > combo.ListCount()) {
        ::SendMessageA(hwnd, CB_RESETCONTENT, 0, 0);
        shown = 0;
      }
      for (int i = shown; i < combo.ListCount(); ++i) {
        ::SendMessageA(hwnd, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(combo.List(i).c_str()));
      }
      if (static_cast<int>(::SendMessageA(hwnd, CB_GETCURSEL, 0, 0)) != combo.ListIndex()) {
        ::SendMessageA(hwnd, CB_SETCURSEL, static_cast<WPARAM>(combo.ListIndex()), 0);
      }
      break;
    }
    default:
      if (WindowText(hwnd) != control.Caption()) ::SetWindowTextA(hwnd, control.Caption().c_str());
      break;
  }
  WPARAM check = BST_UNCHECKED;
  bool checkable = false;
  if (auto* box = dynamic_cast<forms::CheckBox*>(&control)) {
    checkable = true;
    check = box->Value() == 1 ? BST_CHECKED : box->Value() == 2 ? BST_INDETERMINATE : BST_UNCHECKED;
  } else if (auto* option = dynamic_cast<forms::OptionButton*>(&control)) {
    checkable = true;
    check = option->Value() ? BST_CHECKED : BST_UNCHECKED;
    // Tab reaches a group of option buttons at its selected one, and the arrow keys move
    // within it: a Space on a button the user merely tabbed past cannot change a setting.
    LONG style = ::GetWindowLongA(hwnd, GWL_STYLE);
    LONG wanted = option->Value() ? (style | WS_TABSTOP) : (style & ~WS_TABSTOP);
    if (wanted != style) ::SetWindowLongA(hwnd, GWL_STYLE, wanted);
  }
  if (checkable && static_cast<WPARAM>(::SendMessageA(hwnd, BM_GETCHECK, 0, 0)) != check) {
    ::SendMessageA(hwnd, BM_SETCHECK, check, 0);
  }
  bool enabled = ::IsWindowEnabled(hwnd) != FALSE;
  if (enabled != control.Enabled()) ::EnableWindow(hwnd, control.Enabled() ? TRUE : FALSE);
  UpdateToolTip(hwnd, control);
}

int RunEventLoop() {
  MSG message{};
  for (;;) {
    BOOL got = ::GetMessageA(&message, nullptr, 0, 0);
    if (got == 0 || got == -1) break;
    // Tab, the arrow keys and the access keys move between the controls of a form.
    HWND root = message.hwnd != nullptr ? TopLevelOf(message.hwnd) : nullptr;
    bool isForm = root != nullptr && Windows().count(root) != 0;
    if (!isForm || !::IsDialogMessageA(root, &message)) {
      ::TranslateMessage(&message);
      ::DispatchMessageA(&message);
    }
    forms::CollectClosed();
  }
  return static_cast<int>(message.wParam);
}

}  // namespace platform
