// The message box, the shell and the file dialog.
#include <algorithm>
#include <vector>

#include "platform/platform.h"
#include "platform/win32/win32.h"

#include <commdlg.h>
#include <shellapi.h>

namespace {

// While a box or a dialog is open, no other window of the program may take a click: a test
// started there would run nested inside the code that is waiting for the box.
class OtherWindowsDisabled {
 public:
  explicit OtherWindowsDisabled(HWND owner) : owner_(owner) {
    ::EnumThreadWindows(::GetCurrentThreadId(), &Disable, reinterpret_cast<LPARAM>(this));
  }
  ~OtherWindowsDisabled() {
    for (HWND window : disabled_) ::EnableWindow(window, TRUE);
  }
  OtherWindowsDisabled(const OtherWindowsDisabled&) = delete;
  OtherWindowsDisabled& operator=(const OtherWindowsDisabled&) = delete;

 private:
  static BOOL CALLBACK Disable(HWND window, LPARAM self) {
    auto* guard = reinterpret_cast<OtherWindowsDisabled*>(self);
    if (window != guard->owner_ && ::IsWindowVisible(window) && ::IsWindowEnabled(window)) {
      ::EnableWindow(window, FALSE);
      guard->disabled_.push_back(window);
    }
    return TRUE;
  }
  HWND owner_;
  std::vector<HWND> disabled_;
};

}  // namespace

namespace platform {

// The shell and the file dialog are loaded when they are first used: with them the system
// brings in much of itself, the printing stack among it, which a start of the program would
// otherwise wait for.
std::intptr_t ShellExecuteA(WindowHandle owner, const char* operation, const char* file,
                            const char* parameters, const char* directory, int showCommand) {
  static const auto shellExecute =
      win32::LateBound<decltype(&::ShellExecuteA)>("shell32.dll", "ShellExecuteA");
  if (shellExecute == nullptr) return 0;
  HINSTANCE result =
      shellExecute(win32::ToHwnd(owner), operation, file, parameters, directory, showCommand);
  return reinterpret_cast<std::intptr_t>(result);
}

int MessageBoxA(const std::string& text, const std::string& title, int flags) {
  // Owned by the active window, which the box disables itself.
  HWND owner = ::GetActiveWindow();
  OtherWindowsDisabled guard(owner);
  return ::MessageBoxA(owner, text.c_str(), title.c_str(), static_cast<UINT>(flags));
}

FileDialogResult ShowOpenFileDialog(const std::string& filter) {
  // "description|pattern|..." becomes the NUL-separated list ended by two NULs.
  std::string pairs = filter;
  std::replace(pairs.begin(), pairs.end(), '|', '\0');
  pairs.push_back('\0');
  pairs.push_back('\0');

  // Room for any path, so the dialog never fails for want of space.
  std::vector<char> fileName(32768, '\0');
  OPENFILENAMEA dialog{};
  // The size that Windows 98, ME and NT 4.0 accept, and later Windows too: the full structure
  // carries three fields that came with Windows 2000, and older dialogs refuse its size.
  dialog.lStructSize = OPENFILENAME_SIZE_VERSION_400A;
  dialog.hwndOwner = ::GetActiveWindow();
  dialog.lpstrFilter = pairs.c_str();
  dialog.nFilterIndex = 1;
  dialog.lpstrFile = fileName.data();
  dialog.nMaxFile = static_cast<DWORD>(fileName.size());
  // No flags: whatever the user names is taken as it is, as the chosen file is not tested, and
  // the dialog keeps its read-only box, which the system shows unless it is told to hide it.
  dialog.Flags = 0;

  static const auto getOpenFileName =
      win32::LateBound<decltype(&::GetOpenFileNameA)>("comdlg32.dll", "GetOpenFileNameA");
  static const auto extendedError =
      win32::LateBound<decltype(&::CommDlgExtendedError)>("comdlg32.dll", "CommDlgExtendedError");
  FileDialogResult result;
  if (getOpenFileName == nullptr || extendedError == nullptr) {
    // Told by a number of its own: the system's last error is long gone after the first call.
    result.errorNumber = ERROR_MOD_NOT_FOUND;
    return result;
  }
  OtherWindowsDisabled guard(dialog.hwndOwner);
  if (getOpenFileName(&dialog)) {
    result.fileName = fileName.data();
    return result;
  }
  DWORD error = extendedError();
  // No extended error means the user cancelled; anything else is the dialog's own failure.
  result.errorNumber = error == 0 ? kCancelError : static_cast<int>(error);
  return result;
}

}  // namespace platform
