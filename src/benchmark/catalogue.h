// The one catalogue of what the program runs: the resolutions of the main window, the levels
// of the level list with the length of their flybys, the levels of the two quality suites, the
// ini files of each test and detail, and the tests' names on the command line. The windows, the
// runs and the command line all read it, so a name is written once.
#pragma once

#include <string_view>

namespace catalogue {

// The registry keys of the full game and of the demo, under HKEY_LOCAL_MACHINE.
inline constexpr const char* kGameKeys[2] = {"SOFTWARE\\Unreal Technology\\Installed Apps\\UT2003",
                                             "SOFTWARE\\Unreal Technology\\Installed Apps\\UT2003Demo"};

// The boxes of the main window, in box order.
inline constexpr int kResolutionCount = 5;
inline constexpr const char* kResolutions[kResolutionCount] = {"640x480", "800x600", "1024x768",
                                                               "1280x1024", "1600x1200"};

// The tests by their name on the command line, in the order of their buttons: the CPU
// benchmark, High Quality, Low Quality and the custom test.
inline constexpr int kTestCount = 4;
inline constexpr const char* kTests[kTestCount] = {"cpu", "high", "low", "custom"};

// An entry of the Custom Options window's level list, as the list shows it ("*": a level of a
// quality suite, cut off before the start), with the length of its flyby in seconds.
struct ListedLevel {
  const char* entry;
  short seconds;
};
inline constexpr ListedLevel kFullLevels[] = {
    {"br-anubis", 77},        {"br-bifrost*", 77},      {"br-disclosure", 77},
    {"br-icefields", 77},     {"br-skyline", 77},       {"br-slaughterhouse", 77},
    {"br-twintombs", 77},     {"ctf-chrome", 77},       {"ctf-citadel*", 77},
    {"ctf-december", 77},     {"ctf-face3*", 116},      {"ctf-geothermal", 77},
    {"ctf-lostfaith", 77},    {"ctf-magma", 77},        {"ctf-maul", 77},
    {"ctf-orbital2", 77},     {"dm-antalus*", 77},      {"dm-asbestos*", 71},
    {"dm-compressed", 77},    {"dm-curse3", 77},        {"dm-flux2", 77},
    {"dm-gael", 77},          {"dm-inferno*", 77},      {"dm-insidious", 77},
    {"dm-leviathan", 77},     {"dm-oceanic", 77},       {"dm-phobos2*", 77},
    {"dm-plunge", 77},        {"dm-serpentine", 77},    {"dm-tokaraforest", 77},
    {"dm-trainingday", 77},   {"dom-core", 77},         {"dom-outrigger", 77},
    {"dom-ruination", 77},    {"dom-scorchedearth", 77}, {"dom-sepukkugorge", 77},
    {"dom-suntemple*", 77}};
// The level of a list entry, without its "*"; and the length of a level's flyby: 77 seconds for
// a level not listed.
inline std::string_view LevelName(std::string_view entry) { return entry.substr(0, entry.find('*')); }
inline int FlybySeconds(std::string_view level) {
  for (const ListedLevel& listed : kFullLevels) {
    if (LevelName(listed.entry) == level) return listed.seconds;
  }
  return 77;
}
// The demo's list; its flybys last as long as the full game's.
inline constexpr const char* kDemoLevels[] = {"br-anubis", "ctf-citadel*", "dm-antalus*",
                                              "dm-asbestos*"};
// The entry that the list shows first, in both lists.
inline constexpr const char* kFirstChoice = "dm-antalus*";

// The quality suites' levels in the order they run. The full game's take their flybys' length;
// the demo's all run for 77 seconds.
inline constexpr const char* kFullSuite[] = {"dm-antalus", "dom-suntemple", "dm-phobos2",
                                             "dm-inferno", "ctf-face3",     "ctf-citadel",
                                             "dm-asbestos"};
inline constexpr const char* kDemoSuite[] = {"dm-antalus", "dm-asbestos", "ctf-citadel"};
inline constexpr int kDemoSuiteSeconds = 77;
// The CPU benchmark's one level, which runs for 77 seconds.
inline constexpr const char* kCpuLevel[2] = {"dm-inferno", "dm-antalus"};  // full, demo
inline constexpr int kCpuSeconds = 77;

// The ini file of a test under the program's INI\<renderer> folder, and the user ini file
// under the game's folder.
struct Detail {
  const char* ini;
  const char* userIni;
};
inline constexpr const char* kMaxUserIni = "\\Benchmark\\Stuff\\MaxDetailUser.ini";
inline constexpr const char* kMinUserIni = "\\Benchmark\\Stuff\\MinDetailUser.ini";
inline constexpr Detail kCpuDetail{"\\CPU_LowDetail.ini", kMinUserIni};
inline constexpr Detail kMaxDetail{"\\Custom_MaxDetail.ini", kMaxUserIni};
inline constexpr Detail kMinDetail{"\\Custom_MinDetail.ini", kMinUserIni};
// An ini file of the user's own goes with the maximum detail user settings.
inline constexpr const char* kOwnIniUserIni = kMaxUserIni;

}  // namespace catalogue
