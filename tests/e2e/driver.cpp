// The end-to-end scenarios: the real program and the stand-in game, driven through the
// program's windows in a Wine prefix laid out by tools/wine-lib.sh.
//
//   driver list          the names of the test scenarios, one a line
//   driver host          what the runner must do on the host before a scenario: lines of
//                        "<scenario> TAB <verb> TAB <argument>..."
//   driver prepare <name>  sets this prefix up for the scenario
//   driver run <name> [prepared]  sets it up unless that is done, drives it and checks the result
//
// KELVARNITE_E2E_GOLDEN is the folder of the expected files; with KELVARNITE_E2E_UPDATE=1 the
// files found are written there instead. Where KELVARNITE_E2E_SHOTS names a folder, the
// scenarios leave pictures of the windows in it.
#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "ui.h"

namespace {

using ui::Click;
using ui::Fail;

const std::string kProgramFolder = "C:\\Program Files\\Kelvarnite UT2k3 Benchmark\\";
const std::string kFullGame = "C:\\Games\\UT2003", kDemoGame = "C:\\Games\\UT2003 Demo";
const std::string kDriverFolder = "C:\\Kelvarnite Driver\\";
const std::string kOwnIni = "C:\\My Settings\\my own.ini";
const std::string kTitle = "Kelvarnite UT2k3 Benchmark";
constexpr wchar_t kFormClass[] = L"KelvarniteForm";
// The main window's menu commands follow the rows of its menu table, and the About window's
// banner is the eighth control of its table.
constexpr int kMenuExit = 101, kMenuAbout = 103, kMenuHelp = 104, kBannerId = 1007;
const char* const kResolutions[] = {"640x480", "800x600", "1024x768", "1280x1024", "1600x1200"};
// What is installed: flags.
constexpr int kFull = 1, kDemo = 2, kBoth = 3;

struct Scenario {
  std::string name;
  int install;
  std::function<void(const Scenario&)> steps;
  std::string fault = "";                  // the stand-in's Fault=, if any
  std::function<void()> prepare = nullptr;  // changes to the prefix before the start
  std::vector<std::string> host = {};      // changes on the host, made by the runner first
  std::string folder = kProgramFolder;     // where the program lies
  bool test = true;                        // false: a show for the demo, not a test
  std::string Results() const { return folder + "results.html"; }
};

std::optional<std::string> ReadBytes(const std::string& path) {
  std::ifstream file(std::filesystem::path(ui::Wide(path)), std::ios::binary);
  if (!file) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(file), {});
}

