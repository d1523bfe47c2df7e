// The pieces of a form's native window, shared by the files that make it: its state, which
// hangs on its own window, and what each concern (metrics, menus, controls, tool tips) offers
// the window procedure.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "platform/forms/window.h"
#include "platform/win32/looks.h"
#include "platform/win32/pictures.h"
#include "platform/win32/win32.h"

namespace win32 {

// The tool tips of a form's controls. The tip window, and the common controls behind it, are
// made when the pointer first comes to a control that has a tip: most uses of the program
// never show one, and loading them would only hold up its start.
class ToolTips {
 public:
  // The text a control's tip shows; empty for none.
  void Set(HWND control, const std::string& text);
  // Sees a message of the form's thread before it is dispatched.
  void Watch(HWND form, const MSG& message);

 private:
  void Show(HWND control, const std::string& text);

  HWND window_ = nullptr;              // owned by the form, and destroyed with it
  std::map<HWND, std::string> texts_;  // the text each control's tip shows
};

// What a form's window holds, from its creation to its destruction.
struct FormState {
  forms::Window* window = nullptr;
  HWND lastFocus = nullptr;       // restored when the window is activated again
  ToolTips tips;
  bool controlsMade = false;      // on the window's first showing
  std::vector<Picture> pictures;  // shown by its picture boxes
};

// The state of a form's top-level window; null for any other window.
FormState* FormOf(HWND hwnd);
// The top-level window that holds a window: the window itself unless it is a child.
HWND TopLevelOf(HWND hwnd);

// ---- Metrics: dots per inch, twips, fonts and colours ----------------------------------------
int DpiOf(HWND hwnd);
HFONT ControlFont(int flags, int dpi);
inline COLORREF ColorRefOf(std::int32_t c) { return RGB((c >> 16) & 0xFF, (c >> 8) & 0xFF, c & 0xFF); }
std::string WindowText(HWND hwnd);

// ---- Menus ---------------------------------------------------------------------------------
HMENU BuildMenuBar(const forms::Window& window);
void OnMenu(forms::Window& window, int id);

// ---- Controls ------------------------------------------------------------------------------
// The native controls of a form, in the state the form has given them. Those that take the
// focus come in table order, which is the tab order.
void CreateControls(HWND hwnd, FormState& state, int dpi);
void OnControl(forms::Window& window, int id, int code, HWND hwnd);
forms::Control* ControlOf(forms::Window& window, HWND hwnd);
void PaintLines(HWND hwnd, const forms::Window& window);
LRESULT LabelColors(forms::Window& window, HDC dc, HWND label);

}  // namespace win32
