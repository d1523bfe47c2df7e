// lowframerate.log, read record by record into fixed fields, and the report made of it.
#include <utility>

#include "support/fixture.h"

namespace {
using namespace testing_support;
using mdlBenchmark::AppState;
using Records = std::vector<std::string>;  // each "LevelName|LowFps|AverageFps|HighFps"

const std::string kB10(10, ' ');
const std::string kBlank = std::string(14, ' ') + "|" + kB10 + "|" + kB10 + "|" + kB10;
const std::string kAbc = "abc           |1         |2         |3         ";
const std::string kAbcLine = "abc, 1 / 2 / 3abcd, x, y\r\n";

class LogTest : public HeadlessTest {};

// Each case reads its log after the one before it, so what the earlier read left must go.
// Element 0 stays blank and unused; an empty log leaves no element at all.
TEST_F(LogTest, ReadsEachRecordIntoFixedFields) {
  const std::pair<std::string, Records> cases[] = {
      {"dm-antalus, 31.20 / 58.44 / 112.90abcd, foo, bar",
       {"dm-antalus    |31.20     |58.44     |112.90    "}},
      {"abcdefghijklmnopqrst, 1 / 2 / 3abcd", {"abcdefghijklmn|1         |2         |3         "}},
      {"abcdefghijklmn, 1234567890123 / 2 / 3abcd, x, y",
       {"abcdefghijklmn|1234567890|2         |3         "}},
      {"abc, 31.20 / 58.44 / 1234, x, y", {"abc           |31.20     |58.44     |" + kB10}},
      {"abc, 31.20 / 58.44 / 112.90, x, y", {"abc           |31.20     |58.44     |11        "}},
      {"abc, 31.20 / 58.44 / 112.90 / 7abcd", {"abc           |31.20     |58.44     |112.90 / 7"}},
      {"\"dm,antalus\", 1 / 2 / 3abcd, x, y", {"dm,antalus    |1         |2         |3         "}},
      {kAbcLine + kAbcLine, {kAbc, kAbc}},
      {"abc, 1 / 2 / 3abcd, x, y\nabc, 1 / 2 / 3abcd, x, y\n", {kAbc, kAbc}},
      {kAbcLine + "\r\n", {kAbc, kBlank}},
      // Three items on a line: the fourth comes from the next line and the rest shift.
      {"abc, 1 / 2 / 3abcd, x\r\nx, 4 / 5 / 6abcd, y, z\r\n",
       {kAbc, "4 / 5 / 6abcd |y         |" + kB10 + "|" + kB10}},
      // Five items on a line: the fifth begins the next record.
      {"abc, 1 / 2 / 3abcd, x, y, abc\r\n1 / 2 / 3abcd, x, y\r\n", {kAbc, kAbc}},
      {"", {}},
      // Malformed items fill what they hold.
      {"a, 31.20/5, x, y", {"a             |31.20/5   |" + kB10 + "|" + kB10}},
      {"a, 1 / 2/3abcd, x, y", {"a             |1         |2/3abcd   |" + kB10}},
      {"a, 1 / 2 / abc, x, y", {"a             |1         |2         |" + kB10}},
      {"a", {"a             |" + kB10 + "|" + kB10 + "|" + kB10}},
      {"\"abc\"junk, 1 / 2 / 3abcd, x, y", {kAbc}},
      {"\"ab, 1 / 2 / 3abcd, x, y\r\n", {"ab, 1 / 2 / 3a|" + kB10 + "|" + kB10 + "|" + kB10}},
      // A line end inside quotes belongs to the item, as any other character does.
      {"\"dm\r\nx\", 1 / 2 / 3abcd, x, y", {"dm\r\nx         |1         |2         |3         "}},
      {"\tabc,\t1 / 2 / 3abcd, x, y", {kAbc}},
      {"abc\r1 / 2 / 3abcd\rx\ry\rabc\n1 / 2 / 3abcd\nx\ny", {kAbc, kAbc}},
      {"abc, 1 / 2 / 3abcd  , x, y", {"abc           |1         |2         |3ab       "}},
      // The record index is 16-bit: reading stops after record 32767.
      {std::string(4 * 32768, '\n'), Records(32767, kBlank)},
  };
  AppState.GamePath = kFullPath;
  for (const auto& [log, records] : cases) {
    SCOPED_TRACE(log.substr(0, 60));
    headless::PutFile(kLog, log);
    mdlBenchmark::ReadRunResults();
    Records expected = records, read;
    if (!expected.empty()) expected.insert(expected.begin(), kBlank);
    for (const auto& r : AppState.RunResults)
      read.push_back(r.LevelName.str() + "|" + r.LowFps.str() + "|" + r.AverageFps.str() + "|" + r.HighFps.str());
    EXPECT_EQ(read, expected);
  }
  // A log that cannot be read counts as empty.
  headless::PutFile(kLog, kAbcLine);
  headless::SetLocked(kLog, true);
  mdlBenchmark::ReadRunResults();
  EXPECT_TRUE(AppState.RunResults.empty());
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
