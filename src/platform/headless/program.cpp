// The program itself on the headless machine: its folder, its end, and a fresh start.
#include "platform/forms/window.h"
#include "platform/headless/state.h"

namespace headless {
namespace detail {

Machine& M() {
  static Machine machine;
  return machine;
}

}  // namespace detail

using detail::M;

void Reset(const std::filesystem::path& root) {
  forms::DropAll();
  M() = detail::Machine{};
  M().root = root;
  ResetRegistry();
  SetProgramFolder(M().programFolder);
}

// The running program lies in its folder, so the folder exists.
void SetProgramFolder(const std::string& windowsPath) {
  M().programFolder = windowsPath;
  MakeFolder(windowsPath);
}

bool ProcessEnded() { return M().ended; }

int ExitCode() { return M().exitCode; }

void SetCommandLine(const std::string& line) { M().commandLine = line; }

void SetLocalTime(const std::string& time) { M().localTime = time; }

}  // namespace headless

namespace platform {
using headless::detail::M;

std::string ProgramFolder() { return M().programFolder; }

Version ApplicationVersion() {
  return {KELVARNITE_VERSION_MAJOR, KELVARNITE_VERSION_MINOR, KELVARNITE_VERSION_PATCH};
}

std::string CommandLine() { return M().commandLine; }

void EndProcess(int exitCode) {
  M().ended = true;
  M().exitCode = exitCode;
  throw headless::ProcessExit{};
}

std::string LocalTime() { return M().localTime; }

}  // namespace platform
