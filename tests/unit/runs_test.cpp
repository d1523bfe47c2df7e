#include <functional>

#include "platform/system_errors.h"
#include "support/fixture.h"

namespace {
using namespace testing_support;

const std::string kNone = "Please Select at least one resolution to use";
const std::function<void()> kUntick = [] { HeadlessTest::Tick({1}); };

// A test that cannot run tells why and starts nothing more: the report stays as it was and is
// not opened, and the run controls are enabled again. A run without what it needs is refused
// after the logs were emptied, with the run controls locked, under a title of its own. A file
// that fails is told in a critical box: a log that cannot be emptied starts nothing and is told
// before the controls are locked (benchmark.log is tried first), and a report that cannot be
// written is not opened. The Custom Options window opens all the same, and its "Run Test" is
// refused in the same way. Each row: the button of the main window (4: then "Run Test" of
// Custom Options with Custom ini), what is wrong, the box and how often it comes, whether the
// run controls are locked meanwhile, and the starts.
using RefusedRun =
    Rows<HeadlessTest, const char*, int, std::function<void()>, headless::Box, std::size_t, bool, std::size_t>;
TEST_P(RefusedRun, EndsTheTest) {
  const auto& [name, button, fault, box, boxes, locked, starts] = GetParam();
  Form1& form = StartFull();
  Tick({1});
  headless::Click(form.Command1);  // an earlier run, whose resolutions must not linger
  const std::string report = FileOrMissing(kReport);
  headless::PutFile(kLog, "stale, 1 / 2 / 3abcd, x, y\r\n");
  headless::PutFile(kBenchLog, "stale\r\n");
  fault();
  std::string whileOpen;
  bool clickTried = false, clickTaken = false;
  headless::AnswerBoxes([&, locked = locked](const headless::Box&) {
    whileOpen = Controls();
    // A locked button takes no click, even one that reaches it while a box is open.
    if (locked && !clickTried) clickTried = true, clickTaken = headless::Click(form.Command2);
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
  EXPECT_FALSE(clickTaken);
  EXPECT_EQ(headless::Starts().size(), 1 + starts);
  EXPECT_EQ(FileOrMissing(kReport), report);
  EXPECT_EQ(headless::ShellCalls().size(), 1u);
  EXPECT_EQ(Controls(), "111111111 1110");
  if (box.flags != 0) return;
  // A refused run has emptied the logs, and leaves no resolution behind for the next one.
  EXPECT_EQ(FileOrMissing(kLog) + FileOrMissing(kBenchLog), "");
  Tick({1, 3});
  headless::Click(form.Command1);
  const std::string& last = headless::Starts().back().commandLine;
  EXPECT_EQ(last.substr(last.rfind(' ')), " -1280x1024");
}
INSTANTIATE_TEST_SUITE_P(Runs, RefusedRun, testing::ValuesIn(std::vector<RefusedRun::ParamType>{
    {"NoResolution_Command1", 1, kUntick, {kNone, "Select a Resolution", 0}, 1, true, 0},
    {"NoResolution_Command3", 3, kUntick, {kNone, "Select a Resolution", 0}, 1, true, 0},
    {"NoResolution_RunTest", 4, kUntick, {kNone, "Please select a Resolution", 0}, 1, true, 0},
    {"NoCustomIni", 4, [] {}, {"Please Choose a Custom ini file to use", "Choose a File...", 0}, 1, true, 0},
    {"NoLogFolder", 2, [] { std::filesystem::remove_all(headless::HostPath("C:\\Games\\UT2003\\Benchmark")); },
     {std::string(kBenchLog) + " cannot be emptied: Path not found.", kTitle, 16}, 1, false, 0},
    {"ReadOnlyLog", 4, [] { headless::SetReadOnly(kLog, true); },
     {std::string(kLog) + " cannot be emptied: Permission denied.", kTitle, 16}, 2, false, 0},
    {"ReadOnlyReport", 1, [] { headless::SetReadOnly(kReport, true); },
     {std::string(kReport) + " cannot be written: Permission denied.", kTitle, 16}, 1, true, 1}}), ByName);

// A start the system refuses is told and the run goes on with the demo's own suite; the game is
// started minimised, its handle closed after the wait, and the report, whose one record fills
// the first cells, is handed to the shell with the main window as owner. With no game found the
// logs are left alone, the full game's suite runs, every start of "\System\ut2003.exe" fails
// with 53, and the report has seven blank columns at one resolution and the notes, with no
// variant to name. Each run's starts and report are the golden files of its name.
using FailedStarts = Rows<HeadlessTest, const char*, std::string>;
TEST_P(FailedStarts, AreToldAndTheRunStillReports) {
  const auto& [name, run] = GetParam();
  const bool found = run == "demo-suite";
  if (found) {
    InstallDemo();
    headless::ProgramGame(headless::FailStart(70, "Permission denied"));
    headless::ProgramGame(headless::AppendNothing());
  }
  Form1& form = StartProgram();
  Tick({found ? 1 : 0});
  headless::Click(form.Command2);
  std::string lines;
  Boxes boxes = {found ? headless::Box{"70 : Permission denied", kTitle, 0} : kPleaseInstall};
  for (const headless::Start& start : headless::Starts()) {
    lines += start.commandLine + "\n";
    if (!found) boxes.push_back({start.commandLine + " cannot be found.", kTitle, 16});
  }
  ExpectGolden(lines, run + ".starts");
  EXPECT_EQ(headless::Boxes(), boxes);
  ExpectGolden(FileOrMissing(kReport), run + ".html");
  if (!found) return;
  EXPECT_EQ(headless::Starts().at(1).windowStyle, 2);
  EXPECT_EQ(headless::OpenProcessHandles(), 0);
  EXPECT_EQ(headless::ShellCalls(), (std::vector<headless::ShellCall>{{form.hWnd(), "Open", kReport, {}, {}, 1}}));
  EXPECT_EQ(Controls(), "111111111 1101");
}
INSTANTIATE_TEST_SUITE_P(Runs, FailedStarts, testing::ValuesIn(std::vector<FailedStarts::ParamType>{
    {"DemoSuite", "demo-suite"}, {"NoGameFound", "no-game-found"}}), ByName);

// A failed start and a failed file read or write, from the same system error codes; a code the
// system has no text for is named by its number. system-errors.txt holds, for each code, the
// number and description of a failed start and then the reason a file failed.
class SystemError : public testing::TestWithParam<unsigned long> {};
TEST_P(SystemError, BecomesWhatTheUserIsTold) {
  const unsigned long code = GetParam();
  const std::string message = code == 9999 ? "" : "The request could not be performed.\r\n";
  const platform::StartFailure failure = platform::StartFailureForSystemError(code, message);
  const std::string told = std::to_string(failure.number) + " " + failure.description + " | " +
                           platform::FileFailureReason(code, message) + "\n";
  EXPECT_EQ(told, GoldenPart("system-errors.txt", "\n" + std::to_string(code) + ": ", "\n"));
}
INSTANTIATE_TEST_SUITE_P(Runs, SystemError, testing::Values(2, 3, 123, 267, 15, 5, 32, 19, 112, 193, 216, 1117, 9999),
                         [](const auto& row) { return "Code" + std::to_string(row.param); });

}  // namespace
