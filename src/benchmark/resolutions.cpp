#include "benchmark/mdlBenchmark.h"
#include "benchmark/catalogue.h"
#include "windows/Form1.h"

namespace mdlBenchmark {
namespace {

// Takes the first token off a list and gives its name.
std::string TakeFirst(std::string& list) {
  std::size_t end = list.find('_');
  std::string name = list.substr(0, end);
  list.erase(0, end == std::string::npos ? list.size() : end + 1);
  return name;
}

}  // namespace

void CollectResolutions() {
  AppState.ResolutionCount = 0;
  AppState.ResolutionList.clear();
  Form1& form = MainForm();
  for (int box = 0; box < catalogue::kResolutionCount; ++box) {
    if (form.Check1[box]->Value() == 1) {
      ++AppState.ResolutionCount;
      // Each box adds its token, "640x480_", to the list.
      (AppState.ResolutionList += catalogue::kResolutions[box]) += '_';
    }
  }
  // The list stays whole for the run; the names come from a copy of it. With no box ticked
  // the names of an earlier run stay, and nothing reads them.
  std::string copy = AppState.ResolutionList;
  for (int i = 1; i <= AppState.ResolutionCount; ++i) {
    AppState.ResolutionNames.resize(static_cast<std::size_t>(i) + 1);
    AppState.ResolutionNames[static_cast<std::size_t>(i)] = TakeFirst(copy);
  }
}

std::string NextResolution() { return TakeFirst(AppState.ResolutionList); }

}  // namespace mdlBenchmark
