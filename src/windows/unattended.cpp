#include "windows/unattended.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>

#include "benchmark/catalogue.h"
#include "benchmark/computer.h"
#include "benchmark/kept_folder.h"
#include "benchmark/mdlBenchmark.h"
#include "benchmark/repeat_rule.h"
#include "launch/arguments.h"
#include "windows/Form1.h"
#include "windows/Form2.h"

namespace unattended {
namespace {

using arguments::Fault;
using arguments::Order;
using mdlBenchmark::AppState;

// With /quit, every box of the process, start-up's included, for boxes.log.
std::string boxLog;

// The fault in one box with the usage, unless no box may wait, and the end.
[[noreturn]] void Refuse(const Order& order, const Fault& fault) {
  if (!order.quit) {
    forms::MsgBox(fault.argument + ": " + fault.problem + ".\n\n" + arguments::kUsage,
                  platform::kMbIconCritical);
  }
  platform::EndProcess(fault.exitCode);
}

// A variant that is not installed, and a level that the demo's list lacks.
std::optional<Fault> CheckInstalled(const Order& order) {
  const Form1& form = MainForm();
  if ((order.game == "full" && !form.Option3.Enabled()) || (order.game == "demo" && !form.Option4.Enabled())) {
    return Fault{"/game " + order.game, "is not installed", arguments::kNoGame};
  }
  const bool demo = order.game == "demo" || (order.game.empty() && !form.Option3.Enabled());
  const auto& levels = catalogue::kDemoLevels;
  if (demo && !order.level.empty() && std::find(std::begin(levels), std::end(levels), order.level) == std::end(levels)) {
    return Fault{"/level " + std::string(catalogue::LevelName(order.level)), "is not a level of the demo"};
  }
  return {};
}

// What a person would tick and select in the main window.
void ShowChoices(const Order& order) {
  Form1& form = MainForm();
  for (int box = 0; box < catalogue::kResolutionCount; ++box) form.Check1[box]->SetValue(order.resolutions >> box & 1);
  if (order.openGl) form.Option2.SetValue(true);
  if (order.game == "full") form.Option3.SetValue(true);
  if (order.game == "demo") form.Option4.SetValue(true);
}

Form2* CustomOptions() { return static_cast<Form2*>(forms::FindOpen(Form2::kName)); }

// "Custom Test", and the choices of the Custom Options window it opens.
void ShowCustomChoices(const Order& order) {
  MainForm().Command4.Click();
  Form2& custom = *CustomOptions();
  if (!order.level.empty()) custom.Combo1.SetListIndex(custom.FindEntry(order.level));
  if (order.sound) custom.Option1.SetValue(true);
  if (order.detail == "min") custom.Option4.SetValue(true);
  if (!order.detail.empty() && order.detail != "min" && order.detail != "max") {
    custom.Option5.SetValue(true);
    custom.Text1.SetText(order.detail);
  }
}

// The test's button, as a person presses it; false when there is none to press.
bool Press(int test) {
  Form1& form = MainForm();
  forms::CommandButton* const buttons[] = {&form.Command1, &form.Command2, &form.Command3};
  Form2* custom = CustomOptions();
  forms::CommandButton* button = test < 3 ? buttons[test] : custom != nullptr ? &custom->Command2 : nullptr;
  if (button != nullptr) button->Click();
  return button != nullptr;
}

// The geometric mean of the last report's Average FPS; 0 when a cell has no rate.
double Score() {
  std::vector<double> rates;
  for (std::size_t cell = 1; cell <= static_cast<std::size_t>(AppState.ReportCells); ++cell) {
    rates.push_back(cell < AppState.RunResults.size() ? repeat_rule::Rate(AppState.RunResults[cell].AverageFps.str()) : 0);
  }
  return repeat_rule::GeometricMean(rates);
}

// "2026-11-25 20:01:03" as "20261125-200103", for names that sort by time.
std::string Stamp(const std::string& time) {
  std::string stamp;
  for (char c : time) {
    if (c != '-' && c != ':') stamp += c == ' ' ? '-' : c;
  }
  return stamp;
}

// How the run was made, from the windows and the registry, and its report.
kept::Run Describe(const Order& order, int repeat, const std::string& started) {
  kept::Run run;
  run.repeat = repeat;
  run.started = started;
  run.finished = platform::LocalTime();
  run.test = catalogue::kTests[order.test];
  run.renderer = AppState.RenderEngine;
  run.game = AppState.GameVersion;
  run.gameVersion = computer::GameVersion();
  for (int i = 1; i <= AppState.ResolutionCount; ++i) run.resolutions.push_back(AppState.ResolutionNames[i]);
  std::string name = run.test;
  if (const Form2* custom = order.test == 3 ? CustomOptions() : nullptr) {
    run.level = catalogue::LevelName(custom->Combo1.Text());
    run.sound = custom->Option1.Value() ? "on" : "off";
    run.detail = custom->Option5.Value() ? custom->Text1.Text() : custom->Option4.Value() ? "min" : "max";
    name += " " + run.level;
  }
  run.processor = computer::ProcessorName();
  run.display = computer::DisplayAdapterName();
  std::string unused;
  platform::ReadTextFile(mdlBenchmark::ResultsPath(), &run.report, &unused);
  run.file = Stamp(started) + (repeat < 10 ? " 0" : " ") + std::to_string(repeat) + " " + name + ".html";
  return run;
}

void TellUnwritten(const std::string& file, const std::string& reason) {
  forms::MsgBox(file + " cannot be written: " + reason + ".", platform::kMbIconCritical);
}

// The folder that keeps the reports: /keep's, else with /repeat a new one beside results.html
// named by the time and the test; none for a single run without /keep.
std::unique_ptr<kept::Folder> KeptFolder(const Order& order) {
  std::string path;
  if (order.keep) {
    path = *order.keep;
  } else if (order.repeats != 0) {
    path = AppState.AppPath + Stamp(platform::LocalTime()) + " " + catalogue::kTests[order.test];
  } else {
    return nullptr;
  }
  while (path.size() > 3 && path.back() == '\\') path.pop_back();  // a drive's root keeps its own
  const std::string name = order.name ? *order.name : path.substr(path.find_last_of('\\') + 1);
  const std::string planned =
      order.repeats == arguments::kAutoRepeats ? kept::Quoted("auto") : std::to_string(std::max(order.repeats, 1));
  return std::make_unique<kept::Folder>(path, name, planned);
}

// The repeats, each through the test's own button, until the order is done or a run fails:
// the exit code, and why the batch stopped.
int RunRepeats(const Order& order, Form1& main, kept::Folder* folder, const std::function<void()>& saveBoxes,
               std::string& stopped) {
  const bool automatic = order.repeats == arguments::kAutoRepeats;
  const int planned = automatic ? repeat_rule::kMaxRepeats : std::max(order.repeats, 1);
  std::vector<double> scores;
  for (int repeat = 1;; ++repeat) {
    const std::string number = std::to_string(repeat);
    main.SetCaption(platform::ApplicationTitle() + " - run " + number + " of " + (automatic ? "up to " : "") +
                    std::to_string(planned));
    platform::PaintWindows();
    const std::string started = platform::LocalTime();
    const int written = AppState.ReportsWritten;
    const bool pressed = Press(order.test);
    const double score = Score();
    if (!pressed || AppState.ReportsWritten == written) {
      stopped = "repeat " + number + " was refused";
      return arguments::kRunFailed;
    }
    if (score <= 0) {
      stopped = "a game start failed in repeat " + number;
      return arguments::kRunFailed;
    }
    std::string file, reason;
    if (folder && !folder->Keep(Describe(order, repeat, started), &file, &reason)) {
      TellUnwritten(file, reason);
      stopped = "the folder could not be written in repeat " + number;
      return arguments::kFolderUnwritable;
    }
    saveBoxes();
    scores.push_back(score);
    const repeat_rule::Verdict verdict = repeat_rule::AfterRepeat(scores);
    if (!automatic && repeat == planned) stopped = number + " of " + number + " repeats done";
    if (automatic && verdict == repeat_rule::Verdict::Within) stopped = "the interval is within 1 % after " + number + " repeats";
    if (automatic && verdict == repeat_rule::Verdict::StillWider) stopped = number + " repeats, the interval still wider than 1 %";
    if (!stopped.empty()) return arguments::kAllRunsDone;
  }
}

}  // namespace

void Run(const std::vector<std::string>& words) {
  Order order;
  if (const std::optional<Fault> fault = arguments::Parse(words, order)) Refuse(order, *fault);
  if (order.help) {
    if (!order.quit) forms::MsgBox(arguments::kUsage);
    platform::EndProcess(arguments::kAllRunsDone);
  }
  if (order.quit) forms::LogBoxes(&boxLog);
  Form1& main = static_cast<Form1&>(forms::Load(std::make_unique<Form1>()));
  // Start-up has told that it found no game.
  if (!main.Option3.Enabled() && !main.Option4.Enabled()) platform::EndProcess(arguments::kNoGame);
  if (const std::optional<Fault> fault = CheckInstalled(order)) Refuse(order, *fault);
  ShowChoices(order);

  // The folder is made and written before any run, so that a batch never fails late for it.
  const std::unique_ptr<kept::Folder> folder = KeptFolder(order);
  std::string file, reason;
  if (folder && !folder->Open(AppState.AppPath + "compare.html", &file, &reason)) {
    TellUnwritten(file, reason);
    platform::EndProcess(arguments::kFolderUnwritable);
  }
  AppState.OpenReports = folder == nullptr;
  const std::string boxesPath = (folder ? folder->Path() + "\\" : AppState.AppPath) + "boxes.log";
  const auto saveBoxes = [&] {
    if (!boxLog.empty()) platform::WriteTextFile(boxesPath, boxLog, false, &reason);
  };
  forms::Show(main);
  if (order.test == 3) ShowCustomChoices(order);

  std::string stopped;
  int code = RunRepeats(order, main, folder.get(), saveBoxes, stopped);
  if (folder && !folder->Close(stopped, &file, &reason) && code == arguments::kAllRunsDone) {
    TellUnwritten(file, reason);
    code = arguments::kFolderUnwritable;
  }
  saveBoxes();
  main.SetCaption(platform::ApplicationTitle());
  if (folder) mdlBenchmark::OpenDocument(folder->Path() + "\\compare.html");
  if (order.quit) platform::EndProcess(code);
  AppState.ExitCode = code;
}

}  // namespace unattended
