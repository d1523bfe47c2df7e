#include "standin/record.h"

namespace standin {

namespace {

std::string Rates(const RecordTexts& t) {
  return t.low + " / " + t.average + " / " + t.high + " fps";
}

}  // namespace

std::string FormatRate(std::uint64_t millionths) {
  std::string fraction = std::to_string(millionths % 1000000);
  fraction.insert(0, 6 - fraction.size(), '0');
  return std::to_string(millionths / 1000000) + "." + fraction;
}

std::string LowFrameRateRecord(const std::string& levelName, const RecordTexts& texts) {
  return levelName + "\r\n" + Rates(texts) + "\r\nScore = " + texts.score + "\r\n\r\n";
}

std::string BenchmarkRecord(const RecordTexts& texts, std::uint32_t seed) {
  return Rates(texts) + " -- Score = " + texts.score + "        rand[" + std::to_string(seed) +
         "]\r\n";
}

}  // namespace standin
