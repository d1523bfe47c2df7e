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
void AwaitProgramEnd(int seconds = 20);

// A visible top-level window of the program by class and title; an empty title matches any.
HWND FindTop(const wchar_t* windowClass, const std::string& title);
// Waits for it for the given time: the program opens a window at once, but starts more slowly.
HWND AwaitTop(const wchar_t* windowClass, const std::string& title, int seconds = 10);
// A child window, at any depth, by its text, or by its class and id (-1: any id), or the first
// that passes a test.
HWND FindChild(HWND parent, const std::string& text);
HWND FindChild(HWND parent, const wchar_t* windowClass, int id);
HWND FindChildWhere(HWND parent, const std::function<bool(HWND)>& test);
std::string TextOf(HWND window);

// Posts a click on the control with this caption, once it is enabled.
void Click(HWND window, const std::string& caption);
// Waits until the control's check mark and enabled state are as given.
void AwaitState(HWND window, const std::string& caption, bool checked, bool enabled);
// A message box: waits for it, checks it, and presses OK.
void AnswerBox(const std::string& title, const std::string& text, bool criticalIcon);
// The open-file dialog: types the path into its file name and presses Open.
void ChooseFile(const std::string& path);
void SelectListEntry(HWND window, const std::string& entry);

// ---- What only the display or the program's own process sees ---------------------------------
// A command of the host's shell, where xdotool gives real input on the display, as a user does
// ("xdotool key alt h a": the keys go to the window in front), and ImageMagick takes pictures.
void Host(const std::string& command);
// The pointer to the middle of a window, or with none to the screen's far corner.
void MovePointer(HWND window);
// Types the text into an edit box, a WM_CHAR a character, and waits until the box shows it.
void Type(HWND box, const std::string& text);
// The probe, probe.dll hooked into the program's thread, reads what no other process can: the
// entries a user can choose in a window's menu bar and system menu, "<path><caption> = <id>"
// each, a drop-down's path "<caption> > ", the system menu's "system > ".
inline const std::string kProbeFile = kDriverFolder + "\\probe.txt";
constexpr char kProbeMessage[] = "KelvarniteProbe";
std::vector<std::string> Probe(HWND window);

}  // namespace ui
