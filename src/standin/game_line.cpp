#include "standin/game_line.h"

#include <cctype>
#include <cstdlib>
#include <vector>

#include "standin/text.h"

namespace standin {

namespace {

// "-1024x768" gives 1024 and 768; anything else leaves them as they are.
bool ParseResolution(const std::string& word, int& width, int& height) {
  std::size_t x = word.find_first_of("xX");
  if (word.size() < 4 || word[0] != '-' || x == std::string::npos) return false;
  const std::string w = word.substr(1, x - 1), h = word.substr(x + 1);
  auto digits = [](const std::string& s) {
    if (s.empty() || s.size() > 5) return false;
    for (char c : s) {
      if (!std::isdigit(static_cast<unsigned char>(c))) return false;
    }
    return true;
  };
  if (!digits(w) || !digits(h)) return false;
  width = std::atoi(w.c_str());
  height = std::atoi(h.c_str());
  return true;
}

}  // namespace

GameLine ParseGameLine(const std::string& commandLine) {
  GameLine line;
  const std::vector<std::string> words = SplitWords(commandLine);
  if (words.size() < 2) return line;
  const std::string url = Unquote(words[1]);
  line.level = url.substr(0, url.find('?'));

  const struct {
    const char* name;
    std::string* value;
  } valued[] = {{"-seconds=", &line.seconds},
                {"exec=", &line.exec},
                {"ini=", &line.ini},
                {"userini=", &line.userIni}};
  for (std::size_t i = 1; i < words.size(); ++i) {
    // Quotes only hold blanks together: "ini=C:\a b.ini" is the same as ini="C:\a b.ini".
    const std::string word = Unquote(words[i]);
    if (EqualsNoCase(word, "-benchmark")) line.benchmark = true;
    if (EqualsNoCase(word, "-nosound")) line.noSound = true;
    ParseResolution(word, line.width, line.height);
    for (const auto& key : valued) {
      const std::string name = key.name;
      if (!StartsWithNoCase(word, name)) continue;
      *key.value = word.substr(name.size());
      // The number can stand as a word of its own: "-seconds= 77".
      if (key.value->empty() && name == "-seconds=" && i + 1 < words.size() &&
          std::isdigit(static_cast<unsigned char>(words[i + 1][0])))
        *key.value = Unquote(words[++i]);
    }
  }
  return line;
}

}  // namespace standin
