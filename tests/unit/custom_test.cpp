#include <functional>
#include <tuple>

#include "support/fixture.h"

namespace {
using namespace testing_support;

class CustomTest : public HeadlessTest {};

// The line of the one start at 1024x768, from its parts.
std::string Line(const std::string& game, const std::string& level, const std::string& seconds,
                 const std::string& ini, const std::string& userIni) {
  return "\"" + game + "\\System\\ut2003.exe\" " + level + "?game=engine.gameinfo exec=\"" + game +
         "\\Benchmark\\Stuff\\flybyexec.txt\" -benchmark -seconds=" + seconds + "ini=\"" + ini +
         "\" userini=\"" + game + "\\Benchmark\\Stuff\\" + userIni + "\" -1024x768";
}

// What the end-to-end runs leave out: the demo's dm-asbestos at 71 seconds (77 in its suite),
// an entry without a star, Min Detail, and a path typed into the box.
TEST_F(CustomTest, ChoicesOfTheWindowShapeTheLine) {
  const std::string full = kFullPath, ogl = "C:\\Bench\\INI\\OGL\\";
  const struct {
    bool demo;
    int entry;     // in the level list
    int detail;    // 3 Max, 4 Min, 5 Custom ini
    std::string line;
  } rows[] = {
      {true, 3, 3, Line(kDemoPath, "dm-asbestos", " 71 -nosound ", ogl + "Custom_MaxDetail.ini",
                        "MaxDetailUser.ini")},
      {false, 0, 4, Line(full, "br-anubis", " 77 -nosound ", ogl + "Custom_MinDetail.ini",
                         "MinDetailUser.ini")},
      {false, 0, 5, Line(full, "br-anubis", " 77 -nosound ", "E:\\pasted.ini", "MaxDetailUser.ini")},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.line);
    Fresh();
    row.demo ? InstallDemo() : InstallFull();
    headless::Click(StartProgram().Option2);
    Tick({2});
    Form2& custom = OpenCustom();
    headless::SelectItem(custom.Combo1, row.entry);
    headless::Click(row.detail == 4   ? custom.Option4
                    : row.detail == 5 ? custom.Option5
                                      : custom.Option3);
    if (row.detail == 5) {
      ASSERT_TRUE(headless::TypeText(custom.Text1, "E:\\pasted.ini"));
    }
    headless::Click(custom.Command2);
    ASSERT_EQ(headless::Starts().size(), 1u);
    EXPECT_EQ(headless::Starts()[0].commandLine, row.line);
    EXPECT_EQ(CustomWindow(), &custom);  // it stays open with its choices
  }
}

// Any variant but the full game, none found included, gets the demo's list.
TEST_F(CustomTest, WindowOpensInItsInitialStateWithTheListOfTheVariant) {
  const std::tuple<std::function<void()>, int> rows[] = {
      {[] { InstallFull(); }, 37}, {[] { InstallDemo(); }, 4}, {[] {}, 4}};
  for (const auto& [install, count] : rows) {
    Fresh();
    install();
    StartProgram();
    const Form2& c = OpenCustom();
    EXPECT_EQ(std::make_tuple(headless::IsShown(c), c.Combo1.ListCount(), c.Combo1.Text(),
                              c.Option2.Value(), c.Option3.Value(), c.Command1.Enabled(),
                              c.Text1.Text()),
              std::make_tuple(true, count, "dm-antalus*", true, true, false, ""));
  }
}

// Custom ini enables Browse; a cancelled dialog keeps the path; a detail option empties it and
// disables Browse. "Custom Test" empties the logs and keeps an open window with its choices;
// Cancel drops them.
TEST_F(CustomTest, IniOptionsAndTheWindowsLife) {
  InstallFull();
  StartProgram();
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
    headless::ProgramFileDialog(std::string("C:\\Mine\\b.ini"));
    headless::Click(custom.Command1);
    headless::Click(*detail);
    EXPECT_EQ(std::make_tuple(custom.Text1.Text(), custom.Command1.Enabled()),
              std::make_tuple("", false));
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
