// Expected file contents written as readable text: one line per source line, a "|" closing
// every line so that trailing blanks stay visible. Gives the bytes with CR LF line ends.
#pragma once

#include <string>

namespace testing_support {

inline std::string CrLfText(const std::string& text) {
  std::string bytes;
  std::size_t start = text.front() == '\n' ? 1 : 0;
  for (std::size_t end; (end = text.find('\n', start)) != std::string::npos; start = end + 1) {
    std::string line = text.substr(start, end - start);
    if (!line.empty() && line.back() == '|') line.pop_back();
    bytes += line + "\r\n";
  }
  return bytes;
}

}  // namespace testing_support
