#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>
#include <vector>

#include "standin/game_config.h"
#include "standin/game_line.h"
#include "standin/record.h"
#include "standin/standin.h"
#include "support/rows.h"

namespace {
using namespace testing_support;

namespace fs = std::filesystem;

// All that the stand-in takes from a line, as one text to compare. The lines the program
// writes are read in every end-to-end run; these are the ones it never writes.
using StandInLine = Rows<testing::Test, const char*, const char*, const char*>;
TEST_P(StandInLine, SwitchesAndValues) {
  const auto& [name, line, read] = GetParam();
  const standin::GameLine l = standin::ParseGameLine(line);
  EXPECT_EQ(l.level + (l.benchmark ? " benchmark" : "") + (l.noSound ? " nosound" : "") + " s[" + l.seconds + "] ini[" +
                l.ini + "] user[" + l.userIni + "] " + std::to_string(l.width) + "x" + std::to_string(l.height), read);
}
INSTANTIATE_TEST_SUITE_P(StandIn, StandInLine, testing::ValuesIn(std::vector<StandInLine::ParamType>{
    // The number may stand apart from its switch, and quotes may hold a whole switch.
    {"NumberApartAndQuotedSwitch", "\"C:\\UT\\System\\ut2003.exe\" ctf-face3?game=engine.gameinfo exec=\"x\" "
     "-benchmark -seconds= 116 \"ini=C:\\My Inis\\my.ini\" userini=\"u.ini\" -640x480",
     "ctf-face3 benchmark s[116] ini[C:\\My Inis\\my.ini] user[u.ini] 640x480"},
    // Upper case; a switch given twice counts with its last value.
    {"UpperCaseAndASwitchTwice", "C:\\UT\\System\\ut2003.exe DM-Antalus?game=x -BENCHMARK -640x480 -Seconds=71 "
     "-NOSOUND INI=z.ini INI=a.ini USERINI=b.ini -1600X1200",
     "DM-Antalus benchmark nosound s[71] ini[a.ini] user[b.ini] 1600x1200"},
    // userini= is no ini=, and a switch inside a word or inside quotes is no switch.
    {"NoSwitches", "\"ut2003.exe\" dm-gael userini=u.ini xini=x.ini a-benchmark -benchmarks -nosoundx "
     "exec=\"C:\\a -benchmark -nosound\\f.txt\" -seconds=-5 -64x48x", "dm-gael s[-5] ini[] user[u.ini] 0x0"}}), ByName);

// "S" startable with Direct3D, "O" startable with OpenGL, "-" the game stops. The inis of the
// program, startable with Direct3D, are read end to end.
const std::string kPaths = "[Core.System]\r\nPaths=../System/*.u\r\n";
using StandInIni = Rows<testing::Test, const char*, std::string, char>;
TEST_P(StandInIni, WhatTheGameNeedsAndItsRenderer) {
  const auto& [name, text, wanted] = GetParam();
  const standin::GameConfig config = standin::ReadGameConfig(standin::IniFile(text));
  EXPECT_EQ(!config.startable ? '-' : config.renderer == standin::Renderer::OGL ? 'O' : 'S', wanted);
}
INSTANTIATE_TEST_SUITE_P(StandIn, StandInIni, testing::ValuesIn(std::vector<StandInIni::ParamType>{
    // Names in any case, LF line ends, comments and blanks around the "=".
    {"AnyCaseLFCommentsAndBlanks", "; x\n[core.system]\npaths = ../Maps/*.ut2\n[ENGINE.ENGINE]\n"
     "renderdevice = opengldrv.openglrenderdevice\n", 'O'},
    {"NoPaths", "[Core.System]\r\nPaths=\r\n[Engine.Engine]\r\nRenderDevice=D3DDrv.D3DRenderDevice\r\n", '-'},
    {"GameEngineSection", kPaths + "[Engine.GameEngine]\r\nRenderDevice=D3DDrv.D3DRenderDevice\r\n", '-'},
    {"OtherRenderer", kPaths + "[Engine.Engine]\r\nRenderDevice=PixoDrv.PixoRenderDevice\r\n", '-'}}), ByName);

TEST(StandInRate, HasSixDecimals) { EXPECT_EQ(standin::FormatRate(7), "0.000007"); }

// A game folder with System\ and Benchmark\ in a fresh temporary folder.
class StandInRun : public ::testing::Test {
 protected:
  void SetUp() override {
    fs::remove_all(root_);
    for (const char* folder : {"System", "Benchmark"}) fs::create_directories(root_ / folder);
  }
  void TearDown() override { fs::remove_all(root_); }

