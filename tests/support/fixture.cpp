#include "support/fixture.h"

#include <fstream>
#include <iterator>
#include <random>

#include "platform/forms/window.h"

namespace testing_support {

void HeadlessTest::SetUp() {
  std::random_device random;
  root_ = std::filesystem::temp_directory_path() /
          ("kelvarnite-test-" + std::to_string(random()) + std::to_string(random()));
  std::filesystem::create_directories(root_);
  headless::Reset(root_);
  mdlBenchmark::ResetState();
}

void HeadlessTest::TearDown() {
  forms::DropAll();
  std::error_code ignored;
  std::filesystem::remove_all(root_, ignored);
}

namespace {

void Install(const char* key, const std::string& folder) {
  headless::SetString(kHklm, key, "Folder", folder);
  headless::PutFile(folder + "\\System\\ut2003.exe", "stand-in");
  headless::MakeFolder(folder + "\\Benchmark");
}

}  // namespace

void HeadlessTest::InstallFull(const std::string& folder) { Install(kFullKey, folder); }

void HeadlessTest::InstallDemo(const std::string& folder) { Install(kDemoKey, folder); }

Form1& HeadlessTest::StartProgram() {
  headless::RunAsEvent([] { forms::Show(forms::Load(std::make_unique<Form1>())); });
  return MainForm();
}

void HeadlessTest::Tick(std::initializer_list<int> boxes) {
  for (int box : boxes) EXPECT_TRUE(headless::Click(*MainForm().Check1[box]));
}

std::vector<bool> HeadlessTest::RunControlsEnabled() {
  Form1& form = MainForm();
  std::vector<bool> enabled;
  for (forms::CheckBox* box : form.Check1) enabled.push_back(box->Enabled());
  for (forms::CommandButton* b : {&form.Command1, &form.Command2, &form.Command3, &form.Command4}) {
    enabled.push_back(b->Enabled());
  }
  return enabled;
}

Form2& HeadlessTest::OpenCustom() {
  EXPECT_TRUE(headless::Click(MainForm().Command4));
  return *CustomWindow();
}

std::string HeadlessTest::Golden(const std::string& name) {
  std::ifstream in(std::filesystem::path(KELVARNITE_GOLDEN_DIR) / name, std::ios::binary);
  EXPECT_TRUE(in) << "no golden file " << name;
  return std::string(std::istreambuf_iterator<char>(in), {});
}

}  // namespace testing_support
