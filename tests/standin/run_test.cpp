#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <vector>

#include "standin/game_config.h"
#include "standin/model.h"
#include "standin/standin.h"

namespace {

namespace fs = std::filesystem;

standin::GameConfig Shipped(const std::string& renderer, const std::string& file) {
  standin::IniFile ini;
  EXPECT_TRUE(ini.Load(std::string(KELVARNITE_INI_DIR) + "/" + renderer + "/" + file));
  return standin::ReadGameConfig(ini);
}

standin::RunResult Flyby(const standin::GameConfig& config, int width, int height, int seconds = 77,
                         bool noSound = true) {
  return standin::RunBenchmark({standin::FindLevel("dm-inferno"), width, height, config.renderer,
                                config.gpuPermille, config.cpuPermille, noSound, seconds});
}

TEST(StandInModel, ShippedIniFilesGivePlausibleOrderedRates) {
  const struct {
    const char* file;
    int width, height;
    std::uint64_t lowest, highest;  // bounds of the average, in frames per second
  } cases[] = {{"CPU_LowDetail.ini", 640, 480, 100, 200},
               {"Custom_MinDetail.ini", 1024, 768, 80, 180},
               {"Custom_MaxDetail.ini", 1600, 1200, 20, 50}};
  for (const auto& c : cases) {
    const standin::RunResult d3d = Flyby(Shipped("D3D", c.file), c.width, c.height);
    const standin::RunResult ogl = Flyby(Shipped("OGL", c.file), c.width, c.height);
    for (const standin::RunResult& r : {d3d, ogl}) {
      EXPECT_TRUE(r.low <= r.average && r.average <= r.high && r.low <= r.score &&
                  r.score <= r.high)
          << c.file;
      EXPECT_TRUE(r.average > c.lowest * 1000000 && r.average < c.highest * 1000000) << c.file;
    }
    EXPECT_NE(d3d.average, ogl.average) << c.file;
    EXPECT_NE(d3d.seed, ogl.seed) << c.file;
  }
  // More detail is slower, and so are a larger screen and sound, which leaves the seed alone.
  const standin::RunResult quiet = Flyby(standin::DefaultGameConfig(), 800, 600);
  const standin::RunResult loud = Flyby(standin::DefaultGameConfig(), 800, 600, 77, false);
  EXPECT_EQ(quiet.seed, loud.seed);
  EXPECT_GT(quiet.average, loud.average);
  EXPECT_GT(Flyby(Shipped("D3D", "Custom_MinDetail.ini"), 1600, 1200).average,
            Flyby(Shipped("D3D", "Custom_MaxDetail.ini"), 1600, 1200).average);
  EXPECT_GT(Flyby(Shipped("D3D", "Custom_MaxDetail.ini"), 640, 480).average,
            Flyby(Shipped("D3D", "Custom_MaxDetail.ini"), 1600, 1200).average);
}

// A game folder with System\ and Benchmark\ in a fresh temporary folder.
class StandInRun : public ::testing::Test {
 protected:
  void SetUp() override {
    root_ =
        fs::temp_directory_path() /
        ("standin-" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));
    fs::remove_all(root_);
    fs::create_directories(root_ / "System");
    fs::create_directories(root_ / "Benchmark");
  }
  void TearDown() override { fs::remove_all(root_); }

