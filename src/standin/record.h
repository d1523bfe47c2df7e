// The bytes the game appends to its two logs at the end of a benchmark.
#pragma once

#include <cstdint>
#include <string>

namespace standin {

// The three rates and the score as they will be written.
struct RecordTexts {
  std::string low, average, high, score;
};

// A rate in millionths of a frame per second, as printf "%f" writes it: six decimals.
std::string FormatRate(std::uint64_t millionths);

// lowframerate.log: the level, the rates, the score and an empty line, each ended by CR LF.
std::string LowFrameRateRecord(const std::string& levelName, const RecordTexts& texts);
// benchmark.log: one line with the rates, the score and the run's seed.
std::string BenchmarkRecord(const RecordTexts& texts, std::uint32_t seed);

}  // namespace standin
