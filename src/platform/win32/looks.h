// What the rows of a window's tables become on the screen: the frame of each border, the menu
// bar, the ids of menu entries and of controls, and the standard control of each type with its
// style. The native forms are made by these; so is the start-up benchmark's copy of the main
// window, which is made without the forms layer and must come out the same to the style bit.
#pragma once

#include <cstddef>
#include <iterator>
#include <string_view>

#include "platform/forms/args.h"
#include "platform/win32/win32.h"

namespace win32 {

// Menu entries without a command of their own and controls get ids of their own ranges. Both
// stay clear of IDOK and IDCANCEL, which the dialog manager sends for Enter and Esc and the
// window procedure hands to the form.
constexpr int kFirstMenuId = 100;
constexpr int kFirstControlId = 1000;

inline int Pixels(int twips, int dpi) { return ::MulDiv(twips, dpi, 1440); }  // 1440 to the inch

// ---- The window -----------------------------------------------------------------------------
struct WindowStyle {
  DWORD style, exStyle;
};

// Neither border can be resized, and neither has a minimise or maximise button.
constexpr WindowStyle StyleOf(forms::BorderStyle border) {
  if (border == forms::BorderStyle::FixedDialog) return {WS_POPUP | WS_CAPTION | WS_SYSMENU, WS_EX_DLGMODALFRAME};
  return {WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_BORDER, 0};
}

// Makes the client area exactly width by height pixels, where the frame's size missed it: a
// menu bar that wraps onto a second line is only known once the window has its width.
inline void FitClientArea(HWND hwnd, int width, int height) {
  RECT client{};
  ::GetClientRect(hwnd, &client);
  int extraWidth = width - (client.right - client.left);
  int extraHeight = height - (client.bottom - client.top);
  if (extraWidth != 0 || extraHeight != 0) {
    RECT outer{};
    ::GetWindowRect(hwnd, &outer);
    ::SetWindowPos(hwnd, nullptr, 0, 0, outer.right - outer.left + extraWidth,
                   outer.bottom - outer.top + extraHeight, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  }
}

// ---- The menu bar ---------------------------------------------------------------------------
// The id an entry's command sends: its own, or else one that follows from its row.
constexpr int CommandOf(const forms::MenuArgs& entry, std::size_t row) {
  return entry.command != 0 ? entry.command : kFirstMenuId + static_cast<int>(row);
}

// Names a table's entries by: two names are the same when both are given and equal.
constexpr bool SameName(const char* a, const char* b) {
  return a != nullptr && b != nullptr && std::string_view(a) == b;
}

// Appends to a menu the entries of a table that name `parent` as theirs (null: those of the
// bar), in their order, where argsOf gives a row's forms::MenuArgs. The first entry of a name
// that other entries name as their parent is a drop-down menu of them; every other entry is a
// command whose id follows from its row. Nothing is allocated, so that a window made by hand
// can use it without the C++ library's containers and what they bring into an exe.
template <class Rows, class ArgsOf>
void AppendMenuEntries(HMENU menu, const Rows& rows, ArgsOf argsOf, const char* parent) {
  const std::size_t count = std::size(rows);
  for (std::size_t i = 0; i < count; ++i) {
    const forms::MenuArgs& args = argsOf(rows[i]);
    if (parent == nullptr ? args.parent != nullptr : !SameName(args.parent, parent)) continue;
    bool first = true, named = false;
    for (std::size_t other = 0; other < count; ++other) {
      first = first && !(other < i && SameName(argsOf(rows[other]).name, args.name));
      named = named || SameName(argsOf(rows[other]).parent, args.name);
    }
    const char* caption = args.caption != nullptr ? args.caption : "";
    if (first && named) {
      HMENU popup = ::CreatePopupMenu();
      AppendMenuEntries(popup, rows, argsOf, args.name);
      ::AppendMenuA(menu, MF_STRING | MF_POPUP, reinterpret_cast<UINT_PTR>(popup), caption);
    } else if (std::string_view(caption) == "-") {
      ::AppendMenuA(menu, MF_SEPARATOR, 0, nullptr);
    } else {
      ::AppendMenuA(menu, MF_STRING, static_cast<UINT_PTR>(CommandOf(args, i)), caption);
    }
  }
}

// The menu bar of a table of entries.
template <class Rows, class ArgsOf>
HMENU BuildMenuBar(const Rows& rows, ArgsOf argsOf) {
  HMENU bar = ::CreateMenu();
  AppendMenuEntries(bar, rows, argsOf, nullptr);
  return bar;
}

// ---- The controls ---------------------------------------------------------------------------
// The standard control that shows a type of control.
struct Look {
  const char* className;  // null: drawn by the window itself
  DWORD style, exStyle;
  bool focusable;
  int layer;  // 0 over the others; 1 and 2 beneath them, 2 lowest (a background)
};

// In the order of forms::ControlType. Frames and labels lie beneath every other control, as
// backgrounds do, so that a control over one stays visible; neither takes the focus, so the
// tab order of the others is the table's. A label and a picture box notify, so that a tool tip
// sees the pointer over them. Option buttons are not automatic: the forms layer decides the
// selection, and the buttons follow it.
inline constexpr Look kLooks[] = {
    {"BUTTON", BS_GROUPBOX, 0, false, 2},
    {"BUTTON", BS_AUTOCHECKBOX, 0, true, 0},
    {"BUTTON", BS_RADIOBUTTON, 0, true, 0},
    {"BUTTON", BS_PUSHBUTTON, 0, true, 0},
    {"EDIT", ES_LEFT | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE, true, 0},
    {"COMBOBOX", CBS_DROPDOWNLIST | WS_VSCROLL, 0, true, 0},
    {"STATIC", SS_LEFT | SS_NOTIFY, 0, false, 1},
    {"STATIC", SS_NOTIFY, 0, false, 0},
    {nullptr, 0, 0, false, 0},
};
static_assert(std::size(kLooks) == static_cast<std::size_t>(forms::ControlType::Line) + 1);

constexpr const Look& LookOf(forms::ControlType type) { return kLooks[static_cast<std::size_t>(type)]; }

// The style a control is made with: its type's, a tab stop where the type takes the focus, and
// as the window's table has it, the start of a group for the arrow keys, disabled, or the
// window's default button.
constexpr DWORD ControlStyle(forms::ControlType type, bool startsGroup, bool enabled, bool isDefault) {
  const Look& look = LookOf(type);
  DWORD style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | look.style;
  if (look.focusable) style |= WS_TABSTOP;
  if (startsGroup) style |= WS_GROUP;
  if (!enabled) style |= WS_DISABLED;
  if (isDefault) style = (style & ~static_cast<DWORD>(BS_PUSHBUTTON)) | BS_DEFPUSHBUTTON;
  return style;
}

constexpr DWORD ControlExStyle(forms::ControlType type, int flags) {
  return LookOf(type).exStyle | ((flags & forms::kBorder) != 0 ? WS_EX_CLIENTEDGE : 0);
}

}  // namespace win32
