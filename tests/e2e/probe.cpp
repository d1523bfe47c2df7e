// The probe: a hook that ui::Probe puts into the program's thread, where it reads what no other
// process can, the menus of a window, and hands them back in a file.
#include <cstring>
#include <fstream>

#include "ui.h"

namespace {

// A grayed entry or a separator is nothing a user can choose; a tab starts an accelerator's text.
void Entries(HMENU menu, const std::string& path, std::string& out) {
  for (int i = 0; i < ::GetMenuItemCount(menu); ++i) {
    char caption[64] = "";
    ::GetMenuStringA(menu, i, caption, sizeof(caption), MF_BYPOSITION);
    const std::string entry = path + std::string(caption, std::strcspn(caption, "\t"));
    if ((::GetMenuState(menu, i, MF_BYPOSITION) & (MF_GRAYED | MF_SEPARATOR)) != 0) continue;
    if (HMENU sub = ::GetSubMenu(menu, i)) Entries(sub, entry + " > ", out);
    else out += entry + " = " + std::to_string(::GetMenuItemID(menu, i)) + "\r\n";
  }
}

}  // namespace

extern "C" __declspec(dllexport) LRESULT CALLBACK Probe(int code, WPARAM removed, LPARAM message) {
  const MSG& m = *reinterpret_cast<const MSG*>(message);
  if (code == HC_ACTION && removed == PM_REMOVE && m.message == ::RegisterWindowMessageA(ui::kProbeMessage)) {
    std::string out;
    Entries(::GetMenu(m.hwnd), "", out);
    Entries(::GetSystemMenu(m.hwnd, FALSE), "system > ", out);
    std::ofstream(ui::kProbeFile + ".new", std::ios::binary) << out;  // whole when it is found
    ::MoveFileExA((ui::kProbeFile + ".new").c_str(), ui::kProbeFile.c_str(), MOVEFILE_REPLACE_EXISTING);
  }
  return ::CallNextHookEx(nullptr, code, removed, message);
}
