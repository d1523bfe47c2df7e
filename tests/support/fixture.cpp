#include "support/fixture.h"

#include <cstdlib>
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

void HeadlessTest::Install(const char* key, const std::string& folder) {
  headless::SetString(kHklm, key, "Folder", folder);
  headless::PutFile(folder + "\\System\\ut2003.exe", "stand-in");
  headless::MakeFolder(folder + "\\Benchmark");
}

std::string HeadlessTest::Controls() {
  Form1& f = MainForm();
  std::vector<const forms::Control*> controls(std::begin(f.Check1), std::end(f.Check1));
  controls.insert(controls.end(), {&f.Command1, &f.Command2, &f.Command3, &f.Command4, nullptr, &f.Option1,
                                   &f.Option2, &f.Option3, &f.Option4});
  std::string enabled;
  for (const forms::Control* c : controls) enabled += c == nullptr ? ' ' : c->Enabled() ? '1' : '0';
  return enabled;
}

std::string Golden(const std::string& name) {
  std::ifstream in(std::filesystem::path(KELVARNITE_GOLDEN_DIR) / name, std::ios::binary);
  EXPECT_TRUE(in) << "no golden file " << name;
  return std::string(std::istreambuf_iterator<char>(in), {});
}

void ExpectGolden(const std::string& actual, const std::string& name) {
  if (std::getenv("KELVARNITE_GOLDEN_UPDATE")) std::ofstream(std::filesystem::path(KELVARNITE_GOLDEN_DIR) / name, std::ios::binary) << actual;
  EXPECT_EQ(actual, Golden(name)) << "the expected file " << name;
}

std::string GoldenPart(const std::string& file, const std::string& from, const std::string& to) {
  const std::string golden = "\n" + Golden(file);  // so that `from` may match the first line too
  const std::size_t found = golden.find(from), start = found + from.size();
  if (found == std::string::npos) return "<no " + from + " in " + file + ">";
  return golden.substr(start, golden.find(to, start - 1) + 1 - start);  // npos + 1 is 0: all the rest
}

}  // namespace testing_support
