#include "support/fixture.h"

namespace {
using namespace testing_support;
using mdlBenchmark::AppState;

class Resolutions : public HeadlessTest {
 protected:
  void SetUp() override {
    HeadlessTest::SetUp();
    InstallFull();
    StartProgram();
  }
  // Sets the five boxes to exactly the ticked ones.
  void SetBoxes(std::initializer_list<int> ticked) {
    for (forms::CheckBox* box : MainForm().Check1) box->SetValue(0);
    for (int box : ticked) MainForm().Check1[box]->SetValue(1);
  }
};

TEST_F(Resolutions, ListFollowsTheBoxesNotTheOrderOfTicking) {
  Tick({4, 0});
  mdlBenchmark::CollectResolutions();
  EXPECT_EQ(AppState.ResolutionCount, 2);
  EXPECT_EQ(AppState.ResolutionList, "640x480_1600x1200_");
  EXPECT_EQ(AppState.ResolutionNames, (std::vector<std::string>{"", "640x480", "1600x1200"}));
}

TEST_F(Resolutions, ListShrinksFromTheFrontWhileCountAndNamesStay) {
  SetBoxes({0, 1, 2, 3, 4});
  mdlBenchmark::CollectResolutions();
  EXPECT_EQ(AppState.ResolutionList, "640x480_800x600_1024x768_1280x1024_1600x1200_");
  const std::vector<std::pair<std::string, std::string>> steps = {
      {"640x480", "800x600_1024x768_1280x1024_1600x1200_"},
      {"800x600", "1024x768_1280x1024_1600x1200_"},
      {"1024x768", "1280x1024_1600x1200_"},
      {"1280x1024", "1600x1200_"},
      {"1600x1200", ""}};
  for (const auto& [name, rest] : steps) {
    EXPECT_EQ(mdlBenchmark::NextResolution(), name);
    EXPECT_EQ(AppState.ResolutionList, rest);
  }
  EXPECT_EQ(AppState.ResolutionCount, 5);
  EXPECT_EQ(AppState.ResolutionNames,
            (std::vector<std::string>{"", "640x480", "800x600", "1024x768", "1280x1024", "1600x1200"}));
}

TEST_F(Resolutions, AShorterCollectionLeavesNothingOfALongerOne) {
  SetBoxes({0, 1, 2, 3, 4});
  mdlBenchmark::CollectResolutions();
  SetBoxes({1, 3});
  mdlBenchmark::CollectResolutions();
  EXPECT_EQ(AppState.ResolutionNames, (std::vector<std::string>{"", "800x600", "1280x1024"}));
  SetBoxes({2});
  mdlBenchmark::CollectResolutions();
  EXPECT_EQ(AppState.ResolutionList, "1024x768_");
  EXPECT_EQ(AppState.ResolutionNames, (std::vector<std::string>{"", "1024x768"}));
  // No box: nothing to run, and the names of the last run are left alone.
  SetBoxes({});
  mdlBenchmark::CollectResolutions();
  EXPECT_EQ(AppState.ResolutionCount, 0);
  EXPECT_EQ(AppState.ResolutionList, "");
  EXPECT_EQ(AppState.ResolutionNames, (std::vector<std::string>{"", "1024x768"}));
}

}  // namespace
