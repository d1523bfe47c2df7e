// Speed of the end of a test: reading lowframerate.log and writing results.html with its
// notes, on the headless platform with real files, at 35 records (a five-resolution suite),
// 10^3 and 10^5.
//
// The reader stops at record 32767, its 16-bit index, so a log of 10^5 records is parsed up to
// that record. The bytes processed are those of the records parsed, not of the whole file, and
// "per_record" is the time per parsed record, which stays flat when the cost grows linearly.
//
// The baseline of each size is the platform's read of the same file, with nothing parsed.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string>

#include "benchmark/mdlBenchmark.h"
#include "platform/headless/headless.h"
#include "platform/platform.h"

namespace {

constexpr std::size_t kMaxRecords = 32767;
const char* const kLog = "C:\\Games\\UT2003\\Benchmark\\lowframerate.log";

// The levels of the full suite as the game spells them in its log.
const char* const kLevels[] = {"DM-Antalus", "DOM-SunTemple", "DM-Phobos2", "DM-Inferno",
                               "CTF-Face3",  "CTF-Citadel",   "DM-Asbestos"};

// One record as the game writes it: the level, the three rates, the score and an empty line.
std::string Record(std::size_t index) {
  const double low = 20 + static_cast<double>(index % 97) * 0.731;
  const double average = low * 1.9 + static_cast<double>(index % 13) * 0.117;
  const double high = average * 2.3;
  char text[160];
  std::snprintf(text, sizeof(text), "%s\r\n%f / %f / %f fps\r\nScore = %f\r\n\r\n",
                kLevels[index % 7], low, average, high, (low + high) / 2);
  return text;
}

struct Log {
  std::size_t recordsRead = 0;
  std::size_t bytesRead = 0;  // the bytes of the records the reader parses
};

std::filesystem::path Root() { return std::filesystem::temp_directory_path() / "kelvarnite-bench"; }

// A machine after a suite of the full game at all five resolutions, with a log of this many
// records.
Log SetUpMachine(std::size_t records) {
  headless::Reset(Root());
  mdlBenchmark::ResetState();
  auto& state = mdlBenchmark::AppState;
  state.GamePath = "C:\\Games\\UT2003";
  state.AppPath = "C:\\Bench\\";
  state.RenderEngine = "D3D";
  state.GameVersion = "full";
  state.ResolutionCount = 5;
  state.ResolutionNames = {"", "640x480", "800x600", "1024x768", "1280x1024", "1600x1200"};
  headless::MakeFolder(state.AppPath);
  std::string text;
  Log log;
  log.recordsRead = std::min(records, kMaxRecords);
  for (std::size_t i = 0; i < records; ++i) {
    text += Record(i);
    if (i + 1 == log.recordsRead) log.bytesRead = text.size();
  }
  headless::PutFile(kLog, text);
  return log;
}

void Count(benchmark::State& state, const Log& log) {
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * log.bytesRead));
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * log.recordsRead));
  state.counters["records"] = static_cast<double>(log.recordsRead);
  state.counters["per_record"] = benchmark::Counter(
      static_cast<double>(log.recordsRead),
      benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void BM_ReadLogWriteReport(benchmark::State& state) {
  const Log log = SetUpMachine(static_cast<std::size_t>(state.range(0)));
  const mdlBenchmark::RunNotes notes{
      "This test was run using the High Quality Option",
      "This test was run using the Custom_MaxDetail.ini provided by Kelvarnite"};
  for (auto _ : state) {
    mdlBenchmark::WriteResultsTables(7);
    mdlBenchmark::AppendRunNotes(notes.runSentence, notes.iniSentence);
  }
  if (mdlBenchmark::AppState.RunResults.size() != log.recordsRead + 1) {
    state.SkipWithError("the reader did not parse every record");
  }
  Count(state, log);
  std::filesystem::remove_all(Root());
}
BENCHMARK(BM_ReadLogWriteReport)->Arg(35)->Arg(1000)->Arg(100000);

void BM_ReadFileOnly(benchmark::State& state) {
  const Log log = SetUpMachine(static_cast<std::size_t>(state.range(0)));
  std::string text, reason;
  for (auto _ : state) {
    platform::ReadTextFile(kLog, &text, &reason, 16u << 20);
    benchmark::DoNotOptimize(text.data());
  }
  Count(state, log);
  std::filesystem::remove_all(Root());
}
BENCHMARK(BM_ReadFileOnly)->Arg(35)->Arg(1000)->Arg(100000);

}  // namespace

BENCHMARK_MAIN();
