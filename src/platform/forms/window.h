// Windows that hold their controls, and the program's list of open windows.
//
// A window exists from the moment it is loaded until it is closed. Closing drops it with
// everything in it; showing it again builds it anew from its control table. A window closed
// inside one of its own handlers stays in memory until the event that closed it has ended.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/forms/control.h"
#include "platform/platform.h"

namespace forms {

struct MenuItem {
  MenuArgs args;
  std::function<void()> Click;
};

class Window {
 public:
  // The window with its controls, in tab order, and its menu; the form binds its members to
  // them by name afterwards.
  Window(const WindowArgs& args, std::span<const ControlArgs> controls,
         std::span<const MenuArgs> menus = {});
  virtual ~Window();
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  const std::string& Name() const { return name_; }
  const std::string& Caption() const { return caption_; }
  void SetCaption(const std::string& caption);
  const WindowArgs& Args() const { return args_; }
  platform::WindowHandle hWnd() const { return hwnd_; }
  bool Closed() const { return closed_; }

  const std::vector<std::unique_ptr<Control>>& Controls() const { return controls_; }
  Control* Find(const std::string& name, int index = -1) const;
  template <class T>
  T& Get(const std::string& name, int index = -1) const {
    T* control = dynamic_cast<T*>(Find(name, index));
    if (control == nullptr) throw std::logic_error("no control " + name + " of that type");
    return *control;
  }

  const std::vector<MenuItem>& Menus() const { return menus_; }
  MenuItem& Menu(const std::string& name);

  // The user asked to close the window (the close button of the title bar).
  void UserClose();
  // The user chose a menu entry.
  void UserMenuClick(const std::string& name);
  // The user pressed Enter, with the focus on the given control (or none), or Esc. In a window
  // with a default button, Enter presses the command button that has the focus, or else the
  // default button; Esc presses the cancel button. Elsewhere the keys press nothing.
  void UserPressEnter(Control* focused);
  void UserPressEscape();

 protected:
  virtual void Form_Load() {}
  virtual void Form_Unload() {}

 private:
  friend Window& Load(std::unique_ptr<Window> window);
  friend void Unload(Window& window);
  friend void DropAll();
  WindowArgs args_;
  std::string name_;
  std::string caption_;
  platform::WindowHandle hwnd_ = 0;
  bool closed_ = false;
  std::vector<std::unique_ptr<Control>> controls_;
  std::vector<MenuItem> menus_;
};

// Takes the window into the list of open windows, creates it on the platform and runs its
// load handler. The window is not shown yet.
Window& Load(std::unique_ptr<Window> window);
// Shows a loaded window.
void Show(Window& window);
// Closes the window: off the screen and out of the list. It is freed by CollectClosed.
void Unload(Window& window);
// Frees the windows closed since the last call. The event loop calls it between events.
void CollectClosed();
// Drops every window at once, open or closed, with no handler: the end of the process.
void DropAll();

// The open windows, in the order of loading.
std::vector<Window*> OpenWindows();
Window* FindOpen(const std::string& name);

// The window of the given class by its name: the open one, or a new one, loaded and shown.
template <class W>
W& ShowWindow() {
  if (Window* open = FindOpen(W::kName)) {
    Show(*open);
    return static_cast<W&>(*open);
  }
  Window& window = Load(std::make_unique<W>());
  Show(window);
  return static_cast<W&>(window);
}

// A modal message box. Without a title of its own it carries the application's title.
int MsgBox(const std::string& prompt, int buttons = platform::kMbOk,
           const std::optional<std::string>& title = std::nullopt);
// While a log is given (null: none), no box waits for a person: each is appended to the log,
// with the time, its title and its text, and answered with OK, which every box of the program
// offers.
void LogBoxes(std::string* log);

}  // namespace forms
