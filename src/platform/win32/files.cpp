// Text files as whole byte strings, read, written or appended in one call.
#include <algorithm>

#include "platform/platform.h"
#include "platform/system_errors.h"
#include "platform/win32/scoped.h"

namespace {

bool Fail(std::string* reason, DWORD code) {
  if (reason != nullptr) *reason = platform::FileFailureReason(code, win32::SystemMessage(code));
  return false;
}

}  // namespace

namespace platform {

bool WriteTextFile(const std::string& path, const std::string& bytes, bool append,
                   std::string* reason) {
  win32::ScopedFile file(::CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                       append ? OPEN_ALWAYS : CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file.valid()) return Fail(reason, ::GetLastError());
  if (append && ::SetFilePointer(file.get(), 0, nullptr, FILE_END) == INVALID_SET_FILE_POINTER &&
      ::GetLastError() != NO_ERROR) {
    return Fail(reason, ::GetLastError());
  }
  std::size_t done = 0;
  while (done < bytes.size()) {
    DWORD chunk = static_cast<DWORD>(std::min<std::size_t>(bytes.size() - done, 1u << 20));
    DWORD written = 0;
    if (!::WriteFile(file.get(), bytes.data() + done, chunk, &written, nullptr)) {
      return Fail(reason, ::GetLastError());
    }
    // Nothing went out and nothing was reported: the volume has no room left.
    if (written == 0) return Fail(reason, ERROR_DISK_FULL);
    done += written;
  }
  // Closed here rather than by the owner, since a failing close can lose what was written.
  if (!::CloseHandle(file.release())) return Fail(reason, ::GetLastError());
  return true;
}

bool ReadTextFile(const std::string& path, std::string* bytes, std::string* reason,
                  std::size_t limit) {
  const win32::ScopedFile file(::CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                             nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file.valid()) return Fail(reason, ::GetLastError());
  std::string content;
  char buffer[65536];
  while (content.size() < limit) {
    DWORD read = 0;
    DWORD wanted = static_cast<DWORD>(std::min<std::size_t>(sizeof(buffer), limit - content.size()));
    if (!::ReadFile(file.get(), buffer, wanted, &read, nullptr)) return Fail(reason, ::GetLastError());
    if (read == 0) break;
    content.append(buffer, read);
  }
  *bytes = std::move(content);
  return true;
}

// Read-only and archive, the attributes of an ordinary installed file, do not count against it.
bool NormalFileExists(const std::string& path) {
  const DWORD attributes = ::GetFileAttributesA(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES &&
         (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM)) == 0;
}

bool CreateFolder(const std::string& path, std::string* reason) {
  // The parents first, from the top; a drive or a parent that exists simply fails.
  for (std::size_t slash = path.find('\\'); slash != std::string::npos; slash = path.find('\\', slash + 1)) {
    ::CreateDirectoryA(path.substr(0, slash).c_str(), nullptr);
  }
  if (::CreateDirectoryA(path.c_str(), nullptr)) return true;
  const DWORD error = ::GetLastError();
  const DWORD attributes = ::GetFileAttributesA(path.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return true;
  return Fail(reason, error);
}

bool MoveFileOver(const std::string& from, const std::string& to, std::string* reason) {
  // In one step where the system can: Windows 98 and ME have MoveFileExA only as a stub that
  // fails, so there the old file goes first, and for that moment only the new one exists.
  static const auto moveFileEx =
      win32::LateBound<decltype(&::MoveFileExA)>("kernel32.dll", "MoveFileExA");
  if (moveFileEx != nullptr && moveFileEx(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING)) return true;
  ::DeleteFileA(to.c_str());
  if (::MoveFileA(from.c_str(), to.c_str())) return true;
  return Fail(reason, ::GetLastError());
}

}  // namespace platform
