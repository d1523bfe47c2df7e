// The Custom Options window: the level, the sound, and the detail settings or an ini file of
// the user's own for the custom test.
#pragma once

#include "platform/forms/window.h"

class Form2 : public forms::Window {
 public:
  static constexpr const char* kName = "Form2";
  Form2();

  forms::OptionButton& Option1;   // sound Enabled
  forms::OptionButton& Option2;   // sound Disabled
  forms::OptionButton& Option3;   // Max Detail
  forms::OptionButton& Option4;   // Min Detail
  forms::OptionButton& Option5;   // Custom ini
  forms::CommandButton& Command1; // Browse...
  forms::CommandButton& Command2; // Run Test
  forms::CommandButton& Command3; // Cancel
  forms::TextBox& Text1;
  forms::ComboBox& Combo1;

  void loadComboBox();
  // The index of an entry of the level list, -1 when the list does not hold it.
  int FindEntry(const std::string& entry) const;

 protected:
  void Form_Load() override;

 private:
  void DetailChosen(forms::OptionButton& option);
  void Command1_Click();
  void RunCustomTest();
  void RunChosenLevel();
};
