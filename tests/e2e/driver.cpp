// The end-to-end scenarios: the real program and the stand-in game, driven through the
// program's windows in a Wine prefix laid out by tools/wine-lib.sh. What a scenario installs,
// breaks, expects and compares is data, in scenarios.txt beside this exe; here are only the
// routines that work the windows.
//
//   driver host          what the runner must do on the host before a scenario: lines of
//                        "<scenario> TAB <verb> TAB <argument>..."
//   driver prepare <name>  sets this prefix up for the scenario
//   driver run <name> [prepared]  sets it up unless that is done, drives it and checks the result
//
// KELVARNITE_E2E_GOLDEN is the folder of the expected files; with KELVARNITE_E2E_UPDATE=1 the
// files found are written there instead. Where KELVARNITE_E2E_SHOTS names a folder of the host,
// the scenarios leave pictures of the windows in it.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <regex>
#include <set>

#include "launch/arguments.h"  // the usage that the program's boxes show
#include "ui.h"
#include "windows/Form1_layout.h"  // the main window's tables, which its look must follow

#include <commctrl.h>  // after <windows.h>, which ui.h includes
#include <tlhelp32.h>

namespace {

using ui::Click;
using ui::Fail;
using Fields = std::vector<std::string>;

const std::string kOwnIni = "C:\\My Settings\\my own.ini";
// The full game's registry key; the demo's adds "Demo".
const std::string kGameKey = "SOFTWARE\\Unreal Technology\\Installed Apps\\UT2003";
constexpr int kReadOnlyBox = 0x410;  // the file dialog's "Open as read-only" box

// A section of the table: its entries in the order written, each value split into its fields.
struct Scenario {
  std::string name;
  std::vector<std::pair<std::string, Fields>> entries;

  std::vector<Fields> All(const std::string& key) const {
    std::vector<Fields> found;
    for (const auto& [k, fields] : entries)
      if (k == key) found.push_back(fields);
    return found;
  }
  Fields List(const std::string& key) const { return All(key).empty() ? Fields{} : All(key)[0]; }
  std::string Get(const std::string& key, const std::string& otherwise = "") const {
    return All(key).empty() ? otherwise : All(key)[0][0];
  }
  std::string Results() const { return Get("program", ui::kProgramFolder) + "\\results.html"; }
};

// Each key with its number of fields (0: any); the first eight may be given only once.
const std::vector<std::pair<std::string, std::size_t>> kKeys = {
    {"install", 1}, {"procedure", 1}, {"fault", 1}, {"program", 1}, {"picture", 1}, {"opened", 1},
    {"clicks", 0}, {"tests", 0}, {"delete", 1}, {"write", 2}, {"move", 2}, {"folder", 2},
    {"immutable", 1}, {"copy", 2}, {"drive", 2}, {"start box", 3}, {"run box", 3}, {"check", 2},
    {"look", 0}, {"tip", 2}, {"type", 1}, {"arguments", 1}, {"exit", 0}, {"document", 1}, {"same", 2},
    {"registry", 3}};

// The position of a value among those allowed where it stands.
int Choose(const std::string& value, std::initializer_list<const char*> choices) {
  const auto found = std::find(choices.begin(), choices.end(), value);
  if (found == choices.end()) Fail("\"" + value + "\" is not one of the values allowed there");
  return static_cast<int>(found - choices.begin());
}

std::string Trim(const std::string& text) {
  const std::size_t first = text.find_first_not_of(" \t\r"), last = text.find_last_not_of(" \t\r");
  return first == std::string::npos ? "" : text.substr(first, last - first + 1);
}

// \r, \n, \0 and \xHH; a backslash before anything else is itself, so that paths stay as written.
std::string Unescape(const std::string& text) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::size_t escape = text[i] == '\\' ? std::string("rn0x").find(text[i + 1]) : std::string::npos;
    bytes += escape == std::string::npos ? text[i]
             : escape == 3 ? static_cast<char>(std::stoi(text.substr(i + 2, 2), nullptr, 16))
                           : "\r\n"[escape];  // the literal's own terminator for \0
    i += escape == std::string::npos ? 0 : escape == 3 ? 3 : 1;
  }
  return bytes;
}

