#include <string>
#include <vector>

#include "support/fixture.h"

namespace {
using namespace testing_support;
using mdlBenchmark::AppState;
using TextLines = std::vector<std::string>;

const char* const kResults = "C:\\Bench\\results.html";

class ReportTest : public HeadlessTest {
 protected:
  void SetUp() override {
    HeadlessTest::SetUp();
    headless::MakeFolder("C:\\Bench");
    AppState.AppPath = "C:\\Bench\\";
    AppState.GamePath = kFullPath;
    AppState.RenderEngine = "D3D";
    AppState.GameVersion = "full";
  }
  // A log of n records "L<k>" with the rates k.1, k.2 and k.3, and the resolutions of R rows.
  void Prepare(int records, int rows) {
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
    return FileOrMissing(kResults);
  }
};

TEST_F(ReportTest, LineCounts) {
  const int cases[][3] = {{1, 1, 40}, {3, 2, 70}, {7, 5, 196}};
  for (const auto& c : cases) {
    Prepare(35, c[1]);
    EXPECT_EQ(Lines(Report(c[0], false)).size(), static_cast<std::size_t>(c[2]));
  }
}

TEST_F(ReportTest, OneColumnTwoRowsWithNotes) {
  struct Case {
    const char *engine, *version, *engineLine;
  };
  const Case cases[] = {
      {"D3D", "full", "This test was run using the Direct3D Rendering Engine"},
      {"OGL", "demo", "This test was run using the OpenGL Rendering Engine"},
      {"ogl", "full", "This test was run using the Direct3D Rendering Engine"},
  };
  for (const Case& c : cases) {
    Prepare(3, 2);
    AppState.RenderEngine = c.engine;
    AppState.GameVersion = c.version;
    TextLines expected = {"<META GENERATOR=Kelvarnite UT2003 Benchmark>"};
    const char* captions[] = {"Low", "Average", "High"};
    for (int b = 0; b < 3; ++b) {
      const std::string d = std::to_string(b + 1);
      TextLines block = {"<TABLE BORDER=1 CELLPADDING=3 ALIGN=CENTER>",
                         std::string("<CAPTION ALIGN=TOP><B>") + captions[b] + " FPS</b></caption>",
                         "<TR>",
                         "<TD>Resolution",
                         "<TD>L1            ",
                         "</TR>",
                         "<TR>",
                         "<TD>640x480",
                         "<TD>1." + d + "       ",
                         "</TR>",
                         "<TR>",
                         "<TD>1024x768",
                         "<TD>2." + d + "       ",
                         "</TR>",
                         "</TABLE>",
                         "<BR>",
                         "<BR>"};
      expected.insert(expected.end(), block.begin(), block.end());
    }
    TextLines notes = {"<BR>",
                       "<CENTER>",
                       "Run sentence",
                       "<BR>",
                       c.engineLine,
                       "<BR>",
                       std::string("This test was run using the ") + c.version +
                           " version of Unreal Tournament 2003",
                       "<BR>",
                       "Ini sentence",
                       "<BR>",
                       "</CENTER>"};
    expected.insert(expected.end(), notes.begin(), notes.end());
    EXPECT_EQ(Lines(Report(1, true)), expected) << c.engine;
  }
}

TEST_F(ReportTest, MissingRecordsLeaveBlankCells) {
  Prepare(4, 2);
  TextLines lines = Lines(Report(3, true));
  ASSERT_EQ(lines.size(), 81u);
  EXPECT_EQ(lines[7], "<TD>L3            ");
  EXPECT_EQ(lines[17], "<TD>4.1       ");
  EXPECT_EQ(lines[18], "<TD>" + std::string(10, ' '));
  EXPECT_EQ(lines[19], "<TD>" + std::string(10, ' '));
  EXPECT_EQ(lines[47 + 16], "<TD>4.3       ");
  EXPECT_EQ(lines[80], "</CENTER>");

  Prepare(0, 2);  // an empty log after a full one shows none of the old rates
  lines = Lines(Report(3, false));
  ASSERT_EQ(lines.size(), 70u);
  EXPECT_EQ(lines[5], "<TD>" + std::string(14, ' '));
  EXPECT_EQ(lines[11], "<TD>" + std::string(10, ' '));
}

TEST_F(ReportTest, ExtraRecordsChangeNothing) {
  Prepare(35, 2);
  const std::string full = Report(3, true);
  Prepare(6, 2);
  EXPECT_EQ(Report(3, true), full);
}

TEST_F(ReportTest, SecondTestReplacesTheFile) {
  Prepare(35, 5);
  Report(7, true);
  Prepare(1, 1);
  TextLines lines = Lines(Report(1, true));
  EXPECT_EQ(lines.size(), 51u);
  EXPECT_EQ(lines[0], "<META GENERATOR=Kelvarnite UT2003 Benchmark>");
}

TEST_F(ReportTest, UnwritableReportIsTold) {
  Prepare(1, 1);
  EXPECT_TRUE(mdlBenchmark::WriteResultsTables(1));
  headless::SetReadOnly(kResults, true);
  EXPECT_FALSE(mdlBenchmark::AppendRunNotes("a", "b"));
  AppState.AppPath = "C:\\Missing\\";
  EXPECT_FALSE(mdlBenchmark::WriteResultsTables(1));
  ASSERT_EQ(headless::Boxes().size(), 2u);
  const std::string texts[] = {"C:\\Bench\\results.html cannot be written: Permission denied.",
                               "C:\\Missing\\results.html cannot be written: Path not found."};
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(headless::Boxes()[i].text, texts[i]);
    EXPECT_EQ(headless::Boxes()[i].title, "Kelvarnite UT2k3 Benchmark");
    EXPECT_EQ(headless::Boxes()[i].flags, 16);
  }
}

TEST_F(ReportTest, OpenDocumentHandsThePathToTheShell) {
  Form1& form = StartProgram();
  const std::size_t before = headless::ShellCalls().size();
  mdlBenchmark::OpenDocument(kResults);
  ASSERT_EQ(headless::ShellCalls().size(), before + 1);
  const headless::ShellCall& call = headless::ShellCalls().back();
  EXPECT_EQ(call.owner, form.hWnd());
  EXPECT_NE(call.owner, 0u);
  EXPECT_EQ(call.operation, std::optional<std::string>("Open"));
  EXPECT_EQ(call.file, std::optional<std::string>(kResults));
  EXPECT_FALSE(call.parameters.has_value());
  EXPECT_FALSE(call.directory.has_value());
  EXPECT_EQ(call.showCommand, 1);
}

}  // namespace
