// When /repeat auto has run enough: the score of each repeat, and the interval of their mean.
#pragma once

#include <string>
#include <vector>

namespace repeat_rule {

inline constexpr int kMinRepeats = 3;
inline constexpr int kMaxRepeats = 10;
inline constexpr double kTolerance = 0.01;  // of the mean, either side

// A rate as the report holds it: digits with at most one point, blanks around them; 0 for
// anything else, such as a blank field, "inf" or a rate cut short.
double Rate(const std::string& text);
// A repeat's score: the geometric mean of its rates; 0 when any rate is 0.
double GeometricMean(const std::vector<double>& rates);
// Half the width of the 95 % interval of the scores' mean, from Student's t with one degree of
// freedom fewer than there are scores (2 to 10).
double HalfInterval(const std::vector<double>& scores);

enum class Verdict { Again, Within, StillWider };
// After each repeat: run again, or stop because the interval is within the tolerance (from
// kMinRepeats on) or because kMaxRepeats have run.
Verdict AfterRepeat(const std::vector<double>& scores);

}  // namespace repeat_rule
