#include "registry/mdlRegistry.h"
#include "support/fixture.h"
#include "support/registry_cases.h"

namespace {
using namespace testing_support;

std::string KeyOf(const std::string& key) { return std::string(registry_cases::kBaseKey) + "\\" + key; }

// Reads a value and checks the registry calls of the read: one open with mask 63, the probe, a
// second query only where one is due, and a close whether the open worked or not.
void ExpectRead(const std::string& key, const std::string& name, bool secondQuery, const std::string& wanted) {
  const std::size_t before = headless::RegistryCalls().size();
  EXPECT_EQ(registry_cases::Describe(mdlRegistry::ReadRegistryValue(kHklm, key, name)), wanted);
  std::vector<std::string> expected = {"open " + key + " 63", "query " + name, "query " + name, "close"};
  if (!secondQuery) expected.erase(expected.begin() + 2);
  const std::vector<std::string>& calls = headless::RegistryCalls();
  EXPECT_EQ(std::vector<std::string>(calls.begin() + before, calls.end()), expected);
}

// The shared cases, all stored before any is read, as the check under Wine stores them.
struct RegistryRead : HeadlessTest {
  void SetUp() override {
    HeadlessTest::SetUp();
    for (const auto& c : registry_cases::Cases())
      if (c.type != 0) headless::SetValue(kHklm, KeyOf(c.key), c.value, c.type, c.data);
  }
};

class SharedCase : public RegistryRead, public testing::WithParamInterface<registry_cases::Case> {};
TEST_P(SharedCase, IsReadWithItsCalls) {
  const registry_cases::Case& c = GetParam();
  ExpectRead(KeyOf(c.key), c.value, c.type == platform::kRegSz || c.type == platform::kRegDword, c.wanted);
}
INSTANTIATE_TEST_SUITE_P(RegistryRead, SharedCase, testing::ValuesIn(registry_cases::Cases()),
                         [](const auto& row) { return std::string(row.param.key) + "_" + row.param.value; });

// A key the user may only read; a value that grows between the probe and the read.
TEST_F(RegistryRead, WhatOnlyTheHeadlessRegistryHolds) {
  headless::CreateKey(kHklm, KeyOf("ReadOnly"), headless::kKeyRead);
  headless::SetString(kHklm, KeyOf("ReadOnly"), "Folder", "C:\\G");
  ExpectRead(KeyOf("ReadOnly"), "Folder", false, "empty");
  headless::SetString(kHklm, KeyOf("Odd"), "Grows", "a");
  headless::ChangeValueAfterNextProbe(kHklm, KeyOf("Odd"), "Grows", platform::kRegSz, "abcdef");
  ExpectRead(KeyOf("Odd"), "Grows", true, "empty");
}

// The status of the query beneath: 0, -1 for a type not read, else the platform's code. Each
// row: the key ("": no handle at all), the value and the status.
using QueryStatus = Rows<RegistryRead, const char*, const char*, const char*, std::int32_t>;
TEST_P(QueryStatus, IsThePlatformsCode) {
  const auto& [row, key, name, status] = GetParam();
  platform::KeyHandle handle = 0;
  if (*key != '\0') platform::RegOpenKeyExA(kHklm, KeyOf(key), 0, 63, &handle);
  mdlRegistry::RegistryValue value;
  EXPECT_EQ(mdlRegistry::QueryRegistryValue(handle, name, value), status);
  if (handle != 0) platform::RegCloseKey(handle);
  EXPECT_EQ(headless::OpenKeyCount(), 0);
}
INSTANTIATE_TEST_SUITE_P(RegistryRead, QueryStatus, testing::ValuesIn(std::vector<QueryStatus::ParamType>{
    {"Text", "Strings", "Folder", 0}, {"TypeNotRead", "Strings", "Expand", -1}, {"Missing", "Strings", "Missing", 2},
    {"NumberTooLong", "Numbers", "Long", 234}, {"NoKey", "", "Folder", 6}}), ByName);

}  // namespace
