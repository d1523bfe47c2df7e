// How a run was made, as far as the registry tells it: the computer's processor and display
// adapter, and the version of the game. Each is empty where the registry has nothing.
#pragma once

#include <string>

namespace computer {

std::string ProcessorName();
// From the display class of Windows 9x, else from the video device map of Windows NT.
std::string DisplayAdapterName();
// The Version value of the selected variant's key.
std::string GameVersion();

}  // namespace computer
