// The preset tests: the CPU benchmark and the two quality suites.
#include "benchmark/mdlBenchmark.h"
#include <span>
#include <vector>

#include "benchmark/catalogue.h"
#include "launch/command_line.h"
#include "launch/mdlapp_sync.h"
#include "platform/forms/window.h"

namespace mdlBenchmark {
namespace {

const char* const kNoSound = "-nosound ";
const char* const kRefusalTitle = "Select a Resolution";

}  // namespace

std::string IniPath(const std::string& iniFile) {
  return AppState.AppPath + "INI\\" + AppState.RenderEngine + iniFile;
}

std::string UserIniPath(const std::string& userIniFile) { return AppState.GamePath + userIniFile; }

bool ResolutionsChosen(const std::string& refusalTitle) {
  CollectResolutions();
  if (AppState.ResolutionCount != 0) return true;
  forms::MsgBox("Please Select at least one resolution to use", platform::kMbOk, refusalTitle);
  return false;
}

void FinishRun(int columns, const RunNotes* notes) {
  if (!WriteResultsTables(columns)) return;
  if (notes != nullptr && !AppendRunNotes(notes->runSentence, notes->iniSentence)) return;
  ++AppState.ReportsWritten;
  AppState.ReportCells = columns * AppState.ResolutionCount;
  if (AppState.OpenReports) OpenDocument(ResultsPath());
}

void RunAtEachResolution(const std::vector<Level>& levels, const std::string& soundSwitch,
                         const std::string& iniPath, const std::string& userIniPath) {
  for (int turn = 0; turn < AppState.ResolutionCount; ++turn) {
    const std::string resolution = NextResolution();
    for (const Level& level : levels) {
      // A start that fails has told the user; the test goes on with its next start.
      mdlapp_sync::RunAppSync(mdlapp_sync::ComposeCommandLine(
          level.name, level.seconds, soundSwitch, iniPath, userIniPath, resolution));
    }
  }
}

void RunCpuBenchmark() {
  if (!ResolutionsChosen(kRefusalTitle)) return;
  const char* level = catalogue::kCpuLevel[AppState.GameVersion == "demo"];
  RunAtEachResolution({{level, std::to_string(catalogue::kCpuSeconds)}}, kNoSound,
                      IniPath(catalogue::kCpuDetail.ini), UserIniPath(catalogue::kCpuDetail.userIni));
  const RunNotes notes{"This test was run using the CPU Bench Option",
                       "This test was run using the CPU_LowDetail.ini provided by Kelvarnite"};
  FinishRun(1, &notes);
}

void RunQualitySuite(Quality quality) {
  const bool high = quality == Quality::High;
  const catalogue::Detail& detail = high ? catalogue::kMaxDetail : catalogue::kMinDetail;
  const RunNotes notes =
      high ? RunNotes{"This test was run using the High Quality Option",
                      "This test was run using the Custom_MaxDetail.ini provided by Kelvarnite"}
           : RunNotes{"This test was run using the Low Quality Option",
                      "This test was run using the Custom_MinDetail.ini provided by Kelvarnite"};

  if (!ResolutionsChosen(kRefusalTitle)) return;
  const bool demo = AppState.GameVersion == "demo";
  std::vector<Level> suite;
  for (const char* level : demo ? std::span<const char* const>(catalogue::kDemoSuite)
                                : std::span<const char* const>(catalogue::kFullSuite)) {
    suite.push_back({level, std::to_string(demo ? catalogue::kDemoSuiteSeconds
                                                : catalogue::FlybySeconds(level))});
  }
  RunAtEachResolution(suite, kNoSound, IniPath(detail.ini), UserIniPath(detail.userIni));
  FinishRun(static_cast<int>(suite.size()), &notes);
}

}  // namespace mdlBenchmark
