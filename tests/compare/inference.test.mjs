// The statistics of repeats against values worked out another way: Student's t by numerical
// integration of its density, Welch's degrees of freedom and the geometric mean by hand.
import { test } from 'node:test';
import assert from 'node:assert/strict';

import { describe, geometricMean, studentQuantile, verdict, welch } from '../../src/compare/inference.mjs';

// P(T <= t) by Simpson's rule over the density (1 + x²/ν)^(−(ν+1)/2), normalised by its own
// integral over the half line, which x = u / (1 − u) maps onto [0, 1).
function cdfByIntegration(t, df) {
  const f = (x) => Math.pow(1 + x * x / df, -(df + 1) / 2);
  const simpson = (g, a, b, n = 20000) => {
    const h = (b - a) / n;
    let s = g(a) + g(b);
    for (let i = 1; i < n; i++) s += g(a + i * h) * (i % 2 ? 4 : 2);
    return s * h / 3;
  };
  const mapped = (u) => (Math.min(u, 1 - 1e-9) / (1 - Math.min(u, 1 - 1e-9)));
  const half = simpson((u) => f(mapped(u)) * (1 + mapped(u)) ** 2, 0, 1);
  return 0.5 + simpson(f, 0, t) / (2 * half);
}

test('the 95 % quantile of t for 2 to 30 repeats', () => {
  for (let n = 2; n <= 30; n++) {
    const q = studentQuantile(0.975, n - 1);
    assert.ok(Math.abs(cdfByIntegration(q, n - 1) - 0.975) < 1e-7, `n = ${n}: t = ${q}`);
  }
  assert.equal(studentQuantile(0.975, 1).toFixed(3), '12.706');  // tan(0.475 π)
  assert.equal(studentQuantile(0.975, 2).toFixed(4), '4.3027');  // (2p − 1) · sqrt(2 / (4p(1 − p)))
});

test('Welch: the degrees of freedom and the verdicts; a single run gets none', () => {
  const a = describe([100, 102, 101]);
  const b = describe([98, 99, 97.5]);
  assert.deepEqual([a.mean, a.sd, b.sd.toFixed(6)], [101, 1, '0.763763']);
  // (1/3 + 0.58333/3)² / ((1/3)²/2 + (0.58333/3)²/2) = 0.278549 / 0.074460
  assert.equal(welch(a, b).df.toFixed(4), '3.7409');
  assert.equal(a.half.toFixed(4), (4.302653 / Math.sqrt(3)).toFixed(4));
  assert.deepEqual([verdict(a, b), verdict(b, a), verdict(a, describe([100.5, 101.5, 101]))],
    ['faster', 'slower', 'within noise']);
  assert.equal(verdict(describe([120]), b), 'repeats needed');
  assert.equal(verdict(a, describe([120])), 'repeats needed');
  assert.equal(describe([120]).sd, null);
});

test('the geometric mean leaves a blank cell out and is no zero', () => {
  assert.equal(geometricMean([2, null, 8]), 4);
  assert.equal(geometricMean([50, 200]).toFixed(9), '100.000000000');
  assert.equal(geometricMean([null, undefined]), null);
});
