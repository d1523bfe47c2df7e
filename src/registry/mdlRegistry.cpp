#include "registry/mdlRegistry.h"

namespace mdlRegistry {
std::string RegistryValue::AsText() const {
  if (const auto* text = std::get_if<std::string>(&content)) return *text;
  if (const auto* number = std::get_if<std::int32_t>(&content)) return std::to_string(*number);
  return {};
}

// The default access, 63, is query value, set value, create subkey, enumerate subkeys, notify
// and create link.
RegistryValue ReadRegistryValue(platform::KeyHandle root, const std::string& keyName,
                                const std::string& valueName, std::uint32_t access) {
  // A failed open leaves the handle at 0; the query then fails on it and the value stays
  // empty, so its result code need not be looked at.
  platform::KeyHandle key = 0;
  platform::RegOpenKeyExA(root, keyName, 0, access, &key);
  RegistryValue value;
  QueryRegistryValue(key, valueName, value);
  platform::RegCloseKey(key);
  return value;
}

std::int32_t QueryRegistryValue(platform::KeyHandle keyHandle, const std::string& valueName,
                                RegistryValue& value) {
  std::uint32_t type = 0;
  std::uint32_t size = 0;
  long status = platform::RegQueryValueExA(keyHandle, valueName, &type, nullptr, &size);
  if (status != platform::kErrorSuccess) return static_cast<std::int32_t>(status);

  if (type == platform::kRegSz) {
    std::string buffer(size, '\0');
    status = platform::RegQueryValueExA(keyHandle, valueName, &type, buffer.data(), &size);
    if (status != platform::kErrorSuccess) return static_cast<std::int32_t>(status);
    buffer.resize(size);
    value.content = std::move(buffer);
    return 0;
  }

  if (type == platform::kRegDword) {
    // A malformed REG_DWORD longer than four bytes must not write past the number: the query
    // is told four bytes at most, and fails for it.
    unsigned char bytes[4] = {0, 0, 0, 0};
    std::uint32_t bytesSize = size < sizeof bytes ? size : static_cast<std::uint32_t>(sizeof bytes);
    status = platform::RegQueryValueExA(keyHandle, valueName, &type, bytes, &bytesSize);
    if (status != platform::kErrorSuccess) return static_cast<std::int32_t>(status);
    // The stored bytes are little-endian, whatever the host.
    std::uint32_t number = 0;
    for (int i = 3; i >= 0; --i) number = (number << 8) | bytes[i];
    value.content = static_cast<std::int32_t>(number);
    return 0;
  }

  return -1;
}

}  // namespace mdlRegistry
