// The commands of the main window's menu, as the native menu sends them. Declared once, for the
// window's table and for whatever drives the window from outside, so that a new entry moves
// none of them.
#pragma once

namespace menu_commands {

// Apart from the ids the native menu gives entries without a command of their own (100 on).
constexpr int kExit = 401;
constexpr int kAbout = 402;
constexpr int kHelp = 403;

}  // namespace menu_commands
