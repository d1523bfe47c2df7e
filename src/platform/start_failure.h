// What the user is told when a program cannot be started, from the system's error code.
#pragma once

#include <string>

#include "platform/platform.h"

namespace platform {

// Numbers in the tradition of the Shell function: 53 the file or its folder is missing,
// 70 access is denied, 5 anything else (with the system's own text, trimmed).
StartFailure StartFailureForSystemError(unsigned long code, const std::string& systemMessage);

}  // namespace platform
