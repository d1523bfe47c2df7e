// Timings and memory of the program under Wine, each against a baseline that this same process
// runs in the same prefix, alternating with the program. Run by tools/benchmark.sh in a prefix
// laid out by tools/wine-lib.sh, with this exe, minimal_window.exe and same_window.exe in the
// driver folder.
//
//   measure startup <runs>  from CreateProcess to a visible top-level window: the program
//                           against minimal_window.exe and against same_window.exe, its main
//                           window made by hand, after a warm-up start of each; and the
//                           memory of the program and the minimal one once their window shows
//   measure suite <runs>    a High Quality suite of the full game at all five resolutions,
//                           from the posted click to the report reaching the recording opener,
//                           against a bare loop of the same 35 starts, after a warm-up pair;
//                           less the opener's own start, timed from a bare hand-off of the
//                           same report; then one more suite for the program's peak memory
//
// It prints "<name> <median> <sample>..." lines of times in seconds or ratios, and
// "<name> <bytes>" lines of memory. The stand-in should be told to end at once
// (UT2003_STANDIN_SPEED=0), so that what is left is the cost of starting the game and of the
// program around it.
#include <windows.h>

#include <psapi.h>
#include <shellapi.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include "benchmark/catalogue.h"
#include "ui.h"

namespace {

const std::string kProgram = ui::kProgramFolder + "\\" + ui::kProgramExe;
const std::string kResults = ui::kProgramFolder + "\\results.html";
const std::string kStandInLog = ui::kFullGame + "\\System\\StandIn.log";
const std::string kLogFolder = ui::kFullGame + "\\Benchmark";
const std::string kLowFrameRateLog = kLogFolder + "\\lowframerate.log";
const std::string kMinimalWindow = ui::kDriverFolder + "\\minimal_window.exe";
const std::string kSameWindow = ui::kDriverFolder + "\\same_window.exe";
// Every level of the suite at every resolution.
constexpr std::size_t kSuiteStarts = std::size(catalogue::kFullSuite) * static_cast<std::size_t>(catalogue::kResolutionCount);

double Now() {
  LARGE_INTEGER count, frequency;
  ::QueryPerformanceCounter(&count);
  ::QueryPerformanceFrequency(&frequency);
  return static_cast<double>(count.QuadPart) / static_cast<double>(frequency.QuadPart);
}

double Median(std::vector<double> samples) {
  std::sort(samples.begin(), samples.end());
  const std::size_t middle = samples.size() / 2;
  return samples.size() % 2 != 0 ? samples[middle] : (samples[middle - 1] + samples[middle]) / 2;
}

void Print(const char* name, const std::vector<double>& samples) {
  std::printf("%s %.6f", name, Median(samples));
  for (double sample : samples) std::printf(" %.6f", sample);
  std::printf("\n");
  std::fflush(stdout);
}

// The ratio of each pair taken one after the other: a check on the ratio of the medians that
// a load changing over the run moves less.
std::vector<double> PairRatios(const std::vector<double>& program,
                               const std::vector<double>& baseline) {
  std::vector<double> ratios;
  for (std::size_t i = 0; i < program.size() && i < baseline.size(); ++i) {
    ratios.push_back(program[i] / baseline[i]);
  }
  return ratios;
}

void PrintBytes(const char* name, SIZE_T bytes) {
  std::printf("%s %llu\n", name, static_cast<unsigned long long>(bytes));
}

// Waits on a short step, for what gives no signal to wait on.
template <class Ready>
void Poll(const std::string& what, Ready ready) {
  const double start = Now();
  while (!ready()) {
    if (Now() - start > 120) ui::Fail("timed out waiting for " + what);
    ::Sleep(1);
  }
}

// Under a heavy load Wine now and then fails to start a process (error 1359, an internal
// error) that starts when tried again. Such a start is not a figure: the measurement it spoilt
// is taken again, a few times at most.
struct Spoilt : ui::Failure {
  using ui::Failure::Failure;
};

template <class Measurement>
auto Retried(Measurement measurement) {
  constexpr int kAttempts = 3;
  for (int attempt = 1;; ++attempt) {
    try {
      return measurement();
    } catch (const Spoilt& spoilt) {
      if (attempt == kAttempts) throw;
      std::fprintf(stderr, "measure: %s; measuring again\n", spoilt.what());
    }
  }
}

void Start(const std::string& exe) {
  try {
    ui::StartProgram(exe);
  } catch (const ui::Failure& failure) {
    throw Spoilt(failure.what());
  }
}

struct Search {
  DWORD process;
  HWND found;
};

BOOL CALLBACK FindVisible(HWND window, LPARAM data) {
  auto* search = reinterpret_cast<Search*>(data);
  DWORD process = 0;
  ::GetWindowThreadProcessId(window, &process);
  if (process == search->process && ::IsWindowVisible(window)) {
    search->found = window;
    return FALSE;
  }
  return TRUE;
}

HWND VisibleTopWindow(DWORD process) {
  Search search{process, nullptr};
  ::EnumWindows(FindVisible, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

PROCESS_MEMORY_COUNTERS_EX Memory(HANDLE process) {
  PROCESS_MEMORY_COUNTERS_EX counters{};
  counters.cb = sizeof(counters);
  if (!::GetProcessMemoryInfo(process, reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters),
                              sizeof(counters))) {
    ui::Fail("no memory counters, error " + std::to_string(::GetLastError()));
  }
  return counters;
}

// The private bytes: Windows keeps their peak, Wine gives the present figure in both fields
// (and no PrivateUsage), so the larger of the two serves both.
SIZE_T PrivateOf(const PROCESS_MEMORY_COUNTERS_EX& counters) {
  return std::max(counters.PeakPagefileUsage, counters.PagefileUsage);
}

SIZE_T PeakPrivate(HANDLE process) { return PrivateOf(Memory(process)); }

void AwaitEnd(HANDLE process) {
  if (::WaitForSingleObject(process, 30000) != WAIT_OBJECT_0) ui::Fail("a program did not end");
  ::CloseHandle(process);
}

// A window's caption and client size, then its controls, a line each in the order of its
// stack: class, id, style, check, place and text.
std::string Layout(HWND window) {
  RECT client{};
  ::GetClientRect(window, &client);
  std::string layout = ui::TextOf(window) + " " + std::to_string(client.right) + "x" +
                       std::to_string(client.bottom) + "\n";
  for (HWND child = ::GetWindow(window, GW_CHILD); child != nullptr;
       child = ::GetWindow(child, GW_HWNDNEXT)) {
    char name[64] = "";
    ::GetClassNameA(child, name, sizeof(name));
    RECT place{};
    ::GetWindowRect(child, &place);
    ::MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&place), 2);
    char line[160];
    std::snprintf(line, sizeof(line), "%s %d %08lx %d %ld,%ld %ldx%ld ", name, ::GetDlgCtrlID(child),
                  static_cast<unsigned long>(::GetWindowLongA(child, GWL_STYLE)),
                  static_cast<int>(::SendMessageA(child, BM_GETCHECK, 0, 0)), place.left, place.top,
                  place.right - place.left, place.bottom - place.top);
    layout += line + ui::TextOf(child) + "\n";
  }
  return layout;
}

