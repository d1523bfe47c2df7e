#include <gtest/gtest.h>

#include "standin/game_config.h"
#include "standin/game_line.h"
#include "standin/record.h"

namespace {

// All that the stand-in takes from a line, as one text to compare.
std::string Read(const std::string& commandLine) {
  const standin::GameLine l = standin::ParseGameLine(commandLine);
  return l.level + (l.benchmark ? " benchmark" : "") + (l.noSound ? " nosound" : "") + " s[" +
         l.seconds + "] ini[" + l.ini + "] user[" + l.userIni + "] " + std::to_string(l.width) +
         "x" + std::to_string(l.height);
}

TEST(StandInLine, SwitchesAndValues) {
  const struct {
    const char* line;
    const char* read;
  } cases[] = {
      {"\"C:\\Games\\UT 2003\\System\\ut2003.exe\" dm-inferno?game=engine.gameinfo "
       "exec=\"C:\\Games\\UT 2003\\Benchmark\\Stuff\\flybyexec.txt\" -benchmark -seconds=77 "
       "-nosound ini=\"C:\\Program Files\\Bench\\INI\\D3D\\CPU_LowDetail.ini\" "
       "userini=\"C:\\Games\\UT 2003\\Benchmark\\Stuff\\MinDetailUser.ini\" -1024x768",
       "dm-inferno benchmark nosound s[77] ini[C:\\Program "
       "Files\\Bench\\INI\\D3D\\CPU_LowDetail.ini] "
       "user[C:\\Games\\UT 2003\\Benchmark\\Stuff\\MinDetailUser.ini] 1024x768"},
      // The custom test's number stands apart from its switch, and sound stays on; quotes may
      // also hold a whole switch together.
      {"\"C:\\UT\\System\\ut2003.exe\" ctf-face3?game=engine.gameinfo exec=\"x\" -benchmark "
       "-seconds= 116 \"ini=C:\\My Inis\\my.ini\" userini=\"u.ini\" -640x480",
       "ctf-face3 benchmark s[116] ini[C:\\My Inis\\my.ini] user[u.ini] 640x480"},
      // Upper case; a switch given twice counts with its last value.
      {"C:\\UT\\System\\ut2003.exe DM-Antalus?game=x -BENCHMARK -640x480 -Seconds=71 -NOSOUND "
       "INI=z.ini INI=a.ini USERINI=b.ini -1600X1200",
       "DM-Antalus benchmark nosound s[71] ini[a.ini] user[b.ini] 1600x1200"},
      // userini= is no ini=, and a switch inside a word or inside quotes is no switch.
      {"\"ut2003.exe\" dm-gael userini=u.ini xini=x.ini a-benchmark -benchmarks -nosoundx "
       "exec=\"C:\\a -benchmark -nosound\\f.txt\" -seconds=-5 -64x48x",
       "dm-gael s[-5] ini[] user[u.ini] 0x0"},
      {"\"C:\\UT\\System\\ut2003.exe\"", " s[] ini[] user[] 0x0"},
  };
  for (const auto& c : cases) EXPECT_EQ(Read(c.line), c.read) << c.line;
}

TEST(StandInIni, WhatTheGameNeedsAndItsRenderer) {
  const std::string paths = "[Core.System]\r\nPaths=../System/*.u\r\n";
  const std::string d3d = "[Engine.Engine]\r\nRenderDevice=D3DDrv.D3DRenderDevice\r\n";
  const struct {
    std::string text;
    bool startable, openGL;
  } cases[] = {
      {paths + d3d, true, false},
      // Names in any case, LF line ends, comments and blanks around the "=".
      {"; x\n[core.system]\npaths = ../Maps/*.ut2\n[ENGINE.ENGINE]\n"
       "renderdevice = opengldrv.openglrenderdevice\n",
       true, true},
      {d3d, false, false},
      {"[Core.System]\r\nPaths=\r\n" + d3d, false, false},
      {paths + "[Engine.GameEngine]\r\nRenderDevice=D3DDrv.D3DRenderDevice\r\n", false, false},
      {paths + "[Engine.Engine]\r\nRenderDevice=PixoDrv.PixoRenderDevice\r\n", false, false},
      {"", false, false},
  };
  for (const auto& c : cases) {
    const standin::GameConfig config = standin::ReadGameConfig(standin::IniFile(c.text));
    EXPECT_EQ(config.startable, c.startable) << c.text;
    EXPECT_EQ(config.renderer == standin::Renderer::OGL, c.openGL) << c.text;
  }
}

TEST(StandInRecord, BytesOfBothLogs) {
  EXPECT_EQ(standin::FormatRate(7), "0.000007");
  EXPECT_EQ(standin::FormatRate(999999), "0.999999");
  EXPECT_EQ(standin::FormatRate(153025935), "153.025935");

  const standin::RecordTexts texts{"31.200000", "58.440000", "112.900000", "60.125000"};
  EXPECT_EQ(standin::LowFrameRateRecord("DOM-SunTemple", texts),
            "DOM-SunTemple\r\n31.200000 / 58.440000 / 112.900000 fps\r\nScore = 60.125000\r\n\r\n");
  EXPECT_EQ(standin::BenchmarkRecord(texts, 4294967295u),
            "31.200000 / 58.440000 / 112.900000 fps -- Score = 60.125000        "
            "rand[4294967295]\r\n");
}

}  // namespace
