// The Windows entry of the stand-in game: it gathers what the system gives the process and
// leaves the rest to the portable part. It creates no window.
#include <windows.h>

#include <string>

#include "standin/standin.h"

namespace {

std::string ModulePath() {
  std::string path(MAX_PATH, '\0');
  for (;;) {
    const DWORD length = ::GetModuleFileNameA(nullptr, &path[0], static_cast<DWORD>(path.size()));
    if (length < path.size()) return path.substr(0, length);
    path.resize(path.size() * 2);
  }
}

std::string Variable(const char* name) {
  const DWORD size = ::GetEnvironmentVariableA(name, nullptr, 0);
  if (size == 0) return std::string();
  std::string value(size, '\0');
  const DWORD length = ::GetEnvironmentVariableA(name, &value[0], size);
  return value.substr(0, length < size ? length : 0);
}

void SleepMilliseconds(std::uint64_t milliseconds) {
  // Sleep takes at most 0xFFFFFFFE ms at a time; INFINITE would never return.
  while (milliseconds > 0) {
    const DWORD step = milliseconds > 0x7FFFFFFFu ? 0x7FFFFFFFu : static_cast<DWORD>(milliseconds);
    ::Sleep(step);
    milliseconds -= step;
  }
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  standin::Start start;
  start.commandLine = ::GetCommandLineA();
  start.modulePath = ModulePath();
  start.speedVariable = Variable("UT2003_STANDIN_SPEED");
  start.faultVariable = Variable("UT2003_STANDIN_FAULT");
  start.sleep = SleepMilliseconds;
  // ExitProcess, so that a crash fault ends with its code as a real fault would.
  ::ExitProcess(standin::Run(start));
}
