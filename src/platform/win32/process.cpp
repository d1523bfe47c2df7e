// Starting the game and waiting for it.
#include <vector>

#include "platform/platform.h"
#include "platform/system_errors.h"
#include "platform/win32/win32.h"

namespace win32 {

std::string SystemMessage(DWORD code) {
  char* buffer = nullptr;
  DWORD length = ::FormatMessageA(
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
      nullptr, code, MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT), reinterpret_cast<char*>(&buffer),
      0, nullptr);
  std::string text;
  if (length != 0 && buffer != nullptr) text.assign(buffer, length);
  if (buffer != nullptr) ::LocalFree(buffer);
  return text;  // trimmed where it is told
}

}  // namespace win32


namespace platform {

bool StartProcess(const std::string& commandLine, int windowStyle, std::uint32_t* processId,
                  StartFailure* failure) {
  // CreateProcessA may write into the line, so it gets a copy of its own.
  std::vector<char> line(commandLine.begin(), commandLine.end());
  line.push_back('\0');
  STARTUPINFOA startup{};
  startup.cb = sizeof(startup);
  startup.dwFlags = STARTF_USESHOWWINDOW;
  startup.wShowWindow = static_cast<WORD>(windowStyle);
  PROCESS_INFORMATION info{};
  if (!::CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &info)) {
    DWORD code = ::GetLastError();
    if (failure != nullptr) *failure = StartFailureForSystemError(code, win32::SystemMessage(code));
    return false;
  }
  // The caller waits through a handle of its own, opened by the process id.
  ::CloseHandle(info.hThread);
  ::CloseHandle(info.hProcess);
  if (processId != nullptr) *processId = info.dwProcessId;
  return true;
}

ProcessHandle OpenProcess(std::uint32_t access, bool inherit, std::uint32_t processId) {
  return reinterpret_cast<ProcessHandle>(::OpenProcess(access, inherit ? TRUE : FALSE, processId));
}

std::uint32_t WaitForSingleObject(ProcessHandle handle, std::uint32_t milliseconds) {
  return ::WaitForSingleObject(reinterpret_cast<HANDLE>(handle), milliseconds);
}

void CloseHandle(ProcessHandle handle) {
  if (handle != 0) ::CloseHandle(reinterpret_cast<HANDLE>(handle));
}

}  // namespace platform
