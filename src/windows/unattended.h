// Runs from the command line: the choices of the line shown in the windows, the test pressed
// as its button is, once or as a batch of repeats, each report kept in a folder with its index.
#pragma once

#include <string>
#include <vector>

namespace unattended {

// Does what the words of the command line ask. It returns only where the windows stay open
// for the user, with the exit code for later in AppState; else it ends the process.
void Run(const std::vector<std::string>& words);

}  // namespace unattended
