// The system information tool of the About window: where the registry says it lies, started
// and left to run by itself.
#include <cstdint>

#include "windows/frmAbout.h"

namespace {

// The mask that this lookup asks for, kept although nothing here writes: 0x3F is query value,
// enumerate subkeys and notify, but also set value, create subkey and create link, and
// 0x20000 is READ_CONTROL. A key that grants only reading therefore refuses the open, and the
// lookup counts as missing.
constexpr std::uint32_t kAccess = 0x2003F;
constexpr std::uint32_t kBufferSize = 1024;

// A step that cannot go on: the one box for every cause follows.
struct Unavailable {};

// "&h" and hexadecimal digits read as a number and written in decimal, as the general value
// formatter does: up to four digits make a 16-bit number, up to eight a 32-bit one. Anything
// else stays as it is.
std::string FormatHexText(const std::string& text) {
  const std::string digits = text.substr(2);
  if (digits.empty() || digits.size() > 8) return text;
  std::uint32_t number = 0;
  for (char digit : digits) {
    const int value = digit <= '9' ? digit - '0' : digit - 'A' + 10;
    number = number * 16 + static_cast<std::uint32_t>(value);
  }
  if (digits.size() <= 4) return std::to_string(static_cast<std::int16_t>(number));
  return std::to_string(static_cast<std::int32_t>(number));
}

// Each byte as its code in upper-case hexadecimal, as short as possible, last byte first.
std::string HexOfBytes(const std::string& bytes) {
  static const char kDigits[] = "0123456789ABCDEF";
  std::string hex;
  for (auto it = bytes.rbegin(); it != bytes.rend(); ++it) {
    const auto code = static_cast<unsigned char>(*it);
    if (code >= 16) hex += kDigits[code / 16];
    hex += kDigits[code % 16];
  }
  return hex;
}

}  // namespace

bool frmAbout::GetKeyValue(platform::KeyHandle& KeyRoot, std::string& KeyName,
                           std::string& SubKeyRef, std::string& KeyVal) {
  platform::KeyHandle key = 0;
  bool result = false;
  if (platform::RegOpenKeyExA(KeyRoot, KeyName, 0, kAccess, &key) != platform::kErrorSuccess) {
    KeyVal.clear();
  } else {
    std::string buffer(kBufferSize, '\0');
    std::uint32_t size = kBufferSize;
    std::uint32_t type = 0;
    if (platform::RegQueryValueExA(key, SubKeyRef, &type, buffer.data(), &size) !=
        platform::kErrorSuccess) {
      KeyVal.clear();  // a value longer than the buffer is refused too, and counts as missing
    } else {
      if (size == 0 || size > kBufferSize) {
        // No character to look at for a stored terminator: the read itself fails.
        platform::RegCloseKey(key);
        throw Unavailable{};
      }
      // A stored terminator is dropped, and no other character.
      buffer.resize(buffer[size - 1] == '\0' ? size - 1 : size);
      if (type == platform::kRegSz) KeyVal = buffer;
      if (type == platform::kRegDword) KeyVal = FormatHexText("&h" + HexOfBytes(buffer));
      result = true;  // any other type, too, with KeyVal as it came in
    }
  }
  platform::RegCloseKey(key);
  return result;
}

void frmAbout::StartSysInfo() {
  try {
    platform::KeyHandle root = platform::kLocalMachine;
    std::string pathKey = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", pathName = "PATH";
    std::string path;
    // The whole path, ready to start, and else the tool's folder.
    if (!GetKeyValue(root, pathKey, pathName, path)) {
      std::string folderKey = "SOFTWARE\\Microsoft\\Shared Tools Location", folderName = "MSINFO";
      if (!GetKeyValue(root, folderKey, folderName, path)) throw Unavailable{};
      if (!platform::NormalFileExists(path + "\\MSINFO32.EXE")) throw Unavailable{};
      path += "\\MSINFO32.EXE";
    }
    std::uint32_t processId = 0;
    platform::StartFailure failure;
    // Started and left alone: nothing waits for the tool.
    if (!platform::StartProcess(path, platform::kShowNormal, &processId, &failure)) {
      throw Unavailable{};
    }
  } catch (const Unavailable&) {
    forms::MsgBox("System Information Is Unavailable At This Time", platform::kMbOk);
  }
}
