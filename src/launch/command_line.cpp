#include "launch/command_line.h"

#include "benchmark/mdlBenchmark.h"

namespace mdlapp_sync {

std::string ComposeCommandLine(const std::string& level, const std::string& seconds,
                               const std::string& soundSwitch, const std::string& iniPath,
                               const std::string& userIniPath, const std::string& resolution) {
  const std::string& game = mdlBenchmark::AppState.GamePath;
  const std::string q = "\"";
  return q + game + "\\System\\ut2003.exe" + q +
         " " + level + "?game=engine.gameinfo exec=" +
         q + game + "\\Benchmark\\Stuff\\flybyexec.txt" + q +
         " -benchmark -seconds=" + seconds + " " + soundSwitch + "ini=" +
         q + iniPath + q +
         " userini=" +
         q + userIniPath + q +
         " -" + resolution;
}

}  // namespace mdlapp_sync
