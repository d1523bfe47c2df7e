#include <functional>

#include "platform/forms/window.h"
#include "support/fixture.h"
#include "windows/Form2.h"

namespace {
using namespace testing_support;
using mdlBenchmark::AppState;
constexpr platform::KeyHandle kHklm = platform::kLocalMachine;

class InstallDetection : public HeadlessTest {
 protected:
  // The keys opened so far, in order.
  static std::vector<std::string> KeysOpened() {
    std::vector<std::string> keys;
    for (const std::string& call : headless::RegistryCalls()) {
      if (call.rfind("open ", 0) == 0) keys.push_back(call.substr(5));
    }
    return keys;
  }
};

TEST_F(InstallDetection, FourInstallStates) {
  const std::string full = std::string(kFullKey) + " 63";
  const std::string demo = std::string(kDemoKey) + " 63";
  const struct {
    bool full, demo;
    bool fullEnabled, demoEnabled, fullSelected, demoSelected;
    const char* version;
    const char* path;
    std::vector<std::string> opened;
  } rows[] = {
      {false, false, false, false, false, false, "", "", {demo, full}},
      {true, false, true, false, true, false, "full", kFullPath, {demo, full, full}},
      {false, true, false, true, false, true, "demo", kDemoPath, {demo, full, demo}},
      {true, true, true, true, true, false, "full", kFullPath, {demo, full, full, demo, full}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string("full ") + (row.full ? "present" : "absent") + ", demo " +
                 (row.demo ? "present" : "absent"));
    TearDown();
    SetUp();
    if (row.full) InstallFull();
    if (row.demo) InstallDemo();
    Form1& form = StartProgram();
    EXPECT_EQ(form.Option3.Enabled(), row.fullEnabled);
    EXPECT_EQ(form.Option4.Enabled(), row.demoEnabled);
    EXPECT_EQ(form.Option3.Value(), row.fullSelected);
    EXPECT_EQ(form.Option4.Value(), row.demoSelected);
    EXPECT_EQ(AppState.GameVersion, row.version);
    EXPECT_EQ(AppState.GamePath, row.path);
    EXPECT_EQ(KeysOpened(), row.opened);
    if (!row.full && !row.demo) {
      ASSERT_EQ(headless::Boxes().size(), 1u);
      EXPECT_EQ(headless::Boxes()[0].text, "Please install UT2003[full version] or UT2003[demo]");
      EXPECT_EQ(headless::Boxes()[0].title, "Install UT2003");
      EXPECT_EQ(headless::Boxes()[0].flags, 0);
    } else {
      EXPECT_TRUE(headless::Boxes().empty());
    }
    EXPECT_EQ(headless::OpenKeyCount(), 0);
  }
}

TEST_F(InstallDetection, FolderOddities) {
  const struct {
    const char* description;
    std::function<void()> store;
    bool present;
    const char* path;
  } rows[] = {
      {"an empty string", [] { headless::SetString(kHklm, kFullKey, "Folder", ""); }, true, ""},
      {"a trailing backslash",
       [] { headless::SetString(kHklm, kFullKey, "Folder", "C:\\Games\\UT2003\\"); }, true,
       "C:\\Games\\UT2003\\"},
      {"a REG_DWORD", [] { headless::SetDword(kHklm, kFullKey, "Folder", 12345); }, true, "1234"},
      {"a REG_EXPAND_SZ",
       [] {
         headless::SetValue(kHklm, kFullKey, "Folder", platform::kRegExpandSz,
                            std::string(kFullPath) + '\0');
       },
       false, ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    TearDown();
    SetUp();
    row.store();
    Form1& form = StartProgram();
    EXPECT_EQ(form.Option3.Enabled(), row.present);
    EXPECT_EQ(form.Option3.Value(), row.present);
    EXPECT_EQ(AppState.GameVersion, row.present ? "full" : "");
    EXPECT_EQ(AppState.GamePath, row.path);
    // The log folder is missing here, which start-up may tell in a box of its own.
    int installBoxes = 0;
    for (const auto& box : headless::Boxes()) installBoxes += box.title == "Install UT2003";
    EXPECT_EQ(installBoxes, row.present ? 0 : 1);
  }
}

class InstallSwitch : public HeadlessTest {
 protected:
  Form1& StartBoth() {
    InstallFull();
    InstallDemo();
    return StartProgram();
  }
  static Form2* Custom() { return static_cast<Form2*>(forms::FindOpen("Form2")); }
  static int OpenCount(const std::string& name) {
    int count = 0;
    for (forms::Window* window : forms::OpenWindows()) count += window->Name() == name;
    return count;
  }
};

TEST_F(InstallSwitch, CustomOptionsShownAnewWithTheOtherList) {
  Form1& form = StartBoth();
  ASSERT_TRUE(headless::Click(form.Command4));
  ASSERT_EQ(Custom()->Combo1.ListCount(), 37);

  const struct {
    forms::OptionButton& button;
    const char* version;
    const char* path;
    int count, defaultIndex;
  } rows[] = {{form.Option4, "demo", kDemoPath, 4, 2}, {form.Option3, "full", kFullPath, 37, 16}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.version);
    // What the user chose in the window must be gone with it.
    ASSERT_TRUE(headless::SelectItem(Custom()->Combo1, 0));
    ASSERT_TRUE(headless::Click(Custom()->Option5));
    ASSERT_TRUE(headless::Click(row.button));
    EXPECT_EQ(AppState.GameVersion, row.version);
    EXPECT_EQ(AppState.GamePath, row.path);
    ASSERT_EQ(OpenCount("Form2"), 1);
    EXPECT_TRUE(headless::IsShown(*Custom()));
    EXPECT_EQ(Custom()->Combo1.ListCount(), row.count);
    EXPECT_EQ(Custom()->Combo1.ListIndex(), row.defaultIndex);
    EXPECT_TRUE(Custom()->Option3.Value());
    EXPECT_FALSE(Custom()->Option5.Value());
  }
}

TEST_F(InstallSwitch, CustomOptionsClosedStaysClosed) {
  Form1& form = StartBoth();
  ASSERT_TRUE(headless::Click(form.Option4));
  EXPECT_EQ(AppState.GameVersion, "demo");
  EXPECT_EQ(AppState.GamePath, kDemoPath);
  EXPECT_EQ(forms::OpenWindows().size(), 1u);
}

TEST_F(InstallSwitch, OwnCodeLeavesCustomOptionsAlone) {
  StartBoth();
  headless::RunAsEvent([] { forms::ShowWindow<Form2>(); });
  Form2* before = Custom();
  ASSERT_TRUE(headless::SelectItem(before->Combo1, 3));
  headless::SetString(kHklm, kFullKey, "Folder", "D:\\Moved");
  headless::RunAsEvent([] { mdlBenchmark::SelectVariant(mdlBenchmark::Variant::Full); });
  EXPECT_EQ(Custom(), before);
  EXPECT_EQ(before->Combo1.ListIndex(), 3);
  EXPECT_EQ(AppState.GameVersion, "full");
  EXPECT_EQ(AppState.GamePath, "D:\\Moved");
}

TEST_F(InstallSwitch, FolderReadAfreshAtEachChange) {
  const struct {
    const char* description;
    std::function<void()> change;
    const char* path;
  } rows[] = {
      {"moved", [] { headless::SetString(kHklm, kDemoKey, "Folder", "E:\\Demo"); }, "E:\\Demo"},
      {"key removed", [] { headless::DeleteKey(kHklm, kDemoKey); }, ""},
      {"no data at all",
       [] { headless::SetValue(kHklm, kDemoKey, "Folder", platform::kRegSz, ""); }, ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    TearDown();
    SetUp();
    Form1& form = StartBoth();
    row.change();
    ASSERT_TRUE(headless::Click(form.Option4));
    EXPECT_EQ(AppState.GameVersion, "demo");
    EXPECT_EQ(AppState.GamePath, row.path);
    EXPECT_TRUE(headless::Boxes().empty());
  }
}

TEST_F(InstallSwitch, RemovedVariantStartsNothing) {
  Form1& form = StartBoth();
  headless::DeleteKey(kHklm, kDemoKey);
  ASSERT_TRUE(headless::Click(form.Option4));
  Tick({0});
  headless::Click(form.Command1);
  ASSERT_FALSE(headless::Starts().empty());
  for (const auto& start : headless::Starts()) EXPECT_FALSE(start.started) << start.commandLine;
}

}  // namespace
