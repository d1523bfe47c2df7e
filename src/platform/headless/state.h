// The state of the headless machine, shared by its parts.
#pragma once

#include <deque>
#include <set>

#include "platform/headless/headless.h"

namespace headless::detail {

struct Machine {
  std::filesystem::path root;
  std::string programFolder = "C:\\Bench";
  bool ended = false;
  int exitCode = 0;
  std::string commandLine = "\"C:\\Bench\\KelvarniteUT2k3Benchmark.exe\" ";
  std::string localTime = "2026-11-25 20:01:03";
  std::set<std::string> readOnly, locked, hidden;  // host paths
  std::deque<GameRun> gameRuns;
  std::vector<Start> starts;
  int processHandles = 0;
  std::vector<Box> boxes;
  std::function<int(const Box&)> answer;
  std::vector<ShellCall> shellCalls;
  std::deque<std::optional<std::string>> dialogAnswers;
  std::vector<std::string> dialogFilters;
  std::set<platform::WindowHandle> shown;
  platform::WindowHandle nextWindow = 0x10010;
};

Machine& M();

}  // namespace headless::detail
