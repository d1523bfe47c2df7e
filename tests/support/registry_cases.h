// Registry values and what reading them must give. The headless test stores them in the
// in-memory registry; the check under Wine writes them into the real one with SHSetValueA.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "registry/mdlRegistry.h"

namespace registry_cases {

// The cases' keys lie below HKEY_LOCAL_MACHINE\<kBaseKey>.
constexpr const char* kBaseKey = "SOFTWARE\\Kelvarnite Registry Check";

struct Case {
  const char* description;
  const char* key;  // below kBaseKey
  const char* value;
  std::uint32_t type;  // 0: nothing is written
  std::string data;    // the stored bytes
  const char* wanted;  // Describe() of what ReadRegistryValue must give
};

// A value as one comparable text, its NUL made visible.
inline std::string Describe(const mdlRegistry::RegistryValue& value) {
  if (value.IsNumber()) return "number " + value.AsText();
  if (!value.IsText()) return "empty";
  std::string shown;
  for (char c : value.AsText()) shown += c == '\0' ? std::string("<NUL>") : std::string(1, c);
  return "text \"" + shown + "\"";
}

inline const std::vector<Case>& Cases() {
  using std::string;
  static const std::vector<Case> cases = {
      {"a REG_SZ path", "Strings", "Folder", 1, string("C:\\Games\\UT2003", 16),
       "text \"C:\\Games\\UT2003<NUL>\""},
      {"an empty REG_SZ", "Strings", "Empty", 1, string(1, '\0'), "text \"<NUL>\""},
      {"a REG_SZ of no bytes", "Strings", "NoBytes", 1, "", "text \"\""},
      {"a REG_EXPAND_SZ path", "Strings", "Expand", 2, string("%SystemRoot%\\G", 15), "empty"},
      {"a REG_DWORD", "Numbers", "Twelve", 4, string("\x0C\0\0\0", 4), "number 12"},
      {"a REG_DWORD with all bits set", "Numbers", "AllBits", 4, "\xFF\xFF\xFF\xFF", "number -1"},
      // Read with room for four bytes only, so the read fails rather than overrun the number.
      {"a REG_DWORD of eight bytes", "Numbers", "Long", 4, string(8, '\1'), "empty"},
      {"a missing value", "Strings", "Missing", 0, "", "empty"},
      {"a missing key", "Nowhere", "Folder", 0, "", "empty"},
  };
  return cases;
}

}  // namespace registry_cases
