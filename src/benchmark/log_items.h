// The pieces of lowframerate.log: one item at a time, and the frame rates inside item 2.
#pragma once

#include <cstddef>
#include <string>

namespace mdlBenchmark {

// Reads the item that starts at *position and moves *position behind its delimiter. Never
// reads past the end of text; at the end it gives an empty item.
std::string ReadLogItem(const std::string& text, std::size_t* position);

struct FrameRates {
  std::string low, average, high;
};
// Splits "low / average / high" followed by a four-character tail. Whatever a piece lacks
// stays empty.
FrameRates SplitFrameRates(const std::string& item);

}  // namespace mdlBenchmark
