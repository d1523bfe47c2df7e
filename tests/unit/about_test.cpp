#include <algorithm>

#include "support/fixture.h"
#include "windows/frmAbout.h"

namespace {
using namespace testing_support;

class About : public HeadlessTest {
 protected:
  static frmAbout* Window() { return static_cast<frmAbout*>(forms::FindOpen(frmAbout::kName)); }
};

const char* const kPathKey = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
const char* const kFolderKey = "SOFTWARE\\Microsoft\\Shared Tools Location";
const char* const kTool = "C:\\Windows\\System32\\MSINFO32.EXE";

// One window at most, its texts set at load, the banner's call of the shell, and the keys and
// the button that close it; the main window's logo has no click of its own.
TEST_F(About, OneWindowWithItsTextsTheWebSiteAndItsKeys) {
  InstallFull();
  Form1& form = StartProgram();
  headless::Click(form.Picture1);
  for (int time = 0; time < 2; ++time) EXPECT_TRUE(headless::ChooseMenu(form, "mnuAbout"));
  ASSERT_NE(Window(), nullptr);
  const std::vector<forms::Window*> open = forms::OpenWindows();
  EXPECT_EQ(std::count_if(open.begin(), open.end(),
                          [](forms::Window* w) { return w->Name() == frmAbout::kName; }),
            1);
  frmAbout& about = *Window();
  EXPECT_EQ(about.Caption() + "|" + about.lblTitle.Caption() + "|" + about.lblVersion.Caption(),
            "About Kelvarnite UT2k3 Benchmark|Kelvarnite UT2k3 Benchmark|Version 2.0.0");
  EXPECT_EQ(form.Picture1.ToolTipText(), "Click to go to www.kelvarnite.example");
  EXPECT_EQ(about.Picture1.ToolTipText(), form.Picture1.ToolTipText());
  headless::Click(about.Picture1);
  EXPECT_EQ(headless::ShellCalls(), (std::vector<headless::ShellCall>{
                                        {0, {}, "http://www.kelvarnite.example/", {}, "C:\\", 1}}));
  // Enter on System Info presses that button; elsewhere it presses OK, as Esc does.
  headless::RunAsEvent([&] { about.UserPressEnter(&about.cmdSysInfo); });
  EXPECT_EQ(headless::Boxes().size(), 1u);
  EXPECT_EQ(Window(), &about);
  const std::function<void(frmAbout&)> closers[] = {
      [](frmAbout& w) { w.UserPressEnter(&w.lblTitle); }, [](frmAbout& w) { w.UserPressEscape(); },
      [](frmAbout& w) { w.cmdOK.UserClick(); }};
  for (const auto& close : closers) {
    if (Window() == nullptr) headless::ChooseMenu(form, "mnuAbout");
    headless::RunAsEvent([&] { close(*Window()); });
    EXPECT_EQ(Window(), nullptr);
  }
}

// Where the registry names the system information tool, and what comes of each answer: the
// tool started in a normal window and left alone, or the one box for every cause.
TEST_F(About, SystemInfoStartsTheToolTheRegistryNames) {
  // A path of the given length in folders of 100 characters, as no host takes longer names.
  auto deep = [](std::size_t length) {
    std::string path = "C:";
    while (path.size() < length) path += "\\" + std::string(std::min<std::size_t>(100, length - path.size() - 1), 'x');
    return path;
  };
  const std::string z(1, '\0'), box = "the box", bare = "C:\\Tools\\msinfo.exe";
  const struct {
    const char* description;
    std::uint32_t type;  // of the first lookup's PATH; 0: none
    std::string path, folder;  // the bytes of PATH; the folder of the second lookup, if any
    bool readOnlyKey, secondLookup;
    std::string outcome;
  } rows[] = {
      {"a whole path, not looked for", platform::kRegSz, kTool + z, "", false, false, kTool},
      {"without a terminator the last character stays", platform::kRegSz, bare, "", false, false, bare},
      {"1024 bytes with the terminator", platform::kRegSz, deep(1023) + z, "", false, false, deep(1023)},
      {"1025 bytes count as missing", platform::kRegSz, deep(1024) + z, "", false, true, box},
      {"the file is gone", platform::kRegSz, "C:\\Gone.exe" + z, "C:\\Windows\\System32", false, false, box},
      {"an expandable path reads as empty", platform::kRegExpandSz, kTool + z, "", false, false, box},
      {"a value of no bytes", platform::kRegSz, "", "", false, false, box},
      {"a key that grants only reading", platform::kRegSz, kTool + z, "", true, true, box},
      {"the folder of the second lookup", 0, "", "C:\\Windows\\System32", false, true, kTool},
      {"a folder without the tool", 0, "", "C:\\Empty", false, true, box},
      {"a folder by the tool's name is no file", 0, "", "C:\\Odd", false, true, box},
      {"no lookup answers", 0, "", "", false, true, box},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    Fresh();
    for (const std::string& file : {std::string(kTool), bare, deep(1023), deep(1024)}) headless::PutFile(file, "x");
    headless::MakeFolder("C:\\Odd\\MSINFO32.EXE");
    if (row.readOnlyKey) headless::CreateKey(kHklm, kPathKey, headless::kKeyRead);
    if (row.type != 0) headless::SetValue(kHklm, kPathKey, "PATH", row.type, row.path);
    if (!row.folder.empty()) headless::SetString(kHklm, kFolderKey, "MSINFO", row.folder);
    headless::ChooseMenu(StartProgram(), "mnuAbout");
    const std::size_t boxes = headless::Boxes().size();
    headless::Click(Window()->cmdSysInfo);
    const bool boxed = headless::Boxes().size() == boxes + 1 &&
                       headless::Boxes().back() == headless::Box{"System Information Is Unavailable At This Time", kTitle, 0};
    const auto& starts = headless::Starts();
    EXPECT_EQ(boxed ? box : starts.empty() ? "nothing" : starts.back().commandLine, row.outcome);
    EXPECT_EQ(boxed || starts.empty() ? 1 : starts.back().windowStyle, 1);
    const auto& calls = headless::RegistryCalls();
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "open " + std::string(kFolderKey) + " 131135"),
              row.secondLookup ? 1 : 0);
    EXPECT_EQ(headless::OpenKeyCount(), 0);
    EXPECT_NE(Window(), nullptr);  // the About window stays open
  }
}

// A number comes back as the decimal value of its bytes' digits, most significant byte first,
// a zero top byte cut off as a terminator would be.
TEST_F(About, NumbersComeBackAsText) {
  const struct {
    std::uint32_t number;
    const char* text;
  } rows[] = {{0x00000102, "18"}, {0x7F, "127"}, {0x1234ABCD, "305441741"}, {0xFFFFFFFF, "-1"}};
  for (const auto& row : rows) {
    headless::SetDword(kHklm, kPathKey, "PATH", row.number);
    frmAbout about;
    platform::KeyHandle root = kHklm;
    std::string key = kPathKey, name = "PATH", value;
    EXPECT_TRUE(about.GetKeyValue(root, key, name, value));
    EXPECT_EQ(value, row.text) << row.number;
  }
}

}  // namespace
