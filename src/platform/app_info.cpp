// The product's name and version, the same on every platform.
#include "platform/platform.h"

namespace platform {

std::string ApplicationTitle() { return "Kelvarnite UT2k3 Benchmark"; }

Version ApplicationVersion() { return {2, 0, 0}; }

}  // namespace platform
