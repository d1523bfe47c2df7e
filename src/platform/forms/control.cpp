#include "platform/forms/control.h"

#include "platform/forms/window.h"
#include "platform/platform.h"

namespace forms {

Control::Control(Window& window, const ControlArgs& args)
    : window_(window),
      name_(args.name),
      index_(args.index),
      type_(args.type),
      container_(nullptr),
      left_(args.at.left),
      top_(args.at.top),
      width_(args.at.width),
      height_(args.at.height),
      caption_(args.caption != nullptr ? args.caption : ""),
      enabled_(args.enabled),
      args_(args) {}

void Control::Changed() {
  if (peer != 0) platform::UpdateNativeControl(*this);
}

void Control::SetCaption(const std::string& caption) {
  caption_ = caption;
  Changed();
}

void Control::SetToolTipText(const std::string& text) {
  toolTip_ = text;
  Changed();
}

void Control::SetEnabled(bool enabled) {
  enabled_ = enabled;
  Changed();
}

bool Control::UserClick() {
  if (!enabled_ || window_.Closed()) return false;
  OnUserClick();
  return true;
}

void PictureBox::OnUserClick() {
  if (Click) Click();
}

CheckBox::CheckBox(Window& window, const ControlArgs& args)
    : Control(window, args), value_(args.value) {}

void CheckBox::SetValue(int value) {
  value_ = value;
  Changed();
}

void CheckBox::OnUserClick() { SetValue(value_ == 1 ? 0 : 1); }

OptionButton::OptionButton(Window& window, const ControlArgs& args)
    : Control(window, args), value_(args.value != 0) {}

void OptionButton::SetValue(bool selected) {
  if (selected == value_) return;
  value_ = selected;
  Changed();
  if (!selected) return;
  for (const auto& control : Parent().Controls()) {
    auto* sibling = dynamic_cast<OptionButton*>(control.get());
    if (sibling != nullptr && sibling != this && sibling->Container() == Container() &&
        sibling->value_) {
      sibling->value_ = false;
      sibling->Changed();
    }
  }
  if (Click) Click();
}

void OptionButton::OnUserClick() { SetValue(true); }

void CommandButton::OnUserClick() {
  if (Click) Click();
}

void TextBox::SetText(const std::string& text) {
  text_ = text;
  Changed();
}

void TextBox::UserSetText(const std::string& text) { text_ = text; }

void ComboBox::AddItem(const std::string& item) {
  items_.push_back(item);
  Changed();
}

void ComboBox::SetListIndex(int index) {
  listIndex_ = (index >= 0 && index < ListCount()) ? index : -1;
  Changed();
}

std::string ComboBox::Text() const { return listIndex_ >= 0 ? List(listIndex_) : std::string(); }

bool ComboBox::UserSelect(int index) {
  if (!Enabled() || Parent().Closed() || index < 0 || index >= ListCount()) return false;
  listIndex_ = index;
  return true;
}

}  // namespace forms
