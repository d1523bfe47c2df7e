// The product's name, the same on every platform. Its version is the program's own: the
// version resource on Windows, the build's version elsewhere.
#include "platform/platform.h"

namespace platform {

std::string ApplicationTitle() { return "Kelvarnite UT2k3 Benchmark"; }

}  // namespace platform
