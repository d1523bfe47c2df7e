#include "support/fixture.h"
#include "windows/Form2.h"

namespace {
using namespace testing_support;
using mdlBenchmark::AppState;

class CustomTest : public HeadlessTest {
 protected:
  Form2& OpenCustom() {
    EXPECT_TRUE(headless::Click(MainForm().Command4));
    return static_cast<Form2&>(*forms::FindOpen("Form2"));
  }
  static Form2& Custom() { return static_cast<Form2&>(*forms::FindOpen("Form2")); }
  static void SelectLevel(const std::string& entry) {
    forms::ComboBox& combo = Custom().Combo1;
    for (int i = 0; i < combo.ListCount(); ++i) {
      if (combo.List(i) == entry) {
        ASSERT_TRUE(headless::SelectItem(combo, i));
      }
    }
    ASSERT_EQ(combo.Text(), entry);
  }
  static std::string Line(const std::string& game, const std::string& level,
                          const std::string& rest) {
    return "\"" + game + "\\System\\ut2003.exe\" " + level + "?game=engine.gameinfo exec=\"" +
           game + "\\Benchmark\\Stuff\\flybyexec.txt\" -benchmark -seconds=" + rest;
  }
  static bool AllRunControlsEnabled() {
    Form1& form = MainForm();
    bool enabled = form.Command1.Enabled() && form.Command2.Enabled() &&
                   form.Command3.Enabled() && form.Command4.Enabled();
    for (forms::CheckBox* box : form.Check1) enabled = enabled && box->Enabled();
    return enabled;
  }
};

TEST_F(CustomTest, InitialChoicesGiveTheExactLine) {
  InstallFull();
  StartProgram();
  Tick({2});
  Form2& custom = OpenCustom();
  ASSERT_TRUE(headless::Click(custom.Command2));
  ASSERT_EQ(headless::Starts().size(), 1u);
  EXPECT_EQ(headless::Starts()[0].commandLine,
            "\"C:\\Games\\UT2003\\System\\ut2003.exe\" dm-antalus?game=engine.gameinfo "
            "exec=\"C:\\Games\\UT2003\\Benchmark\\Stuff\\flybyexec.txt\" -benchmark -seconds= 77 "
            "-nosound ini=\"C:\\Bench\\INI\\D3D\\Custom_MaxDetail.ini\" "
            "userini=\"C:\\Games\\UT2003\\Benchmark\\Stuff\\MaxDetailUser.ini\" -1024x768");
  EXPECT_EQ(headless::ShellCalls().size(), 1u);
  EXPECT_TRUE(AllRunControlsEnabled());
  EXPECT_EQ(forms::FindOpen("Form2"), &custom);  // it stays open with its choices
}

struct ChoiceCase {
  bool demo;
  const char* entry;      // the level picked in the list; empty: the initial one
  bool soundOn;
  int detail;             // 3 Max, 4 Min, 5 Custom ini
  const char* iniPath;    // chosen in the dialog for Custom ini
  bool openGl;
  std::string rest;       // the line from "-seconds=" on, the resolution excluded
  const char* level;
};

TEST_F(CustomTest, ChoicesOfTheWindowShapeTheLine) {
  const std::string maxFull = " ini=\"C:\\Bench\\INI\\D3D\\Custom_MaxDetail.ini\" userini=\"C:\\Games\\UT2003\\Benchmark\\Stuff\\MaxDetailUser.ini\" -";
  const ChoiceCase cases[] = {
      {false, "", true, 3, nullptr, false, " 77" + maxFull, "dm-antalus"},
      {false, "ctf-face3*", false, 3, nullptr, false, " 116 -nosound" + maxFull, "ctf-face3"},
      {false, "dm-asbestos*", false, 3, nullptr, false, " 71 -nosound" + maxFull, "dm-asbestos"},
      {true, "dm-asbestos*", false, 3, nullptr, false,
       " 71 -nosound ini=\"C:\\Bench\\INI\\D3D\\Custom_MaxDetail.ini\" userini=\"C:\\Games\\UT2003Demo\\Benchmark\\Stuff\\MaxDetailUser.ini\" -",
       "dm-asbestos"},
      {false, "br-anubis", false, 3, nullptr, false, " 77 -nosound" + maxFull, "br-anubis"},
      {false, "", false, 4, nullptr, true,
       " 77 -nosound ini=\"C:\\Bench\\INI\\OGL\\Custom_MinDetail.ini\" userini=\"C:\\Games\\UT2003\\Benchmark\\Stuff\\MinDetailUser.ini\" -",
       "dm-antalus"},
      {false, "", false, 5, "D:\\My Settings\\fast one.ini", true,
       " 77 -nosound ini=\"D:\\My Settings\\fast one.ini\" userini=\"C:\\Games\\UT2003\\Benchmark\\Stuff\\MaxDetailUser.ini\" -",
       "dm-antalus"},
  };
  for (const ChoiceCase& c : cases) {
    SCOPED_TRACE(c.entry + std::string(" detail ") + std::to_string(c.detail));
    TearDown();
    SetUp();
    c.demo ? InstallDemo() : InstallFull();
    Form1& form = StartProgram();
    if (c.openGl) headless::Click(form.Option2);
    Tick({0, 3});
    Form2& custom = OpenCustom();
    if (*c.entry) SelectLevel(c.entry);
    if (c.soundOn) headless::Click(custom.Option1);
    headless::Click(c.detail == 4 ? custom.Option4 : c.detail == 5 ? custom.Option5 : custom.Option3);
    if (c.iniPath) {
      headless::ProgramFileDialog(std::string(c.iniPath));
      headless::Click(custom.Command1);
    }
    headless::Click(custom.Command2);
    const std::string game = c.demo ? kDemoPath : kFullPath;
    ASSERT_EQ(headless::Starts().size(), 2u);
    EXPECT_EQ(headless::Starts()[0].commandLine, Line(game, c.level, c.rest) + "640x480");
    EXPECT_EQ(headless::Starts()[1].commandLine, Line(game, c.level, c.rest) + "1280x1024");
  }
}

TEST_F(CustomTest, ReportHasOneColumnAndNoNotes) {
  InstallFull();
  StartProgram();
  Tick({0, 2, 4});
  headless::Click(OpenCustom().Command2);
  const std::vector<std::string> lines = Lines(FileOrMissing("C:\\Bench\\results.html"));
  ASSERT_EQ(lines.size(), 1u + 3 * (5 + 4 * 4));
  EXPECT_EQ(lines[5], "<TD>dm-antalus    ");
  EXPECT_EQ(lines[lines.size() - 3], "</TABLE>");
  EXPECT_EQ(lines.back(), "<BR>");
}

struct RefusalCase {
  bool tickBox;
  const char* title;
  const char* text;
};

TEST_F(CustomTest, RefusedChoicesStartNothingAndKeepTheWindow) {
  const RefusalCase cases[] = {
      {false, "Please select a Resolution", "Please Select at least one resolution to use"},
      {true, "Choose a File...", "Please Choose a Custom ini file to use"},
  };
  for (const RefusalCase& c : cases) {
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
    const std::size_t startsBefore = headless::Starts().size();
    bool lockedWhileOpen = false;
    headless::AnswerBoxes([&](const headless::Box&) { return lockedWhileOpen = !MainForm().Command1.Enabled(), 1; });
    headless::Click(custom.Command2);

    ASSERT_EQ(headless::Boxes().size(), 1u);
    EXPECT_EQ(headless::Boxes()[0].title, c.title);
    EXPECT_EQ(headless::Boxes()[0].text, c.text);
    EXPECT_EQ(headless::Boxes()[0].flags, 0);
    EXPECT_TRUE(lockedWhileOpen);
    EXPECT_EQ(headless::Starts().size(), startsBefore);
    EXPECT_EQ(FileOrMissing("C:\\Games\\UT2003\\Benchmark\\lowframerate.log"), "");
    EXPECT_EQ(FileOrMissing("C:\\Games\\UT2003\\Benchmark\\benchmark.log"), "");
    EXPECT_EQ(FileOrMissing("C:\\Bench\\results.html"), report);
    EXPECT_TRUE(AllRunControlsEnabled());
    EXPECT_EQ(forms::FindOpen("Form2"), &custom);
  }
}

TEST_F(CustomTest, WindowOpensInItsInitialStateWithTheListOfTheVariant) {
  InstallFull();
  StartProgram();
  Form2& custom = OpenCustom();
  EXPECT_TRUE(headless::IsShown(custom));
  EXPECT_TRUE(custom.Option2.Value());
  EXPECT_FALSE(custom.Option1.Value());
  EXPECT_TRUE(custom.Option3.Value());
  EXPECT_FALSE(custom.Command1.Enabled());
  EXPECT_EQ(custom.Text1.Text(), "");
  ASSERT_EQ(custom.Combo1.ListCount(), 37);
  EXPECT_EQ(custom.Combo1.List(0), "br-anubis");
  EXPECT_EQ(custom.Combo1.List(36), "dom-suntemple*");
  EXPECT_EQ(custom.Combo1.Text(), "dm-antalus*");
}

TEST_F(CustomTest, DemoAndNoGameGetTheDemoList) {
  for (bool demo : {true, false}) {
    TearDown();
    SetUp();
    if (demo) InstallDemo();
    StartProgram();
    Form2& custom = OpenCustom();
    ASSERT_EQ(custom.Combo1.ListCount(), 4);
    EXPECT_EQ(custom.Combo1.List(0), "br-anubis");
    EXPECT_EQ(custom.Combo1.List(3), "dm-asbestos*");
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
  EXPECT_EQ(custom.Text1.Text(), "C:\\Mine\\a.ini");
  headless::ProgramFileDialog(std::nullopt);  // cancelled: the path stays
  headless::Click(custom.Command1);
  EXPECT_EQ(custom.Text1.Text(), "C:\\Mine\\a.ini");
  EXPECT_EQ(headless::FileDialogs(), (std::vector<std::string>{"ini Files (*.ini)|*.ini", "ini Files (*.ini)|*.ini"}));

  headless::Click(custom.Option5);  // again: nothing changes
  EXPECT_EQ(custom.Text1.Text(), "C:\\Mine\\a.ini");
  headless::Click(custom.Option3);
  EXPECT_EQ(custom.Text1.Text(), "");
  EXPECT_FALSE(custom.Command1.Enabled());
  headless::Click(custom.Option5);
  EXPECT_EQ(custom.Text1.Text(), "");
  EXPECT_TRUE(custom.Command1.Enabled());
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
  EXPECT_EQ(forms::FindOpen("Form2"), nullptr);
  EXPECT_TRUE(OpenCustom().Option3.Value());
}

}  // namespace
