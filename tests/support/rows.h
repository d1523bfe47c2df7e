// Tables of parameterised tests. Each row begins with its name, which GoogleTest takes of
// letters, digits and underscores only, so that `ctest -R` can pick one row and its failure
// stands alone.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace testing_support {

// The fixture of a table: its tests run once for each row, a tuple of these fields.
template <class Fixture, class... Fields>
class Rows : public Fixture, public testing::WithParamInterface<std::tuple<Fields...>> {};

// The name generator of INSTANTIATE_TEST_SUITE_P: the first field of the row.
inline constexpr auto ByName = [](const auto& row) { return std::string(std::get<0>(row.param)); };

}  // namespace testing_support
