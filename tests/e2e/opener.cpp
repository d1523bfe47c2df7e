// Stands in for the browser and for the system information tool: it records the document the
// shell hands it, or else its own path, one a line, in opened.txt beside itself. It shows
// nothing and ends at once.
#include <windows.h>

#include <shellapi.h>

#include <cstdio>
#include <string>

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  int count = 0;
  LPWSTR* args = ::CommandLineToArgvW(::GetCommandLineW(), &count);
  if (args == nullptr || count < 1) return 1;
  std::wstring self(MAX_PATH * 4, L'\0');
  self.resize(::GetModuleFileNameW(nullptr, self.data(), static_cast<DWORD>(self.size())));
  const std::wstring record = self.substr(0, self.find_last_of(L'\\') + 1) + L"opened.txt";
  // Its own path from the system: a line without quotes around a path with a blank would
  // split it.
  std::wstring line = (count >= 2 ? std::wstring(args[1]) : self) + L"\r\n";
  std::string bytes(static_cast<std::size_t>(line.size()) * 4, '\0');
  int size = ::WideCharToMultiByte(CP_UTF8, 0, line.c_str(), static_cast<int>(line.size()),
                                   bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr);
  FILE* file = ::_wfopen(record.c_str(), L"ab");
  if (file == nullptr) return 1;
  std::fwrite(bytes.data(), 1, static_cast<std::size_t>(size), file);
  return std::fclose(file) != 0;
}
