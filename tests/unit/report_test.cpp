#include "support/fixture.h"

namespace {
using namespace testing_support;
using mdlBenchmark::AppState;
using TextLines = std::vector<std::string>;

class ReportTest : public HeadlessTest {
 protected:
  // A log of n records "L<k>" with the rates k.1, k.2 and k.3, and the resolutions of R rows.
  void Prepare(int records, int rows) {
    AppState.AppPath = "C:\\Bench\\";
    AppState.GamePath = kFullPath;
    std::string log;
    for (int k = 1; k <= records; ++k) {
      const std::string n = std::to_string(k);
      log += "L" + n + ", " + n + ".1 / " + n + ".2 / " + n + ".3 fps, 77, 640x480\r\n";
    }
    headless::PutFile("C:\\Games\\UT2003\\Benchmark\\lowframerate.log", log);
    AppState.ResolutionNames = {"", "640x480", "1024x768", "1280x1024", "1600x1200", "800x600"};
    AppState.ResolutionNames.resize(rows + 1);
    AppState.ResolutionCount = static_cast<std::int16_t>(rows);
  }
  std::string Report(int columns, bool notes) {
    EXPECT_TRUE(mdlBenchmark::WriteResultsTables(columns));
    if (notes) {
      EXPECT_TRUE(mdlBenchmark::AppendRunNotes("Run sentence", "Ini sentence"));
    }
    return FileOrMissing("C:\\Bench\\results.html");
  }
};

TEST_F(ReportTest, OneByOneHasFortyLinesThenTheNotesOfEngineAndVersion) {
  // RenderEngine, GameVersion, the engine's name in the notes; no version: no notes, as after a
  // custom test.
  const char* const rows[][3] = {{"D3D", "full", "Direct3D"}, {"OGL", "demo", "OpenGL"},
                                 {"ogl", "full", "Direct3D"}, {"OGL", nullptr, nullptr}};
  for (const auto& [engine, version, engineName] : rows) {
    SCOPED_TRACE(engine);
    Prepare(1, 1);
    AppState.RenderEngine = engine;
    AppState.GameVersion = version ? version : "full";
    const TextLines lines = Lines(Report(1, version != nullptr));
    ASSERT_EQ(lines.size(), version ? 51u : 40u);
    EXPECT_EQ(TextLines(lines.begin() + 27, lines.begin() + 40),
              (TextLines{"<TABLE BORDER=1 CELLPADDING=3 ALIGN=CENTER>",
                         "<CAPTION ALIGN=TOP><B>High FPS</b></caption>", "<TR>", "<TD>Resolution",
                         "<TD>L1            ", "</TR>", "<TR>", "<TD>640x480", "<TD>1.3       ",
                         "</TR>", "</TABLE>", "<BR>", "<BR>"}));
    if (!version) continue;
    EXPECT_EQ(lines[44], std::string("This test was run using the ") + engineName +
                             " Rendering Engine");
    EXPECT_EQ(lines[46], std::string("This test was run using the ") + version +
                             " version of Unreal Tournament 2003");
  }
}

TEST_F(ReportTest, MissingRecordsLeaveBlankCellsAndTheNotesFollow) {
  Prepare(2, 2);
  const TextLines lines = Lines(Report(3, true));
  ASSERT_EQ(lines.size(), 81u);
  const std::string b10 = "<TD>" + std::string(10, ' ');
  EXPECT_EQ(TextLines(lines.begin() + 5, lines.begin() + 20),
            (TextLines{"<TD>L1            ", "<TD>L2            ", "<TD>" + std::string(14, ' '),
                       "</TR>", "<TR>", "<TD>640x480", "<TD>1.1       ", "<TD>2.1       ", b10,
                       "</TR>", "<TR>", "<TD>1024x768", b10, b10, b10}));
  EXPECT_EQ(lines[47 + 11], "<TD>2.3       ");
  EXPECT_EQ(lines[70], "<BR>");
  EXPECT_EQ(lines[80], "</CENTER>");
}

TEST_F(ReportTest, ExtraRecordsChangeNothingAndEachWriteReplacesTheFile) {
  Prepare(6, 2);
  const std::string cut = Report(3, true);
  Prepare(35, 5);
  Report(7, true);
  Prepare(35, 2);
  EXPECT_EQ(Report(3, true), cut);
}

TEST_F(ReportTest, OpenDocumentHandsThePathToTheShell) {
  Form1& form = StartProgram();
  mdlBenchmark::OpenDocument("C:\\Bench\\help.html");
  EXPECT_NE(form.hWnd(), 0u);
  EXPECT_EQ(headless::ShellCalls(), (std::vector<headless::ShellCall>{
                                        {form.hWnd(), "Open", "C:\\Bench\\help.html", {}, {}, 1}}));
}

}  // namespace
