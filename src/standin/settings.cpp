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
  std::size_t next = 1;
  if (fault.kind == FaultKind::Hang) {
    if (words.size() < 2 || !ParseFixed(words[1], 0, fault.hangSeconds)) return {};
    next = 2;
  }
  if (words.size() > next + 1) return {};
  if (words.size() == next + 1) fault.level = Unquote(words[next]);
  return fault;
}

bool FaultApplies(const Fault& fault, const std::string& level) {
  return fault.kind != FaultKind::None && (fault.level.empty() || EqualsNoCase(fault.level, level));
}

}  // namespace standin
