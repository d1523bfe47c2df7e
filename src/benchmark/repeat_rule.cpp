#include "benchmark/repeat_rule.h"

#include <cmath>

namespace repeat_rule {
namespace {

// The 97.5 % quantile of Student's t for 1 to 9 degrees of freedom: the most /repeat auto
// needs, so a table serves.
constexpr double kT975[] = {12.706205, 4.302653, 3.182446, 2.776445, 2.570582,
                            2.446912,  2.364624, 2.306004, 2.262157};

double Mean(const std::vector<double>& scores) {
  double sum = 0;
  for (double score : scores) sum += score;
  return sum / static_cast<double>(scores.size());
}

}  // namespace

double Rate(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' '), last = text.find_last_not_of(' ');
  if (first == std::string::npos) return 0;
  double rate = 0, scale = 1;
  bool point = false;
  for (std::size_t i = first; i <= last; ++i) {
    const char c = text[i];
    if (c == '.' && !point) {
      point = true;
    } else if (c >= '0' && c <= '9') {
      rate = rate * 10 + (c - '0');
      if (point) scale *= 10;
    } else {
      return 0;
    }
  }
  return rate / scale;
}

double GeometricMean(const std::vector<double>& rates) {
  double logs = 0;
  for (double rate : rates) {
    if (!(rate > 0)) return 0;
    logs += std::log(rate);
  }
  return rates.empty() ? 0 : std::exp(logs / static_cast<double>(rates.size()));
}

double HalfInterval(const std::vector<double>& scores) {
  const double n = static_cast<double>(scores.size()), mean = Mean(scores);
  double squares = 0;
  for (double score : scores) squares += (score - mean) * (score - mean);
  return kT975[scores.size() - 2] * std::sqrt(squares / (n - 1) / n);
}

Verdict AfterRepeat(const std::vector<double>& scores) {
  const int n = static_cast<int>(scores.size());
  if (n < kMinRepeats) return Verdict::Again;
  if (HalfInterval(scores) <= kTolerance * Mean(scores)) return Verdict::Within;
  return n >= kMaxRepeats ? Verdict::StillWider : Verdict::Again;
}

}  // namespace repeat_rule
