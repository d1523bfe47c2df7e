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
  const std::string unterminated = "C:\\Tools\\msinfo.exe";
  // A path of the given length in folders of 100 characters, as no host takes longer names.
  auto deep = [](std::size_t length) {
    std::string path = "C:";
    while (path.size() < length) path += "\\" + std::string(std::min<std::size_t>(100, length - path.size() - 1), 'x');
    return path;
  };
  const struct {
    const char* description;
    std::function<void()> setUp;
    std::string started;  // empty: the box
    bool secondLookup;
  } rows[] = {
      {"a whole path, not looked for", [] { headless::SetString(kHklm, kPathKey, "PATH", kTool); },
       kTool, false},
      {"a path stored without its terminator keeps its last character",
       [&] { headless::SetValue(kHklm, kPathKey, "PATH", platform::kRegSz, unterminated); },
       unterminated, false},
      {"a path of 1024 bytes with its terminator",
       [&] { headless::SetString(kHklm, kPathKey, "PATH", deep(1023)); }, deep(1023), false},
      {"a path of 1025 bytes counts as missing",
       [&] { headless::SetString(kHklm, kPathKey, "PATH", deep(1024)); }, "", true},
      {"a path whose file is gone", [] {
         headless::SetString(kHklm, kPathKey, "PATH", "C:\\Gone\\msinfo32.exe");
         headless::SetString(kHklm, kFolderKey, "MSINFO", "C:\\Windows\\System32");
       }, "", false},
      {"an expandable path is read as empty", [] {
         headless::SetValue(kHklm, kPathKey, "PATH", platform::kRegExpandSz, std::string(kTool) + '\0');
       }, "", false},
      {"a value of no bytes", [] { headless::SetValue(kHklm, kPathKey, "PATH", platform::kRegSz, ""); },
       "", false},
      {"a key that grants no more than reading",
       [] {
         headless::CreateKey(kHklm, kPathKey, headless::kKeyRead);
         headless::SetString(kHklm, kPathKey, "PATH", kTool);
       }, "", true},
      {"the folder of the second lookup",
       [] { headless::SetString(kHklm, kFolderKey, "MSINFO", "C:\\Windows\\System32"); },
       "C:\\Windows\\System32\\MSINFO32.EXE", true},
      {"a folder without the tool", [] { headless::SetString(kHklm, kFolderKey, "MSINFO", "C:\\Empty"); },
       "", true},
      {"no lookup answers", [] {}, "", true},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    Fresh();
    headless::PutFile(kTool, "tool");
    headless::PutFile(unterminated, "tool");
    headless::PutFile(deep(1023), "tool");
    headless::PutFile(deep(1024), "tool");
    row.setUp();
    headless::ChooseMenu(StartProgram(), "mnuAbout");
    const std::size_t boxesBefore = headless::Boxes().size();
    headless::Click(Window()->cmdSysInfo);
    const auto& calls = headless::RegistryCalls();
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "open " + std::string(kFolderKey) + " 131135"),
              row.secondLookup ? 1 : 0);
    EXPECT_EQ(headless::OpenKeyCount(), 0);
    if (row.started.empty()) {
      EXPECT_EQ(headless::Boxes().size(), boxesBefore + 1);
      EXPECT_EQ(headless::Boxes().back(),
                (headless::Box{"System Information Is Unavailable At This Time", kTitle, 0}));
    } else {
      EXPECT_EQ(headless::Boxes().size(), boxesBefore);
      ASSERT_FALSE(headless::Starts().empty());
      EXPECT_EQ(headless::Starts().back().commandLine + " " + std::to_string(headless::Starts().back().windowStyle),
                row.started + " 1");
    }
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