std::string Expand(std::string text, const std::string& program) {
  const std::pair<std::string, std::string> placeholders[] = {
      {"{program}", ui::kProgramFolder}, {"{full}", ui::kFullGame}, {"{demo}", ui::kDemoGame},
      {"{results}", program + "\\results.html"}, {"{title}", ui::kTitle},
      {"{kept}", "C:\\Kept R\xE9sum\xE9s Gr\xF6\xDF" "e"}, {"{usage}", std::string("\n\n") + arguments::kUsage}};
  for (const auto& [name, value] : placeholders) {
    for (std::size_t at; (at = text.find(name)) != std::string::npos;) text.replace(at, name.size(), value);
  }
  return text;
}

// Checks each entry of a section against its key, and splits and expands its value.
void Complete(Scenario& s) {
  const std::string program = Expand(s.Get("program", ui::kProgramFolder), "");
  for (auto& [key, fields] : s.entries) {
    const auto known = std::find_if(kKeys.begin(), kKeys.end(), [&](const auto& k) { return k.first == key; });
    if (known == kKeys.end()) Fail(s.name + ": no key \"" + key + "\"");
    if (known - kKeys.begin() < 8 && s.All(key).size() > 1) Fail(s.name + ": \"" + key + "\" twice");
    fields = ui::Split(fields[0], " | ");
    if (known->second != 0 && fields.size() != known->second)
      Fail(s.name + ": \"" + key + "\" takes " + std::to_string(known->second) + " fields");
    for (std::size_t i = 0; i < fields.size(); ++i) {
      const bool bytes = i == 1 && (key == "write" || key == "folder");
      fields[i] = Expand(bytes ? Unescape(fields[i]) : fields[i], program);
    }
  }
}

// The table beside this exe, as its head describes it.
std::vector<Scenario> Scenarios() {
  const std::string path = ui::kDriverFolder + "\\scenarios.txt";
  const auto table = ui::ReadBytes(path);
  if (!table) Fail("cannot read " + path);
  std::vector<Scenario> scenarios;
  for (const std::string& raw : ui::Split(*table, "\n")) {
    const std::string line = Trim(raw);
    const std::size_t equals = line.find('=');
    if (line.empty() || line[0] == '#') continue;
    if ((line.rfind("[test ", 0) == 0 || line.rfind("[show ", 0) == 0) && line.back() == ']') {
      scenarios.push_back({line.substr(6, line.size() - 7), {}});
    } else if (equals == std::string::npos || line[0] == '[' || scenarios.empty()) {
      Fail(path + ": neither a [test <name>] or [show <name>] header nor a key = value line: " + line);
    } else {
      scenarios.back().entries.push_back({Trim(line.substr(0, equals)), {Trim(line.substr(equals + 1))}});
    }
  }
  for (Scenario& s : scenarios) Complete(s);
  return scenarios;
}

std::string Env(const char* name) { return std::getenv(name) ? std::getenv(name) : ""; }

// Fails, naming the first line where what was found differs from what was expected.
[[noreturn]] void Differs(const std::string& what, const Fields& want, const Fields& got) {
  const auto [w, g] = std::mismatch(want.begin(), want.end(), got.begin(), got.end());
  Fail(what + " at line " + std::to_string(w - want.begin() + 1) + ":\n  expected: " +
       (w != want.end() ? *w : "<end>") + "\n  actual:   " + (g != got.end() ? *g : "<end>"));
}

