// The tool tips of a form's controls, made when first needed.
#include "platform/win32/form.h"

#include <commctrl.h>

namespace win32 {

namespace {

// The tooltip class of the common controls, registered on the first call. Null where the
// system has no common controls that can give it.
bool ToolTipClassReady() {
  static const bool ready = [] {
    const auto initControls =
        LateBound<decltype(&::InitCommonControlsEx)>("comctl32.dll", "InitCommonControlsEx");
    INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_WIN95_CLASSES};
    return initControls != nullptr && initControls(&classes) != FALSE;
  }();
  return ready;
}

}  // namespace

void ToolTips::Set(HWND control, const std::string& text) {
  auto shown = texts_.find(control);
  if (shown != texts_.end() && shown->second == text) return;
  texts_[control] = text;
  if (window_ != nullptr) Show(control, text);
}

// The control's tool, added, changed or taken away.
void ToolTips::Show(HWND control, const std::string& text) {
  TOOLINFOA tool{};
  // The size that every version of the common controls knows.
  tool.cbSize = TTTOOLINFOA_V2_SIZE;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = ::GetParent(control);
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  ::SendMessageA(window_, TTM_DELTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
  if (text.empty()) return;
  std::string copy = text;
  tool.lpszText = copy.data();
  ::SendMessageA(window_, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
}

// The pointer's first move onto a control with a tip makes the tip window, which then sees
// that move as well as every later one.
void ToolTips::Watch(HWND form, const MSG& message) {
  if (window_ != nullptr || message.message != WM_MOUSEMOVE) return;
  auto found = texts_.find(message.hwnd);
  if (found == texts_.end() || found->second.empty() || !ToolTipClassReady()) return;
  window_ = ::CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, nullptr,
                              WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT, CW_USEDEFAULT,
                              CW_USEDEFAULT, CW_USEDEFAULT, form, nullptr, Instance(), nullptr);
  if (window_ == nullptr) return;
  for (const auto& [control, text] : texts_) {
    if (::IsWindow(control)) Show(control, text);
  }
  MSG first = message;
  ::SendMessageA(window_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&first));
}

}  // namespace win32
