// What the user is told of a system error: when a program cannot be started, and when a file
// cannot be read or written.
#pragma once

#include <string>

#include "platform/platform.h"

namespace platform {

// Numbers in the tradition of the Shell function: 53 the file or its folder is missing,
// 70 access is denied, 5 anything else (with the system's own text, trimmed).
StartFailure StartFailureForSystemError(unsigned long code, const std::string& systemMessage);

// A short reason for the failures a user can act upon, else the system's own text, trimmed.
std::string FileFailureReason(unsigned long code, const std::string& systemMessage);

}  // namespace platform
