// The custom test of the Custom Options window: one chosen level at every ticked resolution.
#include <cstdint>

#include "benchmark/catalogue.h"
#include "benchmark/mdlBenchmark.h"
#include "windows/Form2.h"

namespace {

// The level of a list entry: trimmed, and one trailing "*" cut off.
std::string LevelOf(const std::string& entry) {
  std::size_t first = entry.find_first_not_of(' ');
  if (first == std::string::npos) return {};
  std::string level = entry.substr(first, entry.find_last_not_of(' ') - first + 1);
  if (!level.empty() && level.back() == '*') level.pop_back();
  return level;
}

// A number as text with a blank in place of the sign of a positive number: " 77".
std::string WithSignPlace(std::int16_t number) {
  std::string text = number < 0 ? "" : " ";
  return text.append(std::to_string(number));
}

}  // namespace

void Form2::RunCustomTest() {
  mdlBenchmark::RunTestFrame([this] { RunChosenLevel(); });
}

void Form2::RunChosenLevel() {
  const std::string soundSwitch = Option2.Value() ? "-nosound " : "";
  if (!mdlBenchmark::ResolutionsChosen("Please select a Resolution")) return;
  std::string iniPath, userIniPath;
  if (Option5.Value()) {
    if (Text1.Text().empty()) {
      forms::MsgBox("Please Choose a Custom ini file to use", platform::kMbOk,
                    std::string("Choose a File..."));
      return;
    }
    iniPath = Text1.Text();
    userIniPath = mdlBenchmark::UserIniPath(catalogue::kOwnIniUserIni);
  } else {
    const catalogue::Detail& detail = Option4.Value() ? catalogue::kMinDetail : catalogue::kMaxDetail;
    iniPath = mdlBenchmark::IniPath(detail.ini);
    userIniPath = mdlBenchmark::UserIniPath(detail.userIni);
  }
  const std::string level = LevelOf(Combo1.Text());
  mdlBenchmark::RunAtEachResolution(
      {{level, WithSignPlace(static_cast<std::int16_t>(catalogue::FlybySeconds(level)))}},
      soundSwitch, iniPath, userIniPath);
  mdlBenchmark::FinishRun(1, nullptr);
}
