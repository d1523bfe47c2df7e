// lowframerate.log, read record by record into fixed fields, and the report made of it.
#include "support/fixture.h"

namespace {
using namespace testing_support;
using mdlBenchmark::AppState;

class LogTest : public HeadlessTest {};

// A text with its line ends and tabs written as escapes.
std::string Shown(const std::string& text) {
  std::string shown;
  for (char c : text) shown += c == '\r' ? "\\r" : c == '\n' ? "\\n" : c == '\t' ? "\\t" : std::string(1, c);
  return shown;
}

// Reads a log into AppState and gives each record as a line of its four fields between bars.
std::string ReadLog(const std::string& log) {
  headless::PutFile(kLog, log);
  mdlBenchmark::ReadRunResults();
  std::string read;
  for (const auto& r : AppState.RunResults)
    read += Shown("|" + r.LevelName.str() + "|" + r.LowFps.str() + "|" + r.AverageFps.str() + "|" +
                  r.HighFps.str() + "|") + "\n";
  return read;
}

// Each log is read after the one before it, so what the earlier read left must go. Element 0
// stays blank and unused; an empty log leaves no element at all. log-records.txt holds each log
// and then its records, line ends and tabs written as escapes.
TEST_F(LogTest, ReadsEachRecordIntoFixedFields) {
  const std::string abc = "abc, 1 / 2 / 3abcd, x, y";
  const std::string logs[] = {
      "dm-antalus, 31.20 / 58.44 / 112.90abcd, foo, bar", "abcdefghijklmnopqrst, 1 / 2 / 3abcd",
      "abcdefghijklmn, 1234567890123 / 2 / 3abcd, x, y", "abc, 31.20 / 58.44 / 1234, x, y",
      "abc, 31.20 / 58.44 / 112.90, x, y", "abc, 31.20 / 58.44 / 112.90 / 7abcd",
      "\"dm,antalus\", 1 / 2 / 3abcd, x, y", abc + "\r\n" + abc + "\r\n", abc + "\n" + abc + "\n",
      abc + "\r\n\r\n",
      // Three items on a line: the fourth comes from the next line and the rest shift.
      "abc, 1 / 2 / 3abcd, x\r\nx, 4 / 5 / 6abcd, y, z\r\n",
      // Five items on a line: the fifth begins the next record.
      "abc, 1 / 2 / 3abcd, x, y, abc\r\n1 / 2 / 3abcd, x, y\r\n", "",
      // Malformed items fill what they hold.
      "a, 31.20/5, x, y", "a, 1 / 2/3abcd, x, y", "a, 1 / 2 / abc, x, y", "a",
      "\"abc\"junk, 1 / 2 / 3abcd, x, y", "\"ab, 1 / 2 / 3abcd, x, y\r\n",
      // A line end inside quotes belongs to the item, as any other character does.
      "\"dm\r\nx\", 1 / 2 / 3abcd, x, y", "\tabc,\t1 / 2 / 3abcd, x, y",
      "abc\r1 / 2 / 3abcd\rx\ry\rabc\n1 / 2 / 3abcd\nx\ny", "abc, 1 / 2 / 3abcd  , x, y"};
  AppState.GamePath = kFullPath;
  std::string read;
  for (const std::string& log : logs) read += "log " + Shown(log) + "\n" + ReadLog(log);
  EXPECT_EQ(read, Golden("log-records.txt"));
  // The record index is 16-bit: reading stops after record 32767.
  const std::string two = ReadLog("\n\n\n\n");  // element 0 and one blank record
  std::string blanks;
  for (int record = 0; record < 32768; record += 2) blanks += two;
  EXPECT_EQ(ReadLog(std::string(4 * 32768, '\n')), blanks);
  // A log that cannot be read counts as empty.
  headless::SetLocked(kLog, true);
  EXPECT_EQ(ReadLog(abc), "");
}

// Two records for three levels at two resolutions: the cells the log lacks are blank, so the
// report is whole and its notes follow. The engine's code is compared exactly: "ogl" is no
// OpenGL.
TEST_F(LogTest, TooFewRecordsLeaveBlankCellsInTheReportAndTheNotesFollow) {
  // The game's and the program's folders, no records yet, two resolutions, their names from
  // element 1 on, the engine's code and the variant.
  AppState = {kFullPath, "C:\\Bench\\", {}, 2, "", {"", "640x480", "1024x768"}, "ogl", "demo"};
  headless::PutFile(kLog, "L1, 1.1 / 1.2 / 1.3 fps, 77, 640x480\r\n"
                          "L2, 2.1 / 2.2 / 2.3 fps, 77, 640x480\r\n");
  EXPECT_TRUE(mdlBenchmark::WriteResultsTables(3));
  EXPECT_TRUE(mdlBenchmark::AppendRunNotes("Run sentence", "Ini sentence"));
  EXPECT_EQ(FileOrMissing(kReport), Golden("too_few_records.html"));
}

}  // namespace
