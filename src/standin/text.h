// Text, path and file helpers of the stand-in game, all portable.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace standin {

bool EqualsNoCase(const std::string& a, const std::string& b);
bool StartsWithNoCase(const std::string& text, const std::string& prefix);
std::string Trim(const std::string& text);

// Splits at blanks and tabs; a blank between double quotes stays inside its word, and the
// quotes stay too, so that `ini="C:\Program Files\x.ini"` is one word.
std::vector<std::string> SplitWords(const std::string& text);
// A word without its double quotes.
std::string Unquote(const std::string& word);

// Reads "123" or "1.25" as a whole number of 10^-decimals units (1.25 with 3 decimals is
// 1250); further decimals are dropped. False for anything else, or for a value too large.
bool ParseFixed(const std::string& text, int decimals, std::uint64_t& value);

// Paths of either kind of separator: a Windows path keeps its backslashes and a path of the
// build machine its slashes.
std::string ParentFolder(const std::string& path);
std::string JoinPath(const std::string& folder, const std::string& name);
bool IsAbsolutePath(const std::string& path);

bool ReadWholeFile(const std::string& path, std::string& bytes);
// Appends the bytes as they are; false when the file cannot be opened, for example because
// its folder is missing.
bool AppendToFile(const std::string& path, const std::string& bytes);

}  // namespace standin
