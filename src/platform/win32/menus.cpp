// The menu bar of a form, from its table, and the commands it sends.
#include "platform/win32/form.h"

namespace win32 {

namespace {

// The id an entry's command sends: its own, or else one that follows from its row.
int CommandOf(const std::vector<forms::MenuItem>& items, std::size_t row) {
  const int declared = items[row].args.command;
  return declared != 0 ? declared : kFirstMenuId + static_cast<int>(row);
}

}  // namespace

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
      ::AppendMenuA(target, MF_STRING, static_cast<UINT_PTR>(CommandOf(items, i)), caption.c_str());
    }
  }
  return bar;
}

void OnMenu(forms::Window& window, int id) {
  const auto& items = window.Menus();
  for (std::size_t row = 0; row < items.size(); ++row) {
    if (CommandOf(items, row) != id) continue;
    const std::string name = items[row].args.name;
    window.UserMenuClick(name);
    return;
  }
}

}  // namespace win32
