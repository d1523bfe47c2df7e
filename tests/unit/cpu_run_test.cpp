#include "support/fixture.h"

namespace {
using namespace testing_support;
class CpuRun : public HeadlessTest {};

TEST_F(CpuRun, Smoke) {
  InstallFull();
  Form1& form = StartProgram();
  Tick({0, 4});
  headless::Click(form.Command1);
  ASSERT_EQ(headless::Starts().size(), 2u);
  std::cout << headless::Starts()[0].commandLine << "\n";
}
}  // namespace
