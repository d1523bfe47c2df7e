// The registry, straight through to advapi32 in its ANSI forms.
#include "platform/platform.h"
#include "platform/win32/win32.h"

namespace {

// The predefined roots are 32-bit numbers with the top bit set; as handles they are
// sign-extended, so on 64-bit Windows HKEY_LOCAL_MACHINE is 0xFFFFFFFF80000002.
HKEY ToHkey(platform::KeyHandle key) {
  if (key >= 0x80000000u && key <= 0x8000000Fu) {
    auto number = static_cast<std::int32_t>(static_cast<std::uint32_t>(key));
    return reinterpret_cast<HKEY>(static_cast<std::intptr_t>(number));
  }
  return reinterpret_cast<HKEY>(key);
}

}  // namespace

namespace platform {

long RegOpenKeyExA(KeyHandle root, const std::string& subKey, std::uint32_t options,
                   std::uint32_t access, KeyHandle* result) {
  HKEY opened = nullptr;
  LONG code = ::RegOpenKeyExA(ToHkey(root), subKey.c_str(), options, access, &opened);
  *result = code == ERROR_SUCCESS ? reinterpret_cast<KeyHandle>(opened) : 0;
  return code;
}

long RegQueryValueExA(KeyHandle key, const std::string& valueName, std::uint32_t* type,
                      void* data, std::uint32_t* size) {
  DWORD nativeType = 0;
  DWORD nativeSize = size != nullptr ? *size : 0;
  LONG code = ::RegQueryValueExA(ToHkey(key), valueName.c_str(), nullptr, &nativeType,
                                 static_cast<BYTE*>(data), size != nullptr ? &nativeSize : nullptr);
  if (type != nullptr) *type = nativeType;
  if (size != nullptr) *size = nativeSize;
  return code;
}

long RegCloseKey(KeyHandle key) { return ::RegCloseKey(ToHkey(key)); }

}  // namespace platform
