#include <functional>
#include <tuple>

#include "platform/system_errors.h"
#include "support/fixture.h"

namespace {
using namespace testing_support;

class FileFailures : public HeadlessTest {};

// A file that fails is told in one critical box, and the test stops there: a log that cannot be
// emptied starts nothing (benchmark.log is tried first), a report that cannot be written is not
// opened, and the controls are enabled again. The Custom Options window opens all the same,
// and its "Run Test" is refused in the same way.
TEST_F(FileFailures, AreToldOnceAndEndTheTest) {
  const std::string noFolder =
      "C:\\Games\\UT2003\\Benchmark\\benchmark.log cannot be emptied: Path not found.";
  const std::string readOnlyLog = std::string(kLog) + " cannot be emptied: Permission denied.";
  const std::function<void()> removeFolder = [] {
    std::filesystem::remove_all(headless::HostPath("C:\\Games\\UT2003\\Benchmark"));
  };
  const struct {
    int button;  // 1 to 4, of the main window
    std::function<void()> breakIt;
    std::string text;
    std::size_t boxes, starts;
  } rows[] = {
      {1, removeFolder, noFolder, 1, 0},
      {2, removeFolder, noFolder, 1, 0},
      {3, removeFolder, noFolder, 1, 0},
      {4, [] { headless::SetReadOnly(kLog, true); }, readOnlyLog, 2, 0},
      {1, [] { headless::SetReadOnly(kReport, true); },
       std::string(kReport) + " cannot be written: Permission denied.", 1, 1},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text + " " + std::to_string(row.button));
    Fresh();
    InstallFull();
    Form1& form = StartProgram();
    Tick({0});
    headless::PutFile(kReport, "earlier report");
    row.breakIt();
    forms::CommandButton* const buttons[] = {&form.Command1, &form.Command2, &form.Command3,
                                             &form.Command4};
    headless::Click(*buttons[row.button - 1]);
    if (row.button == 4) {
      ASSERT_NE(CustomWindow(), nullptr);
      headless::Click(CustomWindow()->Command2);
    }
    EXPECT_EQ(headless::Boxes(), Boxes(row.boxes, {row.text, kTitle, 16}));
    EXPECT_EQ(headless::Starts().size(), row.starts);
    EXPECT_EQ(FileOrMissing(kReport), "earlier report");
    EXPECT_TRUE(headless::ShellCalls().empty());
    EXPECT_TRUE(AllRunControlsEnabled());
  }
}

// A failed start and a failed file read or write, from the same system error codes; a code the
// system has no text for is named by its number.
TEST(SystemErrors, BecomeWhatTheUserIsTold) {
  const char* const text = "The request could not be performed";
  const std::string withEnd = std::string(text) + ".\r\n";
  const struct {
    unsigned long code;
    int number;
    std::string description, reason;
  } rows[] = {
      {2, 53, "File not found", "File not found"},     {3, 53, "File not found", "Path not found"},
      {123, 53, "File not found", "Path not found"},   {267, 53, "File not found", text},
      {15, 5, text, "Path not found"},                 {5, 70, "Permission denied", "Permission denied"},
      {32, 70, "Permission denied", "Permission denied"}, {19, 5, text, "Permission denied"},
      {112, 5, text, "Disk full"},                     {193, 5, "Not a valid Windows program", text},
      {216, 5, "Not a valid Windows program", text},   {1117, 5, text, text},
  };
  for (const auto& row : rows) {
    const platform::StartFailure failure = platform::StartFailureForSystemError(row.code, withEnd);
    EXPECT_EQ(std::make_tuple(failure.number, failure.description,
                              platform::FileFailureReason(row.code, withEnd)),
              std::make_tuple(row.number, row.description, row.reason))
        << row.code;
  }
  EXPECT_EQ(platform::StartFailureForSystemError(9999, "").description, "System error 9999");
  EXPECT_EQ(platform::FileFailureReason(9999, ""), "System error 9999");
}

}  // namespace
