// Files of the headless machine: real files under a host folder, reached by Windows paths.
#include <algorithm>
#include <fstream>
#include <iterator>
#include <system_error>

#include "platform/headless/state.h"

namespace fs = std::filesystem;

namespace headless {
using detail::M;

fs::path HostPath(const std::string& windowsPath) {
  std::string path = windowsPath;
  std::string drive = "C";
  if (path.size() >= 2 && path[1] == ':') {
    drive = std::string(1, static_cast<char>(std::toupper(static_cast<unsigned char>(path[0]))));
    path = path.substr(2);
  }
  fs::path host = M().root / drive;
  std::string part;
  for (char c : path + "\\") {
    if (c == '\\' || c == '/') {
      if (!part.empty()) host /= part;
      part.clear();
    } else {
      part += c;
    }
  }
  return host;
}

void PutFile(const std::string& windowsPath, const std::string& bytes) {
  fs::path host = HostPath(windowsPath);
  fs::create_directories(host.parent_path());
  std::ofstream(host, std::ios::binary | std::ios::trunc) << bytes;
}

std::optional<std::string> GetFile(const std::string& windowsPath) {
  std::ifstream in(HostPath(windowsPath), std::ios::binary);
  if (!in) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(in), {});
}

void MakeFolder(const std::string& windowsPath) { fs::create_directories(HostPath(windowsPath)); }

void SetReadOnly(const std::string& windowsPath, bool readOnly) {
  std::string host = HostPath(windowsPath).string();
  if (readOnly) M().readOnly.insert(host); else M().readOnly.erase(host);
}

void SetLocked(const std::string& windowsPath, bool locked) {
  std::string host = HostPath(windowsPath).string();
  if (locked) M().locked.insert(host); else M().locked.erase(host);
}

void SetHidden(const std::string& windowsPath, bool hidden) {
  std::string host = HostPath(windowsPath).string();
  if (hidden) M().hidden.insert(host); else M().hidden.erase(host);
}

}  // namespace headless

namespace platform {
using headless::detail::M;

bool WriteTextFile(const std::string& path, const std::string& bytes, bool append,
                   std::string* reason) {
  fs::path host = headless::HostPath(path);
  std::error_code ec;
  if (!fs::is_directory(host.parent_path(), ec)) {
    *reason = "Path not found";
    return false;
  }
  if (fs::is_directory(host, ec) || M().readOnly.count(host.string()) ||
      M().locked.count(host.string())) {
    *reason = "Permission denied";
    return false;
  }
  std::ofstream out(host, std::ios::binary | (append ? std::ios::app : std::ios::trunc));
  out << bytes;
  out.close();
  if (!out) {
    *reason = "Disk full";
    return false;
  }
  return true;
}

bool ReadTextFile(const std::string& path, std::string* bytes, std::string* reason,
                  std::size_t limit) {
  fs::path host = headless::HostPath(path);
  std::error_code ec;
  if (M().locked.count(host.string())) {
    *reason = "Permission denied";
    return false;
  }
  if (!fs::is_regular_file(host, ec)) {
    *reason = fs::is_directory(host.parent_path(), ec) ? "File not found" : "Path not found";
    return false;
  }
  std::ifstream in(host, std::ios::binary);
  bytes->assign(static_cast<std::size_t>(std::min<std::uintmax_t>(fs::file_size(host, ec), limit)), '\0');
  in.read(bytes->data(), static_cast<std::streamsize>(bytes->size()));
  return true;
}

// A file that is no folder and not hidden (nor a system file); a read-only one counts.
bool NormalFileExists(const std::string& path) {
  std::error_code ec;
  const fs::path host = headless::HostPath(path);
  return fs::is_regular_file(host, ec) && headless::M().hidden.count(host.string()) == 0;
}

bool CreateFolder(const std::string& path, std::string* reason) {
  std::error_code ec;
  const fs::path host = headless::HostPath(path);
  // A parent that is a file, or one that refuses to be written, stops it as on Windows.
  for (fs::path at = host; !at.empty() && at != M().root; at = at.parent_path()) {
    if (fs::exists(at, ec) && !fs::is_directory(at, ec)) {
      *reason = "Path not found";
      return false;
    }
    if (M().readOnly.count(at.string())) {
      *reason = "Permission denied";
      return false;
    }
  }
  fs::create_directories(host, ec);
  return true;
}

bool MoveFileOver(const std::string& from, const std::string& to, std::string* reason) {
  std::error_code ec;
  fs::rename(headless::HostPath(from), headless::HostPath(to), ec);
  if (ec) *reason = "Permission denied";
  return !ec;
}

}  // namespace platform
