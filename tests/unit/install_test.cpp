#include "platform/forms/window.h"
#include "support/fixture.h"

namespace {
using namespace testing_support;
using mdlBenchmark::AppState;

struct Install : HeadlessTest {
  // "<Option3 and Option4 enabled, then selected, as 1 or 0> <GameVersion> <GamePath>"
  static std::string State() {
    const Form1& f = MainForm();
    std::string bits;
    for (bool on : {f.Option3.Enabled(), f.Option4.Enabled(), f.Option3.Value(), f.Option4.Value()}) bits += "01"[on];
    return bits + " " + AppState.GameVersion + " " + AppState.GamePath;
  }
  // The keys opened so far, in order: F the full game's, D the demo's, each with mask 63.
  static std::string KeysOpened() {
    std::string keys;
    const std::string full = "open " + std::string(kFullKey) + " 63", demo = "open " + std::string(kDemoKey) + " 63";
    for (const std::string& call : headless::RegistryCalls()) keys += call == full ? "F" : call == demo ? "D" : "";
    return keys;
  }
};

// Both installed: the demo's handler runs nested between two runs of the full game's, and the
// full game ends up selected. Custom Options then shows the list of the variant: any variant
// but the full game, none found included, gets the demo's. The folder values of other kinds
// are checked end to end. Each row: whether each variant is installed, the state and the keys
// opened.
using StartUp = Rows<Install, const char*, bool, bool, const char*, const char*>;
TEST_P(StartUp, StatesAndFolderValues) {
  const auto& [name, full, demo, state, keys] = GetParam();
  if (full) InstallFull();
  if (demo) InstallDemo();
  StartProgram();
  EXPECT_EQ(State(), state);
  EXPECT_EQ(KeysOpened(), keys);
  EXPECT_EQ(headless::Boxes(), std::string(state, 2) == "00" ? Boxes{kPleaseInstall} : Boxes{});
  const Form2& c = OpenCustom();
  EXPECT_EQ(std::make_tuple(headless::IsShown(c), c.Combo1.ListCount(), c.Combo1.Text(),
                            c.Option2.Value(), c.Option3.Value(), c.Command1.Enabled(), c.Text1.Text()),
            std::make_tuple(true, state[0] == '1' ? 37 : 4, "dm-antalus*", true, true, false, ""));
}
INSTANTIATE_TEST_SUITE_P(Install, StartUp, testing::ValuesIn(std::vector<StartUp::ParamType>{
    {"Nothing", false, false, "0000  ", "DF"}, {"Full", true, false, "1010 full C:\\Games\\UT2003", "DFF"},
    {"Demo", false, true, "0101 demo C:\\Games\\UT2003Demo", "DFD"},
    {"FullAndDemo", true, true, "1110 full C:\\Games\\UT2003", "DFFDF"}}), ByName);

// The logs are emptied (a missing one is made), and a log that cannot be emptied is told once
// while start-up goes on. A program folder gets its backslash, also when it is given back
// empty, but one at the root of a drive keeps its one backslash. Each row: the program folder,
// the one the program takes, and whether lowframerate.log is locked.
using ProgramFolder = Rows<Install, const char*, const char*, const char*, bool>;
TEST_P(ProgramFolder, StartUpEmptiesTheLogsAndGoesOnAfterABox) {
  const auto& [name, folder, appPath, logLocked] = GetParam();
  InstallFull();
  headless::PutFile(kBenchLog, "old run\r\n");
  if (logLocked) headless::PutFile(kLog, "x");
  headless::SetLocked(kLog, logLocked);
  headless::SetProgramFolder(folder);
  Form1& form = StartProgram();
  const Boxes locked = {{std::string(kLog) + " cannot be emptied: Permission denied.", kTitle, 16}};
  EXPECT_EQ(headless::Boxes(), logLocked ? locked : Boxes{});
  EXPECT_EQ(FileOrMissing(kBenchLog), "");
  EXPECT_EQ(FileOrMissing(kLog), logLocked ? "x" : "");
  EXPECT_EQ(AppState.AppPath, appPath);
  EXPECT_EQ(std::make_tuple(headless::IsShown(form), form.Option1.Value(), AppState.RenderEngine),
            std::make_tuple(true, true, "D3D"));
}
INSTANTIATE_TEST_SUITE_P(Install, ProgramFolder, testing::ValuesIn(std::vector<ProgramFolder::ParamType>{
    {"Folder", "C:\\Bench", "C:\\Bench\\", false}, {"Empty", "", "\\", false},
    {"DriveRootAndLockedLog", "D:\\", "D:\\", true}}), ByName);

// A change of variant shows Custom Options anew, with the list of the new variant and its
// choices dropped; the window is left alone when the variant's own code is set again. The
// folder is read afresh at each change, and only then: a variant gone since start-up gives an
// empty path, and no box; a folder value loses its last character even when that is no NUL.
TEST_F(Install, ChangesOfVariant) {
  InstallFull();
  InstallDemo();
  Form1& form = StartProgram();
  ASSERT_TRUE(headless::Click(form.Option4));
  EXPECT_EQ(forms::OpenWindows().size(), 1u);
  OpenCustom();
  const std::tuple<forms::OptionButton&, const char*, int, int> rows[] = {
      {form.Option3, "1110 full C:\\Games\\UT2003", 37, 16}, {form.Option4, "1101 demo C:\\Games\\UT2003Demo", 4, 2}};
  for (const auto& [button, state, entries, chosen] : rows) {
    SCOPED_TRACE(state);
    ASSERT_TRUE(headless::SelectItem(CustomWindow()->Combo1, 0));
    ASSERT_TRUE(headless::Click(CustomWindow()->Option5));
    ASSERT_TRUE(headless::Click(button));
    EXPECT_EQ(State(), state);
    ASSERT_EQ(forms::OpenWindows().size(), 2u);
    const Form2& c = *CustomWindow();
    EXPECT_EQ(std::make_tuple(headless::IsShown(c), c.Combo1.ListCount(), c.Combo1.ListIndex(),
                              c.Option3.Value(), c.Option5.Value()),
              std::make_tuple(true, entries, chosen, true, false));
  }
  Form2* before = CustomWindow();
  ASSERT_TRUE(headless::SelectItem(before->Combo1, 3));
  headless::RunAsEvent([] { mdlBenchmark::SelectVariant(mdlBenchmark::Variant::Demo); });
  ASSERT_EQ(CustomWindow(), before);
  EXPECT_EQ(CustomWindow()->Combo1.ListIndex(), 3);

  headless::SetString(kHklm, kDemoKey, "Folder", "D:\\Moved");
  headless::Click(form.Option4);  // selected already: its handler does not run
  EXPECT_EQ(State(), "1101 demo C:\\Games\\UT2003Demo");
  headless::DeleteKey(kHklm, kFullKey);
  ASSERT_TRUE(headless::Click(form.Option3));
  EXPECT_EQ(State(), "1110 full ");
  headless::SetValue(kHklm, kDemoKey, "Folder", platform::kRegSz, "D:\\G\\");  // no terminator
  ASSERT_TRUE(headless::Click(form.Option4));
  EXPECT_EQ(State(), "1101 demo D:\\G");
  EXPECT_TRUE(headless::Boxes().empty());
}

}  // namespace
