#include "support/fixture.h"

namespace {
using namespace testing_support;
using mdlBenchmark::AppState;
using Records = std::vector<std::string>;

const char* const kLog = "C:\\Games\\UT2003\\Benchmark\\lowframerate.log";
const char* const kBench = "C:\\Games\\UT2003\\Benchmark\\benchmark.log";
const std::string kB10(10, ' ');
const std::string kBlank = std::string(14, ' ') + "|" + kB10 + "|" + kB10 + "|" + kB10;
const std::string kAbc = "abc           |1         |2         |3         ";
const std::string kAbcLine = "abc, 1 / 2 / 3abcd, x, y\r\n";

std::string Repeat(const std::string& text, int times) {
  std::string all;
  while (times-- > 0) all += text;
  return all;
}

struct LogCase {
  std::string log;
  Records records;  // each as "LevelName|LowFps|AverageFps|HighFps"
  bool locked = false;
};

class LogTest : public HeadlessTest {};

// Each case reads its log after the one before it, so what the earlier read left must go.
TEST_F(LogTest, ReadsEachRecordIntoFixedFields) {
  const LogCase cases[] = {
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
      {Repeat(kAbcLine, 35), Records(35, kAbc)},
      {Repeat(kAbcLine, 14), Records(14, kAbc)},
      {"", {}},
      {kAbcLine, {kAbc}},
      {kAbcLine, {}, true},  // a log that cannot be read counts as empty
      // Malformed items fill what they hold.
      {"a, 31.20/5, x, y", {"a             |31.20/5   |" + kB10 + "|" + kB10}},
      {"a, 1 / 2/3abcd, x, y", {"a             |1         |2/3abcd   |" + kB10}},
      {"a, 1 / 2 / abc, x, y", {"a             |1         |2         |" + kB10}},
      {"a", {"a             |" + kB10 + "|" + kB10 + "|" + kB10}},
      {"\"abc\"junk, 1 / 2 / 3abcd, x, y", {kAbc}},
      {"\"ab, 1 / 2 / 3abcd, x, y\r\n", {"ab, 1 / 2 / 3a|" + kB10 + "|" + kB10 + "|" + kB10}},
      {"\tabc,\t1 / 2 / 3abcd, x, y", {kAbc}},
      {"abc\r1 / 2 / 3abcd\rx\ry\rabc\n1 / 2 / 3abcd\nx\ny", {kAbc, kAbc}},
      {"abc, 1 / 2 / 3abcd  , x, y", {"abc           |1         |2         |3ab       "}},
      // The record index is 16-bit: reading stops after record 32767.
      {Repeat(",,,\n", 32768), Records(32767, kBlank)},
  };
  AppState.GamePath = kFullPath;
  for (const LogCase& c : cases) {
    SCOPED_TRACE(c.log.substr(0, 60));
    headless::PutFile(kLog, c.log);
    headless::SetLocked(kLog, c.locked);
    mdlBenchmark::ReadRunResults();
    // Element 0 stays blank and unused; an empty log leaves no element at all.
    Records expected = c.records, read;
    if (!expected.empty()) expected.insert(expected.begin(), kBlank);
    for (const auto& r : AppState.RunResults) {
      read.push_back(r.LevelName.str() + "|" + r.LowFps.str() + "|" + r.AverageFps.str() + "|" +
                     r.HighFps.str());
    }
    EXPECT_EQ(read, expected);
    headless::SetLocked(kLog, false);
  }
}

TEST_F(LogTest, ResetEmptiesBothLogsOrDoesNothingWithoutAGame) {
  AppState.GamePath = kFullPath;
  headless::MakeFolder("C:\\Games\\UT2003\\Benchmark");
  for (const char* round : {"both missing", "both full"}) {
    SCOPED_TRACE(round);
    EXPECT_TRUE(mdlBenchmark::ResetBenchmarkLogs());
    EXPECT_EQ(FileOrMissing(kBench), "");
    EXPECT_EQ(FileOrMissing(kLog), "");
    headless::PutFile(kBench, "old records\r\n");
    headless::PutFile(kLog, "old records\r\n");
  }
  AppState.GamePath.clear();
  EXPECT_TRUE(mdlBenchmark::ResetBenchmarkLogs());
  EXPECT_EQ(FileOrMissing("C:\\Benchmark\\benchmark.log"), "<missing>");
  EXPECT_EQ(FileOrMissing("C:\\Benchmark\\lowframerate.log"), "<missing>");
  EXPECT_TRUE(headless::Boxes().empty());
}

}  // namespace
