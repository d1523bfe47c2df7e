#include <tuple>

#include "registry/mdlRegistry.h"
#include "support/fixture.h"
#include "support/registry_cases.h"

namespace {
using namespace testing_support;

std::string KeyOf(const std::string& key) { return std::string(registry_cases::kBaseKey) + "\\" + key; }

// Reads a value and checks the registry calls of the read: one open with mask 63, the probe, a
// second query only where one is due, and a close whether the open worked or not.
void ExpectRead(const std::string& key, const std::string& name, bool secondQuery,
                const std::string& wanted) {
  const std::size_t before = headless::RegistryCalls().size();
  EXPECT_EQ(registry_cases::Describe(mdlRegistry::ReadRegistryValue(kHklm, key, name)), wanted);
  std::vector<std::string> expected = {"open " + key + " 63", "query " + name, "query " + name, "close"};
  if (!secondQuery) expected.erase(expected.begin() + 2);
  const std::vector<std::string>& calls = headless::RegistryCalls();
  EXPECT_EQ(std::vector<std::string>(calls.begin() + before, calls.end()), expected);
}

class RegistryRead : public HeadlessTest {};

TEST_F(RegistryRead, SharedCasesThenWhatOnlyTheHeadlessRegistryHolds) {
  for (const auto& c : registry_cases::Cases())
    if (c.type != 0) headless::SetValue(kHklm, KeyOf(c.key), c.value, c.type, c.data);
  for (const auto& c : registry_cases::Cases()) {
    SCOPED_TRACE(c.description);
    ExpectRead(KeyOf(c.key), c.value, c.type == platform::kRegSz || c.type == platform::kRegDword,
               c.wanted);
  }
  // A key the user may only read; a value that grows between the probe and the read.
  headless::CreateKey(kHklm, KeyOf("ReadOnly"), headless::kKeyRead);
  headless::SetString(kHklm, KeyOf("ReadOnly"), "Folder", "C:\\G");
  ExpectRead(KeyOf("ReadOnly"), "Folder", false, "empty");
  headless::SetString(kHklm, KeyOf("Odd"), "Grows", "a");
  headless::ChangeValueAfterNextProbe(kHklm, KeyOf("Odd"), "Grows", platform::kRegSz, "abcdef");
  ExpectRead(KeyOf("Odd"), "Grows", true, "empty");

  // The status of the query beneath: 0, -1 for a type not read, else the platform's code.
  platform::KeyHandle strings = 0, numbers = 0;
  platform::RegOpenKeyExA(kHklm, KeyOf("Strings"), 0, 63, &strings);
  platform::RegOpenKeyExA(kHklm, KeyOf("Numbers"), 0, 63, &numbers);
  const std::tuple<platform::KeyHandle, const char*, std::int32_t> rows[] = {
      {strings, "Folder", 0}, {strings, "Expand", -1}, {strings, "Missing", 2},
      {numbers, "Long", 234}, {0, "Folder", 6}};
  for (const auto& [handle, name, status] : rows) {
    mdlRegistry::RegistryValue value;
    EXPECT_EQ(mdlRegistry::QueryRegistryValue(handle, name, value), status) << name;
  }
  platform::RegCloseKey(strings);
  platform::RegCloseKey(numbers);
  EXPECT_EQ(headless::OpenKeyCount(), 0);
}

}  // namespace
