#include "standin/text.h"

#include <cctype>
#include <cstdio>

namespace standin {

namespace {

char Lower(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }
bool IsBlank(char c) { return c == ' ' || c == '\t'; }
bool IsSeparator(char c) { return c == '\\' || c == '/'; }

}  // namespace

bool EqualsNoCase(const std::string& a, const std::string& b) {
  return a.size() == b.size() && StartsWithNoCase(a, b);
}

bool StartsWithNoCase(const std::string& text, const std::string& prefix) {
  if (text.size() < prefix.size()) return false;
  for (std::size_t i = 0; i < prefix.size(); ++i) {
    if (Lower(text[i]) != Lower(prefix[i])) return false;
  }
  return true;
}

std::string Trim(const std::string& text) {
  std::size_t begin = 0, end = text.size();
  while (begin < end && IsBlank(text[begin])) ++begin;
  while (end > begin && IsBlank(text[end - 1])) --end;
  return text.substr(begin, end - begin);
}

std::vector<std::string> SplitWords(const std::string& text) {
  std::vector<std::string> words;
  std::string word;
  bool quoted = false, inWord = false;
  for (char c : text) {
    if (!quoted && IsBlank(c)) {
      if (inWord) words.push_back(word);
      word.clear();
      inWord = false;
      continue;
    }
    if (c == '"') quoted = !quoted;
    word += c;
    inWord = true;
  }
  if (inWord) words.push_back(word);
  return words;
}

std::string Unquote(const std::string& word) {
  std::string plain;
  for (char c : word) {
    if (c != '"') plain += c;
  }
  return plain;
}

bool ParseFixed(const std::string& text, int decimals, std::uint64_t& value) {
  const std::uint64_t limit = 1000000000000ULL;
  std::uint64_t result = 0;
  int fraction = -1;  // decimals read behind the point, or -1 before it
  bool digits = false;
  for (char c : text) {
    if (c == '.' && fraction < 0) {
      fraction = 0;
    } else if (std::isdigit(static_cast<unsigned char>(c))) {
      digits = true;
      if (fraction >= decimals) continue;
      if (fraction >= 0) ++fraction;
      result = result * 10 + static_cast<std::uint64_t>(c - '0');
      if (result > limit) return false;
    } else {
      return false;
    }
  }
  for (int i = fraction < 0 ? 0 : fraction; i < decimals; ++i) result *= 10;
  value = result;
  return digits;
}

std::string ParentFolder(const std::string& path) {
  std::size_t end = path.size();
  while (end > 0 && IsSeparator(path[end - 1])) --end;
  while (end > 0 && !IsSeparator(path[end - 1])) --end;
  while (end > 1 && IsSeparator(path[end - 1])) --end;
  return path.substr(0, end);
}

std::string JoinPath(const std::string& folder, const std::string& name) {
  if (folder.empty()) return name;
  if (IsSeparator(folder.back())) return folder + name;
  const char separator = folder.find('\\') != std::string::npos ? '\\' : '/';
  return folder + separator + name;
}

bool IsAbsolutePath(const std::string& path) {
  if (!path.empty() && IsSeparator(path[0])) return true;
  return path.size() >= 2 && path[1] == ':' && std::isalpha(static_cast<unsigned char>(path[0]));
}

bool ReadWholeFile(const std::string& path, std::string& bytes) {
  std::FILE* file = std::fopen(path.c_str(), "rb");
  if (!file) return false;
  bytes.clear();
  char buffer[4096];
  std::size_t got;
  while ((got = std::fread(buffer, 1, sizeof buffer, file)) > 0) bytes.append(buffer, got);
  std::fclose(file);
  return true;
}

bool AppendToFile(const std::string& path, const std::string& bytes) {
  std::FILE* file = std::fopen(path.c_str(), "ab");
  if (!file) return false;
  const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
  return std::fclose(file) == 0 && written;
}

}  // namespace standin
