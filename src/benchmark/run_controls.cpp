#include "benchmark/mdlBenchmark.h"
#include "windows/Form1.h"

namespace mdlBenchmark {
namespace {

// The controls that must not be touched while a test runs: the resolution boxes and the test
// buttons.
void SetRunControlsEnabled(bool enabled) {
  Form1& form = MainForm();
  for (forms::CheckBox* box : form.Check1) box->SetEnabled(enabled);
  for (forms::CommandButton* button : {&form.Command1, &form.Command2, &form.Command3, &form.Command4}) {
    button->SetEnabled(enabled);
  }
}

}  // namespace

void LockRunControls() { SetRunControlsEnabled(false); }

void UnlockRunControls() { SetRunControlsEnabled(true); }

}  // namespace mdlBenchmark
