// Controls with the properties and events of the classic forms model: a check box has a
// Value, a button a Click, a combo box a ListIndex. The state lives here; the platform only
// mirrors it on the screen and reports the user's input back through the User* calls.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/forms/args.h"

namespace forms {

class Window;

class Control {
 public:
  Control(Window& window, const ControlArgs& args);
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const std::string& Name() const { return name_; }
  int Index() const { return index_; }
  ControlType Type() const { return type_; }
  Window& Parent() const { return window_; }
  Control* Container() const { return container_; }
  int Left() const { return left_; }
  int Top() const { return top_; }
  int Width() const { return width_; }
  int Height() const { return height_; }

  const std::string& Caption() const { return caption_; }
  void SetCaption(const std::string& caption);
  const std::string& ToolTipText() const { return toolTip_; }
  void SetToolTipText(const std::string& text);
  std::int32_t ForeColor() const { return args_.color; }
  int BorderWidth() const { return args_.borderWidth; }
  const char* Picture() const { return args_.picture; }
  int Flags() const { return args_.flags; }
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);

  // A click of the user. Disabled controls take none; returns whether it was taken.
  bool UserClick();

  // The native control that mirrors this one; owned by the platform.
  std::uintptr_t peer = 0;

 protected:
  virtual void OnUserClick() {}
  void Changed();

 private:
  friend class Window;
  Window& window_;
  std::string name_;
  int index_;
  ControlType type_;
  Control* container_;
  int left_, top_, width_, height_;
  std::string caption_;
  std::string toolTip_;
  bool enabled_;
  ControlArgs args_;
};

class Frame : public Control {
 public:
  using Control::Control;
};

class Label : public Control {
 public:
  using Control::Control;
};

// A line on the window, drawn beneath the controls; it takes no focus and no click.
class Line : public Control {
 public:
  using Control::Control;
};

class PictureBox : public Control {
 public:
  using Control::Control;
  std::function<void()> Click;

 protected:
  void OnUserClick() override;
};

class CheckBox : public Control {
 public:
  CheckBox(Window& window, const ControlArgs& args);
  int Value() const { return value_; }  // 0 not ticked, 1 ticked
  void SetValue(int value);

 protected:
  void OnUserClick() override;

 private:
  int value_;
};

// Option buttons of one container form a group in which at most one is selected. Selecting
// a button that is not selected, by the user or from code, deselects the others of its group
// and runs its Click handler at once, to its end, before the caller goes on. Selecting a
// selected button and deselecting run no handler.
class OptionButton : public Control {
 public:
  OptionButton(Window& window, const ControlArgs& args);
  bool Value() const { return value_; }
  void SetValue(bool selected);
  std::function<void()> Click;

 protected:
  void OnUserClick() override;

 private:
  bool value_;
};

class CommandButton : public Control {
 public:
  using Control::Control;
  std::function<void()> Click;

 protected:
  void OnUserClick() override;
};

class TextBox : public Control {
 public:
  using Control::Control;
  const std::string& Text() const { return text_; }
  void SetText(const std::string& text);
  // The user typed or pasted: the native control now holds this text.
  void UserSetText(const std::string& text);

 private:
  std::string text_;
};

// A drop-down list: the user picks an entry and cannot type one.
class ComboBox : public Control {
 public:
  using Control::Control;
  void AddItem(const std::string& item);
  int ListCount() const { return static_cast<int>(items_.size()); }
  const std::string& List(int index) const { return items_.at(static_cast<std::size_t>(index)); }
  int ListIndex() const { return listIndex_; }  // -1 when nothing is selected
  void SetListIndex(int index);
  std::string Text() const;  // the selected entry, or empty
  bool UserSelect(int index);

 private:
  std::vector<std::string> items_;
  int listIndex_ = -1;
};

}  // namespace forms
