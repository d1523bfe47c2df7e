#include <tuple>

#include "registry/mdlRegistry.h"
#include "support/fixture.h"
#include "support/registry_cases.h"

namespace {
using mdlRegistry::RegistryValue;
using registry_cases::Kind;
constexpr platform::KeyHandle kHklm = platform::kLocalMachine;

std::string KeyOf(const char* key) { return std::string(registry_cases::kBaseKey) + "\\" + key; }

// Reads a value and checks the registry calls of the read: one open with mask 63, the probe, a
// second query only where one is due, and a close whether the open worked or not. Then checks
// the value against its kind and its text (a number as its decimal text).
void ExpectRead(const std::string& key, const std::string& name, bool secondQuery, Kind kind,
                const std::string& text) {
  const std::size_t before = headless::RegistryCalls().size();
  const RegistryValue v = mdlRegistry::ReadRegistryValue(kHklm, key, name);
  std::vector<std::string> expected = {"open " + key + " 63", "query " + name};
  if (secondQuery) expected.push_back("query " + name);
  expected.push_back("close");
  const std::vector<std::string>& calls = headless::RegistryCalls();
  EXPECT_EQ(std::vector<std::string>(calls.begin() + before, calls.end()), expected);
  EXPECT_EQ(std::make_tuple(v.IsEmpty(), v.IsText(), v.IsNumber(), v.AsText(), v.Length()),
            std::make_tuple(kind == Kind::Empty, kind == Kind::Text, kind == Kind::Number, text,
                            text.size()));
}

class RegistryRead : public testing_support::HeadlessTest {};

TEST_F(RegistryRead, SharedCasesAndValuesRegAddCannotStore) {
  for (const auto& c : registry_cases::Cases()) {
    if (c.type == nullptr) continue;
    const std::string type = c.type;  // stored with the bytes "reg add" writes
    if (type == "REG_DWORD") {
      headless::SetDword(kHklm, KeyOf(c.key), c.value, std::stoul(c.data));
    } else {
      headless::SetValue(kHklm, KeyOf(c.key), c.value,
                         type == "REG_SZ" ? platform::kRegSz : platform::kRegExpandSz,
                         std::string(c.data) + '\0');
    }
  }
  for (const auto& c : registry_cases::Cases()) {
    SCOPED_TRACE(c.description);
    ExpectRead(KeyOf(c.key), c.value, c.kind != Kind::Empty, c.kind,
               c.kind == Kind::Number ? std::to_string(c.number) : c.text);
  }

  // What "reg add" cannot store: a REG_SZ of no bytes, a key the user may only read, a value
  // that grows between the probe and the read.
  headless::SetValue(kHklm, KeyOf("Odd"), "Folder", platform::kRegSz, "");
  ExpectRead(KeyOf("Odd"), "Folder", true, Kind::Text, "");
  headless::CreateKey(kHklm, KeyOf("ReadOnly"), headless::kKeyRead);
  headless::SetString(kHklm, KeyOf("ReadOnly"), "Folder", "C:\\G");
  ExpectRead(KeyOf("ReadOnly"), "Folder", false, Kind::Empty, "");
  headless::SetString(kHklm, KeyOf("Odd"), "Grows", "a");
  headless::ChangeValueAfterNextProbe(kHklm, KeyOf("Odd"), "Grows", platform::kRegSz, "abcdef");
  ExpectRead(KeyOf("Odd"), "Grows", true, Kind::Empty, "");
  EXPECT_EQ(headless::OpenKeyCount(), 0);
}

TEST_F(RegistryRead, QueryGivesZeroMinusOneOrThePlatformsCodeUnchanged) {
  const std::string key = KeyOf("Status");
  headless::SetString(kHklm, key, "Text", "abc");
  headless::SetDword(kHklm, key, "Number", 7);
  headless::SetValue(kHklm, key, "Expand", platform::kRegExpandSz, std::string("abc") + '\0');
  headless::SetValue(kHklm, key, "Long", platform::kRegDword, std::string(8, '\1'));
  platform::KeyHandle handle = 0;
  ASSERT_EQ(platform::RegOpenKeyExA(kHklm, key, 0, 63, &handle), 0);
  const std::tuple<platform::KeyHandle, const char*, std::int32_t, std::string> rows[] = {
      {handle, "Text", 0, std::string("abc\0", 4)}, {handle, "Number", 0, "7"},
      {handle, "Expand", -1, ""}, {handle, "Missing", 2, ""},
      {handle, "Long", 234, ""},  // a REG_DWORD of eight bytes
      {0, "Text", 6, ""}};
  for (const auto& [keyHandle, name, status, text] : rows) {
    SCOPED_TRACE(name);
    RegistryValue value;
    EXPECT_EQ(mdlRegistry::QueryRegistryValue(keyHandle, name, value), status);
    EXPECT_EQ(value.AsText(), text);
  }
  platform::RegCloseKey(handle);
}

}  // namespace
