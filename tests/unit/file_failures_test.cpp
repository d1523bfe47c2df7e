#include "support/fixture.h"
#include "windows/Form2.h"

namespace {
using namespace testing_support;

const char* const kLog = "C:\\Games\\UT2003\\Benchmark\\lowframerate.log";
const char* const kReport = "C:\\Bench\\results.html";

class FileFailures : public HeadlessTest {
 protected:
  static void ExpectOneCriticalBox(const std::string& text) {
    EXPECT_EQ(headless::Boxes(),
              (std::vector<headless::Box>{{text, "Kelvarnite UT2k3 Benchmark", 16}}));
  }
};

TEST_F(FileFailures, StartUpTellsOnceAndGoesOn) {
  InstallFull();
  headless::PutFile(kLog, "x");
  headless::SetLocked(kLog, true);
  Form1& form = StartProgram();
  ExpectOneCriticalBox(std::string(kLog) + " cannot be emptied: Permission denied.");
  EXPECT_TRUE(form.Option1.Value());
  EXPECT_EQ(mdlBenchmark::AppState.RenderEngine, "D3D");
  EXPECT_TRUE(headless::IsShown(form));
}

TEST_F(FileFailures, TestButtonsRunNothingWhenALogCannotBeEmptied) {
  for (int button = 1; button <= 3; ++button) {
    SCOPED_TRACE(button);
    TearDown();
    SetUp();
    InstallFull();
    Form1& form = StartProgram();
    Tick({0});
    headless::PutFile(kReport, "earlier report");
    std::filesystem::remove_all(headless::HostPath("C:\\Games\\UT2003\\Benchmark"));
    headless::Click(button == 1 ? form.Command1 : button == 2 ? form.Command2 : form.Command3);
    ExpectOneCriticalBox("C:\\Games\\UT2003\\Benchmark\\benchmark.log cannot be emptied: Path not found.");
    EXPECT_TRUE(headless::Starts().empty());
    EXPECT_EQ(FileOrMissing(kReport), "earlier report");
    EXPECT_TRUE(headless::ShellCalls().empty());
    EXPECT_TRUE(AllRunControlsEnabled());
  }
}

TEST_F(FileFailures, CustomTestWindowOpensAndItsRunIsRefusedWhenALogCannotBeEmptied) {
  InstallFull();
  Form1& form = StartProgram();
  Tick({0});
  headless::SetReadOnly(kLog, true);
  headless::Click(form.Command4);
  ExpectOneCriticalBox(std::string(kLog) + " cannot be emptied: Permission denied.");
  ASSERT_NE(CustomWindow(), nullptr);
  headless::Click(CustomWindow()->Get<forms::CommandButton>("Command2"));
  EXPECT_EQ(headless::Boxes().size(), 2u);
  EXPECT_TRUE(headless::Starts().empty());
  EXPECT_TRUE(AllRunControlsEnabled());
}

TEST_F(FileFailures, AnUnwritableReportIsToldAndNotOpened) {
  InstallFull();
  Form1& form = StartProgram();
  Tick({0});
  headless::PutFile(kReport, "earlier report");
  headless::SetReadOnly(kReport, true);
  headless::Click(form.Command1);
  EXPECT_EQ(headless::Starts().size(), 1u);
  ExpectOneCriticalBox(std::string(kReport) + " cannot be written: Permission denied.");
  EXPECT_EQ(FileOrMissing(kReport), "earlier report");
  EXPECT_TRUE(headless::ShellCalls().empty());
  EXPECT_TRUE(AllRunControlsEnabled());
}

}  // namespace
