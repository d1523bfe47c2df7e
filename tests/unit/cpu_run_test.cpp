#include <functional>

#include "support/fixture.h"

namespace {
using namespace testing_support;

class CpuRun : public HeadlessTest {};

TEST_F(CpuRun, FullGameAtTwoResolutionsStartsTwiceAndOpensTheReport) {
  InstallFull();
  Form1& form = StartProgram();
  Tick({0, 4});
  ASSERT_TRUE(headless::Click(form.Command1));

  ASSERT_EQ(headless::Starts().size(), 2u);
  const std::string head =
      "\"C:\\Games\\UT2003\\System\\ut2003.exe\" dm-inferno?game=engine.gameinfo "
      "exec=\"C:\\Games\\UT2003\\Benchmark\\Stuff\\flybyexec.txt\" -benchmark -seconds=77 "
      "-nosound ini=\"C:\\Bench\\INI\\D3D\\CPU_LowDetail.ini\" "
      "userini=\"C:\\Games\\UT2003\\Benchmark\\Stuff\\MinDetailUser.ini\" -";
  EXPECT_EQ(headless::Starts()[0].commandLine, head + "640x480");
  EXPECT_EQ(headless::Starts()[1].commandLine, head + "1600x1200");
  for (const auto& start : headless::Starts()) EXPECT_EQ(start.windowStyle, 2);
  EXPECT_EQ(headless::OpenProcessHandles(), 0);

  // The stand-in's records: "dm-inferno, n.10 / n.20 / n.30 fps, ..." for start n.
  EXPECT_EQ(FileOrMissing("C:\\Bench\\results.html"), Golden("cpu_full_640x480_1600x1200.html"));

  EXPECT_EQ(headless::ShellCalls(), (std::vector<headless::ShellCall>{
                                        {form.hWnd(), "Open", "C:\\Bench\\results.html", {}, {}, 1}}));
  EXPECT_TRUE(AllRunControlsEnabled());
  EXPECT_TRUE(headless::Boxes().empty());
}

TEST_F(CpuRun, DemoRunsAntalus) {
  InstallDemo();
  Form1& form = StartProgram();
  Tick({2});
  headless::Click(form.Command1);
  ASSERT_EQ(headless::Starts().size(), 1u);
  EXPECT_NE(headless::Starts()[0].commandLine.find(" dm-antalus?game=engine.gameinfo "), std::string::npos);
  EXPECT_NE(FileOrMissing("C:\\Bench\\results.html").find("<TD>dm-antalus    \r\n"), std::string::npos);
}

TEST_F(CpuRun, NoBoxTickedIsRefusedWithTheControlsLockedWhileTheBoxIsOpen) {
  InstallFull();
  Form1& form = StartProgram();
  headless::PutFile("C:\\Games\\UT2003\\Benchmark\\lowframerate.log", "old, 1 / 2 / 3abcd, x, y\r\n");
  headless::PutFile("C:\\Bench\\results.html", "earlier report");
  std::vector<bool> enabledWhileOpen;
  headless::AnswerBoxes([&](const headless::Box&) {
    enabledWhileOpen = RunControlsEnabled();
    return 1;
  });
  headless::Click(form.Command1);

  EXPECT_EQ(headless::Boxes(), (std::vector<headless::Box>{
                                  {"Please Select at least one resolution to use", "Select a Resolution", 0}}));
  EXPECT_EQ(enabledWhileOpen, std::vector<bool>(9, false));
  EXPECT_TRUE(headless::Starts().empty());
  EXPECT_EQ(FileOrMissing("C:\\Games\\UT2003\\Benchmark\\lowframerate.log"), "");
  EXPECT_EQ(FileOrMissing("C:\\Games\\UT2003\\Benchmark\\benchmark.log"), "");
  EXPECT_EQ(FileOrMissing("C:\\Bench\\results.html"), "earlier report");
  EXPECT_TRUE(headless::ShellCalls().empty());
  EXPECT_TRUE(AllRunControlsEnabled());
}

TEST_F(CpuRun, FailedStartsAreToldOneByOneAndTheRunStillReports) {
  const std::string title = "Kelvarnite UT2k3 Benchmark";
  auto notFound = [&](std::size_t start) {
    return headless::Box{headless::Starts()[start].commandLine + " cannot be found.", title, 16};
  };
  const struct {
    const char* description;
    std::function<void()> setUp;
    std::function<std::vector<headless::Box>()> boxes;
  } cases[] = {
      {"the game's program is missing",
       [] { std::filesystem::remove(headless::HostPath("C:\\Games\\UT2003\\System\\ut2003.exe")); },
       [&] { return std::vector<headless::Box>{notFound(0), notFound(1)}; }},
      {"the start is refused", [] { headless::ProgramGame(headless::FailStart(70, "Permission denied")); },
       [&] { return std::vector<headless::Box>{{"70 : Permission denied", title, 0}}; }},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.description);
    TearDown();
    SetUp();
    InstallFull();
    c.setUp();
    Form1& form = StartProgram();
    Tick({1, 2});
    headless::Click(form.Command1);
    ASSERT_EQ(headless::Starts().size(), 2u);
    EXPECT_EQ(headless::Boxes(), c.boxes());
    EXPECT_NE(FileOrMissing("C:\\Bench\\results.html"), "<missing>");
    EXPECT_EQ(headless::ShellCalls().size(), 1u);
    EXPECT_TRUE(AllRunControlsEnabled());
  }
}

TEST_F(CpuRun, NoGameInstalledStartsTheProgramOfTheRootAndFailsWith53) {
  Form1& form = StartProgram();
  Tick({0});
  headless::Click(form.Command1);
  ASSERT_EQ(headless::Starts().size(), 1u);
  EXPECT_EQ(headless::Starts()[0].commandLine.rfind("\"\\System\\ut2003.exe\" dm-inferno?", 0), 0u);
  ASSERT_EQ(headless::Boxes().size(), 2u);  // the first told of the missing install at start-up
  EXPECT_EQ(headless::Boxes()[1], (headless::Box{headless::Starts()[0].commandLine + " cannot be found.",
                                                 "Kelvarnite UT2k3 Benchmark", 16}));
}

}  // namespace
