#include "benchmark/log_items.h"

namespace mdlBenchmark {
namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t'; }
bool IsDelimiter(char c) { return c == ',' || c == '\r' || c == '\n'; }

// Steps over the delimiter at position, if any; CR LF is one line end.
std::size_t PassDelimiter(const std::string& text, std::size_t position) {
  if (position >= text.size()) return position;
  if (text[position] == '\r' && position + 1 < text.size() && text[position + 1] == '\n') {
    return position + 2;
  }
  return position + 1;
}

}  // namespace

std::string ReadLogItem(const std::string& text, std::size_t* position) {
  std::size_t at = *position;
  while (at < text.size() && IsBlank(text[at])) ++at;

  std::string item;
  if (at < text.size() && text[at] == '"') {
    std::size_t close = text.find('"', at + 1);
    if (close == std::string::npos) {  // an open quote takes the rest of the file
      *position = text.size();
      return text.substr(at + 1);
    }
    item = text.substr(at + 1, close - at - 1);
    at = close + 1;
    while (at < text.size() && !IsDelimiter(text[at])) ++at;  // stray text behind the quote
  } else {
    std::size_t end = at;
    while (end < text.size() && !IsDelimiter(text[end])) ++end;
    item = text.substr(at, end - at);
    at = end;
  }
  *position = PassDelimiter(text, at);
  return item;
}

FrameRates SplitFrameRates(const std::string& item) {
  static const std::string kSeparator = " / ";
  FrameRates rates;
  std::size_t first = item.find(kSeparator);
  if (first == std::string::npos) {
    rates.low = item;
    return rates;
  }
  rates.low = item.substr(0, first);
  std::string rest = item.substr(first + kSeparator.size());
  std::size_t second = rest.find(kSeparator);
  if (second == std::string::npos) {
    rates.average = rest;
    return rates;
  }
  rates.average = rest.substr(0, second);
  rest = rest.substr(second + kSeparator.size());
  // The game ends the item with four characters of its own that are no part of the rate.
  constexpr std::size_t kTail = 4;
  if (rest.size() > kTail) rates.high = rest.substr(0, rest.size() - kTail);
  return rates;
}

}  // namespace mdlBenchmark
