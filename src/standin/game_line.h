// The game's command line as the stand-in reads it.
#pragma once

#include <string>

namespace standin {

struct GameLine {
  std::string level;  // the first word behind the program, up to "?", as written
  bool benchmark = false;
  bool noSound = false;
  std::string seconds;  // the text of -seconds=, empty when it is missing
  std::string exec, ini, userIni;
  int width = 0, height = 0;  // 0 when the line has no resolution switch
};

// The whole line as the system gives it, the program's path first, quoted or not.
GameLine ParseGameLine(const std::string& commandLine);

}  // namespace standin
