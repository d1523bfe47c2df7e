// The native controls of a form, one standard control for each control of its table. What
// differs between the types of control is told once: how each looks in kLooks (looks.h), how it
// shows its state and takes the user's input in kKinds here.
#include <iterator>
#include <memory>

#include "platform/platform.h"
#include "platform/win32/form.h"
#include "platform/win32/scoped.h"

namespace win32 {

namespace {

// Rows the drop-down list of a combo box shows before it scrolls.
constexpr int kComboListRows = 12;

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

void ShowCaption(forms::Control& control, HWND hwnd) {
  if (WindowText(hwnd) != control.Caption()) ::SetWindowTextA(hwnd, control.Caption().c_str());
}

void ShowText(forms::Control& control, HWND hwnd) {
  const std::string& text = static_cast<forms::TextBox&>(control).Text();
  if (WindowText(hwnd) != text) ::SetWindowTextA(hwnd, text.c_str());
}

void ShowCheck(HWND hwnd, WPARAM check) {
  if (static_cast<WPARAM>(::SendMessageA(hwnd, BM_GETCHECK, 0, 0)) != check) {
    ::SendMessageA(hwnd, BM_SETCHECK, check, 0);
  }
}

void ShowCheckBox(forms::Control& control, HWND hwnd) {
  ShowCaption(control, hwnd);
  const int value = static_cast<forms::CheckBox&>(control).Value();
  ShowCheck(hwnd, value == 1 ? BST_CHECKED : value == 2 ? BST_INDETERMINATE : BST_UNCHECKED);
}

void ShowOptionButton(forms::Control& control, HWND hwnd) {
  ShowCaption(control, hwnd);
  const bool selected = static_cast<forms::OptionButton&>(control).Value();
  // Tab reaches a group of option buttons at its selected one, and the arrow keys move
  // within it: a Space on a button the user merely tabbed past cannot change a setting.
  const LONG style = ::GetWindowLongA(hwnd, GWL_STYLE);
  const LONG wanted = selected ? (style | WS_TABSTOP) : (style & ~WS_TABSTOP);
  if (wanted != style) ::SetWindowLongA(hwnd, GWL_STYLE, wanted);
  ShowCheck(hwnd, selected ? BST_CHECKED : BST_UNCHECKED);
}

void ShowList(forms::Control& control, HWND hwnd) {
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
}

void Click(forms::Control& control, HWND) { control.UserClick(); }

// The box changed itself already; a refused click (disabled) is undone here.
void ClickCheckBox(forms::Control& control, HWND) {
  control.UserClick();
  platform::UpdateNativeControl(control);
}

// The forms layer decides the selection, and every button of the window follows it.
void ClickOptionButton(forms::Control& control, HWND) {
  control.UserClick();
  for (const auto& other : control.Parent().Controls()) {
    if (other->Type() == forms::ControlType::OptionButton) platform::UpdateNativeControl(*other);
  }
}

void TypeText(forms::Control& control, HWND hwnd) {
  static_cast<forms::TextBox&>(control).UserSetText(WindowText(hwnd));
}

void Select(forms::Control& control, HWND hwnd) {
  auto selected = static_cast<int>(::SendMessageA(hwnd, CB_GETCURSEL, 0, 0));
  if (!static_cast<forms::ComboBox&>(control).UserSelect(selected)) {
    platform::UpdateNativeControl(control);
  }
}

// The height of a drop-down list's field follows from its font; the height given at its
// creation is that of the field and the opened list together.
void FitList(HWND hwnd, forms::Control&, FormState&, int width, int) {
  LRESULT field = ::SendMessageA(hwnd, CB_GETITEMHEIGHT, static_cast<WPARAM>(-1), 0);
  LRESULT row = ::SendMessageA(hwnd, CB_GETITEMHEIGHT, 0, 0);
  if (field > 0 && row > 0) {
    ::SetWindowPos(hwnd, nullptr, 0, 0, width, static_cast<int>(field + 8 + row * kComboListRows),
                   SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  }
}

// Shows the stored picture of a picture box at its top left corner, unscaled. A box that takes
// the size of its picture grows or shrinks to it, border included.
void ShowPicture(HWND hwnd, forms::Control& control, FormState& owner, int width, int height) {
  Picture picture = LoadStoredPicture(control.Picture());
  if (picture.handle() == nullptr) return;
  LONG style = ::GetWindowLongA(hwnd, GWL_STYLE);
  ::SetWindowLongA(hwnd, GWL_STYLE, style | (picture.isIcon() ? SS_ICON : SS_BITMAP));
  ::SendMessageA(hwnd, STM_SETIMAGE, picture.isIcon() ? IMAGE_ICON : IMAGE_BITMAP,
                 reinterpret_cast<LPARAM>(picture.handle()));
  if ((control.Flags() & forms::kAutoSize) != 0) {
    SIZE size = PictureSize(picture);
    RECT frame{0, 0, size.cx, size.cy};
    ::AdjustWindowRectEx(&frame, static_cast<DWORD>(::GetWindowLongA(hwnd, GWL_STYLE)), FALSE,
                         static_cast<DWORD>(::GetWindowLongA(hwnd, GWL_EXSTYLE)));
    width = frame.right - frame.left;
    height = frame.bottom - frame.top;
  }
  owner.pictures.push_back(std::move(picture));
  // The static has taken the picture's size; the box keeps its own.
  ::SetWindowPos(hwnd, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// How a type of control is shown and told of the user's input; how it looks is in kLooks.
struct Kind {
  void (*show)(forms::Control&, HWND);
  int notification;  // what carries the user's input, to `input`
  void (*input)(forms::Control&, HWND);
  void (*made)(HWND, forms::Control&, FormState&, int width, int height);
};

// In the order of forms::ControlType, as kLooks.
constexpr Kind kKinds[] = {
    {ShowCaption, -1, nullptr, nullptr},
    {ShowCheckBox, BN_CLICKED, ClickCheckBox, nullptr},
    {ShowOptionButton, BN_CLICKED, ClickOptionButton, nullptr},
    {ShowCaption, BN_CLICKED, Click, nullptr},
    {ShowText, EN_CHANGE, TypeText, nullptr},
    {ShowList, CBN_SELCHANGE, Select, FitList},
    {ShowCaption, -1, nullptr, nullptr},
    {ShowCaption, STN_CLICKED, Click, ShowPicture},
    {nullptr, -1, nullptr, nullptr},
};
static_assert(std::size(kKinds) == static_cast<std::size_t>(forms::ControlType::Line) + 1);

const Kind& KindOf(const forms::Control& control) {
  return kKinds[static_cast<std::size_t>(control.Type())];
}

// Each control starts a group of its own for the arrow keys, but for the option buttons that
// follow one of their own container: those form the group of that container.
bool StartsGroup(const std::vector<std::unique_ptr<forms::Control>>& controls, std::size_t i) {
  if (i == 0 || controls[i]->Type() != forms::ControlType::OptionButton) return true;
  const forms::Control& previous = *controls[i - 1];
  return previous.Type() != forms::ControlType::OptionButton ||
         previous.Container() != controls[i]->Container();
}

void CreateControl(HWND parent, FormState& state, std::size_t i, int dpi) {
  const auto& controls = state.window->Controls();
  forms::Control& control = *controls[i];
  const Look& look = LookOf(control.Type());
  if (look.className == nullptr) return;
  // Controls inside a frame are placed from the frame's corner, but are children of the
  // window itself: a group box is only a picture and must not take their messages.
  int left = control.Left(), top = control.Top();
  for (const forms::Control* box = control.Container(); box != nullptr; box = box->Container()) {
    left += box->Left();
    top += box->Top();
  }
  const char* defaultButton = control.Parent().Args().defaultButton;
  const DWORD style = ControlStyle(control.Type(), StartsGroup(controls, i), control.Enabled(),
                                   defaultButton != nullptr && control.Name() == defaultButton);
  const int width = Pixels(control.Width(), dpi), height = Pixels(control.Height(), dpi);
  HWND hwnd = ::CreateWindowExA(
      ControlExStyle(control.Type(), control.Flags()), look.className, control.Caption().c_str(),
      style, Pixels(left, dpi), Pixels(top, dpi), width, height, parent,
      reinterpret_cast<HMENU>(static_cast<INT_PTR>(kFirstControlId + static_cast<int>(i))),
      Instance(), nullptr);
  if (hwnd == nullptr) return;
  ::SendMessageA(hwnd, WM_SETFONT, reinterpret_cast<WPARAM>(ControlFont(control.Flags(), dpi)), FALSE);
  const Kind& kind = KindOf(control);
  if (kind.made != nullptr) kind.made(hwnd, control, state, width, height);
  control.peer = FromHwnd(hwnd);
  platform::UpdateNativeControl(control);
}

}  // namespace

// A new control goes beneath those made before it, so the controls are made layer by layer,
// each layer in table order: no control has to be moved in the stack afterwards, for each
// move costs as much as making a control.
void CreateControls(HWND hwnd, FormState& state, int dpi) {
  const auto& controls = state.window->Controls();
  for (int layer : {0, 1, 2}) {
    for (std::size_t i = 0; i < controls.size(); ++i) {
      if (LookOf(controls[i]->Type()).layer == layer) CreateControl(hwnd, state, i, dpi);
    }
  }
}

void OnControl(forms::Window& window, int id, int code, HWND hwnd) {
  if (updating || id < kFirstControlId) return;
  auto index = static_cast<std::size_t>(id - kFirstControlId);
  if (index >= window.Controls().size()) return;
  forms::Control& control = *window.Controls()[index];
  const Kind& kind = KindOf(control);
  if (kind.input != nullptr && code == kind.notification) kind.input(control, hwnd);
}

forms::Control* ControlOf(forms::Window& window, HWND hwnd) {
  const int id = hwnd != nullptr ? ::GetDlgCtrlID(hwnd) : 0;
  if (id < kFirstControlId) return nullptr;
  const auto index = static_cast<std::size_t>(id - kFirstControlId);
  if (index >= window.Controls().size()) return nullptr;
  forms::Control* control = window.Controls()[index].get();
  return ToHwnd(control->peer) == hwnd ? control : nullptr;
}

}  // namespace win32

namespace platform {

void UpdateNativeControl(forms::Control& control) {
  HWND hwnd = win32::ToHwnd(control.peer);
  if (hwnd == nullptr || !::IsWindow(hwnd)) return;
  win32::UpdateScope scope;
  win32::KindOf(control).show(control, hwnd);
  const bool enabled = ::IsWindowEnabled(hwnd) != FALSE;
  if (enabled != control.Enabled()) ::EnableWindow(hwnd, control.Enabled() ? TRUE : FALSE);
  if (win32::FormState* form = win32::FormOf(::GetParent(hwnd))) {
    form->tips.Set(hwnd, control.ToolTipText());
  }
}

}  // namespace platform
