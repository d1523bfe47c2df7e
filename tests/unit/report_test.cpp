#include "support/fixture.h"

namespace {
using namespace testing_support;
using mdlBenchmark::AppState;

class ReportTest : public HeadlessTest {};

// Two records for three levels at two resolutions: the cells the log lacks are blank, so the
// report is whole and its notes follow. The engine's code is compared exactly: "ogl" is no
// OpenGL.
TEST_F(ReportTest, TooFewRecordsLeaveBlankCellsAndTheNotesFollow) {
  AppState.AppPath = "C:\\Bench\\";
  AppState.GamePath = kFullPath;
  AppState.ResolutionNames = {"", "640x480", "1024x768"};
  AppState.ResolutionCount = 2;
  AppState.RenderEngine = "ogl";
  AppState.GameVersion = "demo";
  headless::PutFile(kLog, "L1, 1.1 / 1.2 / 1.3 fps, 77, 640x480\r\n"
                          "L2, 2.1 / 2.2 / 2.3 fps, 77, 640x480\r\n");
  EXPECT_TRUE(mdlBenchmark::WriteResultsTables(3));
  EXPECT_TRUE(mdlBenchmark::AppendRunNotes("Run sentence", "Ini sentence"));
  EXPECT_EQ(FileOrMissing(kReport), Golden("too_few_records.html"));
}

}  // namespace
