// The end-to-end scenarios: the real program and the stand-in game, driven through the
// program's windows in a Wine prefix laid out by tools/wine-lib.sh.
//
//   driver list          the names of the test scenarios, one a line
//   driver run <name>    sets this prefix up for the scenario, drives it and checks the result
//
// KELVARNITE_E2E_GOLDEN is the folder of the expected files; with KELVARNITE_E2E_UPDATE=1 the
// files found are written there instead. Where KELVARNITE_E2E_SHOTS names a folder, the
// scenarios leave pictures of the windows in it.
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "ui.h"

namespace {

using ui::Click;
using ui::Fail;

const std::string kProgramFolder = "C:\\Program Files\\Kelvarnite UT2k3 Benchmark\\";
const std::string kResults = kProgramFolder + "results.html";
const std::string kFullGame = "C:\\Games\\UT2003", kDemoGame = "C:\\Games\\UT2003 Demo";
const std::string kDriverFolder = "C:\\Kelvarnite Driver\\";
const std::string kOwnIni = "C:\\My Settings\\my own.ini";
const std::string kTitle = "Kelvarnite UT2k3 Benchmark";
constexpr wchar_t kFormClass[] = L"KelvarniteForm";
// The main window's menu commands follow the rows of its menu table.
constexpr int kMenuExit = 101, kMenuAbout = 103, kMenuHelp = 104;
// The About window's banner is the eighth control of its table.
constexpr int kBannerId = 1007;
const char* const kResolutions[] = {"640x480", "800x600", "1024x768", "1280x1024", "1600x1200"};

// What is installed: flags.
constexpr int kFull = 1, kDemo = 2, kBoth = 3, kFullWithoutExe = 4 | kFull;

struct Scenario {
  std::string name;
  int install;
  std::string fault;  // the stand-in's Fault=, if any
  void (*steps)(const std::string& name);
  bool test = true;  // false: a show for the demo, not a test
};

std::optional<std::string> ReadBytes(const std::string& path) {
  HANDLE file = ::CreateFileW(ui::Wide(path).c_str(), GENERIC_READ,
                              FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return std::nullopt;
  std::string bytes;
  char buffer[65536];
  DWORD read = 0;
  while (::ReadFile(file, buffer, sizeof(buffer), &read, nullptr) && read > 0) bytes.append(buffer, read);
  ::CloseHandle(file);
  return bytes;
}

void WriteBytes(const std::string& path, const std::string& bytes) {
  HANDLE file = ::CreateFileW(ui::Wide(path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
  DWORD written = 0;
  if (file == INVALID_HANDLE_VALUE ||
      !::WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr)) {
    Fail("cannot write " + path);
  }
  ::CloseHandle(file);
}

std::string Env(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

std::vector<std::string> Lines(const std::string& bytes) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  for (std::size_t end; (end = bytes.find("\r\n", start)) != std::string::npos; start = end + 2) {
    lines.push_back(bytes.substr(start, end - start));
  }
  if (start < bytes.size()) lines.push_back(bytes.substr(start));
  return lines;
}

// The file must hold exactly the bytes of the expected file of that name.
void ExpectFile(const std::string& path, const std::string& expectedName) {
  const std::string expectedPath = Env("KELVARNITE_E2E_GOLDEN") + "\\" + expectedName;
  const std::string actual = ReadBytes(path).value_or("<missing>");
  if (Env("KELVARNITE_E2E_UPDATE") == "1") return WriteBytes(expectedPath, actual);
  const std::optional<std::string> expected = ReadBytes(expectedPath);
  if (!expected) Fail("no expected file " + expectedName);
  if (actual == *expected) return;
  const auto want = Lines(*expected), got = Lines(actual);
  std::size_t line = 0;
  while (line < want.size() && line < got.size() && want[line] == got[line]) ++line;
  Fail(path + " differs from " + expectedName + " at line " + std::to_string(line + 1) +
       ":\n  expected: " + (line < want.size() ? want[line] : "<end>") +
       "\n  actual:   " + (line < got.size() ? got[line] : "<end>"));
}

// The recording opener that stands in for the browser writes one line per document.
std::size_t openedSoFar = 0;
void AwaitOpened(const std::string& path) {
  std::vector<std::string> opened;
  ui::AwaitTrue("the shell to open " + path, [&] {
    opened = Lines(ReadBytes(kDriverFolder + "opened.txt").value_or(""));
    return opened.size() > openedSoFar;
  });
  if (opened[openedSoFar] != path) Fail("the shell opened " + opened[openedSoFar] + ", not " + path);
  ++openedSoFar;
}

HWND MainWindow() { return ui::AwaitTop(kFormClass, kTitle); }
HWND CustomWindow() { return ui::AwaitTop(kFormClass, "Custom Options"); }

void Exit(HWND main) {
  ::PostMessageW(main, WM_COMMAND, kMenuExit, 0);
  ui::AwaitProgramEnd();
}

void Shot(HWND window, const std::string& name) {
  const std::string folder = Env("KELVARNITE_E2E_SHOTS");
  if (!folder.empty()) ui::SaveScreenshot(window, folder + "\\" + name + ".bmp");
}

std::string StartsOf(const std::string& game) { return game + "\\System\\StandIn.log"; }

std::string NotFound(const std::string& resolution) {
  return "\"" + kFullGame + "\\System\\ut2003.exe\" dm-inferno?game=engine.gameinfo exec=\"" + kFullGame +
         "\\Benchmark\\Stuff\\flybyexec.txt\" -benchmark -seconds=77 -nosound ini=\"" + kProgramFolder +
         "INI\\D3D\\CPU_LowDetail.ini\" userini=\"" + kFullGame +
         "\\Benchmark\\Stuff\\MinDetailUser.ini\" -" + resolution + " cannot be found.";
}

// Start-up in an install state: the state of the version and renderer buttons. With no game,
// the box stands alone on the screen before the main window shows.
void StartUp(int install) {
  if (install == 0) {
    ui::Await("the box", [] { return ui::FindTop(L"#32770", ""); });
    if (ui::FindTop(kFormClass, kTitle)) Fail("the main window shows beside the box");
    ui::AnswerBox("Install UT2003", "Please install UT2003[full version] or UT2003[demo]", false);
  }
  HWND main = MainWindow();
  if (ui::FindTop(L"#32770", "")) Fail("a box stands beside the main window");
  ui::AwaitState(main, "Full", install & kFull, install & kFull);
  ui::AwaitState(main, "Demo", install == kDemo, install & kDemo);
  ui::AwaitState(main, "Direct3D", true, true);
  ui::AwaitState(main, "OpenGL", false, true);
}

// The About window: its texts, the banner's web site, Enter on System Info, and the keys and
// the button that close it.
void About(const std::string&) {
  HWND main = MainWindow();
  const std::string title = "About " + kTitle;
  auto open = [&] {
    ::PostMessageW(main, WM_COMMAND, kMenuAbout, 0);
    return ui::AwaitTop(kFormClass, title);
  };
  auto closed = [&](HWND about) {
    ui::AwaitTrue("the About window to close", [&] { return !::IsWindow(about); });
  };
  HWND about = open();
  for (const std::string& text : {std::string("Version 2.0.0"), kTitle}) {
    ui::Await("the label " + text, [&] { return ui::FindChild(about, text); });
  }
  Shot(about, "about-window");
  ui::ClickWithMouse(ui::FindChild(about, L"Static", kBannerId));
  AwaitOpened("http://www.kelvarnite.example/");
  ui::PressKey(about, VK_TAB);  // from OK to System Info, where Enter presses that button
  ui::PressKey(about, VK_RETURN);
  AwaitOpened(kDriverFolder + "opener.exe");
  if (!::IsWindow(about)) Fail("Enter on System Info closed the About window");
  ui::PressKey(about, VK_ESCAPE);
  closed(about);
  about = open();
  ui::PressKey(about, VK_RETURN);
  closed(about);
  about = open();
  Click(about, "OK");
  closed(about);
  Exit(main);
}

// Every test button at two resolutions, with the variant and renderer of the name.
void EachTest(const std::string& name) {
  const bool demo = name.rfind("demo", 0) == 0;
  HWND main = MainWindow();
  Click(main, demo ? "Demo" : "Full");
  Click(main, name.find("ogl") != std::string::npos ? "OpenGL" : "Direct3D");
  Click(main, "640x480");
  Click(main, "1024x768");
  for (std::string test : {"CPU Benchmark", "High Quality", "Low Quality", "Custom Test"}) {
    Click(main, test);
    if (test == "Custom Test") Click(CustomWindow(), "Run Test");
    AwaitOpened(kResults);
    for (char& c : test) c = c == ' ' ? '-' : static_cast<char>(std::tolower(c));
    ExpectFile(kResults, name + "-" + test + ".html");
  }
  Exit(main);  // with the Custom Options window open
  ExpectFile(StartsOf(demo ? kDemoGame : kFullGame), name + ".starts");
}

// One High Quality suite at the resolutions of the mask, with the checks of its name.
void HighQuality(const std::string& name, int resolutionMask) {
  HWND main = MainWindow();
  for (int i = 0; i < 5; ++i) {
    if (resolutionMask & (1 << i)) Click(main, kResolutions[i]);
  }
  Click(main, "High Quality");
  AwaitOpened(kResults);
  ExpectFile(kResults, name + ".html");
  Exit(main);
  ExpectFile(StartsOf(kFullGame), name + ".starts");
}

const std::vector<Scenario>& Scenarios() {
  static const std::vector<Scenario> scenarios = [] {
    std::vector<Scenario> all = {
        {"startup-none", 0, "", [](const std::string&) { StartUp(0); Exit(MainWindow()); }},
        {"startup-full", kFull, "", [](const std::string&) { StartUp(kFull); Exit(MainWindow()); }},
        {"startup-demo", kDemo, "", [](const std::string&) { StartUp(kDemo); Exit(MainWindow()); }},
        {"startup-both", kBoth, "",
         [](const std::string&) {
           StartUp(kBoth);
           HWND main = MainWindow();
           Shot(main, "main-window");
           ::PostMessageW(main, WM_COMMAND, kMenuHelp, 0);
           AwaitOpened(kProgramFolder + "help.html");
           Click(main, "Custom Test");
           CustomWindow();
           ::PostMessageW(main, WM_CLOSE, 0, 0);  // the close box takes Custom Options along
           ui::AwaitProgramEnd();
         }},
        {"about", kBoth, "", About},
        {"high-quality-five", kFull, "", [](const std::string& n) { HighQuality(n, 31); }},
        {"crash-mid-suite", kFull, "crash dm-inferno",
         [](const std::string& n) { HighQuality(n, 4); }},
        {"custom-options", kFull, "",
         [](const std::string& name) {
           HWND main = MainWindow();
           Click(main, "800x600");
           Click(main, "Custom Test");
           HWND custom = CustomWindow();
           ui::SelectListEntry(custom, "ctf-face3*");
           Click(custom, "Enabled");
           Click(custom, "Custom ini");
           Click(custom, "Browse...");
           ui::ChooseFile(kOwnIni);
           ui::AwaitTrue("the chosen file in the text box",
                         [&] { return ui::TextOf(ui::FindChild(custom, L"Edit", -1)) == kOwnIni; });
           Shot(custom, "custom-options-window");
           Click(custom, "Run Test");
           AwaitOpened(kResults);
           ExpectFile(kResults, name + ".html");
           Exit(main);
           ExpectFile(StartsOf(kFullGame), name + ".starts");
         }},
        {"game-missing", kFullWithoutExe, "",
         [](const std::string& name) {
           HWND main = MainWindow();
           Click(main, "640x480");
           Click(main, "1600x1200");
           Click(main, "CPU Benchmark");
           ui::AnswerBox(kTitle, NotFound("640x480"), true);
           ui::AnswerBox(kTitle, NotFound("1600x1200"), true);
           AwaitOpened(kResults);
           ExpectFile(kResults, name + ".html");
           Exit(main);
         }},
        {"demo", kBoth, "",
         [](const std::string&) {
           HWND main = MainWindow();
           Click(main, "640x480");
           Click(main, "1024x768");
           Click(main, "CPU Benchmark");
           AwaitOpened(kResults);
           Shot(main, "main-window");
           Exit(main);
         },
         false},
    };
    for (const char* variant : {"full", "demo"}) {
      for (const char* renderer : {"d3d", "ogl"}) {
        all.push_back({std::string(variant) + "-" + renderer, kBoth, "", EachTest});
      }
    }
    return all;
  }();
  return scenarios;
}

// The prefix holds both games and their keys; a scenario takes away what it does not have.
void Prepare(const Scenario& scenario) {
  const wchar_t* const keys[] = {L"SOFTWARE\\Unreal Technology\\Installed Apps\\UT2003",
                                 L"SOFTWARE\\Unreal Technology\\Installed Apps\\UT2003Demo"};
  for (int variant = 0; variant < 2; ++variant) {
    if (!(scenario.install & (1 << variant))) ::RegDeleteKeyW(HKEY_LOCAL_MACHINE, keys[variant]);
  }
  if (scenario.install == kFullWithoutExe) {
    ::DeleteFileW(ui::Wide(kFullGame + "\\System\\ut2003.exe").c_str());
  }
  if (!scenario.fault.empty()) {
    for (const std::string& game : {kFullGame, kDemoGame}) {
      WriteBytes(game + "\\System\\StandIn.ini", "[StandIn]\r\nFault=" + scenario.fault + "\r\n");
    }
  }
  // An ini file of the user's own, in a folder with a blank, for the file dialog to find.
  ::CreateDirectoryW(L"C:\\My Settings", nullptr);
  ::CopyFileW(ui::Wide(kProgramFolder + "INI\\OGL\\Custom_MinDetail.ini").c_str(),
              ui::Wide(kOwnIni).c_str(), FALSE);
}

int Run(const Scenario& scenario) {
  try {
    Prepare(scenario);
    ui::StartProgram(kProgramFolder + "KelvarniteUT2k3Benchmark.exe");
    scenario.steps(scenario.name);
    if (::WaitForSingleObject(ui::Program(), 0) != WAIT_OBJECT_0) Fail("the program is still running");
  } catch (const ui::Failure& failure) {
    if (ui::Program() != nullptr) ::TerminateProcess(ui::Program(), 1);
    std::printf("FAIL  %s: %s\n", scenario.name.c_str(), failure.what());
    return 1;
  }
  std::printf("ok    %s\n", scenario.name.c_str());
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string command = argc >= 2 ? argv[1] : "";
  if (command == "list" && argc == 2) {
    for (const Scenario& scenario : Scenarios()) {
      if (scenario.test) std::printf("%s\n", scenario.name.c_str());
    }
    return 0;
  }
  if (command == "run" && argc == 3) {
    for (const Scenario& scenario : Scenarios()) {
      if (scenario.name == argv[2]) return Run(scenario);
    }
    std::fprintf(stderr, "no scenario %s\n", argv[2]);
    return 2;
  }
  std::fprintf(stderr, "usage: driver list | driver run <scenario>\n");
  return 2;
}
