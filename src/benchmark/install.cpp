// Finding the full game and its demo, and switching between them.
#include "benchmark/catalogue.h"
#include "benchmark/mdlBenchmark.h"
#include "platform/forms/window.h"
#include "registry/mdlRegistry.h"
#include "windows/Form1.h"
#include "windows/Form2.h"

namespace mdlBenchmark {
namespace {

const char* const kFullKey = catalogue::kGameKeys[0];
const char* const kDemoKey = catalogue::kGameKeys[1];
const char* const kFolderValue = "Folder";
const char* const kFullCode = "full";
const char* const kDemoCode = "demo";

mdlRegistry::RegistryValue ReadFolder(const char* key) {
  return mdlRegistry::ReadRegistryValue(platform::kLocalMachine, key, kFolderValue);
}

// The install folder is the value without its last character, which takes off the NUL a
// registry text ends in. The cut is blind: a number loses its last digit, and a trailing
// backslash stays. A value that has gone empty since detection gives an empty path.
std::string PathOf(const mdlRegistry::RegistryValue& folder) {
  std::string path = folder.AsText();
  if (!path.empty()) path.pop_back();
  return path;
}

}  // namespace

void DetectInstalledGame() {
  Form1& form = MainForm();
  const mdlRegistry::RegistryValue demo = ReadFolder(kDemoKey);
  const mdlRegistry::RegistryValue full = ReadFolder(kFullKey);
  const bool fullPresent = full.Length() != 0;
  const bool demoPresent = demo.Length() != 0;
  std::string candidate;

  // Each selection runs the button's handler at once, which reads its key again and sets
  // GameVersion; with both present the demo's handler runs too, between two runs of the full
  // one, and the full game ends up selected because it is selected last.
  if (fullPresent) {
    std::string path = PathOf(full);
    form.Option3.SetEnabled(true);
    form.Option3.SetValue(true);
    candidate = path;
  }
  if (demoPresent) {
    std::string path = PathOf(demo);
    form.Option4.SetEnabled(true);
    form.Option4.SetValue(true);
    candidate = path;
  }
  if (!fullPresent && !demoPresent) {
    forms::MsgBox("Please install UT2003[full version] or UT2003[demo]", platform::kMbOk,
                  std::string("Install UT2003"));
  }
  if (fullPresent && demoPresent) {
    form.Option3.SetValue(true);
    form.Option4.SetValue(false);
    candidate = PathOf(full);
  }
  AppState.GamePath = candidate;
}

void SelectVariant(Variant variant) {
  const bool full = variant == Variant::Full;
  const char* const ownCode = full ? kFullCode : kDemoCode;
  const char* const otherCode = full ? kDemoCode : kFullCode;

  // Always a fresh read: the folder may have changed since start-up.
  AppState.GamePath = PathOf(ReadFolder(full ? kFullKey : kDemoKey));

  // The Custom Options window builds its level list from GameVersion when it loads, so it is
  // rebuilt with the new code already in place. The walk goes over the windows open before
  // it, so the new window is not met; it would not match either, GameVersion having changed.
  for (forms::Window* window : forms::OpenWindows()) {
    if (window->Name() == "Form2" && AppState.GameVersion == otherCode) {
      AppState.GameVersion = ownCode;
      forms::Unload(*window);
      forms::ShowWindow<Form2>();
    }
  }
  // For the case that the window is not open.
  AppState.GameVersion = ownCode;
}

}  // namespace mdlBenchmark
