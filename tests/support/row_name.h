// Names for the rows of parameterised tests. GoogleTest takes only letters, digits and
// underscores there, and `ctest -R` picks a row by its name, so a row's words are joined in
// camel case: "a tool's path, not looked for" is "AToolsPathNotLookedFor".
#pragma once

#include <gtest/gtest.h>

#include <cctype>
#include <string>
#include <type_traits>

namespace testing_support {

inline std::string RowName(const std::string& words) {
  std::string name;
  bool wordStarts = true;
  for (const char c : words) {
    if (c == '\'') continue;  // "tool's" stays one word
    const bool kept = std::isalnum(static_cast<unsigned char>(c)) || c == '_';
    if (kept) name += wordStarts ? static_cast<char>(std::toupper(static_cast<unsigned char>(c))) : c;
    wordStarts = !kept;
  }
  return name;
}

// The name generator of INSTANTIATE_TEST_SUITE_P for rows that are texts or have a `name`.
struct ByName {
  template <class Row>
  std::string operator()(const testing::TestParamInfo<Row>& row) const {
    if constexpr (std::is_convertible_v<Row, std::string>) return RowName(row.param);
    else return RowName(row.param.name);
  }
};

}  // namespace testing_support
