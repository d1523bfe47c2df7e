// Names for the rows of parameterised tests. GoogleTest takes only letters, digits and
// underscores there, and `ctest -R` picks a row by its name, so a row's words are joined in
// camel case: "a tool's path, not looked for" is "AToolsPathNotLookedFor".
#pragma once

#include <gtest/gtest.h>

#include <cctype>
#include <string>
#include <tuple>

namespace testing_support {

inline std::string RowName(const std::string& words) {
  std::string name;
  bool wordStarts = true;
  for (const unsigned char c : words) {
    if (c == '\'') continue;  // "tool's" stays one word
    const bool kept = std::isalnum(c) || c == '_';
    if (kept) name += static_cast<char>(wordStarts ? std::toupper(c) : c);
    wordStarts = !kept;
  }
  return name;
}

// The name generator of INSTANTIATE_TEST_SUITE_P: a row is a text, or a tuple that begins with one.
inline std::string NameOf(const std::string& text) { return RowName(text); }
template <class... Fields>
std::string NameOf(const std::tuple<Fields...>& row) { return RowName(std::get<0>(row)); }
inline constexpr auto ByName = [](const auto& row) { return NameOf(row.param); };

// The fixture of a table: its tests run once for each row, a tuple of these fields.
template <class Fixture, class... Fields>
class Rows : public Fixture, public testing::WithParamInterface<std::tuple<Fields...>> {};

}  // namespace testing_support
