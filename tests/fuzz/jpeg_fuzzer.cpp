// Any bytes given to the picture decoder end in a refusal or in a whole picture of the size its
// header names: no crash, no read past the data, no runaway memory.
#include <cstdint>
#include <cstdlib>

#include "platform/jpeg.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  jpeg::Image image;
  if (jpeg::Decode(data, size, image) &&
      image.rgb.size() != static_cast<std::size_t>(image.width) * image.height * 3) {
    std::abort();
  }
  return 0;
}
