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

}  // namespace platform
