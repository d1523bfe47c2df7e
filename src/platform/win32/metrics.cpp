// Dots per inch, fonts and window texts of the native forms.
#include <utility>

#include "platform/win32/form.h"
#include "platform/win32/scoped.h"

namespace win32 {

// A window's own DPI where the system knows it per window (Windows 10), else the screen's.
int DpiOf(HWND hwnd) {
  static const auto getDpiForWindow = LateBound<UINT(WINAPI*)(HWND)>("user32.dll", "GetDpiForWindow");
  if (hwnd != nullptr && getDpiForWindow != nullptr) {
    UINT dpi = getDpiForWindow(hwnd);
    if (dpi != 0) return static_cast<int>(dpi);
  }
  const WindowDC screen(nullptr);
  int dpi = screen.get() != nullptr ? ::GetDeviceCaps(screen.get(), LOGPIXELSY) : 0;
  return dpi > 0 ? dpi : 96;
}

// The platform's default font, or a size of it for headings and small print. The sizes are
// made once for the program's life.
HFONT ControlFont(int flags, int dpi) {
  HFONT standard = static_cast<HFONT>(::GetStockObject(DEFAULT_GUI_FONT));
  const bool large = (flags & forms::kLargeText) != 0, small = (flags & forms::kSmallText) != 0;
  if (!large && !small) return standard;
  static std::map<std::pair<int, int>, ScopedGdiObject> made;
  ScopedGdiObject& font = made[{flags & (forms::kLargeText | forms::kSmallText), dpi}];
  if (!font.valid()) {
    LOGFONTA look{};
    ::GetObjectA(standard, sizeof(look), &look);
    look.lfHeight = -::MulDiv(large ? 12 : 7, dpi, 72);
    if (large) look.lfWeight = FW_BOLD;
    font = ScopedGdiObject(::CreateFontIndirectA(&look));
  }
  return font.valid() ? static_cast<HFONT>(font.get()) : standard;
}

std::string WindowText(HWND hwnd) {
  int length = ::GetWindowTextLengthA(hwnd);
  if (length <= 0) return std::string();
  std::string text(static_cast<std::size_t>(length) + 1, '\0');
  int copied = ::GetWindowTextA(hwnd, text.data(), length + 1);
  text.resize(static_cast<std::size_t>(copied > 0 ? copied : 0));
  return text;
}

}  // namespace win32
