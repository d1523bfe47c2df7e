// Starting the game and waiting for it to end.
#pragma once

#include <string>

namespace mdlapp_sync {

// Starts the line minimised and waits, without limit, for the process to end. True when the
// program was started and has ended; false when it could not be started, which the user has
// been told in a box.
bool RunAppSync(const std::string& commandLine);

}  // namespace mdlapp_sync
