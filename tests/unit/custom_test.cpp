#include "support/fixture.h"

namespace {
using namespace testing_support;

class CustomTest : public HeadlessTest {};

// What the end-to-end runs leave out: the demo's dm-asbestos at 71 seconds (77 in its suite),
// an entry without a star, Min Detail, and a path typed into the box. Each row, with the variant,
// the entry of the level list and the detail (3 Max, 4 Min, 5 Custom ini), makes one start, at
// 1024x768 with OpenGL and no sound: the line of its golden file.
using Choices = Rows<CustomTest, const char*, const char*, bool, int, int>;
TEST_P(Choices, ShapeTheLine) {
  const auto& [name, golden, demo, entry, detail] = GetParam();
  demo ? InstallDemo() : InstallFull();
  headless::Click(StartProgram().Option2);
  Tick({2});
  Form2& custom = OpenCustom();
  headless::SelectItem(custom.Combo1, entry);
  headless::Click(detail == 4 ? custom.Option4 : detail == 5 ? custom.Option5 : custom.Option3);
  EXPECT_TRUE(detail != 5 || headless::TypeText(custom.Text1, "E:\\pasted.ini"));
  headless::Click(custom.Command2);
  std::string lines;
  for (const headless::Start& start : headless::Starts()) lines += start.commandLine + "\n";
  ExpectGolden(lines, golden);
  EXPECT_EQ(CustomWindow(), &custom);  // it stays open with its choices
}
INSTANTIATE_TEST_SUITE_P(CustomTest, Choices, testing::ValuesIn(std::vector<Choices::ParamType>{
    {"DemoMaxDetail", "custom-demo-max.starts", true, 3, 3}, {"FullMinDetail", "custom-full-min.starts", false, 0, 4},
    {"FullCustomIni", "custom-full-ini.starts", false, 0, 5}}), ByName);

// Custom ini enables Browse; a cancelled dialog keeps the path; a detail option empties it and
// disables Browse. "Custom Test" empties the logs and keeps an open window with its choices;
// Cancel drops them.
TEST_F(CustomTest, IniOptionsAndTheWindowsLife) {
  StartFull();
  Form2& custom = OpenCustom();
  headless::Click(custom.Option5);
  EXPECT_TRUE(custom.Command1.Enabled());
  headless::ProgramFileDialog(std::string("C:\\Mine\\a.ini"));
  headless::Click(custom.Command1);
  headless::ProgramFileDialog(std::nullopt);
  headless::Click(custom.Command1);
  EXPECT_EQ(custom.Text1.Text(), "C:\\Mine\\a.ini");
  EXPECT_EQ(headless::FileDialogs(), std::vector<std::string>(2, "ini Files (*.ini)|*.ini"));
  for (forms::OptionButton* detail : {&custom.Option3, &custom.Option4}) {
    headless::Click(custom.Option5);
    headless::TypeText(custom.Text1, "C:\\Mine\\b.ini");
    headless::Click(*detail);
    EXPECT_EQ(std::make_tuple(custom.Text1.Text(), custom.Command1.Enabled()), std::make_tuple("", false));
  }
  headless::PutFile(kLog, "x, 1 / 2 / 3abcd, x, y\r\n");
  EXPECT_EQ(&OpenCustom(), &custom);
  EXPECT_TRUE(custom.Option4.Value());
  EXPECT_EQ(FileOrMissing(kLog), "");
  headless::Click(custom.Command3);
  EXPECT_EQ(CustomWindow(), nullptr);
  EXPECT_TRUE(OpenCustom().Option3.Value());
}

}  // namespace
