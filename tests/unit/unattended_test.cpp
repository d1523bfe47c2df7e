#include <fstream>

#include "benchmark/repeat_rule.h"
#include "launch/arguments.h"
#include "support/fixture.h"
#include "windows/application.h"

namespace {
using namespace testing_support;
using repeat_rule::Verdict;

class Unattended : public HeadlessTest {};

// The order's fields that differ from their defaults, as command-lines.txt writes them.
std::string Describe(const arguments::Order& o) {
  std::string text, res;
  const auto add = [&](bool given, const std::string& field) { text += given ? (text.empty() ? "" : " ") + field : ""; };
  for (int box = 0; box < catalogue::kResolutionCount; ++box)
    if (o.resolutions >> box & 1) res += std::string(res.empty() ? "" : ",") + catalogue::kResolutions[box];
  add(o.help, "help");
  add(o.test >= 0, std::string("run=") + catalogue::kTests[o.test < 0 ? 0 : o.test]);
  add(!res.empty(), "res=" + res);
  add(o.openGl, "api=ogl");
  add(!o.game.empty(), "game=" + o.game);
  add(!o.level.empty(), "level=" + o.level);
  add(o.sound, "sound=on");
  add(!o.detail.empty(), "detail=" + o.detail);
  add(o.repeats != 0, "repeat=" + (o.repeats < 0 ? "auto" : std::to_string(o.repeats)));
  add(o.keep.has_value(), "keep=" + o.keep.value_or(""));
  add(o.name.has_value(), "name=" + o.name.value_or(""));
  add(o.quit, "quit");
  return text;
}

using Row = std::tuple<std::string, std::string, std::string>;
std::vector<Row> CommandLines() {
  std::vector<Row> rows;
  std::ifstream table(std::string(KELVARNITE_GOLDEN_DIR) + "/command-lines.txt");
  for (std::string line; std::getline(table, line);) {
    const std::size_t a = line.find(" | "), b = line.find(" | ", a + 3);
    if (!line.empty() && line[0] != '#') rows.emplace_back(line.substr(0, a), line.substr(a + 3, b - a - 3), line.substr(b + 3));
  }
  return rows;
}

// Each row of command-lines.txt: the line after the program's quoted name, and its order or
// its fault.
using CommandLine = Rows<HeadlessTest, std::string, std::string, std::string>;
TEST_P(CommandLine, GivesItsOrderOrItsFault) {
  const auto& [name, line, wanted] = GetParam();
  headless::PutFile("C:\\Settings\\my own.ini", "");
  arguments::Order order;
  const auto fault = arguments::Parse(arguments::SplitCommandLine("\"C:\\My Bench\\b.exe\" " + line), order);
  EXPECT_EQ(fault ? "fault " + std::to_string(fault->exitCode) + ": " + fault->argument + ": " + fault->problem +
                        (order.quit ? " quit" : "")
                  : Describe(order), wanted);
}
INSTANTIATE_TEST_SUITE_P(Unattended, CommandLine, testing::ValuesIn(CommandLines()), ByName);

// The program's own name is no argument, quoted (ending at its quote) or not.
TEST_F(Unattended, ProgramNameIsNoArgument) {
  EXPECT_EQ(arguments::SplitCommandLine("C:\\Bench\\b.exe\t/quit "), std::vector<std::string>{"/quit"});
  EXPECT_EQ(arguments::SplitCommandLine("\"C:\\My Bench\\b.exe\"/run \"\""), (std::vector<std::string>{"/run", ""}));
}

// /repeat auto against intervals worked by hand: mean ± t(0.975, n-1) · s / √n.
using StopRule = Rows<testing::Test, const char*, std::vector<double>, double, Verdict>;
TEST_P(StopRule, WeighsTheIntervalOfTheMean) {
  const auto& [name, scores, halfInterval, verdict] = GetParam();
  EXPECT_NEAR(repeat_rule::HalfInterval(scores), halfInterval, 1e-6);
  EXPECT_EQ(repeat_rule::AfterRepeat(scores), verdict);
}
INSTANTIATE_TEST_SUITE_P(Unattended, StopRule, testing::ValuesIn(std::vector<StopRule::ParamType>{
    {"TwoAreTooFew", {100, 100}, 0, Verdict::Again},
    {"ThreeEqual", {100, 100, 100}, 0, Verdict::Within},
    {"ThreeWithinOnePercentEachWay", {100, 101, 102}, 2.484138, Verdict::Again},  // 4.302653 / √3
    {"NineWide", {95, 105, 95, 105, 95, 105, 95, 105, 100}, 3.843340, Verdict::Again},  // 2.306004 · 5 / 3
    {"TenNarrow", {100, 101, 102, 100, 101, 102, 100, 101, 102, 101}, 0.584087, Verdict::Within},
    {"TenWide", {90, 110, 90, 110, 90, 110, 90, 110, 90, 110}, 7.540523, Verdict::StillWider}}), ByName);

// A repeat's score is the geometric mean of the rates the report holds; a rate that is not one
// is 0, and so is the score then.
TEST_F(Unattended, ScoresAreGeometricMeansOfRates) {
  EXPECT_DOUBLE_EQ(repeat_rule::GeometricMean({repeat_rule::Rate("  2.5000"), repeat_rule::Rate("10     ")}), 5);
  for (const char* none : {"", "inf", "1.2.3", "-4", "0000000000"}) EXPECT_EQ(repeat_rule::Rate(none), 0) << none;
  EXPECT_EQ(repeat_rule::GeometricMean({4, 0}), 0);
}

// A batch without /quit: each finished report kept under a name that sorts, the index whole
// after each (names and a log's markup escaped, the machine from the NT keys), the failed
// start told while the title says which run, the batch stopped there, compare.html opened once,
// and the failure's exit code when the window is closed later.
TEST_F(Unattended, BatchKeepsEachFinishedReportInTheIndex) {
  InstallFull();
  headless::SetString(kHklm, kFullKey, "Version", "2225");
  headless::SetString(kHklm, "HARDWARE\\DESCRIPTION\\System\\CentralProcessor\\0", "Identifier", "  x86 Family 6 ");
  headless::SetString(kHklm, "HARDWARE\\DEVICEMAP\\VIDEO", "\\Device\\Video0", "\\Registry\\Machine\\System\\Video\\0000");
  headless::SetString(kHklm, "System\\Video\\0000", "Device Description", "GeForce4 \"Ti\" & <4600>");
  headless::PutFile("C:\\Bench\\compare.html", "the page");
  headless::ProgramGame(headless::AppendRecord("</script><b>'x'&, 1.5 / 2.5 / 3.5 fps, 77, 640x480\r\n"));
  headless::ProgramGame(headless::AppendRecord("dm-inferno, 1.5 / 2.6 / 3.5 fps, 77, 640x480\r\n"));
  headless::ProgramGame(headless::FailStart(70, "Permission denied"));
  std::string caption;
  headless::AnswerBoxes([&](const headless::Box&) { return caption = MainForm().Caption(), 1; });
  headless::SetCommandLine("b.exe /run cpu /res 640x480 /repeat 5 /keep C:\\Kept\\ /name \"GF4 <4600>\"");
  headless::RunAsEvent([] { RunApplication(); });
  EXPECT_EQ(caption, std::string(kTitle) + " - run 3 of 5");
  EXPECT_EQ(MainForm().Caption(), kTitle);
  std::string index = FileOrMissing("C:\\Kept\\index.js");
  ExpectGolden(index.replace(index.find(KELVARNITE_VERSION), sizeof KELVARNITE_VERSION - 1, "<version>"), "kept-index.js");
  EXPECT_EQ(FileOrMissing("C:\\Kept\\20261125-200103 02 cpu.html").substr(0, 10), "<META GENE");
  EXPECT_EQ(FileOrMissing("C:\\Kept\\compare.html") + FileOrMissing("C:\\Kept\\boxes.log"), "the page<missing>");
  EXPECT_EQ(headless::ShellCalls(), (std::vector<headless::ShellCall>{{MainForm().hWnd(), "Open", "C:\\Kept\\compare.html", {}, {}, 1}}));
  headless::ChooseMenu(MainForm(), "mnuExit");
  EXPECT_EQ(headless::ExitCode(), arguments::kRunFailed);
}

}  // namespace
