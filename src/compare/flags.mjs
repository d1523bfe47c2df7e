// Repeats that do not belong with the others of their series: an outlier, a cold first run and a
// drift in run order. Each takes the values of a series' repeats in run order.

import { describe, studentCdf, studentQuantile } from './inference.mjs';

// Iglewicz and Hoaglin's cut for the modified z-score: at 3.5 a value from a normal spread is
// flagged about once in 2000, yet a repeat that ran with something else on the computer is.
export const OUTLIER_Z = 3.5;

function median(values) {
  const sorted = [...values].sort((a, b) => a - b);
  const mid = sorted.length >> 1;
  return sorted.length % 2 ? sorted[mid] : (sorted[mid - 1] + sorted[mid]) / 2;
}

// The modified z-score of each value, 0.6745 (x - median) / MAD. Where more than half the values
// are equal, the MAD is 0, and the mean absolute deviation stands in for it (scaled by 1.2533, as
// the MAD by 1 / 0.6745, to the standard deviation of a normal spread). Two values lie 0.6745
// from their median, far inside any cut: the median cannot tell which is the odd one. Values all
// equal have no scale, and their scores, 0 / 0, lie beyond no cut.
function modifiedZ(values) {
  const mid = median(values);
  const away = values.map((v) => Math.abs(v - mid));
  const mad = median(away);
  const scale = mad ? mad / 0.6745 : 1.253314 * describe(away).mean;
  return values.map((v) => (v - mid) / scale);
}

// The places of the values whose modified z-score lies beyond the cut.
export function outliers(values) {
  return modifiedZ(values).flatMap((z, i) => (Math.abs(z) > OUTLIER_Z ? [i] : []));
}

// A cold start: the first repeat lies below every other and below the one-sided 95 % bound of
// prediction of the others, mean - t(0.95, k - 1) sd sqrt(1 + 1/k) for k others; so two others
// that agree closely flag a small drop, and two far apart only a large one.
export function coldStart(values) {
  // Stryker disable next-line ConditionalExpression: with one other, its sd and t of 0 degrees are not numbers, below which nothing lies
  if (values.length < 3) return false;
  const others = describe(values.slice(1));
  return values[0] < Math.min(...values.slice(1)) &&
    values[0] < others.mean - studentQuantile(0.95, others.n - 1) * others.sd * Math.sqrt(1 + 1 / others.n);
}

// Drift: the slope of the values against run order, or against the times the runs started, by
// least squares, where its t-test puts it beyond 0 at 5 % (two-sided); "slower" or "faster", or
// null. Three repeats are the fewest with a spread about a line. A flat line has a t of 0, and
// times all the same one of 0 / 0, neither beyond 0.
export function drift(values, times = values.map((_, i) => i)) {
  const n = values.length;
  // Stryker disable next-line ConditionalExpression: two lie on their line, whose spread over 0 degrees gives a t of 0 or not a number
  if (n < 3) return null;
  const mx = times.reduce((s, x) => s + x, 0) / n;
  const my = values.reduce((s, y) => s + y, 0) / n;
  let sxx = 0;
  let sxy = 0;
  let syy = 0;
  values.forEach((y, i) => {
    sxx += (times[i] - mx) ** 2;
    sxy += (times[i] - mx) * y;
    syy += (y - my) ** 2;
  });
  const slope = sxy / sxx;
  const t = slope / Math.sqrt(Math.max(0, syy - slope * sxy) / (n - 2) / sxx);
  // Stryker disable next-line EqualityOperator: 2 (1 - P) is a multiple of 2^-52, which 0.05 is not; a slope of 0 has a t of 0
  return 2 * (1 - studentCdf(Math.abs(t), n - 2)) < 0.05 ? (slope < 0 ? 'slower' : 'faster') : null;
}
