#include <algorithm>

#include "support/fixture.h"
#include "windows/frmAbout.h"

namespace {
using namespace testing_support;

struct About : HeadlessTest {
  static frmAbout* Window() { return static_cast<frmAbout*>(forms::FindOpen(frmAbout::kName)); }
};

const char* const kPathKey = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
const char* const kFolderKey = "SOFTWARE\\Microsoft\\Shared Tools Location";
const char* const kTool = "C:\\Windows\\System32\\MSINFO32.EXE";

// One window at most, the tooltips and the build's version, the banner's call of the shell, and
// Enter; the main window's logo has no click of its own. The other texts, Esc and OK are checked
// end to end.
TEST_F(About, OneWindowItsToolTipsTheWebSiteAndEnter) {
  Form1& form = StartFull();
  headless::Click(form.Picture1);
  for (int time = 0; time < 2; ++time) EXPECT_TRUE(headless::ChooseMenu(form, "mnuAbout"));
  ASSERT_NE(Window(), nullptr);
  EXPECT_EQ(forms::OpenWindows().size(), 2u);
  frmAbout& about = *Window();
  EXPECT_EQ(form.Picture1.ToolTipText() + "|" + about.Picture1.ToolTipText(),
            "Click to go to www.kelvarnite.example|Click to go to www.kelvarnite.example");
  EXPECT_EQ(about.lblVersion.Caption(), "Version " KELVARNITE_VERSION);
  headless::Click(about.Picture1);
  EXPECT_EQ(headless::ShellCalls(), (std::vector<headless::ShellCall>{
                                        {0, {}, "http://www.kelvarnite.example/", {}, "C:\\", 1}}));
  // Enter on System Info presses that button; on a control that is no button it presses OK.
  headless::RunAsEvent([&] { about.UserPressEnter(&about.cmdSysInfo); });
  EXPECT_EQ(headless::Boxes().size(), 1u);
  EXPECT_EQ(Window(), &about);
  headless::RunAsEvent([&] { about.UserPressEnter(&about.lblTitle); });
  EXPECT_EQ(Window(), nullptr);
}

// Paths of 1023 and 1024 characters in folders of 100, as no host takes longer names.
std::string Folders(int count) { return count == 0 ? "C:" : Folders(count - 1) + "\\" + std::string(100, 'x'); }
const std::string kDeep1023 = Folders(10) + "\\" + std::string(10, 'x'), kDeep1024 = kDeep1023 + "x";
const std::string kZ(1, '\0'), kBox = "the box", kBare = "C:\\Tools\\msinfo.exe";

// Where the registry names the system information tool, and what comes of each answer: the
// tool started in a normal window and left alone, or the one box for every cause. Each row: the
// type of the first lookup's PATH (0: none) and its bytes, the folder of the second lookup if
// any, whether the first key grants only reading, whether the second lookup is made, and what
// was started, or the box.
using SystemInfo = Rows<About, const char*, std::uint32_t, std::string, std::string, bool, bool, std::string>;
TEST_P(SystemInfo, StartsTheToolTheRegistryNames) {
  const auto& [name, type, path, folder, readOnlyKey, secondLookup, outcome] = GetParam();
  headless::ChooseMenu(StartFull(), "mnuAbout");
  for (const std::string& file : {std::string(kTool), kBare, kDeep1023, kDeep1024}) headless::PutFile(file, "x");
  headless::MakeFolder("C:\\Odd\\MSINFO32.EXE");
  headless::PutFile("C:\\Hidden\\MSINFO32.EXE", "x");
  headless::SetHidden("C:\\Hidden\\MSINFO32.EXE", true);
  if (readOnlyKey) headless::CreateKey(kHklm, kPathKey, headless::kKeyRead);
  if (type != 0) headless::SetValue(kHklm, kPathKey, "PATH", type, path);
  if (!folder.empty()) headless::SetString(kHklm, kFolderKey, "MSINFO", folder);
  headless::Click(Window()->cmdSysInfo);
  const std::vector<headless::Start>& s = headless::Starts();
  const Boxes unavailable = {{"System Information Is Unavailable At This Time", kTitle, 0}};
  EXPECT_EQ(s.size() == 1 && s[0].started && s[0].windowStyle == 1 ? s[0].commandLine
            : headless::Boxes() == unavailable ? kBox : "something else", outcome);
  const auto& calls = headless::RegistryCalls();
  EXPECT_EQ(std::count(calls.begin(), calls.end(), "open " + std::string(kFolderKey) + " 131135"),
            secondLookup ? 1 : 0);
  EXPECT_EQ(headless::OpenKeyCount(), 0);
  EXPECT_NE(Window(), nullptr);  // the About window stays open
}
INSTANTIATE_TEST_SUITE_P(About, SystemInfo, testing::ValuesIn(std::vector<SystemInfo::ParamType>{
    {"WholePathNotLookedFor", platform::kRegSz, kTool + kZ, "", false, false, kTool},
    {"NoTerminatorTheLastCharacterStays", platform::kRegSz, kBare, "", false, false, kBare},
    {"Bytes1024WithTheTerminator", platform::kRegSz, kDeep1023 + kZ, "", false, false, kDeep1023},
    {"Bytes1025CountAsMissing", platform::kRegSz, kDeep1024 + kZ, "", false, true, kBox},
    {"FileGone", platform::kRegSz, "C:\\Gone.exe" + kZ, "C:\\Windows\\System32", false, false, kBox},
    {"ExpandablePathReadsAsEmpty", platform::kRegExpandSz, kTool + kZ, "", false, false, kBox},
    {"ValueOfNoBytes", platform::kRegSz, "", "", false, false, kBox},
    {"KeyGrantsOnlyReading", platform::kRegSz, kTool + kZ, "", true, true, kBox},
    {"FolderOfTheSecondLookup", 0, "", "C:\\Windows\\System32", false, true, kTool},
    {"FolderWithoutTheTool", 0, "", "C:\\Empty", false, true, kBox}, {"NoLookupAnswers", 0, "", "", false, true, kBox},
    {"FolderByTheToolsNameIsNoFile", 0, "", "C:\\Odd", false, true, kBox},
    {"HiddenOrSystemFileByTheToolsNameIsPassedOver", 0, "", "C:\\Hidden", false, true, kBox}}), ByName);

// A number comes back as the decimal value of its bytes' digits, most significant byte first,
// a zero top byte cut off as a terminator would be; four digits or fewer are a 16-bit number.
// Each row is a number, in hexadecimal, and its text.
using Numbers = Rows<About, const char*, const char*>;
TEST_P(Numbers, ComeBackAsText) {
  const auto& [number, text] = GetParam();
  headless::SetDword(kHklm, kPathKey, "PATH", static_cast<std::uint32_t>(std::stoul(number, nullptr, 16)));
  platform::KeyHandle root = kHklm;
  std::string key = kPathKey, name = "PATH", value;
  EXPECT_TRUE(frmAbout().GetKeyValue(root, key, name, value));
  EXPECT_EQ(value, text);
}
INSTANTIATE_TEST_SUITE_P(About, Numbers, testing::Values(std::tuple("0x00000102", "18"), std::tuple("0x7F", "127"),
    std::tuple("0x00081203", "-32477"), std::tuple("0x1234ABCD", "305441741"), std::tuple("0xFFFFFFFF", "-1")), ByName);

}  // namespace
