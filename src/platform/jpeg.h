// A decoder of baseline JPEG files, for the program's own stored pictures: fast to start and
// with nothing to load from the system, where the system's decoders take long to load.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace jpeg {

struct Image {
  int width = 0, height = 0;
  std::vector<std::uint8_t> rgb;  // rows from the top, three bytes a pixel
};

// Decodes a baseline (sequential, Huffman-coded, 8-bit) JPEG of one grey or three YCbCr
// components, sampled 1 or 2 each way, in one scan or several, with or without restarts.
// False for any other kind of file and for damaged data.
bool Decode(const std::uint8_t* data, std::size_t size, Image& image);

}  // namespace jpeg
