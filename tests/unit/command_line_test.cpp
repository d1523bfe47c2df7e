#include "support/fixture.h"

#include "benchmark/mdlBenchmark.h"
#include "launch/command_line.h"

namespace {

struct LineCase {
  const char* gamePath;
  const char* level;
  const char* seconds;
  const char* sound;
  const char* ini;
  const char* userIni;
  const char* resolution;
  const char* line;
};

TEST(CommandLine, PiecesGoInAsTheyAreBetweenQuotes) {
  const LineCase cases[] = {
      {"C:\\Games\\UT2003", "dm-inferno", "77", "-nosound ", "C:\\Bench\\INI\\D3D\\CPU_LowDetail.ini",
       "C:\\Games\\UT2003\\Benchmark\\Stuff\\MinDetailUser.ini", "1024x768",
       "\"C:\\Games\\UT2003\\System\\ut2003.exe\" dm-inferno?game=engine.gameinfo "
       "exec=\"C:\\Games\\UT2003\\Benchmark\\Stuff\\flybyexec.txt\" -benchmark -seconds=77 "
       "-nosound ini=\"C:\\Bench\\INI\\D3D\\CPU_LowDetail.ini\" "
       "userini=\"C:\\Games\\UT2003\\Benchmark\\Stuff\\MinDetailUser.ini\" -1024x768"},
      // Blanks in both paths stay inside the quotes, so the game gets them as one argument.
      {"D:\\My Games\\UT 2003", "dm-inferno", "77", "-nosound ",
       "C:\\Program Files\\Bench\\INI\\OGL\\CPU_LowDetail.ini",
       "D:\\My Games\\UT 2003\\Benchmark\\Stuff\\MinDetailUser.ini", "640x480",
       "\"D:\\My Games\\UT 2003\\System\\ut2003.exe\" dm-inferno?game=engine.gameinfo "
       "exec=\"D:\\My Games\\UT 2003\\Benchmark\\Stuff\\flybyexec.txt\" -benchmark -seconds=77 "
       "-nosound ini=\"C:\\Program Files\\Bench\\INI\\OGL\\CPU_LowDetail.ini\" "
       "userini=\"D:\\My Games\\UT 2003\\Benchmark\\Stuff\\MinDetailUser.ini\" -640x480"},
      // No game found: the line starts with the quote and the program's own path.
      {"", "dm-antalus", " 77", "", "x.ini", "\\Benchmark\\Stuff\\MaxDetailUser.ini", "1600x1200",
       "\"\\System\\ut2003.exe\" dm-antalus?game=engine.gameinfo "
       "exec=\"\\Benchmark\\Stuff\\flybyexec.txt\" -benchmark -seconds= 77 ini=\"x.ini\" "
       "userini=\"\\Benchmark\\Stuff\\MaxDetailUser.ini\" -1600x1200"},
  };
  for (const LineCase& c : cases) {
    mdlBenchmark::AppState.GamePath = c.gamePath;
    EXPECT_EQ(mdlapp_sync::ComposeCommandLine(c.level, c.seconds, c.sound, c.ini, c.userIni,
                                              c.resolution),
              c.line);
  }
  mdlBenchmark::ResetState();
}

}  // namespace

#include "platform/system_errors.h"

namespace {

TEST(StartFailure, SystemErrorsBecomeWhatTheUserIsTold) {
  const struct {
    unsigned long code;
    const char* message;
    int number;
    const char* description;
  } cases[] = {
      {2, "", 53, "File not found"},          {3, "", 53, "File not found"},
      {123, "", 53, "File not found"},        {267, "", 53, "File not found"},
      {5, "", 70, "Permission denied"},       {32, "", 70, "Permission denied"},
      {193, "", 5, "Not a valid Windows program"},
      {216, "", 5, "Not a valid Windows program"},
      {1455, "The paging file is too small for this operation to complete.\r\n", 5,
       "The paging file is too small for this operation to complete"},
      {9999, "", 5, "System error 9999"},
  };
  for (const auto& c : cases) {
    platform::StartFailure failure = platform::StartFailureForSystemError(c.code, c.message);
    EXPECT_EQ(failure.number, c.number) << c.code;
    EXPECT_EQ(failure.description, c.description) << c.code;
  }
}

}  // namespace

namespace {

TEST(FileFailure, SystemErrorsBecomeShortReasons) {
  const struct {
    unsigned long code;
    const char* reason;
  } cases[] = {{2, "File not found"},   {3, "Path not found"},    {15, "Path not found"},
               {5, "Permission denied"}, {32, "Permission denied"}, {19, "Permission denied"},
               {112, "Disk full"},       {1117, "The request could not be performed"}};
  for (const auto& c : cases) {
    EXPECT_EQ(platform::FileFailureReason(c.code, "The request could not be performed.\r\n"), c.reason)
        << c.code;
  }
}

}  // namespace

namespace {

class FileRead : public testing_support::HeadlessTest {};

TEST_F(FileRead, StopsAtTheLimit) {
  headless::PutFile("C:\\x.log", "abcdef");
  std::string bytes, reason;
  ASSERT_TRUE(platform::ReadTextFile("C:\\x.log", &bytes, &reason, 4));
  EXPECT_EQ(bytes, "abcd");
  ASSERT_TRUE(platform::ReadTextFile("C:\\x.log", &bytes, &reason));
  EXPECT_EQ(bytes, "abcdef");
}

}  // namespace
