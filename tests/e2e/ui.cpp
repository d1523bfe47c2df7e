#include "ui.h"

#include <filesystem>
#include <fstream>

#include "platform/win32/scoped.h"

namespace ui {
namespace {

PROCESS_INFORMATION program{};

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

HWND AwaitControl(HWND window, const std::string& caption) {
  return Await("the control \"" + caption + "\"", [&] { return FindChild(window, caption); });
}

// Every text the driver reads or writes is ASCII.
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
    if (::GetTickCount() - start > static_cast<DWORD>(seconds) * 1000) Fail("timed out waiting for " + what);
  }
}

void AwaitTrue(const std::string& what, const std::function<bool()>& ready, int seconds) {
  Await(what, [&] { return ready() ? ::GetDesktopWindow() : nullptr; }, seconds);
}

void StartProgram(const std::string& exe, const std::string& arguments) {
  std::wstring line = L"\"" + Wide(exe) + L"\"" + (arguments.empty() ? L"" : L" " + Wide(arguments));
  std::wstring folder = Wide(exe.substr(0, exe.find_last_of('\\')));
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  if (!::CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                        folder.c_str(), &startup, &program)) {
    Fail("cannot start " + exe + ", error " + std::to_string(::GetLastError()));
  }
}

HANDLE Program() { return program.hProcess; }

void AwaitProgramEnd() {
  if (::WaitForSingleObject(program.hProcess, 20000) != WAIT_OBJECT_0) Fail("the program did not end");
}

HWND FindTop(const wchar_t* windowClass, const std::string& title) {
  return FirstOf(Windows(nullptr), [&](HWND w) { return ClassOf(w) == windowClass && (title.empty() || TextOf(w) == title); });
}

HWND AwaitTop(const wchar_t* windowClass, const std::string& title) {
  return Await("the window \"" + title + "\"", [&] { return FindTop(windowClass, title); });
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
  HWND control = AwaitControl(window, caption);
  // A posted click acts on a disabled button too; a user's click would not.
  AwaitTrue("\"" + caption + "\" to be enabled", [&] { return ::IsWindowEnabled(control) != 0; });
  ::PostMessageW(control, BM_CLICK, 0, 0);
}

void PressKey(HWND window, WPARAM key) {
  ::PostMessageW(window, WM_KEYDOWN, key, 1);
  ::PostMessageW(window, WM_KEYUP, key, 0xC0000001);
}

void ClickWithMouse(HWND control) {
  ::PostMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(2, 2));
  ::PostMessageW(control, WM_LBUTTONUP, 0, MAKELPARAM(2, 2));
}

void AwaitState(HWND window, const std::string& caption, bool checked, bool enabled) {
  HWND control = AwaitControl(window, caption);
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
  HWND name = Await("the file name box", [&] { return FindChild(dialog, L"Edit", kDialogFileName); });
  ::SendMessageW(name, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(Wide(path).c_str()));
  ::PostMessageW(FindChild(dialog, L"Button", IDOK), BM_CLICK, 0, 0);
  AwaitTrue("the file dialog to close", [&] { return !::IsWindow(dialog); });
}

void SelectListEntry(HWND window, const std::string& entry) {
  HWND list = Await("the drop-down list", [&] { return FindChild(window, L"ComboBox", -1); });
  const LRESULT index = ::SendMessageW(list, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                       reinterpret_cast<LPARAM>(Wide(entry).c_str()));
  if (index == CB_ERR) Fail("the list has no entry \"" + entry + "\"");
  // What the list tells its window when the user picks an entry.
  ::SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
  ::PostMessageW(window, WM_COMMAND, MAKEWPARAM(::GetDlgCtrlID(list), CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(list));
}

void SaveScreenshot(HWND window, const std::string& path) {
  RECT rect{};
  ::GetWindowRect(window, &rect);
  const int width = rect.right - rect.left, height = rect.bottom - rect.top;
  BITMAPINFOHEADER info{sizeof(info), width, height, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
  void* bits = nullptr;
  const win32::WindowDC screen(nullptr);
  const win32::Scoped<HDC, ::DeleteDC> memory(::CreateCompatibleDC(screen.get()));
  const win32::ScopedGdiObject bitmap(::CreateDIBSection(screen.get(), reinterpret_cast<BITMAPINFO*>(&info),
                                                         DIB_RGB_COLORS, &bits, nullptr, 0));
  if (!bitmap.valid()) Fail("cannot make a picture of " + std::to_string(width) + "x" + std::to_string(height));
  const win32::SelectScope selected(memory.get(), bitmap.get());
  ::BitBlt(memory.get(), 0, 0, width, height, screen.get(), rect.left, rect.top, SRCCOPY);
  ::GdiFlush();
  const std::string pixels(static_cast<const char*>(bits), ((width * 3 + 3) & ~3) * height);

  const DWORD offset = sizeof(BITMAPFILEHEADER) + sizeof(info);
  const BITMAPFILEHEADER file{0x4D42 /* "BM" */, offset + static_cast<DWORD>(pixels.size()), 0, 0, offset};
  std::string bytes(reinterpret_cast<const char*>(&file), sizeof(file));
  bytes.append(reinterpret_cast<const char*>(&info), sizeof(info));
  WriteBytes(path, bytes + pixels);
}

}  // namespace ui
