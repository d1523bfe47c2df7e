// What repeats say about one series against another: the ratio of their geometric means with its
// 95 % interval, taken on the log scale by Welch's t over the repeats, and the verdict against the
// margin within which the user takes two series as the same.

import { describe, studentQuantile } from './inference.mjs';

// The margins the user picks from, in per cent.
export const MARGINS = [1, 2, 3, 5];
export const DEFAULT_MARGIN = 2;
// Beyond this many repeats of each, the page gives up counting: no one runs more.
export const MOST_REPEATS = 100;

const toPercent = (log) => (Math.exp(log) - 1) * 100;

// The verdict of a difference on the log scale, d, with the half widths of its 95 % interval and
// of its 90 % one: faster or slower where the 95 % interval lies wholly above or below 0; the
// same where both one-sided tests at 5 % put it inside the margin, i.e. the 90 % interval lies
// within it; else null, undecided.
function decide(d, h95, h90, margin) {
  if (toPercent(d - h95) > 0) return 'faster';
  if (toPercent(d + h95) < 0) return 'slower';
  // Stryker disable next-line EqualityOperator: no double e makes (e - 1) 100 exactly 1, 2, 3 or 5, or their negatives
  return toPercent(d - h90) > -margin && toPercent(d + h90) < margin ? 'same' : null;
}

// The repeats of each side that would settle a difference d at a pooled standard deviation s
// (both on the log scale), were the two sides to keep them: the fewest n above from for which the
// interval of n repeats against n decides; Infinity where even MOST_REPEATS would not.
export function repeatsNeeded(d, s, margin, from = 1) {
  for (let n = from + 1; n <= MOST_REPEATS; n++) {
    const se = s * Math.sqrt(2 / n);
    if (decide(d, studentQuantile(0.975, 2 * n - 2) * se, studentQuantile(0.95, 2 * n - 2) * se, margin)) return n;
  }
  return Infinity;
}

// a against b, each the values of its repeats (all above 0): the difference of their geometric
// means in per cent and, where both sides have two or more, its 95 % interval and the verdict;
// "repeats needed" where a side has one, and for "unsure" how many more of each would settle it.
export function contrast(a, b, margin) {
  const la = describe(a.map(Math.log));
  const lb = describe(b.map(Math.log));
  const d = la.mean - lb.mean;
  const difference = toPercent(d);
  if (la.n < 2 || lb.n < 2) return { difference, low: null, high: null, verdict: 'repeats needed', more: null };
  const qa = la.sd * la.sd / la.n;
  const qb = lb.sd * lb.sd / lb.n;
  const se = Math.sqrt(qa + qb);
  // Welch's degrees of freedom; with no spread on either side the interval is the point itself.
  const df = se && (qa + qb) * (qa + qb) / (qa * qa / (la.n - 1) + qb * qb / (lb.n - 1));
  const h95 = se && studentQuantile(0.975, df) * se;
  const h90 = se && studentQuantile(0.95, df) * se;
  const verdict = decide(d, h95, h90, margin) || 'unsure';
  const pooled = Math.sqrt((la.sd * la.sd * (la.n - 1) + lb.sd * lb.sd * (lb.n - 1)) / (la.n + lb.n - 2));
  const fewer = Math.min(la.n, lb.n);
  return { difference, low: toPercent(d - h95), high: toPercent(d + h95), verdict,
    more: verdict === 'unsure' ? repeatsNeeded(d, pooled, margin, fewer) - fewer : null };
}
