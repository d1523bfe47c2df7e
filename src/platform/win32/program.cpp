// The running program: its folder and its end.
#include <vector>

#include "platform/platform.h"
#include "platform/win32/win32.h"

namespace platform {

std::string ProgramFolder() {
  std::vector<char> buffer(MAX_PATH);
  for (;;) {
    DWORD length = ::GetModuleFileNameA(nullptr, buffer.data(), static_cast<DWORD>(buffer.size()));
    if (length == 0) return std::string();
    if (length < buffer.size()) {
      buffer.resize(length);
      break;
    }
    buffer.resize(buffer.size() * 2);  // the name was cut short; long paths exist
  }
  std::string path(buffer.begin(), buffer.end());
  std::size_t slash = path.find_last_of('\\');
  if (slash == std::string::npos) return std::string();
  std::string folder = path.substr(0, slash);
  // "C:" alone would mean the current folder of drive C, not its root.
  if (folder.size() == 2 && folder[1] == ':') folder += '\\';
  return folder;
}

void EndProcess() {
  ::ExitProcess(0);
}

}  // namespace platform
