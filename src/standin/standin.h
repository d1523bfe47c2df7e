// One start of the stand-in game, from its command line to the records in its logs.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace standin {

// What the system gives a start.
struct Start {
  std::string commandLine;    // exactly as received
  std::string modulePath;     // the exe, in <game>\System\ut2003.exe
  std::string speedVariable;  // UT2003_STANDIN_SPEED, empty when not set
  std::string faultVariable;  // UT2003_STANDIN_FAULT, empty when not set
  std::function<void(std::uint64_t milliseconds)> sleep;
};

// The exit code that tells of a crash, as the system reports an access violation.
const std::uint32_t kCrashExitCode = 0xC0000005u;

// Runs the start and gives the process's exit code.
std::uint32_t Run(const Start& start);

}  // namespace standin