// One start: the time to a visible window, and the memory of the process once it shows; its
// layout too where asked, which the warm-up starts alone need.
struct Shown {
  double seconds;
  PROCESS_MEMORY_COUNTERS_EX memory;
  std::string layout;
};

Shown StartToWindow(const std::string& exe, bool withLayout = false) {
  const double start = Now();
  Start(exe);
  const DWORD process = ::GetProcessId(ui::Program());
  HWND window = nullptr;
  Poll("a window of " + exe, [&] { return (window = VisibleTopWindow(process)) != nullptr; });
  Shown result{Now() - start, {}, {}};
  result.memory = Memory(ui::Program());
  if (withLayout) result.layout = Layout(window);
  ::PostMessageW(window, WM_CLOSE, 0, 0);
  AwaitEnd(ui::Program());
  return result;
}

int StartUp(int runs) {
  // Warm-up: the files of all three are in the cache from here on.
  const std::string programLayout = Retried([] { return StartToWindow(kProgram, true); }).layout;
  Retried([] { return StartToWindow(kMinimalWindow); });
  const std::string sameLayout = Retried([] { return StartToWindow(kSameWindow, true); }).layout;
  if (sameLayout != programLayout) {
    ui::Fail("the controls of same_window.exe are not the program's:\n" + sameLayout +
             "against\n" + programLayout);
  }
  std::vector<double> program, minimal, same, programSet, programPrivate, minimalSet, minimalPrivate;
  for (int run = 0; run < runs; ++run) {
    const Shown a = Retried([] { return StartToWindow(kProgram); });
    const Shown b = Retried([] { return StartToWindow(kMinimalWindow); });
    const Shown c = Retried([] { return StartToWindow(kSameWindow); });
    program.push_back(a.seconds);
    minimal.push_back(b.seconds);
    same.push_back(c.seconds);
    programSet.push_back(static_cast<double>(a.memory.PeakWorkingSetSize));
    programPrivate.push_back(static_cast<double>(PrivateOf(a.memory)));
    minimalSet.push_back(static_cast<double>(b.memory.PeakWorkingSetSize));
    minimalPrivate.push_back(static_cast<double>(PrivateOf(b.memory)));
  }
  Print("startup_program", program);
  Print("startup_minimal", minimal);
  Print("startup_pair_ratio", PairRatios(program, minimal));
  Print("startup_same_window", same);
  Print("startup_same_pair_ratio", PairRatios(program, same));
  PrintBytes("shown_program_peak_working_set", static_cast<SIZE_T>(Median(programSet)));
  PrintBytes("shown_program_peak_private", static_cast<SIZE_T>(Median(programPrivate)));
  PrintBytes("minimal_peak_working_set", static_cast<SIZE_T>(Median(minimalSet)));
  PrintBytes("minimal_peak_private", static_cast<SIZE_T>(Median(minimalPrivate)));
  return 0;
}

