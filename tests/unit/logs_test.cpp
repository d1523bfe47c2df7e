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

// Reads a log of the full game into AppState and gives each record as a line of its four
// fields between bars.
std::string ReadLog(const std::string& log) {
  AppState.GamePath = kFullPath;
  headless::PutFile(kLog, log);
  mdlBenchmark::ReadRunResults();
  std::string read;
  for (const auto& r : AppState.RunResults)
    read += Shown("|" + r.LevelName.str() + "|" + r.LowFps.str() + "|" + r.AverageFps.str() + "|" +
                  r.HighFps.str() + "|") + "\n";
  return read;
}

const std::string kAbc = "abc, 1 / 2 / 3abcd, x, y";

// Each log is read after another of more records, whose fields must all go. Element 0 stays
// blank and unused; an empty log leaves no element at all. log-records.txt holds each log, line
// ends and tabs written as escapes, and then its records.
using Records = Rows<LogTest, const char*, std::string>;
TEST_P(Records, ReadIntoFixedFields) {
  const auto& [name, log] = GetParam();
  ReadLog(kAbc + "\r\n" + kAbc + "\r\n" + kAbc + "\r\n");
  EXPECT_EQ(ReadLog(log), GoldenPart("log-records.txt", "\nlog " + Shown(log) + "\n", "\nlog "));
}
INSTANTIATE_TEST_SUITE_P(LogTest, Records, testing::ValuesIn(std::vector<Records::ParamType>{
    {"WholeRecord", "dm-antalus, 31.20 / 58.44 / 112.90abcd, foo, bar"}, {"BlankLine", kAbc + "\r\n\r\n"},
    {"LongName", "abcdefghijklmnopqrst, 1 / 2 / 3abcd"}, {"FourRates", "abc, 31.20 / 58.44 / 112.90 / 7abcd"},
    {"LongRate", "abcdefghijklmn, 1234567890123 / 2 / 3abcd, x, y"}, {"TwoRecords_LF", kAbc + "\n" + kAbc + "\n"},
    {"HighRateOfFourCharacters", "abc, 31.20 / 58.44 / 1234, x, y"}, {"TwoRecords_CRLF", kAbc + "\r\n" + kAbc + "\r\n"},
    {"HighRateWithoutAUnit", "abc, 31.20 / 58.44 / 112.90, x, y"}, {"Empty", ""},
    {"QuotedComma", "\"dm,antalus\", 1 / 2 / 3abcd, x, y"},
    // Three items on a line: the fourth comes from the next line and the rest shift.
    {"ThreeItemsOnALine", "abc, 1 / 2 / 3abcd, x\r\nx, 4 / 5 / 6abcd, y, z\r\n"},
    // Five items on a line: the fifth begins the next record.
    {"FiveItemsOnALine", "abc, 1 / 2 / 3abcd, x, y, abc\r\n1 / 2 / 3abcd, x, y\r\n"},
    // Malformed items fill what they hold.
    {"RatesWithoutSpaces", "a, 31.20/5, x, y"}, {"TwoRatesWithoutSpaces", "a, 1 / 2/3abcd, x, y"}, {"NameAlone", "a"},
    {"HighRateWithoutDigits", "a, 1 / 2 / abc, x, y"}, {"JunkAfterQuotes", "\"abc\"junk, 1 / 2 / 3abcd, x, y"},
    {"OpenQuote", "\"ab, 1 / 2 / 3abcd, x, y\r\n"}, {"SpacesAfterTheRates", "abc, 1 / 2 / 3abcd  , x, y"},
    // A line end inside quotes belongs to the item, as any other character does.
    {"LineEndInsideQuotes", "\"dm\r\nx\", 1 / 2 / 3abcd, x, y"}, {"Tabs", "\tabc,\t1 / 2 / 3abcd, x, y"},
    {"CROrLFAlone", "abc\r1 / 2 / 3abcd\rx\ry\rabc\n1 / 2 / 3abcd\nx\ny"}}), ByName);

// The record index is 16-bit: reading stops after record 32767. A log that cannot be read
// counts as empty.
TEST_F(LogTest, StopsAfterRecord32767AndTakesALockedLogForEmpty) {
  const std::string two = ReadLog("\n\n\n\n");  // element 0 and one blank record
  std::string blanks;
  for (int record = 0; record < 32768; record += 2) blanks += two;
  EXPECT_EQ(ReadLog(std::string(4 * 32768, '\n')), blanks);
  headless::SetLocked(kLog, true);
  EXPECT_EQ(ReadLog(kAbc), "");
}

// Two records for three levels at two resolutions: the cells the log lacks are blank, so the
// report is whole and its notes follow. The engine's code is compared exactly: "ogl" is no
// OpenGL.
TEST_F(LogTest, TooFewRecordsLeaveBlankCellsInTheReportAndTheNotesFollow) {
  // The game's and the program's folders, no records yet, two resolutions, their names from
  // element 1 on, the engine's code and the variant.
  AppState = {kFullPath, "C:\\Bench\\", {}, 2, "", {"", "640x480", "1024x768"}, "ogl", "demo"};
  headless::PutFile(kLog, "L1, 1.1 / 1.2 / 1.3 fps, 77, 640x480\r\nL2, 2.1 / 2.2 / 2.3 fps, 77, 640x480\r\n");
  EXPECT_TRUE(mdlBenchmark::WriteResultsTables(3));
  EXPECT_TRUE(mdlBenchmark::AppendRunNotes("Run sentence", "Ini sentence"));
  ExpectGolden(FileOrMissing(kReport), "too_few_records.html");
}

}  // namespace
