// A fresh headless machine for each test, with its drives in a temporary folder.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "benchmark/mdlBenchmark.h"
#include "platform/headless/headless.h"
#include "windows/Form1.h"

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

  // The lines of a file split at CR LF; the file must end in CR LF.
  static std::vector<std::string> Lines(const std::string& bytes);
  static std::string FileOrMissing(const std::string& windowsPath);
  // An expected file of tests/golden, as bytes.
  static std::string Golden(const std::string& name);

  std::filesystem::path root_;
};

}  // namespace testing_support