// The stand-in's record of its starts, one line each.
std::vector<std::string> Starts() { return ui::Lines(ui::ReadBytes(kStandInLog).value_or("")); }

ULONGLONG FileSize(const std::string& path) {
  WIN32_FILE_ATTRIBUTE_DATA data{};
  if (!::GetFileAttributesExW(ui::Wide(path).c_str(), GetFileExInfoStandard, &data)) return 0;
  return (static_cast<ULONGLONG>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
}

// A folder whose changes wake the waiting thread: polling the report's record would take the
// processor from the very starts that are measured. It stays open for the whole run, so that
// the suite and the baseline pay its cost alike.
class FolderWatch {
 public:
  explicit FolderWatch(const std::string& folder)
      : handle_(::FindFirstChangeNotificationW(ui::Wide(folder).c_str(), FALSE,
                                               FILE_NOTIFY_CHANGE_FILE_NAME | FILE_NOTIFY_CHANGE_SIZE |
                                                   FILE_NOTIFY_CHANGE_LAST_WRITE)) {
    if (handle_ == INVALID_HANDLE_VALUE) ui::Fail("cannot watch " + folder);
  }
  ~FolderWatch() { ::FindCloseChangeNotification(handle_); }
  FolderWatch(const FolderWatch&) = delete;
  FolderWatch& operator=(const FolderWatch&) = delete;

  // Waits until ready holds, checking it at each change of the folder, and calls idle
  // whenever step milliseconds pass without a change.
  template <class Ready>
  void AwaitChange(const std::string& what, Ready ready, DWORD step,
                   const std::function<void()>& idle) {
    const double start = Now();
    while (!ready()) {
      if (::WaitForSingleObject(handle_, step) == WAIT_OBJECT_0) {
        ::FindNextChangeNotification(handle_);
      } else if (idle) {
        idle();
      }
      if (Now() - start > 120) ui::Fail("timed out waiting for " + what);
    }
  }

 private:
  HANDLE handle_;
};

// The suite as the user starts it: a click on "High Quality", and the report in the browser.
// Also the time at which the last game's record was in the log.
struct SuiteTimes {
  double total, games;
};

// A start of the game that failed shows a box and holds the suite: it is answered, the suite
// is let run to its end, and the measurement is spoilt. Looked for only when nothing has
// happened for a while, so that looking takes nothing from the suite.
void CheckForBox(HWND button) {
  HWND box = ui::FindTop(L"#32770", "");
  if (box == nullptr) return;
  const std::string text = ui::TextOf(::GetDlgItem(box, ui::kBoxText));
  ui::AwaitTrue("the suite to end", [&] {
    if (HWND open = ui::FindTop(L"#32770", "")) {
      ::PostMessageW(::GetDlgItem(open, IDOK), BM_CLICK, 0, 0);
    }
    return ::IsWindowEnabled(button) != 0;
  }, 120);
  throw Spoilt("a start of the game failed: " + text);
}

// With sample given, it is called every few milliseconds of the suite, which the times then
// include.
SuiteTimes Suite(HWND main, FolderWatch& driverFolder, FolderWatch& logFolder, ULONGLONG logSize,
                 const std::function<void()>& sample = {}) {
  HWND button = ui::Await("High Quality", [&] { return ui::FindChild(main, "High Quality"); });
  ui::AwaitTrue("High Quality to be enabled", [&] { return ::IsWindowEnabled(button) != 0; });
  // The baseline left its records in the log; the program would empty it too, but only after
  // the click, and the wait below must not see them.
  ui::WriteBytes(kLowFrameRateLog, "");
  const std::size_t startsBefore = Starts().size();
  const ULONGLONG openedBefore = FileSize(ui::kOpened);
  const double start = Now();
  ::PostMessageW(button, BM_CLICK, 0, 0);
  SuiteTimes times{0, 0};
  const DWORD step = sample ? 5 : 1000;
  const std::function<void()> idle = [&] {
    if (sample) sample();
    CheckForBox(button);
  };
  // The log grows to the same size in every suite: the stand-in's records are the same bytes.
  if (logSize != 0) {
    logFolder.AwaitChange("the last record", [&] { return FileSize(kLowFrameRateLog) >= logSize; },
                          step, idle);
    times.games = Now() - start;
  }
  driverFolder.AwaitChange("the report to be opened",
                           [&] { return FileSize(ui::kOpened) > openedBefore; }, step, idle);
  times.total = Now() - start;
  // The handler ends by unlocking the controls; the baseline must not overlap it.
  ui::AwaitTrue("the suite to end", [&] { return ::IsWindowEnabled(button) != 0; });
  const std::size_t starts = Starts().size() - startsBefore;
  if (starts != kSuiteStarts) {
    ui::Fail("the suite started the game " + std::to_string(starts) + " times");
  }
  return times;
}

// What RunAppSync asks of the system for each line, and nothing else.
double BareLoop(const std::vector<std::string>& lines) {
  const double start = Now();
  for (const std::string& commandLine : lines) {
    std::vector<char> line(commandLine.begin(), commandLine.end());
    line.push_back('\0');
    STARTUPINFOA startup{};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = SW_SHOWMINIMIZED;
    PROCESS_INFORMATION info{};
    if (!::CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                          &startup, &info)) {
      throw Spoilt("cannot start " + commandLine + ", error " + std::to_string(::GetLastError()));
    }
    ::CloseHandle(info.hThread);
    ::CloseHandle(info.hProcess);
    HANDLE process = ::OpenProcess(SYNCHRONIZE, TRUE, info.dwProcessId);
    ::WaitForSingleObject(process, INFINITE);
    if (process != nullptr) ::CloseHandle(process);
  }
  return Now() - start;
}

