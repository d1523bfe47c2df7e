// The running program: its folder and its end.
#include <cstring>
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

Version ApplicationVersion() {
  // The file version of the program's own version resource.
  Version version{0, 0, 0};
  HRSRC resource = ::FindResourceA(nullptr, MAKEINTRESOURCEA(1), MAKEINTRESOURCEA(16));  // RT_VERSION
  HGLOBAL loaded = resource != nullptr ? ::LoadResource(nullptr, resource) : nullptr;
  const char* data = loaded != nullptr ? static_cast<const char*>(::LockResource(loaded)) : nullptr;
  if (data == nullptr) return version;
  // The fixed part follows the block's header and key, "VS_VERSION_INFO" in UTF-16, on a
  // four-byte boundary; its signature tells that it was found.
  const std::size_t offset = (6 + sizeof(L"VS_VERSION_INFO") + 3) & ~static_cast<std::size_t>(3);
  if (::SizeofResource(nullptr, resource) < offset + sizeof(VS_FIXEDFILEINFO)) return version;
  VS_FIXEDFILEINFO info;
  std::memcpy(&info, data + offset, sizeof(info));
  if (info.dwSignature != 0xFEEF04BDu) return version;
  return {static_cast<int>(HIWORD(info.dwFileVersionMS)), static_cast<int>(LOWORD(info.dwFileVersionMS)),
          static_cast<int>(HIWORD(info.dwFileVersionLS))};
}

std::string CommandLine() { return ::GetCommandLineA(); }

void EndProcess(int exitCode) { ::ExitProcess(static_cast<UINT>(exitCode)); }

std::string LocalTime() {
  SYSTEMTIME now;
  ::GetLocalTime(&now);
  std::string text = "0000-00-00 00:00:00";
  const WORD parts[] = {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond};
  // Each part ends where its field ends, and is written from its last digit backwards.
  const int ends[] = {3, 6, 9, 12, 15, 18};
  for (int i = 0; i < 6; ++i) {
    for (int at = ends[i], number = parts[i]; number > 0; --at, number /= 10) text[at] = static_cast<char>('0' + number % 10);
  }
  return text;
}

}  // namespace platform
