#include "windows/application.h"

#include <memory>

#include "platform/forms/window.h"
#include "windows/Form1.h"

int RunApplication() {
  forms::Window& main = forms::Load(std::make_unique<Form1>());
  forms::Show(main);
  return platform::RunEventLoop();
}
