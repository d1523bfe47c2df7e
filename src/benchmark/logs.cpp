// The game's two logs: emptied ahead of every test, and lowframerate.log read behind it.
#include <cstdint>
#include <limits>

#include "benchmark/log_items.h"
#include "benchmark/mdlBenchmark.h"
#include "platform/forms/window.h"
#include "platform/platform.h"

namespace mdlBenchmark {

std::string BenchmarkLogPath() { return AppState.GamePath + "\\Benchmark\\benchmark.log"; }

std::string LowFrameRateLogPath() { return AppState.GamePath + "\\Benchmark\\lowframerate.log"; }

bool ResetBenchmarkLogs() {
  // No game found: there is no log folder, and the start of the game fails on its own.
  if (AppState.GamePath.empty()) return true;
  for (const std::string& path : {BenchmarkLogPath(), LowFrameRateLogPath()}) {
    std::string reason;
    if (!platform::WriteTextFile(path, "", false, &reason)) {
      forms::MsgBox(path + " cannot be emptied: " + reason + ".", platform::kMbIconCritical);
      return false;
    }
  }
  return true;
}

void ReadRunResults() {
  std::string text, reason;
  // Far more than the most records a test can leave: a damaged log of any size is read
  // without running the program out of memory.
  constexpr std::size_t kReadLimit = 16u << 20;
  // A log that cannot be read counts as empty: the report must never show an earlier
  // test's rates under the present headings.
  if (!platform::ReadTextFile(LowFrameRateLogPath(), &text, &reason, kReadLimit)) text.clear();

  AppState.RunResults.clear();
  // The record index is 16-bit.
  constexpr std::size_t kMaxRecords = std::numeric_limits<std::int16_t>::max();
  std::size_t position = 0;
  std::size_t count = 0;
  while (position < text.size() && count < kMaxRecords) {
    if (count++ == 0) AppState.RunResults.resize(1);  // element 0 stays unused
    RunResult record;
    record.LevelName = ReadLogItem(text, &position);
    FrameRates rates = SplitFrameRates(ReadLogItem(text, &position));
    record.LowFps = rates.low;
    record.AverageFps = rates.average;
    record.HighFps = rates.high;
    ReadLogItem(text, &position);
    ReadLogItem(text, &position);
    AppState.RunResults.push_back(record);
  }
}

}  // namespace mdlBenchmark
