#include "launch/arguments.h"

#include <algorithm>
#include <span>

#include "benchmark/catalogue.h"
#include "platform/platform.h"

namespace arguments {
namespace {

enum Switch { kRun, kRes, kApi, kGame, kLevel, kSound, kDetail, kRepeat, kKeep, kName, kQuit, kHelp, kSwitchCount };
// The switches in the order of Switch; all but the last two take a value.
const char* const kSwitches[kSwitchCount] = {"/run",   "/res",  "/api",  "/game", "/level", "/sound",
                                             "/detail", "/repeat", "/keep", "/name", "/quit", "/?"};
const char* const kApis[] = {"d3d", "ogl"};
const char* const kGames[] = {"full", "demo"};
const char* const kSounds[] = {"off", "on"};
const char* const kDetails[] = {"max", "min"};

std::string Lower(std::string text) {
  for (char& c : text) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return text;
}

// The position of the word among the choices, in any case; -1 for none of them.
int IndexOf(const std::string& word, std::span<const char* const> choices) {
  for (std::size_t i = 0; i < choices.size(); ++i) {
    if (Lower(word) == choices[i]) return static_cast<int>(i);
  }
  return -1;
}

std::string OneOf(std::span<const char* const> choices) {
  std::string text = "is not one of";
  for (const char* choice : choices) (text += ' ') += choice;
  return text;
}

}  // namespace

std::vector<std::string> SplitCommandLine(const std::string& line) {
  std::vector<std::string> words;
  std::size_t at = 0;
  // The program's own name ends at its closing quote, or at the first blank; no escapes.
  if (!line.empty() && line[0] == '"') {
    at = std::min(line.find('"', 1), line.size() - 1) + 1;
  } else {
    while (at < line.size() && line[at] != ' ' && line[at] != '\t') ++at;
  }
  for (;;) {
    while (at < line.size() && (line[at] == ' ' || line[at] == '\t')) ++at;
    if (at == line.size()) return words;
    std::string word;
    bool quoted = false;
    for (; at < line.size() && (quoted || (line[at] != ' ' && line[at] != '\t')); ++at) {
      if (line[at] == '"') {
        quoted = !quoted;
      } else if (line[at] != '\\') {
        word += line[at];
      } else {
        const std::size_t end = std::min(line.find_first_not_of('\\', at), line.size());
        const bool quote = end < line.size() && line[end] == '"';
        word.append(quote ? (end - at) / 2 : end - at, '\\');
        // An odd count takes the quote into the word; an even one leaves it to be read next.
        if (quote && (end - at) % 2 == 1) word += '"';
        at = quote && (end - at) % 2 == 1 ? end : end - 1;
      }
    }
    words.push_back(word);
  }
}

std::optional<Fault> Parse(const std::vector<std::string>& words, Order& order) {
  // Known before any fault: with /quit, no box tells one.
  for (const std::string& word : words) order.quit = order.quit || IndexOf(word, kSwitches) == kQuit;
  std::optional<std::string> given[kSwitchCount];
  for (std::size_t i = 0; i < words.size(); ++i) {
    const int at = IndexOf(words[i], kSwitches);
    if (at < 0) return Fault{words[i], "is not an argument of this program"};
    if (given[at]) return Fault{words[i], "is given twice"};
    given[at] = "";
    if (at >= kQuit) continue;
    if (i + 1 == words.size() || IndexOf(words[i + 1], kSwitches) >= 0 || words[i + 1].empty()) {
      return Fault{words[i], "needs a value"};
    }
    given[at] = words[++i];
  }
  order.help = given[kHelp].has_value();
  if (order.help) return {};
  // The switch with its value, as the box names it.
  const auto named = [&](int s) { return std::string(kSwitches[s]) + " " + *given[s]; };
  const auto choice = [&](int s, std::span<const char* const> choices, int& index) -> std::optional<Fault> {
    if (!given[s]) return {};
    index = IndexOf(*given[s], choices);
    if (index < 0) return Fault{named(s), OneOf(choices)};
    return {};
  };

  if (!given[kRun]) return Fault{"/run", "is missing"};
  if (auto fault = choice(kRun, catalogue::kTests, order.test)) return fault;
  if (!given[kRes]) return Fault{"/res", "is missing"};
  std::string list = *given[kRes] + ",";
  for (std::size_t comma; (comma = list.find(',')) != std::string::npos; list.erase(0, comma + 1)) {
    const int box = IndexOf(list.substr(0, comma), catalogue::kResolutions);
    if (box < 0) return Fault{named(kRes), "\"" + list.substr(0, comma) + "\" " + OneOf(catalogue::kResolutions)};
    order.resolutions |= 1 << box;
  }
  int api = 0, game = -1, sound = 0;
  if (auto fault = choice(kApi, kApis, api)) return fault;
  order.openGl = api == 1;
  if (auto fault = choice(kGame, kGames, game)) return fault;
  if (game >= 0) order.game = kGames[game];

  const bool custom = order.test == 3;
  for (int s : {kLevel, kSound, kDetail}) {
    if (given[s] && !custom) return Fault{named(s), "is only for /run custom"};
  }
  if (given[kLevel]) {
    for (const catalogue::ListedLevel& listed : catalogue::kFullLevels) {
      if (catalogue::LevelName(listed.entry) == catalogue::LevelName(Lower(*given[kLevel]))) order.level = listed.entry;
    }
    if (order.level.empty()) return Fault{named(kLevel), "is not a level of the list"};
  }
  if (auto fault = choice(kSound, kSounds, sound)) return fault;
  order.sound = sound == 1;
  if (given[kDetail]) {
    const int preset = IndexOf(*given[kDetail], kDetails);
    order.detail = preset >= 0 ? kDetails[preset] : *given[kDetail];
    if (preset < 0 && !platform::NormalFileExists(order.detail)) {
      return Fault{named(kDetail), "is neither max, min nor an ini file that exists"};
    }
  }
  if (given[kRepeat]) {
    const std::string& text = *given[kRepeat];
    if (Lower(text) == "auto") {
      order.repeats = kAutoRepeats;
    } else if (text.size() <= 2 && text.find_first_not_of("0123456789") == std::string::npos) {
      for (char digit : text) order.repeats = order.repeats * 10 + (digit - '0');
    }
    if (order.repeats == 0) return Fault{named(kRepeat), "is neither auto nor a number from 1 to 99"};
  }
  order.keep = given[kKeep];
  order.name = given[kName];
  if (order.name && !order.keep && order.repeats == 0) return Fault{named(kName), "needs /keep or /repeat"};
  return {};
}

}  // namespace arguments
