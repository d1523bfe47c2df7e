#include <string>
#include <vector>

#include "support/fixture.h"

namespace {
using namespace testing_support;
using mdlBenchmark::AppState;

const char* const kLog = "C:\\Games\\UT2003\\Benchmark\\lowframerate.log";
const char* const kBench = "C:\\Games\\UT2003\\Benchmark\\benchmark.log";
const std::string kBlank10(10, ' ');

class LogTest : public HeadlessTest {
 protected:
  void SetUp() override {
    HeadlessTest::SetUp();
    AppState.GamePath = kFullPath;
  }

 public:
  // Reads a log; each record as "LevelName|LowFps|AverageFps|HighFps", from index 1.
  std::vector<std::string> Read(const std::string& log) {
    headless::PutFile(kLog, log);
    mdlBenchmark::ReadRunResults();
    std::vector<std::string> records;
    for (std::size_t k = 1; k < AppState.RunResults.size(); ++k) {
      const auto& r = AppState.RunResults[k];
      records.push_back(r.LevelName.str() + "|" + r.LowFps.str() + "|" + r.AverageFps.str() + "|" +
                        r.HighFps.str());
    }
    if (!AppState.RunResults.empty()) {
      EXPECT_EQ(AppState.RunResults[0].LevelName.str(), std::string(14, ' '));
    }
    return records;
  }
};

struct LogCase {
  const char* log;
  std::vector<std::string> records;
};

void Check(LogTest& test, const std::vector<LogCase>& cases) {
  for (const LogCase& c : cases) EXPECT_EQ(test.Read(c.log), c.records) << "log: " << c.log;
}

const char* const kAbc = "abc           |1         |2         |3         ";

TEST_F(LogTest, ReadsItemsIntoFixedFields) {
  Check(
      *this,
      {
          {"dm-antalus, 31.20 / 58.44 / 112.90abcd, foo, bar",
           {"dm-antalus    |31.20     |58.44     |112.90    "}},
          {"abcdefghijklmnopqrst, 1 / 2 / 3abcd, x, y\r\n",
           {"abcdefghijklmn|1         |2         |3         "}},
          {"abcdefghijklmn, 1234567890123 / 2 / 3abcd, x, y\r\n",
           {"abcdefghijklmn|1234567890|2         |3         "}},
          {"abc, 31.20 / 58.44 / 1234, x, y\r\n",
           {"abc           |31.20     |58.44     |" + kBlank10}},
          {"abc, 31.20 / 58.44 / 112.90, x, y\r\n",
           {"abc           |31.20     |58.44     |11        "}},
          {"abc, 31.20 / 58.44 / 112.90 / 7abcd, x, y\r\n",
           {"abc           |31.20     |58.44     |112.90 / 7"}},
          {"\"dm,antalus\", 1 / 2 / 3abcd, x, y\r\n",
           {"dm,antalus    |1         |2         |3         "}},
          {"abc, 1 / 2 / 3abcd, x, y\r\nabc, 1 / 2 / 3abcd, x, y\r\n", {kAbc, kAbc}},
          {"abc, 1 / 2 / 3abcd, x, y\nabc, 1 / 2 / 3abcd, x, y\n", {kAbc, kAbc}},
          {"abc, 1 / 2 / 3abcd, x, y", {kAbc}},
          {"abc, 1 / 2 / 3abcd, x, y\r\n\r\n",
           {kAbc, std::string(14, ' ') + "|" + kBlank10 + "|" + kBlank10 + "|" + kBlank10}},
          // Three items on a line: the record takes its fourth from the next line, the rest shift.
          {"abc, 1 / 2 / 3abcd, x\r\nx, 4 / 5 / 6abcd, y, z\r\n",
           {kAbc, "4 / 5 / 6abcd |y         |" + kBlank10 + "|" + kBlank10}},
          // Five items on a line: the fifth begins the next record.
          {"abc, 1 / 2 / 3abcd, x, y, abc\r\n1 / 2 / 3abcd, x, y\r\n", {kAbc, kAbc}},
      });
}

TEST_F(LogTest, MalformedItemsFillWhatTheyHold) {
  Check(*this,
        {
            {"a, 31.20/5, x, y", {"a             |31.20/5   |" + kBlank10 + "|" + kBlank10}},
            {"a, 1 / 2/3abcd, x, y", {"a             |1         |2/3abcd   |" + kBlank10}},
            {"a, 1 / 2 / abc, x, y", {"a             |1         |2         |" + kBlank10}},
            {"a, 1 / 2 / , x, y", {"a             |1         |2         |" + kBlank10}},
            {"a", {"a             |" + kBlank10 + "|" + kBlank10 + "|" + kBlank10}},
            {"abc, 1 / 2 / 3abcd", {kAbc}},
            {"abc, 1 / 2 / 3abcd, x", {kAbc}},
            {"\"abc\"junk, 1 / 2 / 3abcd, x, y", {kAbc}},
            {"\"ab, 1 / 2 / 3abcd, x, y\r\n",
             {"ab, 1 / 2 / 3a|" + kBlank10 + "|" + kBlank10 + "|" + kBlank10}},
            {"\tabc,\t1 / 2 / 3abcd, x, y", {kAbc}},
            {"abc\r1 / 2 / 3abcd\rx\ry\rabc\n1 / 2 / 3abcd\nx\ny", {kAbc, kAbc}},
            {"abc, 1 / 2 / 3abcd  , x, y", {"abc           |1         |2         |3ab       "}},
        });
}

TEST_F(LogTest, ShorterLogCutsEarlierRecords) {
  std::string log;
  for (int k = 1; k <= 35; ++k)
    log += "dm-x" + std::to_string(k) + ", 1 / 2 / 3abcd, 77, 640x480\r\n";
  EXPECT_EQ(Read(log).size(), 35u);
  std::string fourteen;
  for (int k = 1; k <= 14; ++k) fourteen += "abc, 1 / 2 / 3abcd, x, y\r\n";
  EXPECT_EQ(Read(fourteen), std::vector<std::string>(14, kAbc));
  EXPECT_EQ(AppState.RunResults.size(), 15u);
}

TEST_F(LogTest, EmptyOrUnreadableLogLeavesNoRecords) {
  for (bool locked : {false, true}) {
    ASSERT_EQ(Read("abc, 1 / 2 / 3abcd, x, y\r\n").size(), 1u);
    headless::PutFile(kLog, locked ? "abc, 1 / 2 / 3abcd, x, y\r\n" : "");
    headless::SetLocked(kLog, locked);
    mdlBenchmark::ReadRunResults();
    EXPECT_TRUE(AppState.RunResults.empty()) << "locked " << locked;
    headless::SetLocked(kLog, false);
  }
}

TEST_F(LogTest, StopsAtTheLastSixteenBitIndex) {
  std::string log;
  for (int k = 0; k < 32769; ++k) log += ",,,\n";
  Read(log);
  EXPECT_EQ(AppState.RunResults.size(), 32768u);
}

TEST_F(LogTest, ResetEmptiesBothLogs) {
  for (const char* before : {"", "old records\r\n"}) {
    headless::MakeFolder("C:\\Games\\UT2003\\Benchmark");
    if (*before != '\0') {
      headless::PutFile(kBench, before);
      headless::PutFile(kLog, before);
    }
    EXPECT_TRUE(mdlBenchmark::ResetBenchmarkLogs());
    EXPECT_EQ(FileOrMissing(kBench), "");
    EXPECT_EQ(FileOrMissing(kLog), "");
  }
  AppState.GamePath.clear();
  EXPECT_TRUE(mdlBenchmark::ResetBenchmarkLogs());
  EXPECT_FALSE(headless::GetFile("C:\\Benchmark\\benchmark.log").has_value());
  EXPECT_TRUE(headless::Boxes().empty());
}

TEST_F(LogTest, ResetTellsTheFirstLogThatCannotBeEmptied) {
  struct Case {
    const char* readOnly;
    const char* locked;
    std::string text;
  };
  const std::vector<Case> cases = {
      {nullptr, nullptr, std::string(kBench) + " cannot be emptied: Path not found."},
      {kBench, nullptr, std::string(kBench) + " cannot be emptied: Permission denied."},
      {nullptr, kLog, std::string(kLog) + " cannot be emptied: Permission denied."},
  };
  for (std::size_t i = 0; i < cases.size(); ++i) {
    const Case& c = cases[i];
    if (i > 0) headless::MakeFolder("C:\\Games\\UT2003\\Benchmark");
    if (c.readOnly) headless::SetReadOnly(c.readOnly, true);
    if (c.locked) headless::SetLocked(c.locked, true);
    EXPECT_FALSE(mdlBenchmark::ResetBenchmarkLogs());
    ASSERT_EQ(headless::Boxes().size(), i + 1);
    const headless::Box& box = headless::Boxes().back();
    EXPECT_EQ(box.text, c.text);
    EXPECT_EQ(box.title, "Kelvarnite UT2k3 Benchmark");
    EXPECT_EQ(box.flags, 16);
    if (c.readOnly) headless::SetReadOnly(c.readOnly, false);
    if (c.locked) headless::SetLocked(c.locked, false);
  }
}

}  // namespace
