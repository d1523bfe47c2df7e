// results.html: three tables of frame rates, the notes on how the test ran, and the shell
// that opens documents.
#include "benchmark/mdlBenchmark.h"
#include "platform/forms/window.h"
#include "platform/platform.h"
#include "windows/Form1.h"

namespace mdlBenchmark {
namespace {

void Line(std::string& text, const std::string& line) { text += line + "\r\n"; }

// A record the log did not deliver (a start that failed) reads as blank fields, so the
// report stays whole.
const RunResult& Record(std::size_t number) {
  static const RunResult kBlank;
  return number < AppState.RunResults.size() ? AppState.RunResults[number] : kBlank;
}

std::string ResolutionName(int row) {
  const auto& names = AppState.ResolutionNames;
  return static_cast<std::size_t>(row) < names.size() ? names[row] : std::string();
}

struct Block {
  const char* caption;
  FixedText<10> RunResult::*field;
};

const Block kBlocks[] = {
    {"<CAPTION ALIGN=TOP><B>Low FPS</b></caption>", &RunResult::LowFps},
    {"<CAPTION ALIGN=TOP><B>Average FPS</b></caption>", &RunResult::AverageFps},
    {"<CAPTION ALIGN=TOP><B>High FPS</b></caption>", &RunResult::HighFps},
};

bool WriteReport(const std::string& text, bool append) {
  std::string reason;
  if (platform::WriteTextFile(ResultsPath(), text, append, &reason)) return true;
  forms::MsgBox(ResultsPath() + " cannot be written: " + reason + ".", platform::kMbIconCritical);
  return false;
}

}  // namespace

std::string ResultsPath() { return AppState.AppPath + "results.html"; }

bool WriteResultsTables(int columns) {
  ReadRunResults();
  std::string text;
  Line(text, "<META GENERATOR=Kelvarnite UT2003 Benchmark>");
  for (const Block& block : kBlocks) {
    Line(text, "<TABLE BORDER=1 CELLPADDING=3 ALIGN=CENTER>");
    Line(text, block.caption);
    Line(text, "<TR>");
    Line(text, "<TD>Resolution");
    // The column titles are the levels of the first resolution.
    for (int column = 1; column <= columns; ++column) {
      Line(text, "<TD>" + Record(column).LevelName.str());
    }
    Line(text, "</TR>");
    // The game ran every level of a resolution before the next resolution, so the records
    // follow the cells row by row.
    std::size_t record = 1;
    for (int row = 1; row <= AppState.ResolutionCount; ++row) {
      Line(text, "<TR>");
      Line(text, "<TD>" + ResolutionName(row));
      for (int column = 1; column <= columns; ++column) {
        Line(text, "<TD>" + (Record(record++).*block.field).str());
      }
      Line(text, "</TR>");
    }
    Line(text, "</TABLE>");
    Line(text, "<BR>");
    Line(text, "<BR>");
  }
  return WriteReport(text, false);
}

bool AppendRunNotes(const std::string& runSentence, const std::string& iniSentence) {
  std::string text;
  Line(text, "<BR>");
  Line(text, "<CENTER>");
  Line(text, runSentence);
  Line(text, "<BR>");
  Line(text, AppState.RenderEngine == "OGL"
                 ? "This test was run using the OpenGL Rendering Engine"
                 : "This test was run using the Direct3D Rendering Engine");
  Line(text, "<BR>");
  Line(text, "This test was run using the " + AppState.GameVersion +
                 " version of Unreal Tournament 2003");
  Line(text, "<BR>");
  Line(text, iniSentence);
  Line(text, "<BR>");
  Line(text, "</CENTER>");
  return WriteReport(text, true);
}

void OpenDocument(const std::string& path) {
  // The shell's answer is of no use: a file it cannot open simply stays unopened.
  platform::ShellExecuteA(MainForm().hWnd(), "Open", path.c_str(), nullptr, nullptr,
                          platform::kShowNormal);
}

}  // namespace mdlBenchmark
