// Speed of the end of a test: reading the log of a full five-resolution suite (35 records)
// and writing the report with its notes.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "benchmark/mdlBenchmark.h"
#include "platform/headless/headless.h"

namespace {

void SetUpMachine(const std::filesystem::path& root) {
  headless::Reset(root);
  mdlBenchmark::ResetState();
  auto& state = mdlBenchmark::AppState;
  state.GamePath = "C:\\Games\\UT2003";
  state.AppPath = "C:\\Bench\\";
  state.RenderEngine = "D3D";
  state.GameVersion = "full";
  state.ResolutionCount = 5;
  state.ResolutionNames = {"", "640x480", "800x600", "1024x768", "1280x1024", "1600x1200"};
  std::string log;
  for (int i = 1; i <= 35; ++i) {
    log += "dm-antalus, " + std::to_string(i) + ".25 / 58.44 / 112.90 fps, 77, 640x480\r\n";
  }
  headless::PutFile("C:\\Games\\UT2003\\Benchmark\\lowframerate.log", log);
}

std::filesystem::path Root() { return std::filesystem::temp_directory_path() / "kelvarnite-bench"; }

void BM_ReadLog35(benchmark::State& state) {
  SetUpMachine(Root());
  for (auto _ : state) {
    mdlBenchmark::ReadRunResults();
    benchmark::DoNotOptimize(mdlBenchmark::AppState.RunResults.data());
  }
  std::filesystem::remove_all(Root());
}
BENCHMARK(BM_ReadLog35);

void BM_WriteReport7x5(benchmark::State& state) {
  SetUpMachine(Root());
  const mdlBenchmark::RunNotes notes{"run", "ini"};
  for (auto _ : state) {
    mdlBenchmark::WriteResultsTables(7);
    mdlBenchmark::AppendRunNotes(notes.runSentence, notes.iniSentence);
  }
  std::filesystem::remove_all(Root());
}
BENCHMARK(BM_WriteReport7x5);

}  // namespace

BENCHMARK_MAIN();
