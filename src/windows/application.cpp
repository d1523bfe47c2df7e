#include "windows/application.h"

#include <memory>

#include "launch/arguments.h"
#include "platform/forms/window.h"
#include "windows/Form1.h"
#include "windows/unattended.h"

int RunApplication() {
  // With arguments the command line runs first; without, the windows wait for the user.
  const std::vector<std::string> words = arguments::SplitCommandLine(platform::CommandLine());
  if (!words.empty()) {
    unattended::Run(words);
  } else {
    forms::Window& main = forms::Load(std::make_unique<Form1>());
    forms::Show(main);
  }
  return platform::RunEventLoop();
}
