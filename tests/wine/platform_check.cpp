// Checks the Win32 layer against the real system (under Wine or on Windows): the registry
// cases of the shared table, written with the system's own calls and read through mdlRegistry;
// which files the System Info search counts as normal; and the pictures stored in the release
// exe named on the command line.
#include <windows.h>
#include <shlwapi.h>

#include <cstdio>
#include <string>
#include <tuple>

#include "support/registry_cases.h"

namespace {

int failed = 0, checked = 0;

void Expect(const std::string& what, const std::string& got, const std::string& wanted) {
  ++checked;
  if (got == wanted) return (void)std::printf("ok    %s\n", what.c_str());
  ++failed;
  std::printf("FAIL  %s: expected %s, got %s\n", what.c_str(), wanted.c_str(), got.c_str());
}

// Creates the key where it is missing.
bool Write(const std::string& key, const registry_cases::Case& c) {
  return ::SHSetValueA(HKEY_LOCAL_MACHINE, key.c_str(), c.value, c.type, c.data.data(),
                       static_cast<DWORD>(c.data.size())) == ERROR_SUCCESS;
}

// A stored picture as "<width>x<height> <bits a pixel> bits, compression <n>", or for an icon
// "<width>x<height> <colours> colours" of its one image.
std::string Picture(HMODULE exe, const char* name, bool icon) {
  HRSRC found = ::FindResourceA(exe, name, icon ? MAKEINTRESOURCEA(14) : MAKEINTRESOURCEA(2));
  const auto* bytes = found ? static_cast<const BYTE*>(::LockResource(::LoadResource(exe, found))) : nullptr;
  if (bytes == nullptr) return "no such picture";
  // Of an icon, the first entry of its directory: width, height, colours.
  if (icon) return std::to_string(bytes[6]) + "x" + std::to_string(bytes[7]) + " " + std::to_string(bytes[8]) + " colours";
  const auto* info = reinterpret_cast<const BITMAPINFOHEADER*>(bytes);
  return std::to_string(info->biWidth) + "x" + std::to_string(info->biHeight) + " " +
         std::to_string(info->biBitCount) + " bits, compression " + std::to_string(info->biCompression);
}

}  // namespace

int main(int argc, char** argv) {
  for (const auto& c : registry_cases::Cases()) {
    const std::string key = std::string(registry_cases::kBaseKey) + "\\" + c.key;
    Expect(c.description, c.type == 0 || Write(key, c)
        ? registry_cases::Describe(mdlRegistry::ReadRegistryValue(platform::kLocalMachine, key, c.value))
        : "a value that cannot be written", c.wanted);
  }

  // Read-only and archive count as normal; hidden, system and a folder do not.
  const std::tuple<const char*, DWORD, bool> files[] = {
      {"normal", FILE_ATTRIBUTE_NORMAL, true},
      {"read-only", FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_ARCHIVE, true},
      {"hidden", FILE_ATTRIBUTE_HIDDEN, false}, {"system", FILE_ATTRIBUTE_SYSTEM, false},
      {"folder", FILE_ATTRIBUTE_DIRECTORY, false}, {"missing", 0, false}};
  ::CreateDirectoryA("C:\\Kelvarnite Files", nullptr);
  for (const auto& [kind, attributes, normal] : files) {
    const std::string path = std::string("C:\\Kelvarnite Files\\") + kind;
    if (attributes == FILE_ATTRIBUTE_DIRECTORY) {
      ::CreateDirectoryA(path.c_str(), nullptr);
    } else if (attributes != 0) {
      std::fclose(std::fopen(path.c_str(), "wb"));
      ::SetFileAttributesA(path.c_str(), attributes);
    }
    const auto said = [](bool counted) { return counted ? "counts it" : "passes over it"; };
    Expect(std::string("the search for the tool on a ") + kind + " file", said(platform::NormalFileExists(path)),
           said(normal));
  }

  // Bitmaps of 256 colours, uncompressed, at the sizes the windows show them.
  HMODULE exe = argc == 2 ? ::LoadLibraryExA(argv[1], nullptr, LOAD_LIBRARY_AS_DATAFILE) : nullptr;
  Expect("the logo", Picture(exe, "LOGO", false), "343x83 8 bits, compression 0");
  Expect("the About banner", Picture(exe, "ABOUT_BANNER", false), "346x91 8 bits, compression 0");
  Expect("the About icon", Picture(exe, "ABOUT_ICON", true), "32x32 16 colours");

  std::printf("%d checks, %d failed\n", checked, failed);
  return failed == 0 ? 0 : 1;
}
