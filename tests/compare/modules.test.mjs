// The compare page's modules under node's test runner, in milliseconds and without a browser:
// the report reader, the statistics of repeats against values worked out another way (Student's
// t by numerical integration of its density, Welch's degrees of freedom and the geometric mean
// by hand), and the markup helper. Drawing, downloads and the keyboard are the browser test's.
import { test } from 'node:test';
import assert from 'node:assert/strict';
import fs from 'node:fs';

import { describe, geometricMean, studentCdf, studentQuantile, unsteady } from '../../src/compare/inference.mjs';
import { tag } from '../../src/compare/markup.mjs';
import { parseReport, readRate } from '../../src/compare/report.mjs';
import { cellsOf, comparedGroups, groupsOf, keysOf, statsOf } from '../../src/compare/stats.mjs';
import { csvText, tableHtml } from '../../src/compare/tables.mjs';
import { tipText } from '../../src/compare/figures.mjs';
import { summaryOf } from '../../src/compare/summary.mjs';
import { contrast, repeatsNeeded } from '../../src/compare/contrast.mjs';
import { outliers, coldStart, drift } from '../../src/compare/flags.mjs';
import { readAddress, addressOf } from '../../src/compare/address.mjs';

const cases = JSON.parse(fs.readFileSync(new URL('cases.json', import.meta.url), 'utf8'));

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

// A run with an Average FPS alone, at one pair; a null average is a gap.
const made = (name, average, res = '640x480', file = undefined) => ({ name, file, report: { resolutions: [res],
  levels: ['DM-Antalus'], values: new Map([[res + '\nDM-Antalus', [null, average && { value: average }, null]]]) } });

test('the summary ranks the fastest first, the baseline by a difference of 0, and one with nothing in common last', () => {
  const series = [made('base', 100), made('apart', 200, '800x600'), made('slower', 90), made('faster', 110)];
  const groups = groupsOf(series);
  const keys = keysOf(series);
  const view = { groups, keys, base: groups[0], margin: 2, cells: cellsOf(groups, keys, groups[0], 2) };
  assert.deepEqual(summaryOf(view, []).rows.map((r) => [r.g.name, r.vs?.difference.toFixed(9)]), [['faster', '10.000000000'],
    ['base', undefined], ['slower', '-10.000000000'], ['apart', undefined]]);
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

test('the ratio of geometric means and its interval on the log scale, by hand, with Welch\'s degrees of freedom', () => {
  // b = 0.95 a: log sd 0.0196107 on both sides, df 4, se = 0.0196107 sqrt(2/3) = 0.0160120, d = −ln 0.95 = 0.0512933,
  // and exp(d ± 2.776445 se) − 1 = +0.6860 % to +10.0484 %.
  const same = contrast([100, 102, 104], [95, 96.9, 98.8], 2);
  assert.deepEqual([same.difference, same.low, same.high].map((v) => v.toFixed(4)), ['5.2632', '0.6860', '10.0484']);
  // Log sds 0.0196107 and 0.0077710: se = sqrt(1.28193e-4 + 2.01295e-5) = 0.0121788, df = 2.612986, d = 0.0381981.
  const q = studentQuantile(0.975, 2.612986);
  const welch = contrast([100, 102, 104], [98, 99, 97.5], 2);
  assert.deepEqual([welch.difference, welch.low, welch.high].map((v) => v.toFixed(3)),
    [3.893699, (Math.exp(0.0381981 - q * 0.0121788) - 1) * 100, (Math.exp(0.0381981 + q * 0.0121788) - 1) * 100].map((v) => v.toFixed(3)));
  // One run a side has no interval and no verdict.
  const { difference, ...single } = contrast([120], [100, 100], 2);
  assert.deepEqual([difference.toFixed(9), single], ['20.000000000', { low: null, high: null, verdict: 'repeats needed', more: null }]);
  assert.deepEqual([0.03, 0.0301, null].map((rsd) => unsteady({ rsd })), [false, true, false]);
});

test('the verdict on both sides of the margin, and the repeats that would settle it', () => {
  const around = (m) => [-0.01, 0, 0.01].map((x) => m * Math.exp(x));
  for (const [r, margin, want] of cases.verdicts.rows) assert.equal(contrast(around(100 * r), around(100), margin).verdict, want, `r = ${r}`);
  for (const [d, sd, margin, n] of cases.repeatsNeeded.rows) assert.equal(repeatsNeeded(d, sd, margin), n ?? Infinity, `d = ${d}`);
  for (const [a, b, margin, ...want] of cases.contrasts.rows) {
    const { verdict, more } = contrast(a, b, margin);
    assert.deepEqual([verdict, more], want, a.join(' '));
  }
});

test('the outlier, cold-start and drift flags just inside and just outside their thresholds', () => {
  for (const { values, times, ...want } of cases.flags.rows) {
    assert.deepEqual({ outliers: outliers(values), cold: coldStart(values), drift: drift(values, times) }, want, values.join(' '));
  }
});

test('each figure as the CSV, the cells of a table and the tool tips give it, all from one description', () => {
  const { margin, series, csv, cells, tips } = cases.figures;
  const runs = Object.entries(series).flatMap(([name, values]) => values.map((v, i) => made(name, v, '640x480', name + (i + 1) + '.html')));
  const keys = keysOf(runs);
  const groups = comparedGroups(runs, keys, false);
  const view = { groups, keys, base: groups[0], margin, cells: cellsOf(groups, keys, groups[0], margin), headlines: [] };
  view.headlines = summaryOf(view, []).rows;
  assert.deepEqual(csvText(view).slice(1).split('\r\n'), csv);
  assert.deepEqual(String(tableHtml(1, view)).match(/<td[^>]*>.*?<\/td>/g).map((td) => td.replace(/<br>/g, '|').replace(/<[^>]*>/g, '')), cells);
  assert.deepEqual(view.cells[1][0].map((c) => c.st && tipText(view, c, keys[0])), tips);
});

test('the margin, the targets and outliers left out, read from the address and written to it', () => {
  for (const [hash, want, again] of cases.addresses) assert.deepEqual([readAddress(hash), addressOf(readAddress(hash))], [want, again], hash);
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
