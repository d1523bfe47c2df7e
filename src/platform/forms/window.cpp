#include "platform/forms/window.h"

#include <algorithm>

namespace forms {
namespace {

std::string* boxLog = nullptr;  // see LogBoxes

// Owned here: the open windows, and those closed during the current event.
std::vector<std::unique_ptr<Window>>& OpenList() {
  static std::vector<std::unique_ptr<Window>> list;
  return list;
}

std::vector<std::unique_ptr<Window>>& ClosedList() {
  static std::vector<std::unique_ptr<Window>> list;
  return list;
}

std::unique_ptr<Control> MakeControl(Window& window, const ControlArgs& args) {
  switch (args.type) {
    case ControlType::Frame: return std::make_unique<Frame>(window, args);
    case ControlType::CheckBox: return std::make_unique<CheckBox>(window, args);
    case ControlType::OptionButton: return std::make_unique<OptionButton>(window, args);
    case ControlType::CommandButton: return std::make_unique<CommandButton>(window, args);
    case ControlType::TextBox: return std::make_unique<TextBox>(window, args);
    case ControlType::ComboBox: return std::make_unique<ComboBox>(window, args);
    case ControlType::Label: return std::make_unique<Label>(window, args);
    case ControlType::PictureBox: return std::make_unique<PictureBox>(window, args);
    case ControlType::Line: return std::make_unique<Line>(window, args);
  }
  throw std::logic_error("unknown control type");
}

}  // namespace

Window::Window(const WindowArgs& args, std::span<const ControlArgs> controls,
               std::span<const MenuArgs> menus)
    : args_(args), name_(args.name), caption_(args.caption) {
  for (const ControlArgs& row : controls) controls_.push_back(MakeControl(*this, row));
  // A frame may follow its controls in tab order, so containers are bound afterwards.
  for (std::size_t i = 0; i < controls.size(); ++i) {
    if (controls[i].container == nullptr) continue;
    Control* container = Find(controls[i].container);
    if (container == nullptr) throw std::logic_error(std::string("no container ") + controls[i].container);
    controls_[i]->container_ = container;
  }
  for (const MenuArgs& row : menus) menus_.push_back(MenuItem{row, nullptr});
}

Window::~Window() = default;

void Window::SetCaption(const std::string& caption) {
  caption_ = caption;
  if (hwnd_ != 0) platform::UpdateNativeWindow(*this);
}

Control* Window::Find(const std::string& name, int index) const {
  for (const auto& control : controls_) {
    if (control->Name() == name && control->Index() == index) return control.get();
  }
  return nullptr;
}

MenuItem& Window::Menu(const std::string& name) {
  for (auto& item : menus_) {
    if (name == item.args.name) return item;
  }
  throw std::logic_error("no menu entry " + name);
}

void Window::UserMenuClick(const std::string& name) {
  if (closed_) return;
  MenuItem& item = Menu(name);
  if (item.Click) item.Click();
}

void Window::UserPressEnter(Control* focused) {
  if (closed_ || args_.defaultButton == nullptr) return;
  Control* button = Find(args_.defaultButton);
  if (focused != nullptr && focused->Type() == ControlType::CommandButton) button = focused;
  if (button != nullptr) button->UserClick();
}

void Window::UserPressEscape() {
  if (closed_ || args_.cancelButton == nullptr) return;
  if (Control* button = Find(args_.cancelButton)) button->UserClick();
}

void Window::UserClose() {
  if (closed_) return;
  Form_Unload();
  Unload(*this);
}

Window& Load(std::unique_ptr<Window> window) {
  OpenList().push_back(std::move(window));
  Window& loaded = *OpenList().back();
  loaded.hwnd_ = platform::CreateNativeWindow(loaded);
  loaded.Form_Load();
  return loaded;
}

void Show(Window& window) {
  if (!window.Closed()) platform::ShowNativeWindow(window);
}

void Unload(Window& window) {
  if (window.closed_) return;
  window.closed_ = true;
  platform::DestroyNativeWindow(window);
  window.hwnd_ = 0;
  auto& open = OpenList();
  auto it = std::find_if(open.begin(), open.end(), [&](const auto& w) { return w.get() == &window; });
  if (it != open.end()) {
    ClosedList().push_back(std::move(*it));
    open.erase(it);
  }
}

void CollectClosed() { ClosedList().clear(); }

void DropAll() {
  for (auto& window : OpenList()) {
    window->closed_ = true;
    platform::DestroyNativeWindow(*window);
  }
  OpenList().clear();
  ClosedList().clear();
}

std::vector<Window*> OpenWindows() {
  std::vector<Window*> result;
  for (const auto& window : OpenList()) result.push_back(window.get());
  return result;
}

Window* FindOpen(const std::string& name) {
  for (const auto& window : OpenList()) {
    if (window->Name() == name) return window.get();
  }
  return nullptr;
}

void LogBoxes(std::string* log) { boxLog = log; }

int MsgBox(const std::string& prompt, int buttons, const std::optional<std::string>& title) {
  const std::string caption = title ? *title : platform::ApplicationTitle();
  if (boxLog == nullptr) return platform::MessageBoxA(prompt, caption, buttons);
  *boxLog += platform::LocalTime() + "  " + caption + "\r\n" + prompt + "\r\n\r\n";
  return 1;  // OK
}

}  // namespace forms
