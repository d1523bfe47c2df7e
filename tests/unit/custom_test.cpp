#include "support/fixture.h"
#include "windows/Form2.h"

namespace {
using namespace testing_support;

class CustomTest : public HeadlessTest {
 protected:
  Form2& OpenCustom() {
    EXPECT_TRUE(headless::Click(MainForm().Command4));
    return *CustomWindow();
  }
  static void SelectLevel(Form2& custom, const std::string& entry) {
    for (int i = 0; i < custom.Combo1.ListCount(); ++i) {
      if (custom.Combo1.List(i) == entry) headless::SelectItem(custom.Combo1, i);
    }
    ASSERT_EQ(custom.Combo1.Text(), entry);
  }
};

struct ChoiceCase {
  bool demo, soundOn, openGl;
  const char* entry;    // the level picked in the list; empty: the one the window opens on
  int detail;           // 3 Max, 4 Min, 5 Custom ini
  const char* iniPath;  // chosen in the dialog for Custom ini
  std::string line;     // the whole line of the one start at 1024x768
};

// The line of a start at 1024x768 from its parts.
std::string Line(const std::string& game, const std::string& level, const std::string& seconds,
                 const std::string& ini, const std::string& userIni) {
  return "\"" + game + "\\System\\ut2003.exe\" " + level + "?game=engine.gameinfo exec=\"" + game +
         "\\Benchmark\\Stuff\\flybyexec.txt\" -benchmark -seconds=" + seconds + "ini=\"" + ini +
         "\" userini=\"" + game + "\\Benchmark\\Stuff\\" + userIni + "\" -1024x768";
}

TEST_F(CustomTest, ChoicesOfTheWindowShapeTheLine) {
  const std::string full = kFullPath, maxIni = "C:\\Bench\\INI\\D3D\\Custom_MaxDetail.ini";
  const ChoiceCase cases[] = {
      {false, false, false, "", 3, nullptr,
       "\"C:\\Games\\UT2003\\System\\ut2003.exe\" dm-antalus?game=engine.gameinfo "
       "exec=\"C:\\Games\\UT2003\\Benchmark\\Stuff\\flybyexec.txt\" -benchmark -seconds= 77 "
       "-nosound ini=\"C:\\Bench\\INI\\D3D\\Custom_MaxDetail.ini\" "
       "userini=\"C:\\Games\\UT2003\\Benchmark\\Stuff\\MaxDetailUser.ini\" -1024x768"},
      {false, true, false, "", 3, nullptr, Line(full, "dm-antalus", " 77 ", maxIni, "MaxDetailUser.ini")},
      {false, false, false, "ctf-face3*", 3, nullptr,
       Line(full, "ctf-face3", " 116 -nosound ", maxIni, "MaxDetailUser.ini")},
      {true, false, false, "dm-asbestos*", 3, nullptr,  // 71 seconds in the demo too
       Line(kDemoPath, "dm-asbestos", " 71 -nosound ", maxIni, "MaxDetailUser.ini")},
      {false, false, false, "br-anubis", 3, nullptr,
       Line(full, "br-anubis", " 77 -nosound ", maxIni, "MaxDetailUser.ini")},
      {false, false, true, "", 4, nullptr,
       Line(full, "dm-antalus", " 77 -nosound ", "C:\\Bench\\INI\\OGL\\Custom_MinDetail.ini",
            "MinDetailUser.ini")},
      {false, false, true, "", 5, "D:\\My Settings\\fast one.ini",
       Line(full, "dm-antalus", " 77 -nosound ", "D:\\My Settings\\fast one.ini", "MaxDetailUser.ini")},
  };
  for (const ChoiceCase& c : cases) {
    SCOPED_TRACE(c.line);
    TearDown();
    SetUp();
    c.demo ? InstallDemo() : InstallFull();
    Form1& form = StartProgram();
    if (c.openGl) headless::Click(form.Option2);
    Tick({2});
    Form2& custom = OpenCustom();
    if (*c.entry) SelectLevel(custom, c.entry);
    if (c.soundOn) headless::Click(custom.Option1);
    headless::Click(c.detail == 4 ? custom.Option4 : c.detail == 5 ? custom.Option5 : custom.Option3);
    if (c.iniPath) {
      headless::ProgramFileDialog(std::string(c.iniPath));
      headless::Click(custom.Command1);
    }
    headless::Click(custom.Command2);
    ASSERT_EQ(headless::Starts().size(), 1u);
    EXPECT_EQ(headless::Starts()[0].commandLine, c.line);
    EXPECT_EQ(headless::ShellCalls().size(), 1u);
    EXPECT_TRUE(AllRunControlsEnabled());
    EXPECT_EQ(CustomWindow(), &custom);  // it stays open with its choices
  }
}

TEST_F(CustomTest, ThreeResolutionsRunOneLevelIntoAReportWithoutNotes) {
  InstallFull();
  StartProgram();
  Tick({0, 2, 4});
  headless::Click(OpenCustom().Command2);
  ASSERT_EQ(headless::Starts().size(), 3u);
  const std::string& first = headless::Starts()[0].commandLine;
  EXPECT_EQ(headless::Starts()[2].commandLine, first.substr(0, first.rfind(" -")) + " -1600x1200");
  const std::vector<std::string> lines = Lines(FileOrMissing("C:\\Bench\\results.html"));
  ASSERT_EQ(lines.size(), 1u + 3 * (5 + 4 * 4));
  EXPECT_EQ(lines[5], "<TD>dm-antalus    ");
  EXPECT_EQ(std::vector<std::string>(lines.end() - 3, lines.end()),
            (std::vector<std::string>{"</TABLE>", "<BR>", "<BR>"}));
}

TEST_F(CustomTest, RefusedChoicesStartNothingAndKeepTheWindow) {
  const struct {
    bool tickBox;
    const char* title;
    const char* text;
  } cases[] = {
      {false, "Please select a Resolution", "Please Select at least one resolution to use"},
      {true, "Choose a File...", "Please Choose a Custom ini file to use"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.title);
    TearDown();
    SetUp();
    InstallFull();
    StartProgram();
    Tick({1});
    headless::Click(MainForm().Command1);  // an earlier run since the start
    const std::string report = FileOrMissing("C:\\Bench\\results.html");
    if (!c.tickBox) Tick({1});
    Form2& custom = OpenCustom();
    headless::Click(custom.Option5);  // Custom ini with an empty path
    headless::PutFile("C:\\Games\\UT2003\\Benchmark\\lowframerate.log", "stale, 1 / 2 / 3abcd, x, y\r\n");
    const std::size_t starts = headless::Starts().size();
    bool locked = false;
    headless::AnswerBoxes([&](const headless::Box&) { return locked = !MainForm().Command1.Enabled(), 1; });
    headless::Click(custom.Command2);

    ASSERT_EQ(headless::Boxes().size(), 1u);
    EXPECT_EQ(headless::Boxes()[0].title, c.title);
    EXPECT_EQ(headless::Boxes()[0].text, c.text);
    EXPECT_EQ(headless::Boxes()[0].flags, 0);
    EXPECT_TRUE(locked);
    EXPECT_EQ(headless::Starts().size(), starts);
    EXPECT_EQ(FileOrMissing("C:\\Games\\UT2003\\Benchmark\\lowframerate.log"), "");
    EXPECT_EQ(FileOrMissing("C:\\Games\\UT2003\\Benchmark\\benchmark.log"), "");
    EXPECT_EQ(FileOrMissing("C:\\Bench\\results.html"), report);
    EXPECT_TRUE(AllRunControlsEnabled());
    EXPECT_EQ(CustomWindow(), &custom);
  }
}

TEST_F(CustomTest, WindowOpensInItsInitialStateWithTheListOfTheVariant) {
  const struct {
    int install;  // 0 none, 1 full, 2 demo
    int count;
    const char* last;
  } cases[] = {{1, 37, "dom-suntemple*"}, {2, 4, "dm-asbestos*"}, {0, 4, "dm-asbestos*"}};
  for (const auto& c : cases) {
    TearDown();
    SetUp();
    if (c.install == 1) InstallFull();
    if (c.install == 2) InstallDemo();
    StartProgram();
    Form2& custom = OpenCustom();
    EXPECT_TRUE(headless::IsShown(custom));
    EXPECT_TRUE(custom.Option2.Value() && !custom.Option1.Value() && custom.Option3.Value());
    EXPECT_FALSE(custom.Command1.Enabled());
    EXPECT_EQ(custom.Text1.Text(), "");
    ASSERT_EQ(custom.Combo1.ListCount(), c.count);
    EXPECT_EQ(custom.Combo1.List(0), "br-anubis");
    EXPECT_EQ(custom.Combo1.List(c.count - 1), c.last);
    EXPECT_EQ(custom.Combo1.Text(), "dm-antalus*");
  }
}

TEST_F(CustomTest, IniOptionsEnableBrowseAndEmptyThePath) {
  InstallFull();
  StartProgram();
  Form2& custom = OpenCustom();
  headless::Click(custom.Option5);
  EXPECT_TRUE(custom.Command1.Enabled());
  EXPECT_EQ(custom.Text1.Text(), "");
  headless::ProgramFileDialog(std::string("C:\\Mine\\a.ini"));
  headless::Click(custom.Command1);
  headless::ProgramFileDialog(std::nullopt);  // cancelled: the path stays
  headless::Click(custom.Command1);
  EXPECT_EQ(custom.Text1.Text(), "C:\\Mine\\a.ini");
  EXPECT_EQ(headless::FileDialogs(), std::vector<std::string>(2, "ini Files (*.ini)|*.ini"));
  headless::Click(custom.Option5);  // selected already: nothing changes
  EXPECT_EQ(custom.Text1.Text(), "C:\\Mine\\a.ini");
  headless::Click(custom.Option3);
  EXPECT_EQ(custom.Text1.Text(), "");
  EXPECT_FALSE(custom.Command1.Enabled());
  headless::Click(custom.Option5);
  EXPECT_EQ(custom.Text1.Text(), "");
  headless::Click(custom.Option4);
  EXPECT_FALSE(custom.Command1.Enabled());
}

TEST_F(CustomTest, TypedPathIsTakenAsItIs) {
  InstallFull();
  StartProgram();
  Tick({0});
  Form2& custom = OpenCustom();
  headless::Click(custom.Option5);
  ASSERT_TRUE(headless::TypeText(custom.Text1, "E:\\pasted.ini"));
  headless::Click(custom.Command2);
  ASSERT_EQ(headless::Starts().size(), 1u);
  EXPECT_NE(headless::Starts()[0].commandLine.find(" ini=\"E:\\pasted.ini\" "), std::string::npos);
}

TEST_F(CustomTest, CustomTestButtonEmptiesTheLogsAndKeepsAnOpenWindow) {
  InstallFull();
  StartProgram();
  Form2& custom = OpenCustom();
  headless::Click(custom.Option4);
  headless::PutFile("C:\\Games\\UT2003\\Benchmark\\lowframerate.log", "x, 1 / 2 / 3abcd, x, y\r\n");
  EXPECT_EQ(&OpenCustom(), &custom);
  EXPECT_TRUE(custom.Option4.Value());
  EXPECT_EQ(FileOrMissing("C:\\Games\\UT2003\\Benchmark\\lowframerate.log"), "");
  headless::Click(custom.Command3);  // Cancel drops the window and its choices
  EXPECT_EQ(CustomWindow(), nullptr);
  EXPECT_TRUE(OpenCustom().Option3.Value());
}

}  // namespace