void WriteBytes(const std::string& path, const std::string& bytes) {
  std::ofstream file(std::filesystem::path(ui::Wide(path)), std::ios::binary);
  if (!(file << bytes)) Fail("cannot write " + path);
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

// The file must hold exactly the bytes of the expected file of that name; "<missing>" stands
// for a file that must not exist.
void ExpectFile(const std::string& path, const std::string& expectedName) {
  const std::string expectedPath = Env("KELVARNITE_E2E_GOLDEN") + "\\" + expectedName;
  const std::string actual = ReadBytes(path).value_or("<missing>");
  if (Env("KELVARNITE_E2E_UPDATE") == "1") return WriteBytes(expectedPath, actual);
  const std::optional<std::string> expected = ReadBytes(expectedPath);
  if (!expected) Fail("no expected file " + expectedName);
  if (actual == *expected) return;
  const auto want = Lines(*expected), got = Lines(actual);
  const auto [w, g] = std::mismatch(want.begin(), want.end(), got.begin(), got.end());
  Fail(path + " differs from " + expectedName + " at line " + std::to_string(w - want.begin() + 1) +
       ":\n  expected: " + (w != want.end() ? *w : "<end>") +
       "\n  actual:   " + (g != got.end() ? *g : "<end>"));
}

// The recording opener stands in for the browser and the system information tool, one line
// per document.
std::size_t openedSoFar = 0;
std::vector<std::string> Opened() {
  return Lines(ReadBytes(kDriverFolder + "opened.txt").value_or(""));
}
void AwaitOpened(const std::string& path) {
  std::vector<std::string> opened;
  ui::AwaitTrue("the shell to open " + path, [&] { return (opened = Opened()).size() > openedSoFar; });
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

std::string NotFound(const std::string& game, const std::string& resolution) {
  return "\"" + game + "\\System\\ut2003.exe\" dm-inferno?game=engine.gameinfo exec=\"" + game +
         "\\Benchmark\\Stuff\\flybyexec.txt\" -benchmark -seconds=77 -nosound ini=\"" + kProgramFolder +
         "INI\\D3D\\CPU_LowDetail.ini\" userini=\"" + game + "\\Benchmark\\Stuff\\MinDetailUser.ini\" -" +
         resolution + " cannot be found.";
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

// Every test button at two resolutions, with the variant and renderer of the name.
void EachTest(const Scenario& s) {
  const bool demo = s.name.rfind("demo", 0) == 0;
  HWND main = MainWindow();
  Click(main, demo ? "Demo" : "Full");
  Click(main, s.name.find("ogl") != std::string::npos ? "OpenGL" : "Direct3D");
  Click(main, "640x480");
  Click(main, "1024x768");
  for (std::string test : {"CPU Benchmark", "High Quality", "Low Quality", "Custom Test"}) {
    Click(main, test);
    if (test == "Custom Test") Click(CustomWindow(), "Run Test");
    AwaitOpened(s.Results());
    for (char& c : test) c = c == ' ' ? '-' : static_cast<char>(std::tolower(c));
    ExpectFile(s.Results(), s.name + "-" + test + ".html");
  }
  Exit(main);  // with the Custom Options window open
  ExpectFile(StartsOf(demo ? kDemoGame : kFullGame), s.name + ".starts");
}

// One test at the resolutions of the mask, with the report and the starts of its name.
void OneTest(const Scenario& s, const char* button, int resolutionMask) {
  HWND main = MainWindow();
  for (int i = 0; i < 5; ++i) {
    if (resolutionMask & (1 << i)) Click(main, kResolutions[i]);
  }
  Click(main, button);
  AwaitOpened(s.Results());
  ExpectFile(s.Results(), s.name + ".html");
  Exit(main);
  ExpectFile(StartsOf(kFullGame), s.name + ".starts");
}

void CustomOptions(const Scenario& s) {
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
  AwaitOpened(s.Results());
  ExpectFile(s.Results(), s.name + ".html");
  ::PostMessageW(main, WM_CLOSE, 0, 0);  // the close box takes Custom Options along
  ui::AwaitProgramEnd();
  ExpectFile(StartsOf(kFullGame), s.name + ".starts");
}

// The About window: its texts, the banner's web site, Enter on System Info, and the keys and
// the button that close it.
void About(const Scenario&) {
  HWND main = MainWindow();
  auto open = [&] {
    ::PostMessageW(main, WM_COMMAND, kMenuAbout, 0);
    return ui::AwaitTop(kFormClass, "About " + kTitle);
  };
  auto closed = [](HWND about) {
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

// A row of the fault matrix: a CPU benchmark at 640x480 under one fault, the boxes it shows,
// whether its report is opened, and the files it leaves, each compared with its expected file.
struct Box {
  std::string title, text;
  bool critical;
};
struct Outcome {
  std::vector<Box> atStartUp, inTheRun;
  bool opened;
  std::vector<std::pair<std::string, std::string>> files;  // path, suffix of the expected file
};

void UnderFault(const Scenario& s, const Outcome& outcome) {
  for (const Box& box : outcome.atStartUp) ui::AnswerBox(box.title, box.text, box.critical);
  HWND main = MainWindow();
  Click(main, "640x480");
  Click(main, "CPU Benchmark");
  for (const Box& box : outcome.inTheRun) ui::AnswerBox(box.title, box.text, box.critical);
  if (outcome.opened) AwaitOpened(s.Results());
  ui::AwaitState(main, "CPU Benchmark", false, true);
  Exit(main);
  for (const auto& [path, suffix] : outcome.files) ExpectFile(path, s.name + suffix);
}

// The full game's Folder as the program will read it: ANSI bytes of any type.
void SetFolder(DWORD type, const std::string& data) {
  HKEY key = nullptr;
  ::RegOpenKeyExA(HKEY_LOCAL_MACHINE, "SOFTWARE\\Unreal Technology\\Installed Apps\\UT2003", 0,
                  KEY_SET_VALUE, &key);
  ::RegSetValueExA(key, "Folder", 0, type, reinterpret_cast<const BYTE*>(data.data()),
                   static_cast<DWORD>(data.size()));
  ::RegCloseKey(key);
}

std::vector<Scenario> FaultMatrix() {
  const std::string log = kFullGame + "\\Benchmark\\lowframerate.log";
  const std::string results = kProgramFolder + "results.html";
  auto emptied = [](const std::string& path, const char* reason) {
    return std::vector<Box>{{kTitle, path + " cannot be emptied: " + reason + ".", true}};
  };
  const auto noBenchmark = emptied(kFullGame + "\\Benchmark\\benchmark.log", "Path not found");
  const auto readOnlyLog = emptied(log, "Permission denied");
  const auto numberFolder = emptied("200\\Benchmark\\benchmark.log", "Path not found");
  const std::vector<Box> unwritable{{kTitle, results + " cannot be written: Permission denied.", true}};
  const std::vector<Box> noProgram{{kTitle, NotFound("", "640x480"), true}};
  using Files = std::vector<std::pair<std::string, std::string>>;
  const Files report{{results, ".html"}, {StartsOf(kFullGame), ".starts"}};
  const Files reportOnly{{results, ".html"}};
  auto row = [](std::string name, Outcome outcome, std::string fault = "",
                std::function<void()> prepare = nullptr, std::vector<std::string> host = {},
                std::string folder = kProgramFolder) {
    return Scenario{name, kFull, [outcome](const Scenario& s) { UnderFault(s, outcome); },
                    fault, prepare, host, folder};
  };
  return {
      row("benchmark-folder-missing", {noBenchmark, noBenchmark, false, report}, "", [] {
        ::MoveFileW(ui::Wide(kFullGame + "\\Benchmark").c_str(),
                    ui::Wide(kFullGame + "\\Elsewhere").c_str());
      }),
      row("log-read-only", {readOnlyLog, readOnlyLog, false, {{log, ".log"}, {results, ".html"}}}, "",
          [log] { WriteBytes(log, "DM-Old\r\n1.000000 / 2.000000 / 3.000000 fps\r\nScore = 2.0\r\n\r\n"); },
          {"immutable\t" + log}),
      row("report-read-only", {{}, unwritable, false, report}, "",
          [results] { WriteBytes(results, "earlier report"); }, {"immutable\t" + results}),
      row("program-folder-read-only", {{}, unwritable, false, report}, "", nullptr,
          {"immutable\t" + kProgramFolder.substr(0, kProgramFolder.size() - 1)}),
      row("game-missing", {{}, {{kTitle, NotFound(kFullGame, "640x480"), true}}, true, report}, "",
          [] { ::DeleteFileW(ui::Wide(kFullGame + "\\System\\ut2003.exe").c_str()); }),
      row("game-not-a-program",
          {{}, {{kTitle, "5 : Not a valid Windows program", false}}, true, report}, "",
          [] { WriteBytes(kFullGame + "\\System\\ut2003.exe", "This is not a program.\r\n"); }),
      row("game-crashes", {{}, {}, true, report}, "crash"),
      row("game-hangs", {{}, {}, true, report}, "hang 3"),
      row("rate-inf", {{}, {}, true, report}, "inf"),
      row("rate-of-40-characters", {{}, {}, true, report}, "long-rate"),
      row("folder-empty-string", {{}, noProgram, true, reportOnly}, "",
          [] { SetFolder(REG_SZ, std::string(1, '\0')); }),
      row("folder-expand-string",
          {{{"Install UT2003", "Please install UT2003[full version] or UT2003[demo]", false}},
           noProgram, true, reportOnly},
          "", [] { SetFolder(REG_EXPAND_SZ, kFullGame + '\0'); }),
      row("folder-number", {numberFolder, numberFolder, false, reportOnly}, "",
          [] { SetFolder(REG_DWORD, std::string("\xD3\x07\0\0", 4)); }),  // 2003
      row("folder-trailing-backslash", {{}, {}, true, report}, "",
          [] { SetFolder(REG_SZ, kFullGame + "\\" + '\0'); }),
      row("program-at-drive-root",
          {{}, {}, true, {{"D:\\results.html", ".html"}, {StartsOf(kFullGame), ".starts"}}}, "", nullptr,
          {"copy\t" + kProgramFolder + "\tC:\\Root", "drive\td:\tC:\\Root"}, "D:\\"),
  };
}

const std::vector<Scenario>& Scenarios() {
  static const std::vector<Scenario> scenarios = [] {
    auto startUp = [](int install) {
      return [install](const Scenario&) {
        StartUp(install);
        Exit(MainWindow());
      };
    };
    std::vector<Scenario> all = {
        {"startup-none", 0, startUp(0)},
        {"startup-full", kFull, startUp(kFull)},
        {"startup-demo", kDemo, startUp(kDemo)},
        {"startup-both", kBoth,
         [](const Scenario&) {
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
        {"about", kBoth, About},
        {"high-quality-five", kFull, [](const Scenario& s) { OneTest(s, "High Quality", 31); }},
        {"crash-mid-suite", kFull, [](const Scenario& s) { OneTest(s, "High Quality", 4); },
         "crash dm-inferno"},
        {"custom-options", kFull, CustomOptions},
        {"demo", kBoth,
         [](const Scenario& s) {
           HWND main = MainWindow();
           Click(main, "640x480");
           Click(main, "1024x768");
           Click(main, "CPU Benchmark");
           AwaitOpened(s.Results());
           Shot(main, "main-window");
           Exit(main);
         },
         "", nullptr, {}, kProgramFolder, false},
    };
    for (const char* variant : {"full", "demo"}) {
      for (const char* renderer : {"d3d", "ogl"}) {
        all.push_back({std::string(variant) + "-" + renderer, kBoth, EachTest});
      }
    }
    for (Scenario& fault : FaultMatrix()) all.push_back(std::move(fault));
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
  if (!scenario.fault.empty()) {
    for (const std::string& game : {kFullGame, kDemoGame}) {
      WriteBytes(game + "\\System\\StandIn.ini", "[StandIn]\r\nFault=" + scenario.fault + "\r\n");
    }
  }
  // An ini file of the user's own, in a folder with a blank, for the file dialog to find.
  ::CreateDirectoryW(L"C:\\My Settings", nullptr);
  ::CopyFileW(ui::Wide(kProgramFolder + "INI\\OGL\\Custom_MinDetail.ini").c_str(),
              ui::Wide(kOwnIni).c_str(), FALSE);
  if (scenario.prepare) scenario.prepare();
}

int Run(const Scenario& scenario, bool prepared) {
  try {
    if (!prepared) Prepare(scenario);
    ui::StartProgram(scenario.folder + "KelvarniteUT2k3Benchmark.exe");
    scenario.steps(scenario);
    if (::WaitForSingleObject(ui::Program(), 0) != WAIT_OBJECT_0) Fail("the program is still running");
    if (Opened().size() != openedSoFar) Fail("the shell opened " + Opened().back() + " unasked");
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
  for (const Scenario& scenario : Scenarios()) {
    if (command == "list" && argc == 2 && scenario.test) std::printf("%s\n", scenario.name.c_str());
    if (command == "host" && argc == 2) {
      for (const std::string& line : scenario.host) std::printf("%s\t%s\n", scenario.name.c_str(), line.c_str());
    }
    if (argc >= 3 && scenario.name == argv[2]) {
      if (command == "prepare" && argc == 3) return Prepare(scenario), 0;
      if (command == "run") return Run(scenario, argc == 4 && std::string(argv[3]) == "prepared");
    }
  }
  if ((command == "list" || command == "host") && argc == 2) return 0;
  std::fprintf(stderr, "usage: driver list | host | prepare <scenario> | run <scenario> [prepared]\n");
  return 2;
}
