// The application's state and the operations of the benchmark runs.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "benchmark/fixed_text.h"

namespace mdlBenchmark {

// One record of lowframerate.log. Every field is text, never a number.
struct RunResult {
  FixedText<14> LevelName;
  FixedText<10> LowFps;
  FixedText<10> AverageFps;
  FixedText<10> HighFps;
};

struct AppStateRecord {
  std::string GamePath;  // install folder of the selected variant, no trailing backslash
  std::string AppPath;   // folder of the program, always with a trailing backslash
  std::vector<RunResult> RunResults;  // used from index 1; element 0 is never filled
  std::int16_t ResolutionCount = 0;
  std::string ResolutionList;                // "640x480_1024x768_": shrinks during a run
  std::vector<std::string> ResolutionNames;  // used from index 1
  std::string RenderEngine;                  // "D3D" or "OGL"
  std::string GameVersion;                   // "full" or "demo"
  // Unattended runs: whether a finished report is opened (a kept folder opens once, at the
  // end), the reports written so far and the cells of the last one, and the exit code that
  // the program ends with.
  bool OpenReports = true;
  int ReportsWritten = 0;
  int ReportCells = 0;
  int ExitCode = 0;
};

extern AppStateRecord AppState;

// ---- Resolutions ---------------------------------------------------------------------------
// Rebuilds ResolutionCount, ResolutionList and ResolutionNames from the five boxes of Form1.
void CollectResolutions();
// Takes the first resolution off ResolutionList.
std::string NextResolution();

// ---- Run controls --------------------------------------------------------------------------
void LockRunControls();
void UnlockRunControls();

// ---- Logs ----------------------------------------------------------------------------------
std::string BenchmarkLogPath();
std::string LowFrameRateLogPath();
// Empties both logs. False when a log could not be emptied; the user has been told then.
// With no game found there is no log folder, and nothing is done.
bool ResetBenchmarkLogs();
// Parses lowframerate.log into RunResults.
void ReadRunResults();

// ---- Report --------------------------------------------------------------------------------
std::string ResultsPath();
// Reads the log and writes results.html anew with the given number of level columns.
// False when the file could not be written; the user has been told then.
bool WriteResultsTables(int columns);
bool AppendRunNotes(const std::string& runSentence, const std::string& iniSentence);
// Hands a file to the shell, which opens it in its associated program.
void OpenDocument(const std::string& path);

// ---- Runs ----------------------------------------------------------------------------------
// What a test button does around its run: empty the logs, lock, run, unlock.
template <class Run>
void RunTestFrame(Run run) {
  if (!ResetBenchmarkLogs()) {
    UnlockRunControls();
    return;
  }
  LockRunControls();
  run();
  UnlockRunControls();
}

// Collects the ticked resolutions; with none, tells the user in a box of the given title and
// gives false.
bool ResolutionsChosen(const std::string& refusalTitle);
// The ini file of a test under the program's INI folder for the chosen renderer, and a user
// ini file under the game's folder; both names come with their leading backslash.
std::string IniPath(const std::string& iniFile);
std::string UserIniPath(const std::string& userIniFile);

// One level of a test and its duration in seconds, as it goes into the command line.
struct Level {
  std::string name;
  std::string seconds;
};
// Starts the game for every level at each collected resolution in turn: resolutions outside,
// levels inside, which is the order in which the report reads the records.
void RunAtEachResolution(const std::vector<Level>& levels, const std::string& soundSwitch,
                         const std::string& iniPath, const std::string& userIniPath);

void RunCpuBenchmark();
enum class Quality { High, Low };
void RunQualitySuite(Quality quality);
// The closing notes of a preset test; the custom test has none.
struct RunNotes {
  std::string runSentence;
  std::string iniSentence;
};
// The end of every run: the report, its notes where the test has them, and its opening
// unless the reports are kept.
void FinishRun(int columns, const RunNotes* notes);

// ---- Installation and start-up ---------------------------------------------------------------
void DetectInstalledGame();
// Option3 and Option4 of Form1: change to the variant of the given button.
enum class Variant { Full, Demo };
void SelectVariant(Variant variant);
void ResolveAppPath();

// Back to the state of a process that has just started; for the tests.
void ResetState();

}  // namespace mdlBenchmark