// A name with a * in one of its parts takes there the first name that matches, if any.
std::string Found(const std::string& path) {
  const std::size_t star = path.find('*'), end = std::min(path.find('\\', star), path.size());
  WIN32_FIND_DATAW found;
  HANDLE search = star == std::string::npos ? INVALID_HANDLE_VALUE : ::FindFirstFileW(ui::Wide(path.substr(0, end)).c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return path;
  ::FindClose(search);
  const std::wstring name = found.cFileName;
  return path.substr(0, path.rfind('\\', star) + 1) + std::string(name.begin(), name.end()) + path.substr(end);
}

// Kept reports and their index carry the time of each run: the times compare as placeholders.
std::string Timeless(const std::string& text) {
  const std::regex stamp(R"(\d{8}-\d{6})"), time(R"(\d{4}-\d\d-\d\d \d\d:\d\d:\d\d)");
  return std::regex_replace(std::regex_replace(text, time, "YYYY-MM-DD hh:mm:ss"), stamp, "YYYYMMDD-hhmmss");
}

// The file must hold exactly the bytes of the expected file of that name; "<missing>" stands
// for a file that must not exist.
void ExpectFile(const std::string& path, const std::string& expectedName) {
  const std::string expectedPath = Env("KELVARNITE_E2E_GOLDEN") + "\\" + expectedName;
  const std::string actual = Timeless(ui::ReadBytes(Found(path)).value_or("<missing>"));
  if (Env("KELVARNITE_E2E_UPDATE") == "1") return ui::WriteBytes(expectedPath, actual);
  const std::optional<std::string> expected = ui::ReadBytes(expectedPath);
  if (!expected) Fail("no expected file " + expectedName);
  if (actual != *expected) Differs(path + " differs from " + expectedName, ui::Lines(*expected), ui::Lines(actual));
}

// The checks of the table, in order: a report as soon as it is opened, since the next test
// writes over it; the rest once the program has ended.
std::size_t checksMade = 0;
void CheckNext(const Scenario& s) {
  const auto checks = s.All("check");
  if (checksMade < checks.size()) ExpectFile(checks[checksMade][0], checks[checksMade][1]);
  ++checksMade;
}

// The recording opener stands in for the browser and the system information tool, one line
// per document.
std::size_t openedSoFar = 0;
std::vector<std::string> Opened() { return ui::Lines(ui::ReadBytes(ui::kOpened).value_or("")); }
void AwaitOpened(const std::string& path) {
  std::vector<std::string> opened;
  ui::AwaitTrue("the shell to open " + path, [&] {
    if (HWND box = ui::FindTop(L"#32770", "")) Fail("a box stands in the way: " + ui::TextOf(::GetDlgItem(box, ui::kBoxText)));
    return (opened = Opened()).size() > openedSoFar;
  });
  if (Timeless(opened[openedSoFar]) != path) Fail("the shell opened " + opened[openedSoFar] + ", not " + path);
  ++openedSoFar;
}
// Once the program has ended, an opener it started is running or has written its line.
bool OpenerRunning() {
  HANDLE snapshot = ::CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
  PROCESSENTRY32W process{};
  process.dwSize = sizeof(process);
  bool running = false;
  for (BOOL more = ::Process32FirstW(snapshot, &process); more; more = ::Process32NextW(snapshot, &process))
    running |= ::lstrcmpiW(process.szExeFile, L"opener.exe") == 0;
  ::CloseHandle(snapshot);
  return running;
}

void AnswerBox(const Fields& box) {
  ui::AnswerBox(box[0], box[1], Choose(box[2], {"plain", "critical"}) == 1);
}
HWND MainWindow() { return ui::AwaitTop(ui::kFormClass, ui::kTitle, 30); }
HWND CustomWindow() { return ui::AwaitTop(ui::kFormClass, "Custom Options"); }
int Install(const Scenario& s) { return Choose(s.Get("install"), {"none", "full", "demo", "both"}); }

// By the menu's Exit, or by the close box (WM_CLOSE), which takes Custom Options along.
void Exit(HWND main, UINT message = WM_COMMAND) {
  ::PostMessageW(main, message, message == WM_COMMAND ? menu_commands::kExit : 0, 0);
  ui::AwaitProgramEnd();
}

// A picture of the window as it is on the screen, into the host's folder KELVARNITE_E2E_SHOTS,
// which the runner compares with the committed one.
void Shot(const Scenario& s, HWND window) {
  const std::string folder = Env("KELVARNITE_E2E_SHOTS"), file = folder + "/" + s.Get("picture") + ".png";
  if (folder.empty() || s.Get("picture").empty()) return;
  RECT r{};
  ::GetWindowRect(window, &r);
  ui::Host("import -window root -crop " + std::to_string(r.right - r.left) + "x" + std::to_string(r.bottom - r.top) + "+" +
           std::to_string(r.left) + "+" + std::to_string(r.top) + " +repage png:" + file + ".new && mv " + file + ".new " + file);
  ui::AwaitTrue("the picture " + file, [&] { return ui::ReadBytes("Z:" + file).has_value(); });
}

// ---- The windows as drawn: frames, menus and tool tips ----------------------------------------

// The window's thread: where its focus is, and whether it is in a menu.
GUITHREADINFO ThreadOf(HWND window) {
  GUITHREADINFO info{};
  info.cbSize = sizeof(info);
  ::GetGUIThreadInfo(::GetWindowThreadProcessId(window, nullptr), &info);
  return info;
}

// What the main window's tables declare that it shows: the fixed border of their kind, which
// has a title bar and a close button alone, then each entry of the menu bar with its command.
Fields Declared(const std::string& title) {
  using form1_layout::kMenus, form1_layout::kWindow;
  if (title != kWindow.caption) return {};
  Fields words{kWindow.border == forms::BorderStyle::FixedDialog ? "dialog frame" : "single border", "title bar",
               "close button"};
  for (const forms::MenuArgs& entry : kMenus) {
    const auto parent = std::find_if(std::begin(kMenus), std::end(kMenus), [&](const forms::MenuArgs& m) {
      return entry.parent && std::string(m.name) == entry.parent;
    });
    if (entry.command != 0)
      words.push_back((parent != std::end(kMenus) ? std::string(parent->caption) + " > " : "") + entry.caption +
                      " = " + std::to_string(entry.command));
  }
  return words;
}

// The frame and title bar buttons its styles give a window, then the entries a user can choose
// in its menu bar and in its system menu, opened from the keyboard: against what its tables
// declare, followed by the scenario's "look" of that title.
void Look(const Scenario& s, HWND window) {
  const std::string title = ui::TextOf(window);
  const LONG style = ::GetWindowLongW(window, GWL_STYLE), ex = ::GetWindowLongW(window, GWL_EXSTYLE);
  const bool sizable = style & WS_THICKFRAME, dialog = ex & WS_EX_DLGMODALFRAME;
  HWND main = ui::FindTop(ui::kFormClass, ui::kTitle);
  const std::pair<bool, const char*> words[] = {
      {sizable, "sizable border"}, {dialog, "dialog frame"}, {!sizable && !dialog && (style & WS_BORDER), "single border"},
      {(style & WS_CAPTION) == WS_CAPTION, "title bar"}, {style & WS_SYSMENU, "close button"},
      {style & WS_MINIMIZEBOX, "minimise button"}, {style & WS_MAXIMIZEBOX, "maximise button"},
      {ex & WS_EX_TOOLWINDOW, "tool window"}, {::GetWindow(window, GW_OWNER), "owned"},
      {window != main && !::IsWindowEnabled(main), "modal"}};
  for (const Fields& look : s.All("look")) {
    if (look[0] != title) continue;
    Fields seen{title};
    for (const auto& [has, word] : words)
      if (has) seen.push_back(word);
    const auto inMenu = [&] { return (ThreadOf(window).flags & GUI_INMENUMODE) != 0; };
    ui::Host("xdotool key alt+space");
    ui::AwaitTrue("the system menu to open", [&] { return inMenu() && ui::FindTop(L"#32768", ""); }, 5);
    for (const std::string& entry : ui::Probe(window)) seen.push_back(entry);
    ui::Host("xdotool key Escape Escape");  // the first closes the menu, the second leaves its title
    ui::AwaitTrue("the system menu to close", [&] { return !inMenu(); }, 5);
    Fields want = Declared(title);
    want.insert(want.begin(), title);
    want.insert(want.end(), look.begin() + 1, look.end());
    if (seen != want) Differs("the window \"" + title + "\" differs from its look", want, seen);
  }
}

// The tip window of a form, which it makes when the pointer first comes to a control with a tip.
HWND TipOf(HWND window) {
  HWND tip = nullptr;
  while ((tip = ::FindWindowExW(nullptr, tip, TOOLTIPS_CLASSW, nullptr)) && ::GetWindow(tip, GW_OWNER) != window) {}
  return tip;
}

// The logo or the banner.
HWND Picture(HWND window) {
  return ui::FindChildWhere(window, [](HWND c) { return ::SendMessageW(c, STM_GETIMAGE, IMAGE_BITMAP, 0) != 0; });
}

// The real pointer onto each control of the scenario's tips in turn: its tip shows with its text,
// and goes as the pointer moves away, before the next.
void ShowTips(const Scenario& s, HWND window) {
  const auto shown = [&] { HWND tip = TipOf(window); return tip && ::IsWindowVisible(tip) ? tip : nullptr; };
  for (const Fields& tip : s.All("tip")) {
    HWND control = tip[0] == "<picture>" ? Picture(window) : ui::FindChild(window, tip[0]);
    if (!control) Fail("no control \"" + tip[0] + "\" with a tip");
    ui::MovePointer(control);
    const std::string text = ui::TextOf(ui::Await("the tip of \"" + tip[0] + "\" to show", shown, 5));
    if (text != tip[1]) Fail("the tip of \"" + tip[0] + "\" says \"" + text + "\", not \"" + tip[1] + "\"");
    ui::MovePointer(nullptr);
    ui::AwaitTrue("the tip of \"" + tip[0] + "\" to go as the pointer leaves", [&] { return !shown(); }, 5);
  }
}

// The version and renderer buttons as what is installed sets them, with no box beside them.
HWND StartUp(const Scenario& s) {
  const int install = Install(s);
  HWND main = MainWindow();
  if (ui::FindTop(L"#32770", "")) Fail("a box stands beside the main window");
  ui::AwaitState(main, "Full", install & 1, install & 1);
  ui::AwaitState(main, "Demo", install == 2, install & 2);
  ui::AwaitState(main, "Direct3D", true, true);
  ui::AwaitState(main, "OpenGL", false, true);
  return main;
}

// Start-up, the look and tips, then Help from the keyboard and the Custom Options window.
void MainWindowTour(const Scenario& s) {
  HWND main = StartUp(s);
  Shot(s, main);
  Look(s, main);
  ShowTips(s, main);
  ui::Host("xdotool key alt h e");  // Help, Help
  AwaitOpened(ui::kProgramFolder + "\\help.html");
  Click(main, "Custom Test");
  Look(s, CustomWindow());
  Exit(main, WM_CLOSE);
}

// The clicks, then each test in turn with the boxes of its run and, where it is opened, its
// report; the menu's Exit ends the program, after a custom test with that window still open.
void Tests(const Scenario& s) {
  HWND main = MainWindow();
  for (const std::string& caption : s.List("clicks")) Click(main, caption);
  for (const std::string& test : s.List("tests")) {
    Click(main, test);
    if (test == "Custom Test") Click(CustomWindow(), "Run Test");
    for (const Fields& box : s.All("run box")) AnswerBox(box);
    if (Choose(s.Get("opened", "no"), {"no", "yes"}) == 1) {
      AwaitOpened(s.Results());
      CheckNext(s);
    }
    ui::AwaitState(main, test, false, true);
  }
  Shot(s, main);
  Exit(main);
}

// A level and a mutator of the list, and an ini file of the user's own through the file dialog;
// then, for each text to type, a run, and the text typed into the box for the next.
void CustomOptions(const Scenario& s) {
  HWND main = MainWindow();
  Click(main, "800x600");
  Click(main, "Custom Test");
  HWND custom = CustomWindow();
  ui::SelectListEntry(custom, "ctf-face3*");
  Click(custom, "Enabled");
  Click(custom, "Custom ini");
  Click(custom, "Browse...");
  // The program asks the dialog for nothing of its own, so it keeps its read-only box.
  HWND dialog = ui::AwaitTop(L"#32770", "Open");
  if (!::IsWindowVisible(::GetDlgItem(dialog, kReadOnlyBox))) Fail("the file dialog has no read-only box");
  ui::ChooseFile(kOwnIni);
  HWND box = ui::FindChild(custom, L"Edit", -1);
  ui::AwaitTrue("the chosen file in the text box", [&] { return ui::TextOf(box) == kOwnIni; }, 5);
  Shot(s, custom);
  Look(s, custom);
  const auto run = [&] {
    Click(custom, "Run Test");
    AwaitOpened(s.Results());
    CheckNext(s);
  };
  for (const Fields& typed : s.All("type")) {  // a run, then the text typed into the box Max Detail empties
    run();
    Click(custom, "Max Detail");
    Click(custom, "Custom ini");
    ui::Type(box, typed[0]);
  }
  run();
  Exit(main, WM_CLOSE);
}

// The About window, opened from the keyboard: its texts, look and tips, the banner's web site,
// Enter on System Info, and the keys and the button that close it.
void About(const Scenario& s) {
  HWND main = MainWindow();
  const auto open = [&](bool byKeys) {
    byKeys ? ui::Host("xdotool key alt h a") : (void)::PostMessageW(main, WM_COMMAND, menu_commands::kAbout, 0);
    return ui::AwaitTop(ui::kFormClass, "About " + ui::kTitle);
  };
  HWND about = open(true);  // the first time from the keyboard: Help, About
  for (const std::string& text : {std::string("Version " KELVARNITE_VERSION), ui::kTitle}) {  // as built
    if (!ui::FindChild(about, text)) Fail("the About window has no label " + text);
  }
  Shot(s, about);
  Look(s, about);
  // Its two tool tips are made when the pointer first comes to a control that has one.
  if (TipOf(about)) Fail("the About window made its tool tips before the pointer came");
  ShowTips(s, about);
  if (::SendMessageW(TipOf(about), TTM_GETTOOLCOUNT, 0, 0) != 2) Fail("the About window has not two tool tips");
  ui::MovePointer(Picture(about));
  ui::Host("xdotool click 1");
  AwaitOpened("http://www.kelvarnite.example/");
  ui::Host("xdotool key Tab Return");  // from OK to System Info, where Enter presses that button
  AwaitOpened(ui::kDriverFolder + "\\opener.exe");
  if (!::IsWindow(about)) Fail("Enter on System Info closed the About window");
  for (const std::string close : {"Escape", "Return", ""}) {  // "": the OK button
    if (close != "Escape") about = open(false);
    close.empty() ? Click(about, "OK") : ui::Host("xdotool key " + close);
    ui::AwaitTrue("the About window to close", [&] { return !::IsWindow(about); });
  }
  Exit(main);
}

// Each line of `arguments` starts the program in turn, the first as the scenario's start: each
// ends by itself with its code of `exit`. Then the documents it handed to the shell, and the
// files that must be `same`.
void CommandLine(const Scenario& s) {
  const std::vector<Fields> lines = s.All("arguments");
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (i > 0) ui::StartProgram(s.Get("program", ui::kProgramFolder) + "\\" + ui::kProgramExe, lines[i][0]);
    ui::AwaitProgramEnd(240);
    DWORD code = 0;
    if (!::GetExitCodeProcess(ui::Program(), &code)) Fail("the program's exit code cannot be read");
    if (std::to_string(code) != s.List("exit").at(i)) Fail("the exit code is " + std::to_string(code));
  }
  for (const Fields& document : s.All("document")) AwaitOpened(document[0]);
  for (const Fields& pair : s.All("same"))
    if (!ui::ReadBytes(pair[0]) || ui::ReadBytes(pair[0]) != ui::ReadBytes(pair[1])) Fail(pair[0] + " differs from " + pair[1]);
}