// The recording opener's own start: from handing the same report to the shell as the program
// does to the opener's record of it. The suite's clock can only stop at that record, so this
// much of its time is the opener's, not the program's.
double HandOff(FolderWatch& driverFolder) {
  const ULONGLONG before = FileSize(ui::kOpened);
  const double start = Now();
  ::ShellExecuteA(nullptr, "Open", kResults.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
  driverFolder.AwaitChange("the opener", [&] { return FileSize(ui::kOpened) > before; }, 1000, {});
  return Now() - start;
}

int SuiteAgainstLoop(int runs) {
  Retried([] {
    Start(kProgram);
    return 0;
  });
  HWND main = ui::AwaitTop(ui::kFormClass, ui::kTitle, 30);
  ui::Click(main, "Full");
  ui::Click(main, "Direct3D");
  for (const char* resolution : catalogue::kResolutions) ui::Click(main, resolution);
  ui::AwaitState(main, "Full", true, true);
  ui::AwaitState(main, "Direct3D", true, true);
  for (const char* resolution : catalogue::kResolutions) ui::AwaitState(main, resolution, true, true);

  FolderWatch driverFolder(ui::kDriverFolder), logFolder(kLogFolder);
  std::vector<double> suite, games, loop, handOff, toShell;
  ULONGLONG logSize = 0;
  struct Pair {
    SuiteTimes suite;
    double loop, handOff;
  };
  for (int run = 0; run <= runs; ++run) {  // run 0 warms both up
    const Pair pair = Retried([&] {
      const SuiteTimes times = Suite(main, driverFolder, logFolder, logSize);
      logSize = FileSize(kLowFrameRateLog);
      std::vector<std::string> lines = Starts();
      lines.erase(lines.begin(), lines.end() - static_cast<std::ptrdiff_t>(kSuiteStarts));
      const double loopSeconds = BareLoop(lines);
      return Pair{times, loopSeconds, HandOff(driverFolder)};
    });
    if (run == 0) continue;
    suite.push_back(pair.suite.total);
    games.push_back(pair.suite.games);
    loop.push_back(pair.loop);
    handOff.push_back(pair.handOff);
    toShell.push_back(pair.suite.total - pair.handOff);
  }
  Print("suite_program", suite);
  Print("suite_program_games", games);
  Print("suite_opener", handOff);
  Print("suite_program_to_shell", toShell);
  Print("suite_loop", loop);
  Print("suite_pair_ratio", PairRatios(toShell, loop));

  // One more suite, untimed, with the memory sampled all along: Wine keeps no peak of the
  // private bytes, only the present figure.
  SIZE_T peakPrivate = 0;
  Retried([&] {
    return Suite(main, driverFolder, logFolder, logSize,
                 [&] { peakPrivate = std::max(peakPrivate, PeakPrivate(ui::Program())); });
  });
  const PROCESS_MEMORY_COUNTERS_EX memory = Memory(ui::Program());
  PrintBytes("suite_program_peak_working_set", memory.PeakWorkingSetSize);
  PrintBytes("suite_program_peak_private", std::max(peakPrivate, PeakPrivate(ui::Program())));
  ::PostMessageW(main, WM_COMMAND, menu_commands::kExit, 0);
  AwaitEnd(ui::Program());
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string command = argc == 3 ? argv[1] : "";
  const int runs = argc == 3 ? std::atoi(argv[2]) : 0;
  try {
    if (command == "startup" && runs > 0) return StartUp(runs);
    if (command == "suite" && runs > 0) return SuiteAgainstLoop(runs);
  } catch (const ui::Failure& failure) {
    if (ui::Program() != nullptr) ::TerminateProcess(ui::Program(), 1);
    std::fprintf(stderr, "measure: %s\n", failure.what());
    return 1;
  }
  std::fprintf(stderr, "usage: measure startup <runs> | suite <runs>\n");
  return 2;
}
