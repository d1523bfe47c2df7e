// What a form draws itself: its lines, beneath its controls, and the colours of its labels.
#include "platform/win32/form.h"
#include "platform/win32/scoped.h"

namespace win32 {

void PaintLines(HWND hwnd, const forms::Window& window) {
  const PaintScope paint(hwnd);
  const int dpi = DpiOf(hwnd);
  for (const auto& control : window.Controls()) {
    if (control->Type() != forms::ControlType::Line) continue;
    const std::int32_t c = control->ForeColor() == forms::kSystemColor ? 0 : control->ForeColor();
    // Drawn inside its width, as a frame is, so that a wide line grows downwards.
    const ScopedGdiObject pen(::CreatePen(PS_INSIDEFRAME, control->BorderWidth(), ColorRefOf(c)));
    const SelectScope selected(paint.get(), pen.get());
    ::MoveToEx(paint.get(), Pixels(control->Left(), dpi), Pixels(control->Top(), dpi), nullptr);
    ::LineTo(paint.get(), Pixels(control->Left() + control->Width(), dpi),
             Pixels(control->Top() + control->Height(), dpi));
  }
}

// A label of a colour of its own; the others keep the system's.
LRESULT LabelColors(forms::Window& window, HDC dc, HWND label) {
  forms::Control* control = ControlOf(window, label);
  if (control == nullptr || control->ForeColor() == forms::kSystemColor) return 0;
  ::SetTextColor(dc, ColorRefOf(control->ForeColor()));
  ::SetBkColor(dc, ::GetSysColor(COLOR_BTNFACE));
  return reinterpret_cast<LRESULT>(::GetSysColorBrush(COLOR_BTNFACE));
}

}  // namespace win32
