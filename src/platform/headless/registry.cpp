// The registry of the headless machine, with the Win32 behaviour the program relies on:
// a probe without a buffer reports the type and the size, handle 0 is invalid, and an open
// fails when the key does not grant the whole access mask.
#include <algorithm>
#include <cctype>
#include <map>

#include "platform/headless/state.h"

namespace headless {
namespace {

struct Value {
  std::uint32_t type = 0;
  std::string data;
};

struct Key {
  std::uint32_t granted = kKeyAllAccess;
  std::map<std::string, Value> values;  // by lower-case name: names ignore case
};

struct Registry {
  std::map<std::string, Key> keys;  // by lower-case full path, root first
  std::map<platform::KeyHandle, std::string> open;
  platform::KeyHandle nextHandle = 0x100;
  std::vector<std::string> calls;
  struct Change {
    std::string key, name;
    Value value;
  };
  std::optional<Change> afterProbe;
};

Registry& R() {
  static Registry registry;
  return registry;
}

std::string Lower(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return text;
}

std::string FullPath(platform::KeyHandle root, const std::string& key) {
  return std::to_string(root) + "\\" + Lower(key);
}

// The full path below which an open handle or a predefined root names its sub-keys.
std::optional<std::string> BaseOf(platform::KeyHandle handle) {
  if (handle >= 0x80000000u && handle <= 0x80000006u) return std::to_string(handle);
  auto it = R().open.find(handle);
  if (it == R().open.end()) return std::nullopt;
  return it->second;
}

}  // namespace

void ResetRegistry() { R() = Registry{}; }

void CreateKey(platform::KeyHandle root, const std::string& key, std::uint32_t granted) {
  std::string path = FullPath(root, key);
  for (std::size_t at = path.find('\\'); at != std::string::npos; at = path.find('\\', at + 1)) {
    R().keys.emplace(path.substr(0, at), Key{});
  }
  R().keys[path].granted = granted;
}

void DeleteKey(platform::KeyHandle root, const std::string& key) {
  std::string path = FullPath(root, key);
  for (auto it = R().keys.begin(); it != R().keys.end();) {
    bool below = it->first == path || it->first.rfind(path + "\\", 0) == 0;
    it = below ? R().keys.erase(it) : std::next(it);
  }
}

void SetValue(platform::KeyHandle root, const std::string& key, const std::string& name,
              std::uint32_t type, const std::string& data) {
  std::string path = FullPath(root, key);
  if (!R().keys.count(path)) CreateKey(root, key);
  R().keys[path].values[Lower(name)] = Value{type, data};
}

void SetString(platform::KeyHandle root, const std::string& key, const std::string& name,
               const std::string& text) {
  SetValue(root, key, name, platform::kRegSz, text + std::string(1, '\0'));
}

void SetDword(platform::KeyHandle root, const std::string& key, const std::string& name,
              std::uint32_t number) {
  std::string data(4, '\0');
  for (int i = 0; i < 4; ++i) data[static_cast<std::size_t>(i)] = static_cast<char>(number >> (8 * i));
  SetValue(root, key, name, platform::kRegDword, data);
}

void ChangeValueAfterNextProbe(platform::KeyHandle root, const std::string& key,
                               const std::string& name, std::uint32_t type,
                               const std::string& data) {
  R().afterProbe = Registry::Change{FullPath(root, key), Lower(name), Value{type, data}};
}

int OpenKeyCount() { return static_cast<int>(R().open.size()); }

const std::vector<std::string>& RegistryCalls() { return R().calls; }

}  // namespace headless

namespace platform {
using headless::R;

long RegOpenKeyExA(KeyHandle root, const std::string& subKey, std::uint32_t,
                   std::uint32_t access, KeyHandle* result) {
  R().calls.push_back("open " + subKey + " " + std::to_string(access));
  *result = 0;
  auto base = headless::BaseOf(root);
  if (!base) return kErrorInvalidHandle;
  std::string path = subKey.empty() ? *base : *base + "\\" + headless::Lower(subKey);
  auto key = R().keys.find(path);
  if (key == R().keys.end()) return kErrorFileNotFound;
  if ((access & key->second.granted) != access) return kErrorAccessDenied;
  *result = R().nextHandle++;
  R().open[*result] = path;
  return kErrorSuccess;
}

long RegQueryValueExA(KeyHandle key, const std::string& valueName, std::uint32_t* type,
                      void* data, std::uint32_t* size) {
  R().calls.push_back("query " + valueName);
  auto open = R().open.find(key);
  if (open == R().open.end()) return kErrorInvalidHandle;
  auto& values = R().keys[open->second].values;
  auto value = values.find(headless::Lower(valueName));
  if (value == values.end()) return kErrorFileNotFound;
  const headless::Value found = value->second;
  if (data == nullptr) {
    auto& change = R().afterProbe;
    if (change && change->key == open->second && change->name == value->first) {
      value->second = change->value;
      change.reset();
    }
  }
  if (type != nullptr) *type = found.type;
  std::uint32_t needed = static_cast<std::uint32_t>(found.data.size());
  if (data != nullptr) {
    if (*size < needed) {
      *size = needed;
      return kErrorMoreData;
    }
    std::copy(found.data.begin(), found.data.end(), static_cast<char*>(data));
  }
  *size = needed;
  return kErrorSuccess;
}

long RegCloseKey(KeyHandle key) {
  R().calls.push_back("close");
  return R().open.erase(key) != 0 ? kErrorSuccess : kErrorInvalidHandle;
}

}  // namespace platform
