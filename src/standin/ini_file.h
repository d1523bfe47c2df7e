// An ini file read as the game reads its configuration: [Section] lines, Key=Value lines, a
// key may repeat (Paths=), names match in any case, ";" starts a comment line, and lines may
// end in CR LF or LF.
#pragma once

#include <string>
#include <vector>

namespace standin {

class IniFile {
 public:
  IniFile() = default;
  explicit IniFile(const std::string& text);
  // False when the file cannot be opened; the IniFile is then empty.
  bool Load(const std::string& path);

  // The value of the first such key of the section, or null.
  const std::string* Find(const std::string& section, const std::string& key) const;
  // Whether the section has the key with a value that is not empty.
  bool HasValue(const std::string& section, const std::string& key) const;

 private:
  struct Entry {
    std::string section, key, value;
  };
  std::vector<Entry> entries_;
};

}  // namespace standin
