// Registry values and what reading them must give. The headless tests store them in the
// in-memory registry; the check under Wine writes them with "reg add" and reads the real one.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace registry_cases {

// The cases' keys lie below HKEY_LOCAL_MACHINE\<kBaseKey>.
constexpr const char* kBaseKey = "SOFTWARE\\Kelvarnite Registry Check";

enum class Kind { Empty, Text, Number };

struct Case {
  const char* description;
  const char* key;    // below kBaseKey
  const char* value;  // the value's name
  const char* type;   // as "reg add /t" takes it; null: nothing is written
  const char* data;   // as "reg add /d" takes it
  Kind kind;          // what ReadRegistryValue must give
  std::string text;   // for Kind::Text, the terminating NUL included
  std::int32_t number;
};

inline const std::vector<Case>& Cases() {
  static const std::vector<Case> cases = {
      {"a REG_SZ path", "Strings", "Folder", "REG_SZ", "C:\\Games\\UT2003", Kind::Text,
       std::string("C:\\Games\\UT2003") + '\0', 0},
      {"an empty REG_SZ", "Strings", "Empty", "REG_SZ", "", Kind::Text, std::string(1, '\0'), 0},
      {"a REG_EXPAND_SZ path", "Strings", "Expand", "REG_EXPAND_SZ", "%SystemRoot%\\Games",
       Kind::Empty, "", 0},
      {"a REG_DWORD", "Numbers", "Twelve", "REG_DWORD", "12", Kind::Number, "", 12},
      {"a REG_DWORD with all bits set", "Numbers", "AllBits", "REG_DWORD", "4294967295",
       Kind::Number, "", -1},
      {"a missing value", "Strings", "Missing", nullptr, "", Kind::Empty, "", 0},
      {"a missing key", "Nowhere", "Folder", nullptr, "", Kind::Empty, "", 0},
  };
  return cases;
}

}  // namespace registry_cases
