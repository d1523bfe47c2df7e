#include "support/fixture.h"

namespace {
using namespace testing_support;

class QualitySuite : public HeadlessTest {
 protected:
  void Run(bool high) { headless::Click(high ? MainForm().Command2 : MainForm().Command3); }
  static std::string Report() { return FileOrMissing("C:\\Bench\\results.html"); }
};

// The lines a preset suite starts: every level of the suite at each resolution in turn.
std::vector<std::string> SuiteLines(const std::string& game, const std::vector<std::string>& levels,
                                    bool high, const std::vector<std::string>& resolutions) {
  const std::string detail = high ? "Max" : "Min";
  std::vector<std::string> lines;
  for (const std::string& resolution : resolutions) {
    for (const std::string& levelAndSeconds : levels) {
      const std::size_t blank = levelAndSeconds.find(' ');
      lines.push_back("\"" + game + "\\System\\ut2003.exe\" " + levelAndSeconds.substr(0, blank) +
                      "?game=engine.gameinfo exec=\"" + game +
                      "\\Benchmark\\Stuff\\flybyexec.txt\" -benchmark -seconds=" +
                      levelAndSeconds.substr(blank + 1) + " -nosound ini=\"C:\\Bench\\INI\\D3D\\Custom_" +
                      detail + "Detail.ini\" userini=\"" + game + "\\Benchmark\\Stuff\\" + detail +
                      "DetailUser.ini\" -" + resolution);
    }
  }
  return lines;
}

std::vector<std::string> StartedLines() {
  std::vector<std::string> lines;
  for (const headless::Start& start : headless::Starts()) lines.push_back(start.commandLine);
  return lines;
}

TEST_F(QualitySuite, WorkedExampleIsWrittenByteForByte) {
  InstallFull();
  StartProgram();
  Tick({0, 2});
  // The records the game leaves, one a start.
  for (const std::string& record : Lines(Golden("high_quality_full_640x480_1024x768.log"))) {
    headless::ProgramGame(headless::AppendRecord(record + "\r\n"));
  }
  Run(true);
  EXPECT_EQ(headless::Starts().size(), 14u);
  EXPECT_EQ(Report(), Golden("high_quality_full_640x480_1024x768.html"));
}

TEST_F(QualitySuite, StartsRunEveryLevelInTableOrderAtEachResolution) {
  const std::vector<std::string> full = {"dm-antalus 77", "dom-suntemple 77", "dm-phobos2 77",
                                         "dm-inferno 77", "ctf-face3 116",    "ctf-citadel 77",
                                         "dm-asbestos 71"};
  const std::vector<std::string> demo = {"dm-antalus 77", "dm-asbestos 77", "ctf-citadel 77"};
  for (bool isDemo : {false, true}) {
    for (bool high : {true, false}) {
      TearDown();
      SetUp();
      isDemo ? InstallDemo() : InstallFull();
      StartProgram();
      Tick({1, 2});
      Run(high);
      const std::vector<std::string>& levels = isDemo ? demo : full;
      EXPECT_EQ(StartedLines(),
                SuiteLines(isDemo ? kDemoPath : kFullPath, levels, high, {"800x600", "1024x768"}));
      EXPECT_EQ(Lines(Report()).size(), 1 + 3 * (5 + (levels.size() + 3) * 3) + 11);
    }
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
