#include "benchmark/kept_folder.h"

#include "platform/platform.h"

namespace kept {
namespace {

const char* const kIndex = "\\index.js";
const char* const kRunStart = "{\"file\": ";

void Field(std::string& line, const char* key, const std::string& json) {
  ((line += ", \"") += key) += "\": ";
  line += json;
}

// The whole file, or false with the file and the reason.
bool Write(const std::string& path, const std::string& bytes, std::string* file, std::string* reason) {
  *file = path;
  return platform::WriteTextFile(path, bytes, false, reason);
}

}  // namespace

std::string Quoted(const std::string& text) {
  std::string json = "\"";
  for (unsigned char c : text) {
    if (c < 0x20 || c > 0x7E || std::string("\"\\<>&'").find(static_cast<char>(c)) != std::string::npos) {
      json += "\\u00";
      json += "0123456789abcdef"[c >> 4];
      json += "0123456789abcdef"[c & 15];
    } else {
      json += static_cast<char>(c);
    }
  }
  return json + "\"";
}

Folder::Folder(std::string path, std::string name, std::string planned)
    : path_(std::move(path)), name_(std::move(name)), planned_(std::move(planned)) {}

bool Folder::Open(const std::string& comparePage, std::string* file, std::string* reason) {
  *file = path_;
  if (!platform::CreateFolder(path_, reason)) return false;
  // The runs of an earlier batch stay, line for line; an index cut off between its removal
  // and the move of its successor is the successor.
  std::string index, unused;
  if (platform::ReadTextFile(path_ + kIndex, &index, &unused) ||
      platform::ReadTextFile(path_ + "\\index.new", &index, &unused)) {
    for (std::size_t at = index.find(std::string("\n") + kRunStart); at != std::string::npos;
         at = index.find(std::string("\n") + kRunStart, at + 1)) {
      std::string line = index.substr(at + 1, index.find('\n', at + 1) - at - 1);
      while (!line.empty() && (line.back() == '\r' || line.back() == ',')) line.pop_back();
      runs_.push_back(line);
    }
  }
  std::string page;
  // A program folder without the page still keeps the reports and their index.
  if (platform::ReadTextFile(comparePage, &page, &unused) &&
      !Write(path_ + "\\compare.html", page, file, reason)) {
    return false;
  }
  return WriteIndex("", file, reason);
}

bool Folder::Keep(const Run& run, std::string* file, std::string* reason) {
  if (!Write(path_ + "\\" + run.file, run.report, file, reason)) return false;
  std::string line = kRunStart + Quoted(run.file);
  Field(line, "repeat", std::to_string(run.repeat));
  const std::pair<const char*, const std::string*> texts[] = {
      {"started", &run.started}, {"finished", &run.finished}, {"test", &run.test},
      {"renderer", &run.renderer}, {"game", &run.game}, {"gameVersion", &run.gameVersion}};
  for (const auto& [key, text] : texts) Field(line, key, Quoted(*text));
  std::string resolutions;
  for (const std::string& resolution : run.resolutions) {
    (resolutions += resolutions.empty() ? "" : ", ") += Quoted(resolution);
  }
  Field(line, "resolutions", "[" + resolutions + "]");
  const std::pair<const char*, const std::string*> more[] = {
      {"level", &run.level}, {"sound", &run.sound}, {"detail", &run.detail},
      {"processor", &run.processor}, {"display", &run.display}, {"report", &run.report}};
  for (const auto& [key, text] : more) Field(line, key, Quoted(*text));
  runs_.push_back(line + "}");
  return WriteIndex("", file, reason);
}

bool Folder::Close(const std::string& stopped, std::string* file, std::string* reason) {
  return WriteIndex(stopped, file, reason);
}

bool Folder::WriteIndex(const std::string& stopped, std::string* file, std::string* reason) {
  std::string text =
      "// The runs of this folder, for compare.html beside it. Written by Kelvarnite UT2k3 "
      "Benchmark after every run.\r\nkelvarniteIndex({\"format\": 1";
  Field(text, "name", Quoted(name_));
  Field(text, "program", Quoted(KELVARNITE_VERSION));
  Field(text, "planned", planned_);
  Field(text, "stopped", Quoted(stopped));
  text += ", \"runs\": [\r\n";
  for (std::size_t i = 0; i < runs_.size(); ++i) text += runs_[i] + (i + 1 < runs_.size() ? ",\r\n" : "\r\n");
  text += "]});\r\n";
  // A new file first, then in the old one's place: a crash or a full disk leaves the last
  // index whole.
  const std::string fresh = path_ + "\\index.new";
  if (!Write(fresh, text, file, reason)) return false;
  *file = path_ + kIndex;
  return platform::MoveFileOver(fresh, *file, reason);
}

}  // namespace kept
