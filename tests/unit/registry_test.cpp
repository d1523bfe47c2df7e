#include <functional>

#include "registry/mdlRegistry.h"
#include "support/fixture.h"
#include "support/registry_cases.h"

namespace {
using mdlRegistry::ReadRegistryValue;
using mdlRegistry::RegistryValue;
using registry_cases::Kind;
constexpr platform::KeyHandle kHklm = platform::kLocalMachine;

class RegistryRead : public testing_support::HeadlessTest {
 protected:
  static std::string KeyOf(const char* key) {
    return std::string(registry_cases::kBaseKey) + "\\" + key;
  }

  // Stores a case with the bytes "reg add" writes for it.
  static void Store(const registry_cases::Case& c) {
    const std::string type = c.type;
    if (type == "REG_SZ" || type == "REG_EXPAND_SZ") {
      headless::SetValue(kHklm, KeyOf(c.key), c.value,
                         type == "REG_SZ" ? platform::kRegSz : platform::kRegExpandSz,
                         std::string(c.data) + '\0');
    } else if (type == "REG_DWORD") {
      headless::SetDword(kHklm, KeyOf(c.key), c.value,
                         static_cast<std::uint32_t>(std::stoul(c.data)));
    } else {
      FAIL() << "no bytes known for " << type;
    }
  }

  // Reads the value and checks it and the registry calls of the read: one open with mask 63,
  // the probe, a second query where expected, and a close in every case.
  static void ExpectRead(const std::string& key, const std::string& name, Kind kind,
                         const std::string& text, std::int32_t number, bool secondQuery) {
    const std::size_t before = headless::RegistryCalls().size();
    const RegistryValue value = ReadRegistryValue(kHklm, key, name);
    std::vector<std::string> calls(headless::RegistryCalls().begin() + before,
                                   headless::RegistryCalls().end());
    std::vector<std::string> expected = {"open " + key + " 63", "query " + name};
    if (secondQuery) expected.push_back("query " + name);
    expected.push_back("close");
    EXPECT_EQ(calls, expected);

    EXPECT_EQ(value.IsEmpty(), kind == Kind::Empty);
    EXPECT_EQ(value.IsText(), kind == Kind::Text);
    EXPECT_EQ(value.IsNumber(), kind == Kind::Number);
    const std::string asText = kind == Kind::Number ? std::to_string(number) : text;
    EXPECT_EQ(value.AsText(), asText);
    EXPECT_EQ(value.Length(), asText.size());
    if (kind == Kind::Number) {
      EXPECT_EQ(std::get<std::int32_t>(value.content), number);
    }
  }
};

TEST_F(RegistryRead, SharedCases) {
  for (const auto& c : registry_cases::Cases()) {
    if (c.type != nullptr) Store(c);
  }
  for (int round = 0; round < 3; ++round) {
    for (const auto& c : registry_cases::Cases()) {
      SCOPED_TRACE(c.description);
      ExpectRead(KeyOf(c.key), c.value, c.kind, c.text, c.number, c.kind != Kind::Empty);
    }
  }
  EXPECT_EQ(headless::OpenKeyCount(), 0);
}

TEST_F(RegistryRead, ValuesNoReaderCanStoreWithRegAdd) {
  const std::string key = KeyOf("Odd");
  struct Row {
    const char* description;
    std::function<void()> store;
    Kind kind;
    std::string text;
    bool secondQuery;
  };
  const Row rows[] = {
      {"a key the user may only read",
       [&] {
         headless::CreateKey(kHklm, key, headless::kKeyRead);
         headless::SetString(kHklm, key, "Folder", "C:\\Games");
       },
       Kind::Empty, "", false},
      {"a REG_SZ with no data at all",
       [&] { headless::SetValue(kHklm, key, "Folder", platform::kRegSz, ""); }, Kind::Text, "",
       true},
      {"a REG_SZ that grew after the probe",
       [&] {
         headless::SetString(kHklm, key, "Folder", "C:\\G");
         headless::ChangeValueAfterNextProbe(kHklm, key, "Folder", platform::kRegSz,
                                             std::string("C:\\Games\\UT2003") + '\0');
       },
       Kind::Empty, "", true},
      {"a REG_SZ that shrank after the probe",
       [&] {
         headless::SetString(kHklm, key, "Folder", "C:\\Games\\UT2003");
         headless::ChangeValueAfterNextProbe(kHklm, key, "Folder", platform::kRegSz,
                                             std::string("C:\\G") + '\0');
       },
       Kind::Text, std::string("C:\\G") + '\0', true},
      {"a REG_BINARY",
       [&] { headless::SetValue(kHklm, key, "Folder", platform::kRegBinary, "C:\\G"); },
       Kind::Empty, "", false},
      {"a REG_MULTI_SZ",
       [&] {
         headless::SetValue(kHklm, key, "Folder", platform::kRegMultiSz,
                            std::string("C:\\G\0\0", 6));
       },
       Kind::Empty, "", false},
      {"a REG_DWORD of eight bytes",
       [&] {
         headless::SetValue(kHklm, key, "Folder", platform::kRegDword, std::string(8, '\x01'));
       },
       Kind::Empty, "", true},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.description);
    headless::DeleteKey(kHklm, key);
    row.store();
    ExpectRead(key, "Folder", row.kind, row.text, 0, row.secondQuery);
  }
  EXPECT_EQ(headless::OpenKeyCount(), 0);
}

TEST_F(RegistryRead, QueryStatus) {
  const std::string key = KeyOf("Status");
  headless::SetString(kHklm, key, "Text", "abc");
  headless::SetDword(kHklm, key, "Number", 7);
  headless::SetValue(kHklm, key, "Expand", platform::kRegExpandSz, std::string("abc") + '\0');
  headless::SetString(kHklm, key, "Grows", "a");
  headless::ChangeValueAfterNextProbe(kHklm, key, "Grows", platform::kRegSz, "abcdef");
  platform::KeyHandle handle = 0;
  ASSERT_EQ(platform::RegOpenKeyExA(kHklm, key, 0, 63, &handle), 0);

  const struct {
    platform::KeyHandle handle;
    const char* name;
    std::int32_t status;
    bool empty;
  } rows[] = {{handle, "Text", 0, false}, {handle, "Number", 0, false},
              {handle, "Expand", -1, true}, {handle, "Missing", 2, true},
              {handle, "Grows", 234, true}, {0, "Text", 6, true}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    RegistryValue value;
    EXPECT_EQ(mdlRegistry::QueryRegistryValue(row.handle, row.name, value), row.status);
    EXPECT_EQ(value.IsEmpty(), row.empty);
  }
  platform::RegCloseKey(handle);
}

}  // namespace
