// Everything the program needs from the operating system, in one place.
//
// The core and the windows call only these functions. Exactly one implementation is linked
// into a binary: win32/ for the real program, headless/ for the unit tests. Texts are byte
// strings in the system's ANSI code page, as the A-functions of Win32 take them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace forms {
class Window;
class Control;
}

namespace platform {

// ---- Registry ------------------------------------------------------------------------------
// A key handle; 0 means that no key is open. Predefined roots use their Win32 numbers.
using KeyHandle = std::uintptr_t;
constexpr KeyHandle kLocalMachine = 0x80000002u;

constexpr std::uint32_t kRegSz = 1;
constexpr std::uint32_t kRegExpandSz = 2;
constexpr std::uint32_t kRegBinary = 3;
constexpr std::uint32_t kRegDword = 4;
constexpr std::uint32_t kRegMultiSz = 7;

constexpr long kErrorSuccess = 0;
constexpr long kErrorFileNotFound = 2;
constexpr long kErrorAccessDenied = 5;
constexpr long kErrorInvalidHandle = 6;
constexpr long kErrorMoreData = 234;

long RegOpenKeyExA(KeyHandle root, const std::string& subKey, std::uint32_t options,
                   std::uint32_t access, KeyHandle* result);
// data may be null: then only the type and the size the data needs are reported.
long RegQueryValueExA(KeyHandle key, const std::string& valueName, std::uint32_t* type,
                      void* data, std::uint32_t* size);
long RegCloseKey(KeyHandle key);

// ---- Processes -----------------------------------------------------------------------------
using ProcessHandle = std::uintptr_t;
constexpr int kShowNormal = 1;
constexpr int kShowMinimized = 2;
constexpr std::uint32_t kSynchronize = 0x100000;
constexpr std::uint32_t kInfinite = 0xFFFFFFFFu;

// Why a program could not be started: a number in the tradition of the Shell function
// (53: the file does not exist) and a description for the user.
struct StartFailure {
  int number = 0;
  std::string description;
};

// Starts the program named by the first (quoted) part of the line and returns its process
// id at once, without waiting for it.
bool StartProcess(const std::string& commandLine, int windowStyle, std::uint32_t* processId,
                  StartFailure* failure);
ProcessHandle OpenProcess(std::uint32_t access, bool inherit, std::uint32_t processId);
std::uint32_t WaitForSingleObject(ProcessHandle handle, std::uint32_t milliseconds);
void CloseHandle(ProcessHandle handle);

// ---- Shell and message box -----------------------------------------------------------------
using WindowHandle = std::uintptr_t;

// A null text pointer stands for the absent argument of the Win32 call.
std::intptr_t ShellExecuteA(WindowHandle owner, const char* operation, const char* file,
                            const char* parameters, const char* directory, int showCommand);

constexpr int kMbOk = 0;
constexpr int kMbIconCritical = 16;
// Modal; blocks until the user has closed it. The owner is the window that is active.
int MessageBoxA(const std::string& text, const std::string& title, int flags);

// ---- File dialog ---------------------------------------------------------------------------
constexpr int kCancelError = 32755;
struct FileDialogResult {
  int errorNumber = 0;  // kCancelError when the user cancelled
  std::string fileName;
};
// filter is "description|pattern".
FileDialogResult ShowOpenFileDialog(const std::string& filter);

// ---- Files ---------------------------------------------------------------------------------
// Paths are Windows paths. On failure the reason is a short text for the user.
bool WriteTextFile(const std::string& path, const std::string& bytes, bool append,
                   std::string* reason);
// Reads at most limit bytes from the start of the file.
bool ReadTextFile(const std::string& path, std::string* bytes, std::string* reason,
                  std::size_t limit = static_cast<std::size_t>(-1));
// A file that is read-only or not, but no folder, not hidden and not a system file.
bool NormalFileExists(const std::string& path);
// Makes the folder and any of its parents that are missing; true when it exists afterwards.
bool CreateFolder(const std::string& path, std::string* reason);
// Puts the file from in the place of the file to, which may exist; from is gone afterwards.
bool MoveFileOver(const std::string& from, const std::string& to, std::string* reason);

// ---- Program -------------------------------------------------------------------------------
// The folder of the running program; it ends in a backslash only for the root of a drive.
std::string ProgramFolder();
// The whole command line of the process, the program's own name first, as the system gave it.
std::string CommandLine();
// Ends the process at once, with all its windows; no further code of the program runs.
[[noreturn]] void EndProcess(int exitCode = 0);
// The local time as "YYYY-MM-DD HH:MM:SS".
std::string LocalTime();

std::string ApplicationTitle();
struct Version {
  int major, minor, revision;
};
Version ApplicationVersion();

// ---- Native windows ------------------------------------------------------------------------
// The forms layer keeps the state of every window and control; these calls mirror it on the
// screen. The headless implementation hands out handles and keeps nothing else.
WindowHandle CreateNativeWindow(forms::Window& window);
// Shows the window, with its controls as its load left them, or brings it to the front when
// it is on the screen already.
void ShowNativeWindow(forms::Window& window);
// The window's caption changed from code: show the new one, and nothing else.
void UpdateNativeWindow(forms::Window& window);
void DestroyNativeWindow(forms::Window& window);
// A property of a control changed from code: show the new state.
void UpdateNativeControl(forms::Control& control);
// Serves window events until the process ends.
int RunEventLoop();
// Draws what is waiting to be drawn and takes no other input: between the runs of a batch,
// which runs outside the event loop.
void PaintWindows();

}  // namespace platform
