// A folder that keeps every report of unattended runs, with an index that compare.html beside
// them reads: the folder opens as a comparison on its own, on any computer.
#pragma once

#include <string>
#include <vector>

namespace kept {

// One run as the index tells it; every text is bytes of the system's ANSI code page.
struct Run {
  std::string file;  // the report's name in the folder
  int repeat = 0;    // its number within its batch, from 1
  std::string started, finished, test, renderer, game, gameVersion;
  std::vector<std::string> resolutions;
  std::string level, sound, detail, processor, display;
  std::string report;  // the report's bytes
};

// The text as a string of the index's JSON: in quotes, and every byte outside 0x20-0x7E, and
// each of " \ < > & ', as \u00XX, so that the index stays ASCII and nothing from a log can end
// its string or the script it stands in.
std::string Quoted(const std::string& text);

class Folder {
 public:
  // planned: the repeats asked for, as the index writes them (3 or "auto").
  Folder(std::string path, std::string name, std::string planned);
  const std::string& Path() const { return path_; }

  // Makes the folder, keeps the runs of an index it already holds, copies the page beside it
  // and writes the index; false when any of that fails, with the file and the reason.
  bool Open(const std::string& comparePage, std::string* file, std::string* reason);
  // Writes the report into the folder and the index with it.
  bool Keep(const Run& run, std::string* file, std::string* reason);
  // The index with why the batch stopped.
  bool Close(const std::string& stopped, std::string* file, std::string* reason);

 private:
  bool WriteIndex(const std::string& stopped, std::string* file, std::string* reason);
  std::string path_, name_, planned_;
  std::vector<std::string> runs_;  // one line of the index each, without its comma
};

}  // namespace kept