  // Runs System\ut2003.exe with these arguments, and the fault and speed of the environment.
  std::uint32_t Start(const std::string& args, const std::string& fault = "", const std::string& speed = "") {
    const std::string exe = (root_ / "System" / "ut2003.exe").string();
    return standin::Run({"\"" + exe + "\" " + args, exe, speed, fault,
                         [this](std::uint64_t ms) { sleeps_.push_back(ms); }});
  }
  std::string Read(const std::string& name) const {
    return {std::istreambuf_iterator<char>(std::ifstream(root_ / name, std::ios::binary).rdbuf()), {}};
  }
  void Write(const std::string& name, const std::string& bytes) const {
    std::ofstream(root_ / name, std::ios::binary) << bytes;
  }

  // A folder of its own for each test, as CTest runs them side by side.
  const fs::path root_ = fs::temp_directory_path() / ("standin-" + std::to_string(std::random_device()()));
  std::vector<std::uint64_t> sleeps_;
};

const std::string kCpuRun = "dm-inferno?game=engine.gameinfo -benchmark -seconds=77 -nosound ini=\"" +
                            std::string(KELVARNITE_INI_DIR) + "/D3D/CPU_LowDetail.ini\" -640x480";

// Starts whose inputs agree leave the same benchmark.log line, seed and rates: a relative ini is
// found in System\ and gives the screen size, a missing -seconds= is 77, a missing ini gives the
// defaults, and more than 3600 seconds are 3600. Sound changes the rates but not the seed. The
// speed of the environment beats the file's, and a hang or a crash comes before the line's checks.
TEST_F(StandInRun, IniPathsSoundSpeedAndStartsThatLeaveNoRecord) {
  Write("System/StandIn.ini", "[StandIn]\r\nSpeed=0\r\n");
  Write("System/bare.ini", "[Engine.Engine]\r\nRenderDevice=D3DDrv.D3DRenderDevice\r\n");
  // Its screen size is 1024x768.
  fs::copy_file(fs::path(KELVARNITE_INI_DIR) / "OGL/CPU_LowDetail.ini", root_ / "System/ogl.ini");
  // The line, the fault, the speed. The first four record nothing: a crash, no -benchmark (after
  // a hang), no such map, an ini the game cannot start with.
  const std::tuple<std::string, std::string, std::string> starts[] = {
      {"dm-inferno", "crash", ""}, {"dm-inferno -640x480", "hang 2", ""},
      {"dm-nowhere -benchmark", "", ""}, {"dm-inferno -benchmark ini=bare.ini", "", ""},
      {"dm-inferno -benchmark ini=ogl.ini", "", ""},
      {"dm-inferno -benchmark -seconds=77 -1024x768 ini=\"" + (root_ / "System/ogl.ini").string() + "\"", "", ""},
      {"dm-inferno -benchmark -seconds=99999 ini=\"" + (root_ / "missing.ini").string() + "\"", "", ""},
      {"dm-inferno -benchmark -640x480 -seconds=3600", "", ""}, {kCpuRun, "", "1"},
      {kCpuRun.substr(0, kCpuRun.find(" -nosound")) + kCpuRun.substr(kCpuRun.find(" ini=")), "", ""}};
  for (const auto& [line, fault, speed] : starts)
    EXPECT_EQ(Start(line, fault, speed), fault == "crash" ? standin::kCrashExitCode : 0u) << line;
  EXPECT_EQ(sleeps_, (std::vector<std::uint64_t>{2000, 15105}));
  // Six lines, in pairs: equal, equal, and the last two equal from their seeds on only.
  std::istringstream log(Read("Benchmark/benchmark.log"));
  std::string l[7];
  for (std::string& line : l) std::getline(log, line);
  EXPECT_EQ(std::make_tuple(l[0] == l[1], l[2] == l[3], l[4] == l[5], l[6]), std::make_tuple(true, true, false, ""));
  EXPECT_EQ(l[4].substr(l[4].find("rand[")), l[5].substr(l[5].find("rand[")));

  fs::remove_all(root_ / "Benchmark");
  EXPECT_EQ(Start(kCpuRun), 0u);
  EXPECT_FALSE(fs::exists(root_ / "Benchmark"));
}

// The same line gives the same bytes, appended to what the logs hold; a fault changes them.
// Each row: UT2003_STANDIN_FAULT, the [StandIn] section of StandIn.ini, line 2 of the record
// ("" for none: the game crashed), the waits.
const std::string kRates = "73.534819 / 153.025935 / 205.507604 fps";
using StandInFault = Rows<StandInRun, const char*, const char*, const char*, std::string, std::vector<std::uint64_t>>;
TEST_P(StandInFault, AndTheSpeedShapeTheRecord) {
  const auto& [name, variable, file, record, sleeps] = GetParam();
  Write("System/StandIn.ini", std::string("[StandIn]\r\n") + file + "\r\n");
  for (const char* log : {"Benchmark/lowframerate.log", "Benchmark/benchmark.log"}) Write(log, "old\r\n");
  EXPECT_EQ(Start(kCpuRun, variable), record.empty() ? standin::kCrashExitCode : 0u);
  EXPECT_EQ(Read("Benchmark/lowframerate.log"),
            "old\r\n" + (record.empty() ? "" : "DM-Inferno\r\n" + record + "\r\nScore = 155.429609\r\n\r\n"));
  EXPECT_EQ(Read("Benchmark/benchmark.log"),
            "old\r\n" + (record.empty() ? "" : record + " -- Score = 155.429609        rand[1232846347]\r\n"));
  EXPECT_EQ(sleeps_, sleeps);
}
INSTANTIATE_TEST_SUITE_P(StandIn, StandInFault, testing::ValuesIn(std::vector<StandInFault::ParamType>{
    {"CrashFromTheEnvironment", "crash", "", "", {}},
    {"CrashOfThisMapFromTheFile", "", "Fault=crash DM-INFERNO", "", {}},
    {"CrashOfAnotherMap", "", "Fault=crash dm-antalus\r\nSpeed=0", kRates, {}},
    {"HangAndSpeedFromTheFile", "hang 5", "Speed=2.5", kRates, {5000, 6042}},
    {"EnvironmentBeforeTheFile", "inf dm-inferno", "Fault=crash", "73.534819 / 153.025935 / inf fps", {944}},
    {"LongRate", "long-rate", "", "73.534819 / " + std::string(30, '0') + "153.025935 / 205.507604 fps", {944}},
    {"UnknownFaultAndSpeed", "explode", "Speed=fast", kRates, {944}},
    {"HangOfNoSeconds", "hang soon", "", kRates, {944}},
    {"FaultOfTooManyWords", "crash dm-inferno now", "", kRates, {944}},
    {"CrashOfThisStart", "crash dm-inferno #1", "", "", {}},
    {"CrashOfAnotherStart", "crash #2", "", kRates, {944}},
    {"StartThatIsNoNumber", "crash #first", "", kRates, {944}},
    // The first start's hash, 2654435761, is 19 modulo 101: each rate times (1000 + 19 - 50) / 1000.
    {"VaryFromTheFile", "", "Vary=5", "71.255239 / 148.282131 / 199.136868 fps", {944}}}), ByName);

}  // namespace
