// The rows of a window's tables: the window, its controls and its menu, as plain data that a
// constant expression can hold. The forms layer builds its windows from them; a program that
// makes the same window without the layer can read the same rows.
#pragma once

#include <cstdint>
#include <optional>

namespace forms {

enum class ControlType {
  Frame, CheckBox, OptionButton, CommandButton, TextBox, ComboBox, Label, PictureBox, Line
};

// Flags of a picture box, and of the text of a label.
constexpr int kBorder = 1;     // a sunken border around the picture
constexpr int kAutoSize = 2;   // the box takes the size of its picture (and its border)
constexpr int kLargeText = 4;  // a heading: larger and bold
constexpr int kSmallText = 8;  // small print

// A colour as 0xRRGGBB; kSystemColor keeps the platform's own.
constexpr std::int32_t kSystemColor = -1;

// A place and a size in twips, from the corner of the container. A line runs from (left, top)
// to (left + width, top + height).
struct Twips {
  int left = 0, top = 0, width = 0, height = 0;
};

// One row of a window's control table, by field name; every field but the name and the type
// has its default.
struct ControlArgs {
  const char* name;
  ControlType type;
  const char* caption = "";
  Twips at;
  const char* container = nullptr;  // by name; none: the window itself
  int index = -1;  // the index within a control array, -1 for a lone control
  bool enabled = true;
  int value = 0;  // check box: 1 ticked; option button: 1 selected
  std::int32_t color = kSystemColor;  // the text of a label, the stroke of a line
  int borderWidth = 1;                // a line's width in pixels
  const char* picture = nullptr;      // a picture box's stored picture, by resource name
  int flags = 0;                      // kBorder, kAutoSize, kLargeText, kSmallText
};

enum class BorderStyle { FixedSingle, FixedDialog };

struct WindowArgs {
  const char* name;
  const char* caption = "";
  int clientWidth = 0, clientHeight = 0;  // twips
  BorderStyle border = BorderStyle::FixedSingle;
  bool hasMenu = false;
  // Where the corner of the client area lies on the screen, in twips; none: the platform places it.
  std::optional<int> left = std::nullopt, top = std::nullopt;
  // The command buttons that the Enter and the Esc key press; none: the keys press nothing.
  const char* defaultButton = nullptr;
  const char* cancelButton = nullptr;
};

// One entry of a window's menu; a null parent puts it on the menu bar. A command carries the
// id that the platform's menu sends for it.
struct MenuArgs {
  const char* name;
  const char* caption;  // "&" marks the access key
  const char* parent = nullptr;
  int command = 0;
};

}  // namespace forms
