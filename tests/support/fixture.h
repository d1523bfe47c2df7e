// A fresh headless machine for each test, with its drives in a temporary folder.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

#include "benchmark/mdlBenchmark.h"
#include "platform/headless/headless.h"
#include "support/rows.h"
#include "windows/Form1.h"
#include "windows/Form2.h"

namespace headless {
inline void PrintTo(const Box& box, std::ostream* out) {
  *out << "{\"" << box.text << "\", \"" << box.title << "\", " << box.flags << "}";
}
}  // namespace headless

namespace testing_support {

using Boxes = std::vector<headless::Box>;
constexpr platform::KeyHandle kHklm = platform::kLocalMachine;
constexpr const char* kFullKey = "SOFTWARE\\Unreal Technology\\Installed Apps\\UT2003";
constexpr const char* kDemoKey = "SOFTWARE\\Unreal Technology\\Installed Apps\\UT2003Demo";
constexpr const char* kFullPath = "C:\\Games\\UT2003";
constexpr const char* kDemoPath = "C:\\Games\\UT2003Demo";
constexpr const char* kBenchLog = "C:\\Games\\UT2003\\Benchmark\\benchmark.log";
constexpr const char* kLog = "C:\\Games\\UT2003\\Benchmark\\lowframerate.log";
constexpr const char* kReport = "C:\\Bench\\results.html";
constexpr const char* kTitle = "Kelvarnite UT2k3 Benchmark";
// What start-up tells when neither variant is installed.
inline const headless::Box kPleaseInstall = {"Please install UT2003[full version] or UT2003[demo]", "Install UT2003", 0};

// An expected file of tests/golden, as bytes.
std::string Golden(const std::string& name);
// `actual` against the expected file `name`; with KELVARNITE_GOLDEN_UPDATE set it is written
// there first, so that `git diff` shows what changed.
void ExpectGolden(const std::string& actual, const std::string& name);
// The part of a golden file after the first `from`, up to the line end before the next `to`.
std::string GoldenPart(const std::string& file, const std::string& from, const std::string& to);

// All public, so that the rows of a table, written outside the fixture, can call the helpers.
struct HeadlessTest : ::testing::Test {
  void SetUp() override;
  void TearDown() override;
  // The full game installed, and the program started.
  static Form1& StartFull() { InstallFull(); return StartProgram(); }

  // A variant installed at a folder: its registry key, its program and its log folder.
  static void Install(const char* key, const std::string& folder);
  static void InstallFull(const std::string& folder = kFullPath) { Install(kFullKey, folder); }
  static void InstallDemo(const std::string& folder = kDemoPath) { Install(kDemoKey, folder); }
  // Starts the program as its entry does, up to the event loop, and gives the main window.
  static Form1& StartProgram() { headless::RunAsEvent([] { forms::Show(forms::Load(std::make_unique<Form1>())); }); return MainForm(); }
  static void Tick(std::initializer_list<int> boxes) { for (int box : boxes) EXPECT_TRUE(headless::Click(*MainForm().Check1[box])); }
  // Whether the controls of the main window are enabled, as 1 or 0: the run controls (the
  // resolution boxes, then the four buttons), a blank, and the four option buttons.
  static std::string Controls();
  // The window the "Custom Test" button shows, or null.
  static Form2* CustomWindow() { return static_cast<Form2*>(forms::FindOpen(Form2::kName)); }
  static Form2& OpenCustom() { EXPECT_TRUE(headless::Click(MainForm().Command4)); return *CustomWindow(); }
  static std::string FileOrMissing(const std::string& path) { return headless::GetFile(path).value_or("<missing>"); }
  std::filesystem::path root_;
};

}  // namespace testing_support
