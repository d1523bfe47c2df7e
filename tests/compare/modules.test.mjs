// The compare page's modules under node's test runner, in milliseconds and without a browser:
// the report reader, the statistics of repeats against values worked out another way (Student's
// t by numerical integration of its density, Welch's degrees of freedom and the geometric mean
// by hand), and the markup helper. Drawing, downloads and the keyboard are the browser test's.
import { test } from 'node:test';
import assert from 'node:assert/strict';
import fs from 'node:fs';

import { describe, geometricMean, studentCdf, studentQuantile, unsteady, verdict, welch } from '../../src/compare/inference.mjs';
import { tag } from '../../src/compare/markup.mjs';
import { parseReport, readRate } from '../../src/compare/report.mjs';
import { difference, groupsOf, keysOf, statsOf } from '../../src/compare/stats.mjs';
import { summaryOf } from '../../src/compare/summary.mjs';

const golden = (name) => fs.readFileSync(new URL('../e2e/golden/' + name, import.meta.url), 'latin1');
const read = (name) => parseReport(golden(name));

test('a rate is a plain decimal; anything else is a gap, never a zero', () => {
  const odd = (text, why = 'is not a rate') => [text, { odd: text, why }];
  for (const [text, want] of [['73.534819 ', { value: 73.534819, text: '73.534819' }], ['    ', { blank: true }],
    odd('abc'), odd('inf'), odd('-1.5'), odd('0000000000', 'is not a rate (10 digits with no point: cut from a longer number)')]) {
    assert.deepEqual(readRate(text), want, JSON.stringify(text));
  }
});

test('reports as the program writes them, whole and with a run that left no record', () => {
  const { report, messages } = read('full-d3d-high-quality.html');
  assert.deepEqual([messages, report.resolutions, report.levels.length, report.notes],
    [[], ['640x480', '1024x768'], 7, { test: 'High Quality', renderer: 'Direct3D', game: 'full' }]);
  assert.deepEqual(report.values.get('640x480\nDM-Antalus').map((r) => r.text), ['36.969943', '75.706753', '106.609808']);
  assert.deepEqual(read('crash-mid-suite.html').messages, ['column 7 has no level name and no rates (a run left no record); left out.']);
  assert.equal(parseReport('<HTML>\r\n').report, null);
  // The same report with LF line ends, and with CR LF and LF by turns, reads the same.
  let n = 0;
  for (const text of [golden('full-d3d-high-quality.html').replace(/\r\n/g, '\n'),
    golden('full-d3d-high-quality.html').replace(/\r\n/g, () => (n++ % 2 ? '\n' : '\r\n'))]) {
    assert.deepEqual(parseReport(text), read('full-d3d-high-quality.html'));
  }
});

test('the summary ranks the fastest first, the baseline by a difference of 0, and one with nothing in common last', () => {
  const made = (name, average, res = '640x480') => ({ name, report: { resolutions: [res], levels: ['DM-Antalus'],
    values: new Map([[res + '\nDM-Antalus', [null, { value: average }, null]]]) } });
  const series = [made('base', 100), made('apart', 200, '800x600'), made('slower', 90), made('faster', 110)];
  const groups = groupsOf(series);
  const keys = keysOf(series);
  const { rows } = summaryOf(groups, keys, keys.map((key) => groups.map((g) => statsOf(g, key, 1))), groups[0]);
  assert.deepEqual(rows.map((r) => [r.g.name, r.difference?.toFixed(9)]), [['faster', '10.000000000'], ['base', undefined],
    ['slower', '-10.000000000'], ['apart', undefined]]);
});

test('repeats are one group: mean, lowest, highest and count; a gap counts for nothing', () => {
  const report = (low) => ({ values: new Map([['640x480\nDM-Antalus', [low && { value: low }, null, null]]]),
    resolutions: ['640x480'], levels: ['DM-Antalus'] });
  const series = [30, 40, 36, null].map((low, i) => ({ name: i === 1 ? 'b' : 'a', report: report(low) }));
  const groups = groupsOf(series);
  const [key] = keysOf(series);
  assert.deepEqual(groups.map((g) => [g.name, g.members.length]), [['a', 3], ['b', 1]]);
  const { n, mean, min, max, sd } = statsOf(groups[0], key, 0);
  assert.deepEqual([n, mean, min, max, sd.toFixed(6), statsOf(groups[0], key, 1)], [2, 33, 30, 36, Math.sqrt(18).toFixed(6), null]);
  assert.equal(difference(statsOf(groups[1], key, 0), statsOf(groups[0], key, 0)).toFixed(4), '21.2121');
  assert.equal(difference({ mean: 5 }, { mean: 0 }), null);
  // Pairs: resolutions by size, then those of no size as they came; no pair that no series has.
  const only = (res, level) => ({ report: { resolutions: [res], levels: [level], values: new Map([[res + '\n' + level, []]]) } });
  assert.deepEqual(keysOf([only('640x480x', 'D'), only('x640x480', 'C'), only('800x600', 'B'), only('640x480', 'A')])
    .map((k) => k.res + ' ' + k.level), ['640x480 A', '800x600 B', '640x480x D', 'x640x480 C']);
});

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
    // And below 0, near it, where the function takes its other branch.
    assert.ok(Math.abs(studentCdf(-q / n, n - 1) - cdfByIntegration(-q / n, n - 1)) < 1e-7, `n = ${n}: t = ${-q / n}`);
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
  // (4/3 + 0.58333/3)² / ((4/3)²/2 + (0.58333/3)²/2) = 2.334105 / 0.907793
  assert.equal(welch(describe([100, 102, 104]), b).df.toFixed(4), '2.5712');
  assert.equal(a.half.toFixed(4), (4.302653 / Math.sqrt(3)).toFixed(4));
  // The last has no spread at all: the difference is certain.
  assert.deepEqual([verdict(a, b), verdict(b, a), verdict(a, describe([100.5, 101.5, 101])),
    verdict(describe([90, 90]), describe([100, 100]))], ['faster', 'slower', 'within noise', 'slower']);
  assert.deepEqual([verdict(describe([120]), b), verdict(a, describe([120])), describe([120]).sd], ['repeats needed', 'repeats needed', null]);
  // With no spread on either side, the difference is certain, or there is none.
  assert.deepEqual([welch(describe([100, 100]), describe([90, 90])), welch(describe([90, 90]), describe([90, 90]))],
    [{ t: Infinity, df: 2, p: 0 }, { t: 0, df: 2, p: 1 }]);
  assert.deepEqual([0.03, 0.0301, null].map((rsd) => unsteady({ rsd })), [false, true, false]);
});

test('the geometric mean leaves a blank cell out and is no zero', () => {
  assert.deepEqual([geometricMean([2, null, 8]), geometricMean([50, 200]).toFixed(9), geometricMean([null, undefined])],
    [4, '100.000000000', null]);
});

test('a tag escapes every text and attribute, leaves out null, undefined and false, and closes as HTML and SVG do', () => {
  assert.equal(String(tag('input', { a: null, b: undefined, c: false, d: true, e: 0, f: '<"\'&>\x01' })),
    '<input d e="0" f="&lt;&quot;&#39;&amp;&gt;\ufffd">');
  assert.deepEqual(['rect', 'xrect', 'rects', 'brx', 'xbr', 'br'].map((n) => String(tag(n, {}))),
    ['<rect/>', '<xrect></xrect>', '<rects></rects>', '<brx></brx>', '<xbr></xbr>', '<br>']);
  assert.equal(String(tag('rect', null, 'a\x02', [tag('b', null, 1)])), '<rect>a\ufffd<b>1</b></rect>');
});
