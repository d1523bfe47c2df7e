// The menu bar of a form, from its table, and the commands it sends.
#include "platform/win32/form.h"

namespace win32 {

// An entry that other entries name as their parent is a drop-down menu; every other entry is
// a command whose id follows from its row.
HMENU BuildMenuBar(const forms::Window& window) {
  const auto& items = window.Menus();
  const auto rowOf = [&](const char* name) {
    for (std::size_t p = 0; p < items.size(); ++p) {
      if (name != nullptr && std::string(name) == items[p].args.name) return p;
    }
    return items.size();
  };
  std::vector<HMENU> popups(items.size(), nullptr);
  for (const auto& item : items) {
    const std::size_t parent = rowOf(item.args.parent);
    if (parent < items.size() && popups[parent] == nullptr) popups[parent] = ::CreatePopupMenu();
  }
  HMENU bar = ::CreateMenu();
  for (std::size_t i = 0; i < items.size(); ++i) {
    const forms::MenuArgs& args = items[i].args;
    HMENU target = bar;
    if (args.parent != nullptr) {
      const std::size_t parent = rowOf(args.parent);
      if (parent == items.size()) continue;
      target = popups[parent];
    }
    const std::string caption = args.caption != nullptr ? args.caption : "";
    if (popups[i] != nullptr) {
      ::AppendMenuA(target, MF_STRING | MF_POPUP, reinterpret_cast<UINT_PTR>(popups[i]),
                    caption.c_str());
    } else if (caption == "-") {
      ::AppendMenuA(target, MF_SEPARATOR, 0, nullptr);
    } else {
      ::AppendMenuA(target, MF_STRING, static_cast<UINT_PTR>(kFirstMenuId + i), caption.c_str());
    }
  }
  return bar;
}

void OnMenu(forms::Window& window, int id) {
  if (id < kFirstMenuId) return;
  auto index = static_cast<std::size_t>(id - kFirstMenuId);
  if (index >= window.Menus().size()) return;
  const std::string name = window.Menus()[index].args.name;
  window.UserMenuClick(name);
}

}  // namespace win32
