#include "support/fixture.h"

namespace {
using namespace testing_support;

class Runs : public HeadlessTest {};

// A run without what it needs starts nothing, after the logs were emptied and while the run
// controls are locked, and tells why under a title of its own.
TEST_F(Runs, RefusedRunsTellWhyWithTheControlsLocked) {
  const std::string none = "Please Select at least one resolution to use";
  const struct {
    int button;  // 1 CPU Benchmark, 3 Low Quality, 4 Run Test of Custom Options
    bool ticked;
    headless::Box box;
  } rows[] = {
      {1, false, {none, "Select a Resolution", 0}},
      {3, false, {none, "Select a Resolution", 0}},
      {4, false, {none, "Please select a Resolution", 0}},
      {4, true, {"Please Choose a Custom ini file to use", "Choose a File...", 0}},  // no ini path
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.box.title);
    Fresh();
    InstallFull();
    Form1& form = StartProgram();
    Tick({1});
    headless::Click(form.Command1);  // an earlier run, whose count must not linger
    const std::string report = FileOrMissing(kReport);
    if (!row.ticked) Tick({1});
    forms::CommandButton& button =
        row.button == 1 ? form.Command1 : row.button == 3 ? form.Command3 : OpenCustom().Command2;
    if (row.button == 4) headless::Click(CustomWindow()->Option5);
    headless::PutFile(kLog, "stale, 1 / 2 / 3abcd, x, y\r\n");
    headless::PutFile(kBenchLog, "stale\r\n");
    std::vector<bool> enabledWhileOpen;
    // The option buttons are no run controls: they keep their state.
    auto options = [&] {
      return std::vector<bool>{form.Option1.Enabled(), form.Option2.Enabled(), form.Option3.Enabled(),
                               form.Option4.Enabled()};
    };
    const std::vector<bool> optionsBefore = options();
    std::vector<bool> optionsWhileOpen;
    headless::AnswerBoxes([&](const headless::Box&) {
      enabledWhileOpen = RunControlsEnabled();
      optionsWhileOpen = options();
      return 1;
    });
    headless::Click(button);
    EXPECT_EQ(headless::Boxes(), Boxes{row.box});
    EXPECT_EQ(enabledWhileOpen, std::vector<bool>(9, false));
    EXPECT_EQ(optionsWhileOpen, optionsBefore);
    EXPECT_EQ(headless::Starts().size(), 1u);
    EXPECT_EQ(FileOrMissing(kLog) + FileOrMissing(kBenchLog), "");
    EXPECT_EQ(FileOrMissing(kReport), report);
    EXPECT_EQ(headless::ShellCalls().size(), 1u);
    EXPECT_TRUE(AllRunControlsEnabled());
    // A refused run leaves no resolution behind for the next one.
    Tick({1, 3});
    headless::Click(form.Command1);
    const std::string& last = headless::Starts().back().commandLine;
    EXPECT_EQ(last.substr(last.rfind(' ')), " -1280x1024");
  }
}

// A start the system refuses is told and the run goes on; the game is started minimised, its
// handle closed after the wait, and the report, though it has no record, is handed to the
// shell with the main window as owner.
TEST_F(Runs, FailedStartsAreToldAndTheRunStillReports) {
  InstallFull();
  headless::ProgramGame(headless::FailStart(70, "Permission denied"));
  headless::ProgramGame(headless::AppendNothing());
  Form1& form = StartProgram();
  Tick({1, 2});
  headless::Click(form.Command1);
  EXPECT_EQ(headless::Boxes(), (Boxes{{"70 : Permission denied", kTitle, 0}}));
  ASSERT_EQ(headless::Starts().size(), 2u);
  EXPECT_EQ(headless::Starts()[1].windowStyle, 2);
  EXPECT_EQ(headless::OpenProcessHandles(), 0);
  EXPECT_NE(FileOrMissing(kReport), "<missing>");
  EXPECT_EQ(headless::ShellCalls(),
            (std::vector<headless::ShellCall>{{form.hWnd(), "Open", kReport, {}, {}, 1}}));
  EXPECT_TRUE(AllRunControlsEnabled());
}

// With no game found the logs are left alone, the full game's suite runs, and every start of
// "\System\ut2003.exe" fails with 53.
TEST_F(Runs, NoGameFoundRunsTheFullSuiteAndEachStartFails) {
  Form1& form = StartProgram();
  Tick({0});
  headless::Click(form.Command2);
  ASSERT_EQ(headless::Starts().size(), 7u);
  const std::string& first = headless::Starts()[0].commandLine;
  EXPECT_EQ(first.rfind("\"\\System\\ut2003.exe\" dm-antalus?", 0), 0u);
  ASSERT_EQ(headless::Boxes().size(), 8u);  // the first told of the missing install at start-up
  EXPECT_EQ(headless::Boxes()[1], (headless::Box{first + " cannot be found.", kTitle, 16}));
  // Seven columns at one resolution and the notes, with no variant to name.
  const std::string report = FileOrMissing(kReport);
  EXPECT_EQ(std::count(report.begin(), report.end(), '\n'), 1 + 3 * (5 + 10 * 2) + 11);
  EXPECT_NE(report.find("\r\nThis test was run using the  version of Unreal Tournament 2003\r\n"),
            std::string::npos);
}

}  // namespace
