#include "support/fixture.h"

namespace {
using namespace testing_support;

class QualitySuite : public HeadlessTest {
 protected:
  void Run(bool high) { headless::Click(high ? MainForm().Command2 : MainForm().Command3); }
  static std::string Report() { return FileOrMissing("C:\\Bench\\results.html"); }
};


TEST_F(QualitySuite, WorkedExampleIsWrittenByteForByte) {
  InstallFull();
  StartProgram();
  Tick({0, 2});
  const char* const records[] = {
      "dm-antalus, 41.20 / 61.20 / 98.40abcd, x, y\r\n",
      "dom-suntemple, 36.75 / 56.75 / 87.15abcd, x, y\r\n",
      "dm-phobos2, 44.10 / 64.10 / 101.90abcd, x, y\r\n",
      "dm-inferno, 33.08 / 53.08 / 80.22abcd, x, y\r\n",
      "ctf-face3, 29.64 / 49.64 / 72.31abcd, x, y\r\n",
      "ctf-citadel, 38.51 / 58.51 / 90.06abcd, x, y\r\n",
      "dm-asbestos, 47.33 / 67.33 / 110.75abcd, x, y\r\n",
      "dm-antalus, 30.12 / 50.12 / 70.80abcd, x, y\r\n",
      "dom-suntemple, 27.40 / 47.40 / 65.33abcd, x, y\r\n",
      "dm-phobos2, 35.96 / 55.96 / 82.47abcd, x, y\r\n",
      "dm-inferno, 24.87 / 44.87 / 60.01abcd, x, y\r\n",
      "ctf-face3, 21.05 / 41.05 / 52.90abcd, x, y\r\n",
      "ctf-citadel, 28.69 / 48.69 / 68.12abcd, x, y\r\n",
      "dm-asbestos, 36.18 / 56.18 / 85.64abcd, x, y\r\n",
  };
  for (const char* record : records) headless::ProgramGame(headless::AppendRecord(record));
  Run(true);
  EXPECT_EQ(headless::Starts().size(), 14u);
  EXPECT_EQ(Lines(Report()).size(), 117u);
  EXPECT_EQ(Report(), Golden("high_quality_full_640x480_1024x768.html"));
}

struct SuiteCase {
  bool demo;
  bool high;
  std::vector<std::string> levelAndSeconds;  // what each start of one resolution runs
};

TEST_F(QualitySuite, StartsRunEveryLevelInTableOrderAtEachResolution) {
  const std::vector<std::string> full = {
      "dm-antalus?game=engine.gameinfo|-seconds=77",    "dom-suntemple?game=engine.gameinfo|-seconds=77",
      "dm-phobos2?game=engine.gameinfo|-seconds=77",    "dm-inferno?game=engine.gameinfo|-seconds=77",
      "ctf-face3?game=engine.gameinfo|-seconds=116",    "ctf-citadel?game=engine.gameinfo|-seconds=77",
      "dm-asbestos?game=engine.gameinfo|-seconds=71"};
  const std::vector<std::string> demo = {"dm-antalus?game=engine.gameinfo|-seconds=77",
                                         "dm-asbestos?game=engine.gameinfo|-seconds=77",
                                         "ctf-citadel?game=engine.gameinfo|-seconds=77"};
  const SuiteCase cases[] = {{false, true, full}, {false, false, full}, {true, true, demo}, {true, false, demo}};
  for (const SuiteCase& c : cases) {
    TearDown();
    SetUp();
    c.demo ? InstallDemo() : InstallFull();
    const std::string game = c.demo ? kDemoPath : kFullPath;
    StartProgram();
    Tick({1, 2});
    Run(c.high);
    const std::string tail =
        std::string(" -nosound ini=\"C:\\Bench\\INI\\D3D\\") +
        (c.high ? "Custom_MaxDetail.ini\" userini=\"" + game + "\\Benchmark\\Stuff\\MaxDetailUser.ini\" -"
                : "Custom_MinDetail.ini\" userini=\"" + game + "\\Benchmark\\Stuff\\MinDetailUser.ini\" -");
    const std::size_t n = c.levelAndSeconds.size();
    ASSERT_EQ(headless::Starts().size(), 2 * n);
    for (std::size_t i = 0; i < 2 * n; ++i) {
      const std::string& wanted = c.levelAndSeconds[i % n];
      const std::string level = wanted.substr(0, wanted.find('|'));
      const std::string seconds = wanted.substr(wanted.find('|') + 1);
      EXPECT_EQ(headless::Starts()[i].commandLine,
                "\"" + game + "\\System\\ut2003.exe\" " + level + " exec=\"" + game +
                    "\\Benchmark\\Stuff\\flybyexec.txt\" -benchmark " + seconds + tail +
                    (i < n ? "800x600" : "1024x768"));
    }
    EXPECT_EQ(Lines(Report()).size(), 1 + 3 * (5 + (n + 3) * 3) + 11);
  }
}

TEST_F(QualitySuite, DemoLowQualityReportHasTwoRowsOfThreeColumns) {
  InstallDemo();
  StartProgram();
  Tick({1, 2});
  Run(false);
  const std::vector<std::string> lines = Lines(Report());
  ASSERT_EQ(lines.size(), 70u + 11u);
  EXPECT_EQ(std::vector<std::string>(lines.begin() + 5, lines.begin() + 8),
            (std::vector<std::string>{"<TD>dm-antalus    ", "<TD>dm-asbestos   ", "<TD>ctf-citadel   "}));
  EXPECT_EQ(std::vector<std::string>(lines.begin() + 10, lines.begin() + 15),
            (std::vector<std::string>{"<TD>800x600", "<TD>1.10      ", "<TD>2.10      ", "<TD>3.10      ", "</TR>"}));
  EXPECT_EQ(std::vector<std::string>(lines.end() - 11, lines.end()),
            (std::vector<std::string>{
                "<BR>", "<CENTER>", "This test was run using the Low Quality Option", "<BR>",
                "This test was run using the Direct3D Rendering Engine", "<BR>",
                "This test was run using the demo version of Unreal Tournament 2003", "<BR>",
                "This test was run using the Custom_MinDetail.ini provided by Kelvarnite", "<BR>",
                "</CENTER>"}));
}

TEST_F(QualitySuite, FullGameAtFiveResolutionsRunsThirtyFiveStarts) {
  InstallFull();
  StartProgram();
  Tick({0, 1, 2, 3, 4});
  Run(true);
  EXPECT_EQ(headless::Starts().size(), 35u);
  const std::vector<std::string> lines = Lines(Report());
  ASSERT_EQ(lines.size(), 196u + 11u);
  // The last row of the Low table holds the records of the last resolution, 29 to 35.
  EXPECT_EQ(lines[54], "<TD>1600x1200");
  EXPECT_EQ(lines[55], "<TD>29.10     ");
  EXPECT_EQ(lines[61], "<TD>35.10     ");
  EXPECT_EQ(lines[195], "<BR>");
}

TEST_F(QualitySuite, NoGameFoundRunsTheFullSuite) {
  StartProgram();
  Tick({0});
  Run(true);
  EXPECT_EQ(headless::Starts().size(), 7u);
}

}  // namespace
