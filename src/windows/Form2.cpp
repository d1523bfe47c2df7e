#include "windows/Form2.h"

#include "benchmark/catalogue.h"
#include "benchmark/mdlBenchmark.h"

using T = forms::ControlType;

namespace {

const forms::WindowArgs kWindow{.name = "Form2", .caption = "Custom Options", .clientWidth = 4380,
                                .clientHeight = 3555};

const forms::ControlArgs kControls[] = {
    {.name = "Frame1", .type = T::Frame, .caption = "Sound Options", .at = {2760, 120, 1455, 1215}},
    {.name = "Option1", .type = T::OptionButton, .caption = "Enabled", .at = {240, 240, 975, 375},
     .container = "Frame1"},
    {.name = "Option2", .type = T::OptionButton, .caption = "Disabled",
     .at = {240, 720, 975, 375}, .container = "Frame1", .value = 1},
    {.name = "Option3", .type = T::OptionButton, .caption = "Max Detail",
     .at = {120, 240, 1095, 375}, .container = "Frame2", .value = 1},
    {.name = "Option4", .type = T::OptionButton, .caption = "Min Detail",
     .at = {1440, 240, 1215, 375}, .container = "Frame2"},
    {.name = "Option5", .type = T::OptionButton, .caption = "Custom ini",
     .at = {2760, 240, 1095, 375}, .container = "Frame2"},
    {.name = "Command1", .type = T::CommandButton, .caption = "Browse...",
     .at = {2880, 720, 975, 255}, .container = "Frame2", .enabled = false},
    {.name = "Command2", .type = T::CommandButton, .caption = "Run Test",
     .at = {720, 2880, 1215, 495}},
    {.name = "Command3", .type = T::CommandButton, .caption = "Cancel",
     .at = {2280, 2880, 1215, 495}},
    {.name = "Frame2", .type = T::Frame, .caption = "INI Options", .at = {120, 1440, 4095, 1215}},
    {.name = "Text1", .type = T::TextBox, .at = {120, 720, 2535, 285}, .container = "Frame2"},
    {.name = "Frame3", .type = T::Frame, .caption = "Select Level", .at = {120, 120, 2415, 1215}},
    {.name = "Label1", .type = T::Label,
     .caption = "Select the name of the level that you want to use.", .at = {120, 240, 2175, 495}, .container = "Frame3"},
    {.name = "Combo1", .type = T::ComboBox, .at = {240, 840, 2175, 315}},
};

}  // namespace

Form2::Form2()
    : forms::Window(kWindow, kControls),
      Option1(Get<forms::OptionButton>("Option1")),
      Option2(Get<forms::OptionButton>("Option2")),
      Option3(Get<forms::OptionButton>("Option3")),
      Option4(Get<forms::OptionButton>("Option4")),
      Option5(Get<forms::OptionButton>("Option5")),
      Command1(Get<forms::CommandButton>("Command1")),
      Command2(Get<forms::CommandButton>("Command2")),
      Command3(Get<forms::CommandButton>("Command3")),
      Text1(Get<forms::TextBox>("Text1")),
      Combo1(Get<forms::ComboBox>("Combo1")) {
  Option3.Click = [this] { DetailChosen(Option3); };
  Option4.Click = [this] { DetailChosen(Option4); };
  Option5.Click = [this] {
    if (Option5.Value()) Command1.SetEnabled(true);
  };
  Command1.Click = [this] { Command1_Click(); };
  Command2.Click = [this] { RunCustomTest(); };
  Command3.Click = [this] { forms::Unload(*this); };
}

void Form2::Form_Load() { loadComboBox(); }

void Form2::loadComboBox() {
  // Any variant but the full game, none found included, gets the demo's list.
  if (mdlBenchmark::AppState.GameVersion == "full") {
    for (const catalogue::ListedLevel& level : catalogue::kFullLevels) Combo1.AddItem(level.entry);
  } else {
    for (const char* level : catalogue::kDemoLevels) Combo1.AddItem(level);
  }
  Combo1.SetListIndex(FindEntry(catalogue::kFirstChoice));
}

int Form2::FindEntry(const std::string& entry) const {
  for (int index = 0; index < Combo1.ListCount(); ++index) {
    if (Combo1.List(index) == entry) return index;
  }
  return -1;
}

void Form2::DetailChosen(forms::OptionButton& option) {
  if (!option.Value()) return;
  Command1.SetEnabled(false);
  Text1.SetText("");
}

void Form2::Command1_Click() {
  platform::FileDialogResult chosen = platform::ShowOpenFileDialog("ini Files (*.ini)|*.ini");
  // A cancel keeps what the box held; any other outcome takes the dialog's file name.
  if (chosen.errorNumber == platform::kCancelError) return;
  Text1.SetText(chosen.fileName);
}
