// Driving the program's windows from another process, as a user would.
//
// Clicks are posted, never sent: a handler that runs a test holds the program's only thread
// for the whole run. Text is read through the wide messages, since the ANSI ones come back
// cut short across processes. Every step waits for what it needs instead of sleeping.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "windows/menu_commands.h"  // the main window's menu, as the program declares it

namespace ui {

// Where tools/wine-lib.sh lays out the program, the games and the driver with its recording
// opener, and the names the program gives its windows.
inline const std::string kProgramFolder = "C:\\Program Files\\Kelvarnite UT2k3 Benchmark";
inline const std::string kProgramExe = "KelvarniteUT2k3Benchmark.exe";
inline const std::string kFullGame = "C:\\Games\\UT2003", kDemoGame = "C:\\Games\\UT2003 Demo";
inline const std::string kDriverFolder = "C:\\Kelvarnite Driver";
inline const std::string kOpened = kDriverFolder + "\\opened.txt";  // one line per document
inline const std::string kTitle = "Kelvarnite UT2k3 Benchmark";
constexpr wchar_t kFormClass[] = L"KelvarniteForm";
constexpr int kBoxText = 0xFFFF;  // the text of a message box

struct Failure : std::runtime_error {
  using std::runtime_error::runtime_error;
};
[[noreturn]] void Fail(const std::string& why);

std::wstring Wide(const std::string& text);

// Files are shared with the program and the game while they write them.
std::optional<std::string> ReadBytes(const std::string& path);
void WriteBytes(const std::string& path, const std::string& bytes);
// The pieces of a text between the separators, and the lines of a text with Windows line ends.
std::vector<std::string> Split(const std::string& text, const std::string& by);
std::vector<std::string> Lines(const std::string& bytes);

// Polls until ready gives a non-null handle, or fails after the time-out.
HWND Await(const std::string& what, const std::function<HWND()>& ready, int seconds = 30);
void AwaitTrue(const std::string& what, const std::function<bool()>& ready, int seconds = 30);

// The program under test: its process, started from its exe, with the arguments given.
void StartProgram(const std::string& exe, const std::string& arguments = "");
HANDLE Program();
void AwaitProgramEnd();

// A visible top-level window of the program by class and title; an empty title matches any.
HWND FindTop(const wchar_t* windowClass, const std::string& title);
HWND AwaitTop(const wchar_t* windowClass, const std::string& title);
// A child window, at any depth, by its text, or by its class and id (-1: any id), or the first
// that passes a test.
HWND FindChild(HWND parent, const std::string& text);
HWND FindChild(HWND parent, const wchar_t* windowClass, int id);
HWND FindChildWhere(HWND parent, const std::function<bool(HWND)>& test);
std::string TextOf(HWND window);

// Posts a click on the control with this caption, once it is enabled.
void Click(HWND window, const std::string& caption);
// A key pressed in a window, which the program's loop hands to the dialog manager; and a click
// of the mouse on a control that is not a button.
void PressKey(HWND window, WPARAM key);
void ClickWithMouse(HWND control);
// Waits until the control's check mark and enabled state are as given.
void AwaitState(HWND window, const std::string& caption, bool checked, bool enabled);
// A message box: waits for it, checks it, and presses OK.
void AnswerBox(const std::string& title, const std::string& text, bool criticalIcon);
// The open-file dialog: types the path into its file name and presses Open.
void ChooseFile(const std::string& path);
void SelectListEntry(HWND window, const std::string& entry);
// Saves a picture of the window as it is on the screen, as a 24-bit BMP file.
void SaveScreenshot(HWND window, const std::string& path);

}  // namespace ui
