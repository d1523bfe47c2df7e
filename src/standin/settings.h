// The stand-in's own settings, for tests and demonstrations: the speed factor and a fault.
// Each comes from an environment variable when it is set and not empty, else from the
// [StandIn] section of StandIn.ini beside the exe.
#pragma once

#include <cstdint>
#include <string>

namespace standin {

// The run takes the time of its frames divided by this factor; 16 makes a CPU run of 77
// seconds last about a second.
const std::uint64_t kDefaultSpeedThousandths = 16000;

// A factor such as "16" or "2.5" in thousandths; 0 means no wait at all. Anything that is not
// such a number gives the default.
std::uint64_t ParseSpeed(const std::string& text);

enum class FaultKind { None, Crash, Hang, Inf, LongRate };

struct Fault {
  FaultKind kind = FaultKind::None;
  std::uint64_t hangSeconds = 0;
  std::string level;  // the only level it applies to; empty for every start
  std::uint64_t start = 0;  // the only start it applies to, counted from 1; 0 for every start
};

// "<kind> [<argument>] [<level>] [#<start>]": "crash", "hang 5", "inf dm-inferno", "crash #2".
// A text that is not one of these is no fault.
Fault ParseFault(const std::string& text);
bool FaultApplies(const Fault& fault, const std::string& level, std::uint64_t start);

// Vary=<percent>, such as "5" or "2.5": how far each start moves its rates, in thousandths; 0,
// also for anything that is not such a number, leaves them as the model gives them. At most 500.
std::uint64_t ParseVary(const std::string& text);
// The rate moved by up to that many thousandths either way, by an amount that follows from the
// start's number alone, so that runs vary from start to start and the same way every time.
std::uint64_t Varied(std::uint64_t rate, std::uint64_t thousandths, std::uint64_t start);

}  // namespace standin
