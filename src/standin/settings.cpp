#include "standin/settings.h"

#include <vector>

#include "standin/text.h"

namespace standin {

std::uint64_t ParseSpeed(const std::string& text) {
  std::uint64_t thousandths = 0;
  return ParseFixed(Trim(text), 3, thousandths) ? thousandths : kDefaultSpeedThousandths;
}

Fault ParseFault(const std::string& text) {
  const std::vector<std::string> words = SplitWords(text);
  if (words.empty()) return {};
  const struct {
    const char* name;
    FaultKind kind;
  } kinds[] = {{"crash", FaultKind::Crash},
               {"hang", FaultKind::Hang},
               {"inf", FaultKind::Inf},
               {"long-rate", FaultKind::LongRate}};
  Fault fault;
  for (const auto& k : kinds) {
    if (EqualsNoCase(words[0], k.name)) fault.kind = k.kind;
  }
  std::size_t next = 1, end = words.size();
  if (fault.kind == FaultKind::Hang) {
    if (words.size() < 2 || !ParseFixed(words[1], 0, fault.hangSeconds)) return {};
    next = 2;
  }
  if (end > next && words[end - 1][0] == '#') {
    if (!ParseFixed(words[end - 1].substr(1), 0, fault.start) || fault.start == 0) return {};
    --end;
  }
  if (end > next + 1) return {};
  if (end == next + 1) fault.level = Unquote(words[next]);
  return fault;
}

bool FaultApplies(const Fault& fault, const std::string& level, std::uint64_t start) {
  return fault.kind != FaultKind::None && (fault.level.empty() || EqualsNoCase(fault.level, level)) &&
         (fault.start == 0 || fault.start == start);
}

std::uint64_t ParseVary(const std::string& text) {
  std::uint64_t thousandths = 0;
  return ParseFixed(Trim(text), 1, thousandths) && thousandths <= 500 ? thousandths : 0;
}

std::uint64_t Varied(std::uint64_t rate, std::uint64_t thousandths, std::uint64_t start) {
  const std::uint64_t spread = (start * 2654435761u) % 4294967296u % (2 * thousandths + 1);
  return rate * (1000 + spread - thousandths) / 1000;
}

}  // namespace standin
