#include "support/fixture.h"

namespace {
using namespace testing_support;


class CpuRun : public HeadlessTest {
 protected:
  // All nine run controls, enabled or not.
  static std::vector<bool> RunControlsEnabled() {
    Form1& form = MainForm();
    std::vector<bool> enabled;
    for (forms::CheckBox* box : form.Check1) enabled.push_back(box->Enabled());
    for (forms::CommandButton* b : {&form.Command1, &form.Command2, &form.Command3, &form.Command4}) {
      enabled.push_back(b->Enabled());
    }
    return enabled;
  }
  const std::vector<bool> kAllEnabled = std::vector<bool>(9, true);
};

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

  ASSERT_EQ(headless::ShellCalls().size(), 1u);
  const headless::ShellCall& open = headless::ShellCalls()[0];
  EXPECT_EQ(open.owner, form.hWnd());
  EXPECT_EQ(open.operation, "Open");
  EXPECT_EQ(open.file, "C:\\Bench\\results.html");
  EXPECT_EQ(open.parameters, std::nullopt);
  EXPECT_EQ(open.directory, std::nullopt);
  EXPECT_EQ(open.showCommand, 1);
  EXPECT_EQ(RunControlsEnabled(), kAllEnabled);
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

  ASSERT_EQ(headless::Boxes().size(), 1u);
  EXPECT_EQ(headless::Boxes()[0].text, "Please Select at least one resolution to use");
  EXPECT_EQ(headless::Boxes()[0].title, "Select a Resolution");
  EXPECT_EQ(headless::Boxes()[0].flags, 0);
  EXPECT_EQ(enabledWhileOpen, std::vector<bool>(9, false));
  EXPECT_TRUE(headless::Starts().empty());
  EXPECT_EQ(FileOrMissing("C:\\Games\\UT2003\\Benchmark\\lowframerate.log"), "");
  EXPECT_EQ(FileOrMissing("C:\\Games\\UT2003\\Benchmark\\benchmark.log"), "");
  EXPECT_EQ(FileOrMissing("C:\\Bench\\results.html"), "earlier report");
  EXPECT_TRUE(headless::ShellCalls().empty());
  EXPECT_EQ(RunControlsEnabled(), kAllEnabled);
}

TEST_F(CpuRun, AMissingGameGivesOneCriticalBoxPerStartAndStillAReport) {
  InstallFull();
  std::filesystem::remove(headless::HostPath("C:\\Games\\UT2003\\System\\ut2003.exe"));
  Form1& form = StartProgram();
  Tick({1, 2});
  headless::Click(form.Command1);

  ASSERT_EQ(headless::Starts().size(), 2u);
  ASSERT_EQ(headless::Boxes().size(), 2u);
  for (std::size_t i = 0; i < 2; ++i) {
    EXPECT_EQ(headless::Boxes()[i].text, headless::Starts()[i].commandLine + " cannot be found.");
    EXPECT_EQ(headless::Boxes()[i].title, "Kelvarnite UT2k3 Benchmark");
    EXPECT_EQ(headless::Boxes()[i].flags, 16);
  }
  EXPECT_NE(FileOrMissing("C:\\Bench\\results.html"), "<missing>");
  EXPECT_EQ(headless::ShellCalls().size(), 1u);
  EXPECT_EQ(RunControlsEnabled(), kAllEnabled);
}

TEST_F(CpuRun, NoGameInstalledStartsTheProgramOfTheRootAndFailsWith53) {
  Form1& form = StartProgram();
  headless::AnswerBoxes(nullptr);
  Tick({0});
  headless::Click(form.Command1);
  ASSERT_EQ(headless::Starts().size(), 1u);
  EXPECT_EQ(headless::Starts()[0].commandLine.rfind("\"\\System\\ut2003.exe\" dm-inferno?", 0), 0u);
  // The box of the missing install came at start-up.
  ASSERT_EQ(headless::Boxes().size(), 2u);
  EXPECT_EQ(headless::Boxes()[1].text, headless::Starts()[0].commandLine + " cannot be found.");
  EXPECT_EQ(headless::Boxes()[1].flags, 16);
}

TEST_F(CpuRun, AnyOtherStartFailureShowsItsNumberAndDescriptionAndTheRunGoesOn) {
  InstallFull();
  Form1& form = StartProgram();
  Tick({0, 1});
  headless::ProgramGame(headless::FailStart(70, "Permission denied"));
  headless::Click(form.Command1);
  ASSERT_EQ(headless::Boxes().size(), 1u);
  EXPECT_EQ(headless::Boxes()[0].text, "70 : Permission denied");
  EXPECT_EQ(headless::Boxes()[0].title, "Kelvarnite UT2k3 Benchmark");
  EXPECT_EQ(headless::Boxes()[0].flags, 0);
  EXPECT_EQ(headless::Starts().size(), 2u);
  EXPECT_TRUE(headless::Starts()[1].started);
}

}  // namespace
