// The menu bar of a form, from its table, and the commands it sends.
#include "platform/win32/form.h"

namespace win32 {

HMENU BuildMenuBar(const forms::Window& window) {
  return BuildMenuBar(window.Menus(), [](const forms::MenuItem& item) -> const forms::MenuArgs& {
    return item.args;
  });
}

void OnMenu(forms::Window& window, int id) {
  const auto& items = window.Menus();
  for (std::size_t row = 0; row < items.size(); ++row) {
    if (CommandOf(items[row].args, row) != id) continue;
    const std::string name = items[row].args.name;
    window.UserMenuClick(name);
    return;
  }
}

}  // namespace win32
