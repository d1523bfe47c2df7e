// Reading one named value of one registry key, tagged with its kind.
//
// Only REG_SZ and REG_DWORD are read. Nothing here reports a failure: whatever cannot be read
// comes back empty, and the caller cannot tell why.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>

#include "platform/platform.h"

namespace mdlRegistry {

// Empty, a text, or a number. A text keeps the terminating NUL of the stored data as its last
// character; the caller cuts it.
struct RegistryValue {
  std::variant<std::monostate, std::string, std::int32_t> content;

  bool IsEmpty() const { return std::holds_alternative<std::monostate>(content); }
  bool IsText() const { return std::holds_alternative<std::string>(content); }
  bool IsNumber() const { return std::holds_alternative<std::int32_t>(content); }

  // 0 when empty, the text's length with its NUL, or the length of the number's decimal text.
  std::size_t Length() const { return AsText().size(); }
  // The text as it is, a number in decimal, or empty.
  std::string AsText() const;
};

// Opens the key, reads the value and closes the key again. Empty when anything fails. The
// access asked for is more than reading needs, so that a key the user may only read reads as
// empty, unless only reading is asked for (kReadAccess).
inline constexpr std::uint32_t kReadAccess = 0x20019;
RegistryValue ReadRegistryValue(platform::KeyHandle root, const std::string& keyName,
                                const std::string& valueName, std::uint32_t access = 63);

// Fills in value (which must come in empty). Result: 0 when read, -1 for a type that is not
// read, or the platform's error code of the query that failed.
std::int32_t QueryRegistryValue(platform::KeyHandle keyHandle, const std::string& valueName,
                                RegistryValue& value);

}  // namespace mdlRegistry
