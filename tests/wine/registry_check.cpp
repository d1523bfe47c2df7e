// Checks the registry layer against the real registry (under Wine or on Windows).
//
//   registry_check setup   prints the "reg add" arguments of every value to write, one value a
//                          line, the arguments separated by tabs
//   registry_check check   reads every case through mdlRegistry and compares kind and bytes
#include <cstdio>
#include <cstring>
#include <string>

#include "registry/mdlRegistry.h"
#include "support/registry_cases.h"

namespace {

using registry_cases::Kind;

std::string KeyOf(const registry_cases::Case& c) {
  return std::string(registry_cases::kBaseKey) + "\\" + c.key;
}

// Bytes made visible: printable characters as they are, anything else as \xNN.
std::string Shown(const std::string& bytes) {
  std::string shown;
  for (unsigned char ch : bytes) {
    if (ch >= 0x20 && ch < 0x7F && ch != '\\') {
      shown += static_cast<char>(ch);
    } else {
      char escaped[8];
      std::snprintf(escaped, sizeof(escaped), "\\x%02X", ch);
      shown += escaped;
    }
  }
  return shown;
}

std::string Describe(const mdlRegistry::RegistryValue& value) {
  if (value.IsText()) {
    const std::string& text = std::get<std::string>(value.content);
    return "text of length " + std::to_string(text.size()) + " \"" + Shown(text) + "\"";
  }
  if (value.IsNumber()) return "number " + std::to_string(std::get<std::int32_t>(value.content));
  return "empty";
}

// What reading the case must give, as a value of the registry layer.
mdlRegistry::RegistryValue Wanted(const registry_cases::Case& c) {
  mdlRegistry::RegistryValue value;
  if (c.kind == Kind::Text) value.content = c.text;
  if (c.kind == Kind::Number) value.content = c.number;
  return value;
}

int Setup() {
  for (const auto& c : registry_cases::Cases()) {
    if (c.type == nullptr) continue;
    std::printf("HKLM\\%s\t/v\t%s\t/t\t%s\t/d\t%s\t/f\n", KeyOf(c).c_str(), c.value, c.type,
                c.data);
  }
  return 0;
}

int Check() {
  int passed = 0;
  int failed = 0;
  for (const auto& c : registry_cases::Cases()) {
    mdlRegistry::RegistryValue value =
        mdlRegistry::ReadRegistryValue(platform::kLocalMachine, KeyOf(c), c.value);
    const std::string got = Describe(value), wanted = Describe(Wanted(c));
    if (got == wanted) {
      ++passed;
      std::printf("ok    %s\n", c.description);
    } else {
      ++failed;
      std::printf("FAIL  %s: expected %s, got %s\n", c.description, wanted.c_str(), got.c_str());
    }
  }
  std::printf("%d passed, %d failed\n", passed, failed);
  return failed == 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 2 && std::strcmp(argv[1], "setup") == 0) return Setup();
  if (argc == 2 && std::strcmp(argv[1], "check") == 0) return Check();
  std::fprintf(stderr, "usage: registry_check setup|check\n");
  return 2;
}
