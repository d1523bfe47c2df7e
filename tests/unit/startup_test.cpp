#include "platform/forms/window.h"
#include "support/fixture.h"

namespace {
using namespace testing_support;
using mdlBenchmark::AppState;

const char* const kBenchmarkLog = "C:\\Games\\UT2003\\Benchmark\\benchmark.log";
const char* const kLowFrameRateLog = "C:\\Games\\UT2003\\Benchmark\\lowframerate.log";

class Startup : public HeadlessTest {};

TEST_F(Startup, EmptiesBothLogs) {
  for (bool existed : {true, false}) {
    SCOPED_TRACE(existed ? "logs with records" : "no logs");
    TearDown();
    SetUp();
    InstallFull();
    if (existed) {
      headless::PutFile(kBenchmarkLog, "old run\r\n");
      headless::PutFile(kLowFrameRateLog, "dm-inferno, 1.10 / 1.20 / 1.30 fps, 77, 640x480\r\n");
    }
    StartProgram();
    EXPECT_EQ(FileOrMissing(kBenchmarkLog), "");
    EXPECT_EQ(FileOrMissing(kLowFrameRateLog), "");
  }
}

TEST_F(Startup, AppPathAndRenderer) {
  const struct {
    const char* folder;
    bool installed;
    const char* appPath;
  } rows[] = {{"C:\\Bench", true, "C:\\Bench\\"},
              {"D:\\", true, "D:\\"},
              {"C:\\Program Files\\Kelvarnite", false, "C:\\Program Files\\Kelvarnite\\"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.folder);
    TearDown();
    SetUp();
    if (row.installed) InstallFull();
    headless::SetProgramFolder(row.folder);
    Form1& form = StartProgram();
    EXPECT_EQ(AppState.AppPath, row.appPath);
    EXPECT_TRUE(form.Option1.Value());
    EXPECT_FALSE(form.Option2.Value());
    EXPECT_EQ(AppState.RenderEngine, "D3D");
    EXPECT_TRUE(headless::IsShown(form));
  }
}

class Shutdown : public HeadlessTest {};

TEST_F(Shutdown, BothRoutesEndEverything) {
  enum class Route { CloseMainWindow, FileExit };
  const struct {
    const char* description;
    Route route;
    bool customOpen;
  } rows[] = {{"close with Custom Options open", Route::CloseMainWindow, true},
              {"close with Custom Options never opened", Route::CloseMainWindow, false},
              {"File, Exit with Custom Options open", Route::FileExit, true}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    TearDown();
    SetUp();
    InstallFull();
    Form1& form = StartProgram();
    if (row.customOpen) {
      ASSERT_TRUE(headless::Click(form.Command4));
    }
    headless::PutFile(kLowFrameRateLog, "kept\r\n");

    if (row.route == Route::CloseMainWindow) {
      EXPECT_TRUE(headless::CloseWindow(form));
    } else {
      EXPECT_TRUE(headless::ChooseMenu(form, "mnuExit"));
    }
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
