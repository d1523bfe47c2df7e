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

// A failed start and a failed file read or write, from the same system error codes.
TEST(SystemErrors, BecomeWhatTheUserIsTold) {
  const char* const text = "The request could not be performed";
  const std::string withEnd = std::string(text) + ".\r\n";
  const struct {
    unsigned long code;
    int number;
    const char* description;
    const char* reason;
  } cases[] = {
      {2, 53, "File not found", "File not found"},     {3, 53, "File not found", "Path not found"},
      {123, 53, "File not found", "Path not found"},   {267, 53, "File not found", text},
      {15, 5, text, "Path not found"},                 {5, 70, "Permission denied", "Permission denied"},
      {32, 70, "Permission denied", "Permission denied"}, {19, 5, text, "Permission denied"},
      {112, 5, text, "Disk full"},                     {193, 5, "Not a valid Windows program", text},
      {216, 5, "Not a valid Windows program", text},   {1117, 5, text, text},
  };
  for (const auto& c : cases) {
    platform::StartFailure failure = platform::StartFailureForSystemError(c.code, withEnd);
    EXPECT_EQ(failure.number, c.number) << c.code;
    EXPECT_EQ(failure.description, c.description) << c.code;
    EXPECT_EQ(platform::FileFailureReason(c.code, withEnd), c.reason) << c.code;
  }
  // A code the system has no text for is named by its number.
  EXPECT_EQ(platform::StartFailureForSystemError(9999, "").description, "System error 9999");
  EXPECT_EQ(platform::FileFailureReason(9999, ""), "System error 9999");
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
