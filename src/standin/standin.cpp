#include "standin/standin.h"

#include <string>

#include "standin/game_config.h"
#include "standin/game_line.h"
#include "standin/ini_file.h"
#include "standin/model.h"
#include "standin/record.h"
#include "standin/settings.h"
#include "standin/text.h"

namespace standin {

namespace {

const int kDefaultSeconds = 77;  // the length of a flyby that names none
const int kMaxSeconds = 3600;

int Seconds(const std::string& text) {
  std::uint64_t seconds = 0;
  if (!ParseFixed(text, 0, seconds) || seconds == 0) return kDefaultSeconds;
  return seconds > kMaxSeconds ? kMaxSeconds : static_cast<int>(seconds);
}

std::string Setting(const std::string& variable, const IniFile& ini, const char* key) {
  if (!variable.empty()) return variable;
  const std::string* value = ini.Find("StandIn", key);
  return value ? *value : std::string();
}

// A 40-character text of digits in place of a rate, for tests of long fields.
std::string LongRate(const std::string& rate) { return std::string(40 - rate.size(), '0') + rate; }

}  // namespace

std::uint32_t Run(const Start& start) {
  const std::string system = ParentFolder(start.modulePath);
  const std::string game = ParentFolder(system);
  AppendToFile(JoinPath(system, "StandIn.log"), start.commandLine + "\r\n");
  // This start's number: the lines of StandIn.log, its own included.
  std::string starts;
  ReadWholeFile(JoinPath(system, "StandIn.log"), starts);
  std::uint64_t number = 0;
  for (char c : starts) number += c == '\n';

  IniFile own;
  own.Load(JoinPath(system, "StandIn.ini"));
  const std::uint64_t speed = ParseSpeed(Setting(start.speedVariable, own, "Speed"));
  const GameLine line = ParseGameLine(start.commandLine);
  Fault fault = ParseFault(Setting(start.faultVariable, own, "Fault"));
  if (!FaultApplies(fault, line.level, number)) fault = Fault();
  if (fault.kind == FaultKind::Crash) return kCrashExitCode;
  if (fault.kind == FaultKind::Hang) start.sleep(fault.hangSeconds * 1000);

  // Without -benchmark the game would open its menu and wait for a player: nothing to measure.
  const Level* level = FindLevel(line.level);
  if (!line.benchmark || !level) return 0;

  GameConfig config = DefaultGameConfig();
  if (!line.ini.empty()) {
    const std::string path = IsAbsolutePath(line.ini) ? line.ini : JoinPath(system, line.ini);
    IniFile ini;
    if (ini.Load(path)) config = ReadGameConfig(ini);
  }
  if (!config.startable) return 0;

  const RunInputs inputs{level,
                         line.width > 0 ? line.width : config.viewportX,
                         line.width > 0 ? line.height : config.viewportY,
                         config.renderer,
                         config.gpuPermille,
                         config.cpuPermille,
                         line.noSound,
                         Seconds(line.seconds)};
  RunResult result = RunBenchmark(inputs);
  if (speed > 0) start.sleep(result.totalMicros / speed);
  const std::uint64_t vary = ParseVary(Setting("", own, "Vary"));
  for (std::uint64_t* rate : {&result.low, &result.average, &result.high}) *rate = Varied(*rate, vary, number);

  RecordTexts texts{FormatRate(result.low), FormatRate(result.average), FormatRate(result.high),
                    FormatRate(result.score)};
  if (fault.kind == FaultKind::Inf) texts.high = "inf";
  if (fault.kind == FaultKind::LongRate) texts.average = LongRate(texts.average);
  // The game writes its logs only when the flyby is over; with no Benchmark folder they fail.
  const std::string folder = JoinPath(game, "Benchmark");
  AppendToFile(JoinPath(folder, "benchmark.log"), BenchmarkRecord(texts, result.seed));
  AppendToFile(JoinPath(folder, "lowframerate.log"), LowFrameRateRecord(level->name, texts));
  return 0;
}

}  // namespace standin
