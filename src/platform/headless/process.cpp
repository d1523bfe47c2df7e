// Processes of the headless machine: the game stand-in runs to its end at its start.
#include <filesystem>

#include "platform/headless/state.h"

namespace headless {
using detail::M;

void ProgramGame(const GameRun& run) { M().gameRuns.push_back(run); }

GameRun AppendRecord(const std::string& record) {
  return GameRun{GameRun::Kind::AppendRecord, record, 0, {}};
}

GameRun AppendNothing() { return GameRun{GameRun::Kind::AppendNothing, {}, 0, {}}; }

GameRun FailStart(int number, const std::string& description) {
  return GameRun{GameRun::Kind::FailStart, {}, number, description};
}

const std::vector<Start>& Starts() { return M().starts; }

int OpenProcessHandles() { return M().processHandles; }

namespace {

// The program of a line is its first part: in double quotes, or up to the first blank.
std::string ProgramOf(const std::string& line) {
  if (!line.empty() && line[0] == '"') {
    std::size_t end = line.find('"', 1);
    return line.substr(1, end == std::string::npos ? std::string::npos : end - 1);
  }
  return line.substr(0, line.find(' '));
}

// The value behind a switch such as "-seconds=", up to the next blank.
std::string SwitchValue(const std::string& line, const std::string& name) {
  std::size_t at = line.find(name);
  if (at == std::string::npos) return {};
  at += name.size();
  while (at < line.size() && line[at] == ' ') ++at;
  return line.substr(at, line.find(' ', at) - at);
}

std::string OwnRecord(const std::string& line, std::size_t number) {
  std::string program = ProgramOf(line);
  std::size_t levelStart = line.find(' ', program.size()) + 1;
  std::string level = line.substr(levelStart, line.find('?', levelStart) - levelStart);
  std::string n = std::to_string(number);
  std::string resolution = line.substr(line.rfind(" -") + 2);
  return level + ", " + n + ".10 / " + n + ".20 / " + n + ".30 fps, " +
         SwitchValue(line, "-seconds=") + ", " + resolution + "\r\n";
}

}  // namespace
}  // namespace headless

namespace platform {
using headless::detail::M;

bool StartProcess(const std::string& commandLine, int windowStyle, std::uint32_t* processId,
                  StartFailure* failure) {
  auto& m = M();
  m.starts.push_back({commandLine, windowStyle, false});
  headless::GameRun run;
  const bool programmed = !m.gameRuns.empty();
  if (programmed) {
    run = m.gameRuns.front();
    m.gameRuns.pop_front();
  }
  std::string program = headless::ProgramOf(commandLine);
  if (run.kind == headless::GameRun::Kind::FailStart) {
    *failure = {run.errorNumber, run.description};
    return false;
  }
  // The system starts any file that is no folder, hidden and system files too.
  std::error_code ec;
  if (!std::filesystem::is_regular_file(headless::HostPath(program), ec)) {
    *failure = {53, "File not found"};
    return false;
  }
  // Only a started game writes a record, and only a game's line has the parts of one.
  if (!programmed) run.record = headless::OwnRecord(commandLine, m.starts.size());
  m.starts.back().started = true;
  *processId = static_cast<std::uint32_t>(1000 + m.starts.size());
  if (run.kind == headless::GameRun::Kind::AppendRecord) {
    // <game>\System\ut2003.exe writes to <game>\Benchmark\lowframerate.log
    std::string system = program.substr(0, program.find_last_of('\\'));
    std::string game = system.substr(0, system.find_last_of('\\'));
    std::string reason;
    WriteTextFile(game + "\\Benchmark\\lowframerate.log", run.record, true, &reason);
  }
  return true;
}

ProcessHandle OpenProcess(std::uint32_t access, bool, std::uint32_t processId) {
  // The stand-in has ended by now; a handle of an ended process can still be waited on.
  if (access != kSynchronize || processId == 0) return 0;
  ++M().processHandles;
  return processId;
}

std::uint32_t WaitForSingleObject(ProcessHandle handle, std::uint32_t) {
  return handle == 0 ? 0xFFFFFFFFu : 0;
}

void CloseHandle(ProcessHandle handle) {
  if (handle != 0) --M().processHandles;
}

}  // namespace platform
