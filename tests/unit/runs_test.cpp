#include <functional>
#include <tuple>

#include "platform/system_errors.h"
#include "support/fixture.h"

namespace {
using namespace testing_support;

class Runs : public HeadlessTest {};

// A test that cannot run tells why and starts nothing more: the report stays as it was and is
// not opened, and the run controls are enabled again. A run without what it needs is refused
// after the logs were emptied, with the run controls locked, under a title of its own. A file
// that fails is told in a critical box: a log that cannot be emptied starts nothing and is told
// before the controls are locked (benchmark.log is tried first), and a report that cannot be
// written is not opened. The Custom Options window opens all the same, and its "Run Test" is
// refused in the same way.
TEST_F(Runs, RefusedRunsAndFailingFilesEndTheTest) {
  const std::string none = "Please Select at least one resolution to use";
  const std::function<void()> untick = [] { Tick({1}); }, removeFolder = [] {
    std::filesystem::remove_all(headless::HostPath("C:\\Games\\UT2003\\Benchmark"));
  };
  // The button of the main window (4: then "Run Test" of Custom Options with Custom ini), what
  // is wrong, the box and how often it comes, whether the run controls are locked meanwhile,
  // and the starts.
  const std::tuple<int, std::function<void()>, headless::Box, std::size_t, bool, std::size_t> rows[] = {
      {1, untick, {none, "Select a Resolution", 0}, 1, true, 0},
      {3, untick, {none, "Select a Resolution", 0}, 1, true, 0},
      {4, untick, {none, "Please select a Resolution", 0}, 1, true, 0},
      {4, [] {}, {"Please Choose a Custom ini file to use", "Choose a File...", 0}, 1, true, 0},
      {2, removeFolder, {std::string(kBenchLog) + " cannot be emptied: Path not found.", kTitle, 16}, 1, false, 0},
      {4, [] { headless::SetReadOnly(kLog, true); },
       {std::string(kLog) + " cannot be emptied: Permission denied.", kTitle, 16}, 2, false, 0},
      {1, [] { headless::SetReadOnly(kReport, true); },
       {std::string(kReport) + " cannot be written: Permission denied.", kTitle, 16}, 1, true, 1},
  };
  for (const auto& [button, fault, box, boxes, locked, starts] : rows) {
    SCOPED_TRACE(box.text + " " + std::to_string(button));
    Form1& form = FreshStart();
    Tick({1});
    headless::Click(form.Command1);  // an earlier run, whose resolutions must not linger
    const std::string report = FileOrMissing(kReport);
    headless::PutFile(kLog, "stale, 1 / 2 / 3abcd, x, y\r\n");
    headless::PutFile(kBenchLog, "stale\r\n");
    fault();
    std::string whileOpen;
    headless::AnswerBoxes([&](const headless::Box&) {
      whileOpen = Controls();
      return 1;
    });
    forms::CommandButton* const buttons[] = {&form.Command1, &form.Command2, &form.Command3, &form.Command4};
    headless::Click(*buttons[button - 1]);
    if (button == 4) {
      ASSERT_NE(CustomWindow(), nullptr);
      headless::Click(CustomWindow()->Option5);
      headless::Click(CustomWindow()->Command2);
    }
    EXPECT_EQ(headless::Boxes(), Boxes(boxes, box));
    // The option buttons are no run controls: they keep their state.
    EXPECT_EQ(whileOpen, locked ? "000000000 1110" : "111111111 1110");
    EXPECT_EQ(headless::Starts().size(), 1 + starts);
    EXPECT_EQ(FileOrMissing(kReport), report);
    EXPECT_EQ(headless::ShellCalls().size(), 1u);
    EXPECT_EQ(Controls(), "111111111 1110");
    if (box.flags != 0) continue;
    // A refused run has emptied the logs, and leaves no resolution behind for the next one.
    EXPECT_EQ(FileOrMissing(kLog) + FileOrMissing(kBenchLog), "");
    Tick({1, 3});
    headless::Click(form.Command1);
    const std::string& last = headless::Starts().back().commandLine;
    EXPECT_EQ(last.substr(last.rfind(' ')), " -1280x1024");
  }
}

// A start the system refuses is told and the run goes on with the demo's own suite; the game is
// started minimised, its handle closed after the wait, and the report, whose one record fills
// the first cells, is handed to the shell with the main window as owner.
TEST_F(Runs, FailedStartsAreToldAndTheRunStillReports) {
  InstallDemo();
  headless::ProgramGame(headless::FailStart(70, "Permission denied"));
  headless::ProgramGame(headless::AppendNothing());
  Form1& form = StartProgram();
  Tick({1});
  headless::Click(form.Command2);
  EXPECT_EQ(headless::Boxes(), (Boxes{{"70 : Permission denied", kTitle, 0}}));
  std::string lines;
  for (const headless::Start& start : headless::Starts()) lines += start.commandLine + "\n";
  EXPECT_EQ(lines, Golden("demo-suite.starts"));
  EXPECT_EQ(headless::Starts().at(1).windowStyle, 2);
  EXPECT_EQ(headless::OpenProcessHandles(), 0);
  EXPECT_EQ(FileOrMissing(kReport), Golden("demo-suite.html"));
  EXPECT_EQ(headless::ShellCalls(),
            (std::vector<headless::ShellCall>{{form.hWnd(), "Open", kReport, {}, {}, 1}}));
  EXPECT_EQ(Controls(), "111111111 1101");
}

// With no game found the logs are left alone, the full game's suite runs, every start of
// "\System\ut2003.exe" fails with 53, and the report has seven blank columns at one resolution
// and the notes, with no variant to name.
TEST_F(Runs, NoGameFoundRunsTheFullSuiteAndEachStartFails) {
  Form1& form = StartProgram();
  Tick({0});
  headless::Click(form.Command2);
  std::string lines;
  Boxes boxes = {{"Please install UT2003[full version] or UT2003[demo]", "Install UT2003", 0}};
  for (const headless::Start& start : headless::Starts()) {
    lines += start.commandLine + "\n";
    boxes.push_back({start.commandLine + " cannot be found.", kTitle, 16});
  }
  EXPECT_EQ(lines, Golden("no-game-found.starts"));
  EXPECT_EQ(headless::Boxes(), boxes);
  EXPECT_EQ(FileOrMissing(kReport), Golden("no-game-found.html"));
}

// A failed start and a failed file read or write, from the same system error codes; a code the
// system has no text for is named by its number.
TEST(SystemErrors, BecomeWhatTheUserIsTold) {
  const std::string text = "The request could not be performed", withEnd = text + ".\r\n";
  // The code, the number and description of a failed start, the reason a file failed.
  const std::tuple<unsigned long, int, std::string, std::string> rows[] = {
      {2, 53, "File not found", "File not found"},     {3, 53, "File not found", "Path not found"},
      {123, 53, "File not found", "Path not found"},   {267, 53, "File not found", text},
      {15, 5, text, "Path not found"},                 {5, 70, "Permission denied", "Permission denied"},
      {32, 70, "Permission denied", "Permission denied"}, {19, 5, text, "Permission denied"},
      {112, 5, text, "Disk full"},                     {193, 5, "Not a valid Windows program", text},
      {216, 5, "Not a valid Windows program", text},   {1117, 5, text, text},
      {9999, 5, "System error 9999", "System error 9999"},
  };
  for (const auto& [code, number, description, reason] : rows) {
    const std::string message = code == 9999 ? "" : withEnd;
    const platform::StartFailure failure = platform::StartFailureForSystemError(code, message);
    EXPECT_EQ(std::make_tuple(failure.number, failure.description, platform::FileFailureReason(code, message)),
              std::make_tuple(number, description, reason)) << code;
  }
}

}  // namespace
