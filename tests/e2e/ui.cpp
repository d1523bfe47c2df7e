#include "ui.h"

#include <filesystem>
#include <fstream>

#include "platform/win32/scoped.h"

namespace ui {
namespace {

PROCESS_INFORMATION program{};
bool endExpected = false;  // from the wait for its end on

// The message box's icon, and the file dialog's file name.
constexpr int kBoxIcon = 0x440;
constexpr int kDialogFileName = 0x47C;

bool OfProgram(HWND window) {
  DWORD process = 0;
  ::GetWindowThreadProcessId(window, &process);
  return process == program.dwProcessId;
}

std::wstring ClassOf(HWND window) {
  wchar_t name[64] = {};
  ::GetClassNameW(window, name, 64);
  return name;
}

BOOL CALLBACK Collect(HWND window, LPARAM list) {
  reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
  return TRUE;
}

// The visible top-level windows of the program, or the child windows of a parent at any depth.
std::vector<HWND> Windows(HWND parent) {
  std::vector<HWND> found;
  parent ? ::EnumChildWindows(parent, Collect, reinterpret_cast<LPARAM>(&found))
         : ::EnumWindows(Collect, reinterpret_cast<LPARAM>(&found));
  if (!parent) std::erase_if(found, [](HWND w) { return !OfProgram(w) || !::IsWindowVisible(w); });
  return found;
}

HWND FirstOf(const std::vector<HWND>& windows, const std::function<bool(HWND)>& test) {
  for (HWND window : windows)
    if (test(window)) return window;
  return nullptr;
}

// A window's controls are there by the time it shows.
HWND Control(HWND window, const std::string& caption) {
  HWND control = FindChild(window, caption);
  if (!control) Fail("the window \"" + TextOf(window) + "\" has no control \"" + caption + "\"");
  return control;
}

// A command line started in a folder, or in the driver's own.
PROCESS_INFORMATION Start(const std::string& line, const std::string& folder = "") {
  std::wstring wide = Wide(line);
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  PROCESS_INFORMATION started{};
  if (!::CreateProcessW(nullptr, wide.data(), nullptr, nullptr, FALSE, 0, nullptr,
                        folder.empty() ? nullptr : Wide(folder).c_str(), &startup, &started))
    Fail("cannot start " + line + ", error " + std::to_string(::GetLastError()));
  return started;
}

// The way back of Wide, for the texts the driver reads.
std::string Narrow(const std::wstring& text) { return std::string(text.begin(), text.end()); }

}  // namespace

void Fail(const std::string& why) { throw Failure(why); }

// Byte by byte, each its own code point (Latin-1, which Windows-1252 is from 0xA0 on).
std::wstring Wide(const std::string& text) {
  std::wstring wide;
  for (unsigned char c : text) wide += static_cast<wchar_t>(c);
  return wide;
}

std::optional<std::string> ReadBytes(const std::string& path) {
  std::ifstream file(std::filesystem::path(Wide(path)), std::ios::binary);
  if (!file) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(file), {});
}

void WriteBytes(const std::string& path, const std::string& bytes) {
  std::ofstream file(std::filesystem::path(Wide(path)), std::ios::binary);
  if (!(file << bytes)) Fail("cannot write " + path);
}

std::vector<std::string> Split(const std::string& text, const std::string& by) {
  std::vector<std::string> pieces;
  for (std::size_t start = 0;;) {
    const std::size_t end = text.find(by, start);
    pieces.push_back(text.substr(start, end - start));
    if (end == std::string::npos) return pieces;
    start = end + by.size();
  }
}

std::vector<std::string> Lines(const std::string& bytes) {
  std::vector<std::string> lines = Split(bytes, "\r\n");
  if (lines.back().empty()) lines.pop_back();  // what follows the last line end, or an empty text
  return lines;
}

HWND Await(const std::string& what, const std::function<HWND()>& ready, int seconds) {
  for (const DWORD start = ::GetTickCount();; ::Sleep(20)) {
    if (HWND found = ready()) return found;
    if (!endExpected && ::WaitForSingleObject(program.hProcess, 0) == WAIT_OBJECT_0)
      Fail("the program ended while waiting for " + what);
    if (::GetTickCount() - start > static_cast<DWORD>(seconds) * 1000) Fail("timed out waiting for " + what);
  }
}

void AwaitTrue(const std::string& what, const std::function<bool()>& ready, int seconds) {
  Await(what, [&] { return ready() ? ::GetDesktopWindow() : nullptr; }, seconds);
}

void StartProgram(const std::string& exe, const std::string& arguments) {
  endExpected = false;
  program = Start("\"" + exe + "\"" + (arguments.empty() ? "" : " " + arguments),
                  exe.substr(0, exe.find_last_of('\\')));
}

HANDLE Program() { return program.hProcess; }

void AwaitProgramEnd(int seconds) {
  endExpected = true;
  if (::WaitForSingleObject(program.hProcess, seconds * 1000) != WAIT_OBJECT_0) Fail("the program did not end");
}

HWND FindTop(const wchar_t* windowClass, const std::string& title) {
  return FirstOf(Windows(nullptr), [&](HWND w) { return ClassOf(w) == windowClass && (title.empty() || TextOf(w) == title); });
}

HWND AwaitTop(const wchar_t* windowClass, const std::string& title, int seconds) {
  return Await("the window \"" + title + "\"", [&] { return FindTop(windowClass, title); }, seconds);
}

HWND FindChildWhere(HWND parent, const std::function<bool(HWND)>& test) { return FirstOf(Windows(parent), test); }

HWND FindChild(HWND parent, const std::string& text) {
  return FindChildWhere(parent, [&](HWND child) { return TextOf(child) == text; });
}

