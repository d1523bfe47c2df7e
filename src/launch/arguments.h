// The program's own command line: what an unattended run asks for.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace arguments {

// What the program tells a script that started it, with /quit or once its window is closed.
enum ExitCode : int {
  kAllRunsDone = 0,
  kBadArguments = 1,
  kNoGame = 2,          // no game found, or not the one asked for
  kRunFailed = 3,       // a run refused, or a game start that failed or left no rate
  kFolderUnwritable = 4,
};

// The words of a command line by the rules of the C runtime on Windows, without the first,
// the program: blanks and tabs part them, double quotes hold blanks inside a word and are not
// part of it, 2n backslashes before a quote stand for n and let the quote count, 2n+1 for n
// and a quote that is part of the word; other backslashes are themselves.
std::vector<std::string> SplitCommandLine(const std::string& line);

inline constexpr int kAutoRepeats = -1;

struct Order {
  bool help = false;         // /?
  int test = -1;             // the index of /run in catalogue::kTests
  int resolutions = 0;       // the boxes of /res, bit i for box i
  bool openGl = false;       // /api ogl
  std::string game;          // /game: "full", "demo" or empty for the windows' choice
  std::string level;         // /level: the entry of the level list, star and all
  bool sound = false;        // /sound on
  std::string detail;        // /detail: "max", "min", an ini file's path, or empty
  int repeats = 0;           // /repeat N, kAutoRepeats for auto, 0 when not given
  std::optional<std::string> keep;  // /keep
  std::optional<std::string> name;  // /name
  bool quit = false;         // /quit
};

// The argument at fault and what is wrong with it.
struct Fault {
  std::string argument;
  std::string problem;
  int exitCode = kBadArguments;
};

// Reads the words into an order, or tells the first fault.
std::optional<Fault> Parse(const std::vector<std::string>& words, Order& order);

// What the box of /? and of every fault shows below the fault.
inline constexpr const char* kUsage =
    "KelvarniteUT2k3Benchmark /run cpu|high|low|custom /res 640x480[,800x600,...]\n"
    "    [/api d3d|ogl] [/game full|demo]\n"
    "    [/level NAME] [/sound on|off] [/detail max|min|\"ini file\"]   (custom only)\n"
    "    [/repeat N|auto] [/keep \"folder\"] [/name \"series\"] [/quit]\n"
    "\n"
    "/res: any of 640x480 800x600 1024x768 1280x1024 1600x1200; they run in box order.\n"
    "/repeat: 1 to 99 runs, or auto: 3 to 10, until the 95 % interval of the mean is within 1 %.\n"
    "/keep: the folder that keeps every report, with an index and compare.html; /repeat without\n"
    "/keep makes a new folder beside results.html.\n"
    "/quit: no box waits (boxes go to boxes.log), and the program ends after the last run.\n"
    "\n"
    "Exit codes: 0 all runs done; 1 bad arguments; 2 no game found, or not the one asked for;\n"
    "3 a run refused, or a game start failed; 4 the folder cannot be written.";

}  // namespace arguments
