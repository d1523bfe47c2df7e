#include "standin/ini_file.h"

#include "standin/text.h"

namespace standin {

IniFile::IniFile(const std::string& text) {
  std::string section;
  std::size_t start = 0;
  while (start < text.size()) {
    std::size_t end = text.find('\n', start);
    if (end == std::string::npos) end = text.size();
    std::string line = text.substr(start, end - start);
    start = end + 1;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    line = Trim(line);
    if (line.empty() || line[0] == ';') continue;
    if (line[0] == '[') {
      const std::size_t close = line.find(']');
      section = Trim(line.substr(1, close == std::string::npos ? std::string::npos : close - 1));
      continue;
    }
    const std::size_t equals = line.find('=');
    // Lines ahead of the first section and lines without "=" mean nothing to the game.
    if (equals == std::string::npos || section.empty()) continue;
    entries_.push_back({section, Trim(line.substr(0, equals)), Trim(line.substr(equals + 1))});
  }
}

bool IniFile::Load(const std::string& path) {
  std::string text;
  const bool read = ReadWholeFile(path, text);
  *this = IniFile(read ? text : std::string());
  return read;
}

const std::string* IniFile::Find(const std::string& section, const std::string& key) const {
  for (const Entry& entry : entries_) {
    if (EqualsNoCase(entry.section, section) && EqualsNoCase(entry.key, key)) return &entry.value;
  }
  return nullptr;
}

bool IniFile::HasValue(const std::string& section, const std::string& key) const {
  for (const Entry& entry : entries_) {
    if (EqualsNoCase(entry.section, section) && EqualsNoCase(entry.key, key) &&
        !entry.value.empty())
      return true;
  }
  return false;
}

}  // namespace standin