// Tab round a window once: of each option group the focus lands on the selected button alone,
// so that a Space there changes nothing, and those buttons are the ones given.
void TabRound(HWND window, const std::set<std::string>& selected) {
  auto focus = [&] { return ThreadOf(window).hwndFocus; };
  std::set<HWND> visited;
  std::set<std::string> landed;
  for (HWND at = focus(); visited.size() < 40;) {
    ui::Host("xdotool key Tab");
    at = ui::Await("the focus to move on", [&] { return focus() != at ? focus() : nullptr; }, 5);
    if (!visited.insert(at).second) break;
    if ((::GetWindowLongW(at, GWL_STYLE) & BS_TYPEMASK) != BS_RADIOBUTTON) continue;
    landed.insert(ui::TextOf(at));
    if (::SendMessageW(at, BM_GETCHECK, 0, 0) != BST_CHECKED) Fail("Tab lands on \"" + ui::TextOf(at) + "\", not selected");
  }
  if (landed != selected) Fail("Tab lands on " + std::to_string(landed.size()) + " option buttons, not the selected ones");
}

// Both windows' option groups from the keyboard, before and after a change of the selection.
void Keyboard(const Scenario& s) {
  HWND main = StartUp(s);
  TabRound(main, {"Direct3D", "Full"});
  Click(main, "OpenGL");
  Click(main, "Demo");
  ui::AwaitState(main, "Demo", true, true);
  TabRound(main, {"OpenGL", "Demo"});
  Click(main, "Custom Test");
  HWND custom = CustomWindow();
  TabRound(custom, {"Disabled", "Max Detail"});
  Click(custom, "Min Detail");
  ui::AwaitState(custom, "Min Detail", true, true);
  TabRound(custom, {"Disabled", "Min Detail"});
  Exit(main, WM_CLOSE);
}

