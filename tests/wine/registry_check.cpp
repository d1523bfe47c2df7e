// Checks the registry layer against the real registry (under Wine or on Windows): writes each
// case of the shared table with the system's own calls, then reads it through mdlRegistry.
#include <windows.h>

#include <cstdio>
#include <string>

#include "support/registry_cases.h"

namespace {

bool Write(const std::string& key, const registry_cases::Case& c) {
  HKEY handle = nullptr;
  if (::RegCreateKeyExA(HKEY_LOCAL_MACHINE, key.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                        &handle, nullptr) != ERROR_SUCCESS) {
    return false;
  }
  const LONG code = ::RegSetValueExA(handle, c.value, 0, c.type,
                                     reinterpret_cast<const BYTE*>(c.data.data()),
                                     static_cast<DWORD>(c.data.size()));
  ::RegCloseKey(handle);
  return code == ERROR_SUCCESS;
}

}  // namespace

int main() {
  int failed = 0;
  for (const auto& c : registry_cases::Cases()) {
    const std::string key = std::string(registry_cases::kBaseKey) + "\\" + c.key;
    std::string got = "a value that cannot be written";
    if (c.type == 0 || Write(key, c)) {
      got = registry_cases::Describe(
          mdlRegistry::ReadRegistryValue(platform::kLocalMachine, key, c.value));
    }
    if (got == c.wanted) {
      std::printf("ok    %s\n", c.description);
    } else {
      ++failed;
      std::printf("FAIL  %s: expected %s, got %s\n", c.description, c.wanted, got.c_str());
    }
  }
  std::printf("%zu cases, %d failed\n", registry_cases::Cases().size(), failed);
  return failed == 0 ? 0 : 1;
}
