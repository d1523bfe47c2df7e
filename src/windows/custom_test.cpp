// The custom test of the Custom Options window: one chosen level at every ticked resolution.
#include <cstdint>

#include "benchmark/mdlBenchmark.h"
#include "launch/command_line.h"
#include "launch/mdlapp_sync.h"
#include "windows/Form2.h"

using mdlBenchmark::AppState;

namespace {

// The level of a list entry: trimmed, and one trailing "*" cut off.
std::string LevelOf(const std::string& entry) {
  std::size_t first = entry.find_first_not_of(' ');
  if (first == std::string::npos) return {};
  std::string level = entry.substr(first, entry.find_last_not_of(' ') - first + 1);
  if (!level.empty() && level.back() == '*') level.pop_back();
  return level;
}

std::int16_t SecondsOf(const std::string& level) {
  if (level == "ctf-face3") return 116;
  if (level == "dm-asbestos") return 71;
  return 77;
}

// A number as text with a blank in place of the sign of a positive number: " 77".
std::string WithSignPlace(std::int16_t number) {
  return (number < 0 ? "" : " ") + std::to_string(number);
}

}  // namespace

void Form2::RunCustomTest() {
  if (!mdlBenchmark::ResetBenchmarkLogs()) {
    mdlBenchmark::UnlockRunControls();
    return;
  }
  mdlBenchmark::LockRunControls();
  mdlBenchmark::CollectResolutions();
  const std::string soundSwitch = Option2.Value() ? "-nosound " : "";
  if (AppState.ResolutionCount == 0) {
    forms::MsgBox("Please Select at least one resolution to use", platform::kMbOk,
                  std::string("Please select a Resolution"));
    mdlBenchmark::UnlockRunControls();
    return;
  }
  std::string iniPath, userIniPath;
  if (Option5.Value()) {
    if (Text1.Text().empty()) {
      forms::MsgBox("Please Choose a Custom ini file to use", platform::kMbOk,
                    std::string("Choose a File..."));
      mdlBenchmark::UnlockRunControls();
      return;
    }
    iniPath = Text1.Text();
    userIniPath = AppState.GamePath + "\\Benchmark\\Stuff\\MaxDetailUser.ini";
  } else if (Option4.Value()) {
    iniPath = AppState.AppPath + "INI\\" + AppState.RenderEngine + "\\Custom_MinDetail.ini";
    userIniPath = AppState.GamePath + "\\Benchmark\\Stuff\\MinDetailUser.ini";
  } else {
    iniPath = AppState.AppPath + "INI\\" + AppState.RenderEngine + "\\Custom_MaxDetail.ini";
    userIniPath = AppState.GamePath + "\\Benchmark\\Stuff\\MaxDetailUser.ini";
  }
  const std::string level = LevelOf(Combo1.Text());
  const std::string seconds = WithSignPlace(SecondsOf(level));
  for (int turn = 0; turn < AppState.ResolutionCount; ++turn) {
    std::string resolution = mdlBenchmark::NextResolution();
    mdlapp_sync::RunAppSync(mdlapp_sync::ComposeCommandLine(level, seconds, soundSwitch, iniPath,
                                                           userIniPath, resolution));
  }
  mdlBenchmark::FinishRun(1, nullptr);
  mdlBenchmark::UnlockRunControls();
}
