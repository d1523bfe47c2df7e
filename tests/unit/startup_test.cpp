#include <tuple>
#include <utility>

#include "platform/forms/window.h"
#include "support/fixture.h"

namespace {
using namespace testing_support;
using mdlBenchmark::AppState;

const char* const kBenchmarkLog = "C:\\Games\\UT2003\\Benchmark\\benchmark.log";
const char* const kLowFrameRateLog = "C:\\Games\\UT2003\\Benchmark\\lowframerate.log";

class Startup : public HeadlessTest {};

TEST_F(Startup, EmptiesBothLogsAndSetsPathAndRenderer) {
  const std::pair<const char*, const char*> rows[] = {{"C:\\Bench", "C:\\Bench\\"},
                                                      {"D:\\", "D:\\"}};
  for (const auto& [folder, appPath] : rows) {
    SCOPED_TRACE(folder);
    TearDown();
    SetUp();
    InstallFull();
    headless::PutFile(kBenchmarkLog, "old run\r\n");  // and no lowframerate.log yet
    headless::SetProgramFolder(folder);
    Form1& form = StartProgram();
    EXPECT_EQ(FileOrMissing(kBenchmarkLog), "");
    EXPECT_EQ(FileOrMissing(kLowFrameRateLog), "");
    EXPECT_EQ(AppState.AppPath, appPath);
    EXPECT_EQ(std::make_tuple(form.Option1.Value(), form.Option2.Value(), AppState.RenderEngine),
              std::make_tuple(true, false, "D3D"));
  }
}

// Closing the main window or File, Exit, with Custom Options open.
TEST_F(Startup, BothWaysOutEndEverything) {
  for (bool fileExit : {false, true}) {
    SCOPED_TRACE(fileExit ? "File, Exit" : "closing the main window");
    TearDown();
    SetUp();
    InstallFull();
    Form1& form = StartProgram();
    ASSERT_TRUE(headless::Click(form.Command4));
    headless::PutFile(kLowFrameRateLog, "kept\r\n");
    EXPECT_TRUE(fileExit ? headless::ChooseMenu(form, "mnuExit") : headless::CloseWindow(form));
    EXPECT_TRUE(headless::ProcessEnded());
    EXPECT_TRUE(forms::OpenWindows().empty());
    EXPECT_TRUE(headless::Boxes().empty());
    EXPECT_EQ(FileOrMissing(kLowFrameRateLog), "kept\r\n");
    bool ranAfterEnd = false;
    headless::RunAsEvent([&] { ranAfterEnd = true; });
    EXPECT_FALSE(ranAfterEnd);
  }
}

}  // namespace