const std::map<std::string, void (*)(const Scenario&)> kProcedures = {
    {"keyboard", Keyboard},
    {"start-up", [](const Scenario& s) { Exit(StartUp(s)); }}, {"main-window", MainWindowTour},
    {"tests", Tests}, {"custom-options", CustomOptions}, {"about", About}, {"command-line", CommandLine}};

// The prefix holds both games and their keys; a scenario takes away what it does not have,
// then makes its own changes in the order of the table.
void Prepare(const Scenario& s) {
  const int install = Install(s);
  if (!(install & 1)) ::RegDeleteKeyA(HKEY_LOCAL_MACHINE, kGameKey.c_str());
  if (!(install & 2)) ::RegDeleteKeyA(HKEY_LOCAL_MACHINE, (kGameKey + "Demo").c_str());
  if (const std::string fault = s.Get("fault"); !fault.empty()) {
    for (const std::string& game : {ui::kFullGame, ui::kDemoGame})
      ui::WriteBytes(game + "\\System\\StandIn.ini", "[StandIn]\r\nFault=" + fault + "\r\n");
  }
  // An ini file of the user's own, in a folder with a blank, for the file dialog to find.
  ::CreateDirectoryW(L"C:\\My Settings", nullptr);
  ::CopyFileW(ui::Wide(ui::kProgramFolder + "\\INI\\OGL\\Custom_MinDetail.ini").c_str(),
              ui::Wide(kOwnIni).c_str(), FALSE);
  for (const auto& [verb, f] : s.entries) {
    if (verb == "delete") ::DeleteFileW(ui::Wide(f[0]).c_str());
    if (verb == "write") ui::WriteBytes(f[0], f[1]);
    if (verb == "move") ::MoveFileW(ui::Wide(f[0]).c_str(), ui::Wide(f[1]).c_str());
    if (verb == "registry")  // the machine as the program reads it, HKEY_LOCAL_MACHINE's text values
      ::RegSetKeyValueA(HKEY_LOCAL_MACHINE, f[0].c_str(), f[1].c_str(), REG_SZ, f[2].c_str(), static_cast<DWORD>(f[2].size() + 1));
    if (verb == "folder") {  // as the program will read it: ANSI bytes of any type
      const DWORD types[] = {REG_SZ, REG_EXPAND_SZ, REG_DWORD};
      ::RegSetKeyValueA(HKEY_LOCAL_MACHINE, kGameKey.c_str(), "Folder",
                        types[Choose(f[0], {"REG_SZ", "REG_EXPAND_SZ", "REG_DWORD"})], f[1].data(),
                        static_cast<DWORD>(f[1].size()));
    }
  }
}

