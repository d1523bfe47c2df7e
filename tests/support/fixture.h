// A fresh headless machine for each test, with its drives in a temporary folder.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "benchmark/mdlBenchmark.h"
#include "platform/headless/headless.h"
#include "windows/Form1.h"

class Form2;

namespace headless {
inline void PrintTo(const Box& box, std::ostream* out) {
  *out << "{\"" << box.text << "\", \"" << box.title << "\", " << box.flags << "}";
}
inline void PrintTo(const ShellCall& call, std::ostream* out) {
  auto text = [](const std::optional<std::string>& s) { return s ? "\"" + *s + "\"" : "null"; };
  *out << "{" << call.owner << ", " << text(call.operation) << ", " << text(call.file) << ", "
       << text(call.parameters) << ", " << text(call.directory) << ", " << call.showCommand << "}";
}
}  // namespace headless

namespace testing_support {

constexpr const char* kFullKey = "SOFTWARE\\Unreal Technology\\Installed Apps\\UT2003";
constexpr const char* kDemoKey = "SOFTWARE\\Unreal Technology\\Installed Apps\\UT2003Demo";
constexpr const char* kFullPath = "C:\\Games\\UT2003";
constexpr const char* kDemoPath = "C:\\Games\\UT2003Demo";

class HeadlessTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  // A variant installed at a folder: its registry key, its program and its log folder.
  void InstallFull(const std::string& folder = kFullPath);
  void InstallDemo(const std::string& folder = kDemoPath);
  // Starts the program as its entry does, up to the event loop, and gives the main window.
  Form1& StartProgram();
  // Ticks the boxes of the given indices on the main window.
  void Tick(std::initializer_list<int> boxes);
  // Whether each of the nine run controls is enabled: the five boxes, then the four buttons.
  static std::vector<bool> RunControlsEnabled();
  static bool AllRunControlsEnabled() { return RunControlsEnabled() == std::vector<bool>(9, true); }
  // The window the "Custom Test" button shows, or null.
  static Form2* CustomWindow();

  // The lines of a file split at CR LF; the file must end in CR LF.
  static std::vector<std::string> Lines(const std::string& bytes);
  static std::string FileOrMissing(const std::string& windowsPath);
  // An expected file of tests/golden, as bytes.
  static std::string Golden(const std::string& name);

  std::filesystem::path root_;
};

}  // namespace testing_support
