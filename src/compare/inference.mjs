// What repeats of a run say: the mean and the standard deviation of each series, the 95 % interval
// of its mean from Student's t, whether it is steady, and the geometric mean that sums up a series
// over its levels. Gaps are left out, never taken as zeros.

// ln Γ(x) by Lanczos' series (g = 7, nine terms), good to 15 digits for x >= 0.5: its arguments
// here are half the degrees of freedom, and half of one more, 0.5 or more, and 0.5.
const LANCZOS = [0.99999999999980993, 676.5203681218851, -1259.1392167224028, 771.32342877765313,
  -176.61502916214059, 12.507343278686905, -0.13857109526572012, 9.9843695780195716e-6,
  1.5056327351493116e-7];
function logGamma(x) {
  x -= 1;
  let a = LANCZOS[0];
  const t = x + 7.5;
  for (let i = 1; i < 9; i++) a += LANCZOS[i] / (x + i);
  return 0.5 * Math.log(2 * Math.PI) + (x + 0.5) * Math.log(t) - t + Math.log(a);
}

// The regularised incomplete beta function I_x(a, b), by its continued fraction (Lentz), for
// 0 <= x <= 1: at 0 the front factor is 0, and 1 is taken as 1 - I_0(b, a).
function incompleteBeta(x, a, b) {
  // Stryker disable next-line EqualityOperator: at the turn itself both sides give the same value
  if (x > (a + 1) / (a + b + 2)) return 1 - incompleteBeta(1 - x, b, a);
  const front = Math.exp(a * Math.log(x) + b * Math.log(1 - x) - logGamma(a) - logGamma(b) + logGamma(a + b)) / a;
  const tiny = 1e-300;
  let c = 1;
  let d = 1 - (a + b) * x / (a + 1);
  // The guards against a zero denominator and the bound of the loop are never reached with the
  // arguments of Student's t: the fraction converges in a few dozen terms.
  // Stryker disable next-line ConditionalExpression,EqualityOperator: the guard is not reached
  d = 1 / (Math.abs(d) < tiny ? tiny : d);
  let f = d;
  // Stryker disable next-line EqualityOperator: the bound is not reached
  for (let m = 1; m <= 300; m++) {
    for (const numerator of [m * (b - m) * x / ((a + 2 * m - 1) * (a + 2 * m)),
      -(a + m) * (a + b + m) * x / ((a + 2 * m) * (a + 2 * m + 1))]) {
      d = 1 + numerator * d;
      // Stryker disable next-line ConditionalExpression,EqualityOperator: the guard is not reached
      d = 1 / (Math.abs(d) < tiny ? tiny : d);
      c = 1 + numerator / c;
      // Stryker disable next-line ConditionalExpression,EqualityOperator: the guard is not reached
      if (Math.abs(c) < tiny) c = tiny;
      f *= c * d;
    }
    // Once c·d is 1 the product no longer changes: leaving sooner or later gives the same value.
    // Stryker disable next-line all: the break only saves terms
    if (Math.abs(c * d - 1) < 1e-15) break;
  }
  return front * f;
}

// P(T <= t) for Student's t with df degrees of freedom (df need not be whole).
export function studentCdf(t, df) {
  const tail = 0.5 * incompleteBeta(df / (df + t * t), df / 2, 0.5);
  // Stryker disable next-line EqualityOperator: at 0 the tail is one half either way
  return t >= 0 ? 1 - tail : tail;
}

// The quantiles of whole degrees of freedom recur in every cell of repeats and in the count of
// repeats that would settle a difference; Welch's fractional ones seldom recur.
const known = new Map();

// The t with P(T <= t) = p, for 0.5 <= p < 1, by Newton's method: the distribution function is
// concave above 0, so from any start below the root every step ends below it and the steps shrink
// to it; it stops once a step no longer moves t in its twelfth digit. It starts from 0, or for
// Welch's fractional degrees of freedom from the quantile of the next whole number, which is
// below the root (more degrees of freedom, thinner tails) and close to it.
export function studentQuantile(p, df) {
  // Stryker disable next-line StringLiteral: p is 0.975 or 0.95, apart in their third digit, so no two keys meet
  const key = p + ' ' + df;
  // Stryker disable next-line ConditionalExpression: the store only saves the computing again
  if (known.has(key)) return known.get(key);
  const scale = Math.exp(logGamma((df + 1) / 2) - logGamma(df / 2)) / Math.sqrt(df * Math.PI);
  // Stryker disable next-line ConditionalExpression,MethodExpression: any start near the root ends there
  let t = Number.isInteger(df) ? 0 : studentQuantile(p, Math.ceil(df));
  // Stryker disable next-line EqualityOperator,ConditionalExpression,UpdateOperator: the test of the step ends the loop first
  for (let i = 0; i < 200; i++) {
    const step = (p - studentCdf(t, df)) / (scale * Math.pow(1 + t * t / df, -(df + 1) / 2));
    t += step;
    // Stryker disable next-line EqualityOperator,ArithmeticOperator: a step this small, or one more, moves no digit shown
    if (Math.abs(step) <= 1e-12 * t) break;
  }
  // Stryker disable next-line ConditionalExpression: the store only saves the computing again
  if (Number.isInteger(df)) known.set(key, t);
  return t;
}

// n, mean and sample standard deviation of the values; with two or more, the half width of the
// 95 % interval of the mean and the relative standard deviation.
export function describe(values) {
  const n = values.length;
  const mean = values.reduce((s, v) => s + v, 0) / n;
  if (n < 2) return { n, mean, sd: null, half: null, rsd: null };
  const sd = Math.sqrt(values.reduce((s, v) => s + (v - mean) ** 2, 0) / (n - 1));
  return { n, mean, sd, half: studentQuantile(0.975, n - 1) * sd / Math.sqrt(n), rsd: sd / mean };
}

// Repeats that vary by more than 3 % of their mean are too unsteady to trust.
export function unsteady(st) {
  return (st.rsd ?? 0) > 0.03;
}

// The geometric mean of the values that are there; null where none is.
export function geometricMean(values) {
  const there = values.filter((v) => v !== null && v !== undefined);
  if (!there.length) return null;
  return Math.exp(there.reduce((s, v) => s + Math.log(v), 0) / there.length);
}