int Run(const Scenario& s, bool prepared) {
  try {
    if (!prepared) Prepare(s);
    const auto procedure = kProcedures.find(s.Get("procedure"));
    if (procedure == kProcedures.end()) Fail("no procedure \"" + s.Get("procedure") + "\"");
    ui::StartProgram(s.Get("program", ui::kProgramFolder) + "\\" + ui::kProgramExe, s.Get("arguments"));
    for (const Fields& box : s.All("start box")) {  // each alone on the screen
      ui::Await("the box", [] { return ui::FindTop(L"#32770", ""); });
      if (ui::FindTop(ui::kFormClass, ui::kTitle)) Fail("the main window shows beside the box");
      AnswerBox(box);
    }
    procedure->second(s);
    if (::WaitForSingleObject(ui::Program(), 0) != WAIT_OBJECT_0) Fail("the program is still running");
    ui::AwaitTrue("the shell's programs to end", [] { return !OpenerRunning(); });
    if (Opened().size() != openedSoFar) Fail("the shell opened " + Opened().back() + " unasked");
    while (checksMade < s.All("check").size()) CheckNext(s);
  } catch (const ui::Failure& failure) {
    if (ui::Program() != nullptr) ::TerminateProcess(ui::Program(), 1);
    std::printf("FAIL  %s: %s\n", s.name.c_str(), failure.what());
    return 1;
  }
  std::printf("ok    %s\n", s.name.c_str());
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string command = argc >= 2 ? argv[1] : "", name = argc >= 3 ? argv[2] : "";
  try {
    for (const Scenario& s : Scenarios()) {
      for (const auto& [verb, f] : s.entries)
        if (command == "host" && argc == 2 && (verb == "immutable" || verb == "copy" || verb == "drive"))
          std::printf("%s\t%s\t%s\t%s\n", s.name.c_str(), verb.c_str(), f[0].c_str(), f.size() > 1 ? f[1].c_str() : "");
      if (s.name != name) continue;
      if (command == "prepare" && argc == 3) return Prepare(s), 0;
      if (command == "run") return Run(s, argc == 4 && std::string(argv[3]) == "prepared");
    }
    if (command == "host" && argc == 2) return 0;
  } catch (const ui::Failure& failure) {
    std::fprintf(stderr, "driver: %s\n", failure.what());
    return 1;
  }
  std::fprintf(stderr, "usage: driver host | prepare <scenario> | run <scenario> [prepared]\n");
  return 2;
}