HWND FindChild(HWND parent, const wchar_t* windowClass, int id) {
  return FindChildWhere(parent, [&](HWND child) {
    return (id == -1 || ::GetDlgCtrlID(child) == id) && ClassOf(child) == windowClass;
  });
}

std::string TextOf(HWND window) {
  std::wstring text(4096, L'\0');  // longer than any text of the program
  DWORD_PTR copied = 0;
  if (!::SendMessageTimeoutW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()),
                             SMTO_ABORTIFHUNG, 10000, &copied)) {
    Fail("no answer from a window of the program");
  }
  text.resize(copied);
  return Narrow(text);
}

void Click(HWND window, const std::string& caption) {
  HWND control = Control(window, caption);
  // A posted click acts on a disabled button too; a user's click would not.
  AwaitTrue("\"" + caption + "\" to be enabled", [&] { return ::IsWindowEnabled(control) != 0; });
  ::PostMessageW(control, BM_CLICK, 0, 0);
}

void AwaitState(HWND window, const std::string& caption, bool checked, bool enabled) {
  HWND control = Control(window, caption);
  const std::string state = std::string(checked ? "checked" : "unchecked") + " and " + (enabled ? "enabled" : "disabled");
  AwaitTrue("\"" + caption + "\" to be " + state, [&] {
    const bool checkedNow = ::SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED;
    return checkedNow == checked && (::IsWindowEnabled(control) != 0) == enabled;
  }, 5);
}

void AnswerBox(const std::string& title, const std::string& text, bool criticalIcon) {
  HWND box = Await("a message box", [] {
    HWND dialog = FindTop(L"#32770", "");
    return dialog && ::GetDlgItem(dialog, kBoxText) ? dialog : nullptr;
  });
  const std::string seenTitle = TextOf(box), seenText = TextOf(::GetDlgItem(box, kBoxText));
  const bool seenIcon = ::SendMessageW(::GetDlgItem(box, kBoxIcon), STM_GETICON, 0, 0) != 0;
  if (seenTitle != title || seenText != text || seenIcon != criticalIcon) {
    Fail("box \"" + seenTitle + "\": \"" + seenText + "\"" + (seenIcon ? " with an icon" : "") +
         ", expected \"" + title + "\": \"" + text + "\"" + (criticalIcon ? " with an icon" : ""));
  }
  // While the box is open no window of the program takes input, so no second test can start
  // inside the wait of the first.
  if (HWND open = FirstOf(Windows(nullptr), [&](HWND w) { return w != box && ::IsWindowEnabled(w); }))
    Fail("the window \"" + TextOf(open) + "\" takes input under the box \"" + seenTitle + "\"");
  ::PostMessageW(FindChild(box, L"Button", IDOK), BM_CLICK, 0, 0);
  AwaitTrue("the box to close", [&] { return !::IsWindow(box); });
}

void ChooseFile(const std::string& path) {
  HWND dialog = AwaitTop(L"#32770", "Open");
  HWND name = FindChild(dialog, L"Edit", kDialogFileName);
  Type(name, path);
  ::PostMessageW(FindChild(dialog, L"Button", IDOK), BM_CLICK, 0, 0);
  AwaitTrue("the file dialog to close", [&] { return !::IsWindow(dialog); });
}

void SelectListEntry(HWND window, const std::string& entry) {
  HWND list = FindChild(window, L"ComboBox", -1);
  const LRESULT index = ::SendMessageW(list, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                       reinterpret_cast<LPARAM>(Wide(entry).c_str()));
  if (index == CB_ERR) Fail("the list has no entry \"" + entry + "\"");
  // What the list tells its window when the user picks an entry.
  ::SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
  ::PostMessageW(window, WM_COMMAND, MAKEWPARAM(::GetDlgCtrlID(list), CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(list));
}

// Wine starts a Unix program too, from drive Z:, the host's root, but gives back no handle to
// wait on: each caller waits for what the command does instead.
void Host(const std::string& command) { Start("Z:\\bin\\sh -c \"" + command + "\""); }

void MovePointer(HWND window) {
  RECT r{1000, 760, 1000, 760};
  if (window) ::GetWindowRect(window, &r);
  Host("xdotool mousemove " + std::to_string((r.left + r.right) / 2) + " " + std::to_string((r.top + r.bottom) / 2));
}

void Type(HWND box, const std::string& text) {
  for (const char c : text) ::PostMessageW(box, WM_CHAR, static_cast<unsigned char>(c), 1);
  AwaitTrue("the box to show the typed \"" + text + "\"", [&] { return TextOf(box) == text; }, 5);
}

std::vector<std::string> Probe(HWND window) {
  static const HMODULE probe = ::LoadLibraryW(Wide(kDriverFolder + "\\probe.dll").c_str());
  const auto hook = reinterpret_cast<HOOKPROC>(reinterpret_cast<void*>(::GetProcAddress(probe, "Probe")));
  ::DeleteFileW(Wide(kProbeFile).c_str());
  const win32::Scoped<HHOOK, ::UnhookWindowsHookEx> hooked(
      hook ? ::SetWindowsHookExW(WH_GETMESSAGE, hook, probe, ::GetWindowThreadProcessId(window, nullptr)) : nullptr);
  if (!hooked.valid()) Fail("cannot hook probe.dll into the program");
  ::PostMessageW(window, ::RegisterWindowMessageA(kProbeMessage), 0, 0);
  std::optional<std::string> read;
  AwaitTrue("the probe's answer", [&] { return (read = ReadBytes(kProbeFile)).has_value(); }, 5);
  return Lines(*read);
}

}  // namespace ui
