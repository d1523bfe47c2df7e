#include "windows/Form2.h"

#include <iterator>

#include "benchmark/mdlBenchmark.h"

using forms::ControlType;

namespace {

const forms::WindowArgs kWindow{"Form2", "Custom Options", 4380, 3555};

const forms::ControlArgs kControls[] = {
    {"Frame1", -1, ControlType::Frame, "Sound Options", nullptr, 2760, 120, 1455, 1215},
    {"Option1", -1, ControlType::OptionButton, "Enabled", "Frame1", 240, 240, 975, 375},
    {"Option2", -1, ControlType::OptionButton, "Disabled", "Frame1", 240, 720, 975, 375, true, 1},
    {"Option3", -1, ControlType::OptionButton, "Max Detail", "Frame2", 120, 240, 1095, 375, true, 1},
    {"Option4", -1, ControlType::OptionButton, "Min Detail", "Frame2", 1440, 240, 1215, 375},
    {"Option5", -1, ControlType::OptionButton, "Custom ini", "Frame2", 2760, 240, 1095, 375},
    {"Command1", -1, ControlType::CommandButton, "Browse...", "Frame2", 2880, 720, 975, 255, false},
    {"Command2", -1, ControlType::CommandButton, "Run Test", nullptr, 720, 2880, 1215, 495},
    {"Command3", -1, ControlType::CommandButton, "Cancel", nullptr, 2280, 2880, 1215, 495},
    {"Frame2", -1, ControlType::Frame, "INI Options", nullptr, 120, 1440, 4095, 1215},
    {"Text1", -1, ControlType::TextBox, "", "Frame2", 120, 720, 2535, 285},
    {"Frame3", -1, ControlType::Frame, "Select Level", nullptr, 120, 120, 2415, 1215},
    {"Label1", -1, ControlType::Label, "Select the name of the level that you want to use.",
     "Frame3", 120, 240, 2175, 495},
    {"Combo1", -1, ControlType::ComboBox, "", nullptr, 240, 840, 2175, 315},
};

}  // namespace

Form2::Form2()
    : forms::Window(kWindow),
      Option1((AddControls(kControls, std::size(kControls)), Get<forms::OptionButton>("Option1"))),
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
  static const char* const kFullLevels[] = {
      "br-anubis",      "br-bifrost*",    "br-disclosure",  "br-icefields",   "br-skyline",
      "br-slaughterhouse", "br-twintombs", "ctf-chrome",    "ctf-citadel*",   "ctf-december",
      "ctf-face3*",     "ctf-geothermal", "ctf-lostfaith",  "ctf-magma",      "ctf-maul",
      "ctf-orbital2",   "dm-antalus*",    "dm-asbestos*",   "dm-compressed",  "dm-curse3",
      "dm-flux2",       "dm-gael",        "dm-inferno*",    "dm-insidious",   "dm-leviathan",
      "dm-oceanic",     "dm-phobos2*",    "dm-plunge",      "dm-serpentine",  "dm-tokaraforest",
      "dm-trainingday", "dom-core",       "dom-outrigger",  "dom-ruination",  "dom-scorchedearth",
      "dom-sepukkugorge", "dom-suntemple*"};
  static const char* const kDemoLevels[] = {"br-anubis", "ctf-citadel*", "dm-antalus*",
                                            "dm-asbestos*"};
  // Any variant but the full game, none found included, gets the demo's list.
  const bool full = mdlBenchmark::AppState.GameVersion == "full";
  if (full) {
    for (const char* level : kFullLevels) Combo1.AddItem(level);
  } else {
    for (const char* level : kDemoLevels) Combo1.AddItem(level);
  }
  Combo1.SetListIndex(full ? 16 : 2);  // dm-antalus* in both lists
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
