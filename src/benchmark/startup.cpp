// Where the program lies, for the paths of its own files.
#include "benchmark/mdlBenchmark.h"
#include "platform/platform.h"

namespace mdlBenchmark {

void ResolveAppPath() {
  // The platform ends the folder in a backslash only for the root of a drive; a root must
  // not get a second one.
  std::string folder = platform::ProgramFolder();
  if (folder.empty() || folder.back() != '\\') folder += '\\';
  AppState.AppPath = folder;
}

}  // namespace mdlBenchmark
