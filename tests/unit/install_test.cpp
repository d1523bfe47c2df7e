#include <functional>
#include <tuple>

#include "platform/forms/window.h"
#include "support/fixture.h"
#include "windows/Form2.h"

namespace {
using namespace testing_support;
using mdlBenchmark::AppState;
constexpr platform::KeyHandle kHklm = platform::kLocalMachine;

class Install : public HeadlessTest {
 protected:
  Form1& StartBoth() {
    InstallFull();
    InstallDemo();
    return StartProgram();
  }
  // "<Option3 and Option4 enabled, then selected, as 1 or 0> <GameVersion> <GamePath>"
  static std::string State() {
    const Form1& f = MainForm();
    std::string bits;
    for (bool on : {f.Option3.Enabled(), f.Option4.Enabled(), f.Option3.Value(), f.Option4.Value()})
      bits += on ? '1' : '0';
    return bits + " " + AppState.GameVersion + " " + AppState.GamePath;
  }
  // The keys opened so far, in order: F the full game's, D the demo's, each with mask 63.
  static std::string KeysOpened() {
    std::string keys;
    for (const std::string& call : headless::RegistryCalls()) {
      if (call == "open " + std::string(kFullKey) + " 63") keys += 'F';
      if (call == "open " + std::string(kDemoKey) + " 63") keys += 'D';
    }
    return keys;
  }
};

TEST_F(Install, StatesAndFolderValuesAtStartUp) {
  // How the variants are installed; State(); the keys opened, as KeysOpened() gives them.
  const std::tuple<std::function<void()>, const char*, const char*> rows[] = {
      {[] {}, "0000  ", "DF"},
      {[&] { InstallFull(); }, "1010 full C:\\Games\\UT2003", "DFF"},
      {[&] { InstallDemo(); }, "0101 demo C:\\Games\\UT2003Demo", "DFD"},
      {[&] { InstallFull(); InstallDemo(); }, "1110 full C:\\Games\\UT2003", "DFFDF"},
      {[&] { InstallFull(""); }, "1010 full ", "DFF"},
      {[&] { InstallFull("C:\\G\\"); }, "1010 full C:\\G\\", "DFF"},
      {[&] { InstallFull("1234"); headless::SetDword(kHklm, kFullKey, "Folder", 12345); },
       "1010 full 1234", "DFF"},
      {[] { headless::SetValue(kHklm, kFullKey, "Folder", platform::kRegExpandSz, "C:\\G\\"); },
       "0000  ", "DF"},
  };
  const std::vector<headless::Box> none, please = {
      {"Please install UT2003[full version] or UT2003[demo]", "Install UT2003", 0}};
  for (const auto& [install, state, keys] : rows) {
    SCOPED_TRACE(state);
    TearDown();
    SetUp();
    install();
    StartProgram();
    EXPECT_EQ(State(), state);
    EXPECT_EQ(KeysOpened(), keys);
    EXPECT_EQ(headless::Boxes(), std::string(state, 2) == "00" ? please : none);
  }
}

TEST_F(Install, ChangeOfVariantShowsCustomOptionsAnewOnlyWhenOpen) {
  Form1& form = StartBoth();
  ASSERT_TRUE(headless::Click(form.Option4));
  EXPECT_EQ(State(), "1101 demo C:\\Games\\UT2003Demo");
  EXPECT_EQ(forms::OpenWindows().size(), 1u);
  ASSERT_TRUE(headless::Click(form.Command4));
  const std::tuple<forms::OptionButton&, const char*, int, int> rows[] = {
      {form.Option3, "1110 full C:\\Games\\UT2003", 37, 16},
      {form.Option4, "1101 demo C:\\Games\\UT2003Demo", 4, 2}};
  for (const auto& [button, state, entries, chosen] : rows) {
    SCOPED_TRACE(state);
    ASSERT_TRUE(headless::SelectItem(CustomWindow()->Combo1, 0));  // choices to be dropped
    ASSERT_TRUE(headless::Click(CustomWindow()->Option5));
    ASSERT_TRUE(headless::Click(button));
    EXPECT_EQ(State(), state);
    ASSERT_EQ(forms::OpenWindows().size(), 2u);
    const Form2& c = *CustomWindow();
    EXPECT_EQ(std::make_tuple(headless::IsShown(c), c.Combo1.ListCount(), c.Combo1.ListIndex(),
                              c.Option3.Value(), c.Option5.Value()),
              std::make_tuple(true, entries, chosen, true, false));
  }
}

TEST_F(Install, OwnCodeLeavesCustomOptionsAlone) {
  StartBoth();
  headless::RunAsEvent([] { forms::ShowWindow<Form2>(); });
  Form2* before = CustomWindow();
  ASSERT_TRUE(headless::SelectItem(before->Combo1, 3));
  headless::SetString(kHklm, kFullKey, "Folder", "D:\\Moved");
  headless::RunAsEvent([] { mdlBenchmark::SelectVariant(mdlBenchmark::Variant::Full); });
  ASSERT_EQ(CustomWindow(), before);
  EXPECT_EQ(before->Combo1.ListIndex(), 3);
  EXPECT_EQ(State(), "1110 full D:\\Moved");
}

// The folder is read afresh at each change: a variant gone since start-up gives an empty path,
// and a test then starts "\System\ut2003.exe", which fails with 53.
TEST_F(Install, VariantGoneSinceStartUp) {
  const std::function<void()> changes[] = {
      [] { headless::DeleteKey(kHklm, kDemoKey); },
      [] { headless::SetValue(kHklm, kDemoKey, "Folder", platform::kRegSz, ""); }};
  for (const auto& change : changes) {
    TearDown();
    SetUp();
    Form1& form = StartBoth();
    change();
    ASSERT_TRUE(headless::Click(form.Option4));
    EXPECT_EQ(State(), "1101 demo ");
    EXPECT_TRUE(headless::Boxes().empty());
    Tick({0});
    headless::Click(form.Command1);
    ASSERT_EQ(headless::Starts().size(), 1u);
    const headless::Start& start = headless::Starts()[0];
    EXPECT_FALSE(start.started);
    EXPECT_EQ(start.commandLine.rfind("\"\\System\\ut2003.exe\" ", 0), 0u);
    EXPECT_EQ(headless::Boxes(), (std::vector<headless::Box>{
                                     {start.commandLine + " cannot be found.",
                                      "Kelvarnite UT2k3 Benchmark", 16}}));
  }
}

}  // namespace
