// The benchmark command line of the game.
#pragma once

#include <string>

namespace mdlapp_sync {

// The whole line for one start of the game under AppState.GamePath. Every value goes in as
// it is; the paths stand in double quotes, so blanks in them are safe.
std::string ComposeCommandLine(const std::string& level, const std::string& seconds,
                               const std::string& soundSwitch, const std::string& iniPath,
                               const std::string& userIniPath, const std::string& resolution);

}  // namespace mdlapp_sync
