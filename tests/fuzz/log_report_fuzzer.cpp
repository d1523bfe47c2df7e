// libFuzzer target: whatever lowframerate.log holds, the test ends in a whole results.html.
// Byte 0 of an input sets up the end of the test, the rest is the log the game left:
//   bits 0-1  0 CPU benchmark (1 column), 1 demo quality suite (3), 2 full quality suite (7),
//             each with its notes; 3 custom test (1 column, no notes)
//   bits 2-6  the ticked resolution boxes, 640x480 first; none ticked counts as all five
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include "benchmark/mdlBenchmark.h"
#include "platform/forms/window.h"
#include "platform/headless/headless.h"
#include "windows/Form1.h"

namespace {

constexpr const char* kGame = "C:\\Games\\UT2003";
constexpr const char* kLog = "C:\\Games\\UT2003\\Benchmark\\lowframerate.log";

void Require(bool holds) {
  if (!holds) __builtin_trap();
}

std::size_t LineEnds(const std::string& text) {
  std::size_t count = 0;
  for (std::size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos; at += 2) ++count;
  return count;
}

}  // namespace

// One machine per process, in memory where it can, with the full game installed and the
// program started: a fresh folder per input would cost far more than the parse.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
  namespace fs = std::filesystem;
  static std::string root =
      (fs::is_directory("/dev/shm") ? fs::path("/dev/shm") : fs::temp_directory_path()) /
      "kelvarnite-fuzz-XXXXXX";
  Require(mkdtemp(root.data()) != nullptr);
  std::atexit([] { std::error_code ignored; fs::remove_all(root, ignored); });
  headless::Reset(root);
  headless::SetString(platform::kLocalMachine,
                      "SOFTWARE\\Unreal Technology\\Installed Apps\\UT2003", "Folder", kGame);
  headless::PutFile(std::string(kGame) + "\\System\\ut2003.exe", "stand-in");
  headless::MakeFolder(std::string(kGame) + "\\Benchmark");
  headless::RunAsEvent([] { forms::Show(forms::Load(std::make_unique<Form1>())); });
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const int end = data[0] & 3;
  const int columns = end == 1 ? 3 : end == 2 ? 7 : 1;
  const int boxes = (data[0] >> 2 & 31) != 0 ? data[0] >> 2 & 31 : 31;
  for (int box = 0; box < 5; ++box) MainForm().Check1[box]->SetValue(boxes >> box & 1);
  mdlBenchmark::CollectResolutions();
  const std::string log(reinterpret_cast<const char*>(data) + 1, size - 1);
  headless::PutFile(kLog, log);

  Require(mdlBenchmark::WriteResultsTables(columns));
  if (end != 3) Require(mdlBenchmark::AppendRunNotes("Run sentence", "Ini sentence"));

  // Each item that starts before the end takes at least one byte, so every record but the
  // last takes four; and the record index is 16-bit.
  const auto& results = mdlBenchmark::AppState.RunResults;
  const std::size_t most = std::min<std::size_t>((log.size() + 3) / 4, 32767);
  Require(log.empty() ? results.empty() : results.size() >= 2 && results.size() - 1 <= most);
  // Nothing is escaped, so a quoted item carries its line ends into every cell that shows it.
  const std::size_t rows = static_cast<std::size_t>(mdlBenchmark::AppState.ResolutionCount);
  std::size_t carried = 0;
  for (std::size_t n = 1; n < results.size() && n <= rows * columns; ++n) {
    const mdlBenchmark::RunResult& r = results[n];
    carried += LineEnds(r.LowFps.str()) + LineEnds(r.AverageFps.str()) + LineEnds(r.HighFps.str());
    if (n <= static_cast<std::size_t>(columns)) carried += 3 * LineEnds(r.LevelName.str());
  }
  const auto report = headless::GetFile(mdlBenchmark::ResultsPath());
  Require(report && report->size() >= 2 && report->compare(report->size() - 2, 2, "\r\n") == 0);
  Require(LineEnds(*report) ==
          1 + 3 * (5 + (columns + 3) * (rows + 1)) + (end != 3 ? 11 : 0) + carried);
  return 0;
}
