// Stands in for the browser and for the system information tool: it records the document the
// shell hands it, or else its own path, one a line, in opened.txt beside itself. It shows
// nothing and ends at once. A path is written in the ANSI code page, byte for byte as the
// scenarios hold it.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <string>

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  char self[MAX_PATH * 4] = {};
  ::GetModuleFileNameA(nullptr, self, sizeof(self));
  // Its own path from the system: argv[0] is the line as typed, which may lack the folder.
  const std::string path = self, record = path.substr(0, path.find_last_of('\\') + 1) + "opened.txt";
  FILE* file = std::fopen(record.c_str(), "ab");
  if (file == nullptr) return 1;
  std::fprintf(file, "%s\r\n", __argc >= 2 ? __argv[1] : self);
  return std::fclose(file) != 0;
}