  std::uint32_t Start(const std::string& args, const std::string& fault = "",
                      const std::string& speed = "") {
    const std::string exe = (root_ / "System" / "ut2003.exe").string();
    standin::Start start{"\"" + exe + "\" " + args, exe, speed, fault,
                         [this](std::uint64_t ms) { sleeps_.push_back(ms); }};
    return standin::Run(start);
  }
  std::string Read(const std::string& name) const {
    std::ifstream in(root_ / name, std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
  }
  void Write(const std::string& name, const std::string& bytes) const {
    std::ofstream(root_ / name, std::ios::binary) << bytes;
  }

  fs::path root_;
  std::vector<std::uint64_t> sleeps_;
};

const std::string kCpuRun =
    "dm-inferno?game=engine.gameinfo -benchmark -seconds=77 -nosound ini=\"" +
    std::string(KELVARNITE_INI_DIR) + "/D3D/CPU_LowDetail.ini\" -640x480";

TEST_F(StandInRun, AppendsTheSameRecordForTheSameLine) {
  Write("Benchmark/lowframerate.log", "");
  EXPECT_EQ(Start(kCpuRun), 0u);
  EXPECT_EQ(Start(kCpuRun), 0u);
  const std::string rates = "73.534819 / 153.025935 / 205.507604 fps";
  const std::string record = "DM-Inferno\r\n" + rates + "\r\nScore = 155.429609\r\n\r\n";
  const std::string line = rates + " -- Score = 155.429609        rand[1232846347]\r\n";
  EXPECT_EQ(Read("Benchmark/lowframerate.log"), record + record);
  EXPECT_EQ(Read("Benchmark/benchmark.log"), line + line);
  // Each start is logged as received; the wait is the frames' time over the default factor.
  const std::string received =
      "\"" + (root_ / "System" / "ut2003.exe").string() + "\" " + kCpuRun + "\r\n";
  EXPECT_EQ(Read("System/StandIn.log"), received + received);
  EXPECT_EQ(sleeps_, std::vector<std::uint64_t>(2, 944));
}

TEST_F(StandInRun, IniPathsAndStartsThatLeaveNoRecord) {
  Write("System/bare.ini", "[Engine.Engine]\r\nRenderDevice=D3DDrv.D3DRenderDevice\r\n");
  fs::copy_file(fs::path(KELVARNITE_INI_DIR) / "OGL" / "CPU_LowDetail.ini",
                root_ / "System" / "ogl.ini");
  for (const char* line :
       {"dm-inferno -seconds=77 -640x480", "dm-nowhere -benchmark -seconds=77 -640x480",
        "dm-inferno -benchmark -seconds=77 ini=bare.ini -640x480"})
    EXPECT_EQ(Start(line), 0u) << line;
  EXPECT_FALSE(fs::exists(root_ / "Benchmark" / "benchmark.log"));

  // A relative ini is found beside the exe and gives the screen size when the line has none;
  // a missing one leaves the game's defaults. The seed tells which inputs the run had.
  Start("dm-inferno -benchmark ini=ogl.ini");
  Start("dm-inferno -benchmark -640x480 -seconds=99999 ini=\"" + (root_ / "missing.ini").string() +
        "\"");
  const std::string log = Read("Benchmark/benchmark.log");
  for (const standin::RunResult& r :
       {Flyby(Shipped("OGL", "CPU_LowDetail.ini"), 1024, 768, 77, false),
        Flyby(standin::DefaultGameConfig(), 640, 480, 3600, false)})
    EXPECT_NE(log.find("rand[" + std::to_string(r.seed) + "]\r\n"), std::string::npos) << log;

  fs::remove_all(root_ / "Benchmark");
  EXPECT_EQ(Start(kCpuRun), 0u);
  EXPECT_FALSE(fs::exists(root_ / "Benchmark"));
}

TEST_F(StandInRun, FaultsAndSpeedFromTheEnvironmentOrTheFile) {
  const std::string rates = "73.534819 / 153.025935 / 205.507604 fps";
  const struct {
    const char* variable;  // UT2003_STANDIN_FAULT
    const char* file;      // the [StandIn] section of StandIn.ini
    std::uint32_t code;
    std::string rates;  // line 2 of the record, or "" for no record
    std::vector<std::uint64_t> sleeps;
  } cases[] = {
      {"crash", "", standin::kCrashExitCode, "", {}},
      {"", "Fault=crash DM-INFERNO", standin::kCrashExitCode, "", {}},
      {"", "Fault=crash dm-antalus\r\nSpeed=0", 0, rates, {}},
      {"hang 5", "Speed=2.5", 0, rates, {5000, 6042}},
      {"inf dm-inferno", "Fault=crash", 0, "73.534819 / 153.025935 / inf fps", {944}},
      {"long-rate",
       "",
       0,
       "73.534819 / " + std::string(30, '0') + "153.025935 / 205.507604 fps",
       {944}},
      {"explode", "Speed=fast", 0, rates, {944}},
      {"hang soon", "", 0, rates, {944}},
      {"crash dm-inferno now", "", 0, rates, {944}},
  };
  for (const auto& c : cases) {
    Write("System/StandIn.ini", std::string("[StandIn]\r\n") + c.file + "\r\n");
    fs::remove_all(root_ / "Benchmark");
    fs::create_directory(root_ / "Benchmark");
    sleeps_.clear();
    EXPECT_EQ(Start(kCpuRun, c.variable), c.code) << c.variable << c.file;
    const bool recorded = !c.rates.empty();
    EXPECT_EQ(Read("Benchmark/lowframerate.log"),
              recorded ? "DM-Inferno\r\n" + c.rates + "\r\nScore = 155.429609\r\n\r\n" : "");
    EXPECT_EQ(Read("Benchmark/benchmark.log"),
              recorded ? c.rates + " -- Score = 155.429609        rand[1232846347]\r\n" : "");
    EXPECT_EQ(sleeps_, c.sleeps) << c.variable << c.file;
  }
  // The speed of the environment beats the file's; crash and hang come before the line's checks.
  sleeps_.clear();
  Start(kCpuRun, "", "1");
  EXPECT_EQ(Start("dm-inferno", "crash"), standin::kCrashExitCode);
  Start("dm-inferno", "hang 2");
  EXPECT_EQ(sleeps_, (std::vector<std::uint64_t>{15105, 2000}));
}

}  // namespace
