// The compare page's report reader and statistics under node's test runner, in milliseconds and
// without a browser: the modules as the page joins them. Drawing, downloads and the keyboard
// are the browser test's.
import { test } from 'node:test';
import assert from 'node:assert/strict';
import fs from 'node:fs';

import { parseReport, readRate } from '../../src/compare/report.mjs';
import { groupsOf, keysOf, statsOf, difference } from '../../src/compare/stats.mjs';

const golden = (name) => fs.readFileSync(new URL('../e2e/golden/' + name, import.meta.url), 'latin1');
const rates = (report, key) => report.values.get(key).map((r) => r && r.text);

test('a rate is a plain decimal; anything else is a gap, never a zero', () => {
  const cases = [
    ['73.534819 ', { value: 73.534819, text: '73.534819' }],
    ['          ', { blank: true }],
    ['abc', { odd: 'abc', why: 'is not a rate' }],
    ['inf', { odd: 'inf', why: 'is not a rate' }],
    ['-1.5', { odd: '-1.5', why: 'is not a rate' }],
    ['0000000000', { odd: '0000000000', why: 'is not a rate (10 digits with no point: cut from a longer number)' }],
    ['123456789', { value: 123456789, text: '123456789' }],
  ];
  for (const [text, want] of cases) assert.deepEqual(readRate(text), want, JSON.stringify(text));
});

test('reports as the program writes them, whole and with a run that left no record', () => {
  const full = parseReport(golden('full-d3d-high-quality.html'));
  assert.deepEqual(full.messages, []);
  assert.deepEqual(full.report.resolutions, ['640x480', '1024x768']);
  assert.deepEqual(full.report.levels,
    ['DM-Antalus', 'DOM-SunTemple', 'DM-Phobos2', 'DM-Inferno', 'CTF-Face3', 'CTF-Citadel', 'DM-Asbestos']);
  assert.deepEqual(rates(full.report, '640x480\nDM-Antalus'), ['36.969943', '75.706753', '106.609808']);
  assert.equal(full.report.run, 'High Quality · Direct3D · full');

  const crash = parseReport(golden('crash-mid-suite.html'));
  assert.deepEqual(crash.messages, ['column 7 has no level name and no rates (a run left no record); left out.']);
  assert.deepEqual(crash.report.resolutions, ['1024x768']);
  assert.deepEqual(rates(crash.report, '1024x768\nDM-Asbestos'), ['37.321788', '77.231195', '100.775975']);

  assert.equal(parseReport('<HTML>\r\n').report, null);
});

test('repeats are one group: mean, lowest, highest and count; a gap counts for nothing', () => {
  const report = (low) => ({ values: new Map([['640x480\nDM-Antalus', [low && { value: low }, null, null]]]),
    resolutions: ['640x480'], levels: ['DM-Antalus'] });
  const series = [{ name: 'a', report: report(30) }, { name: 'b', report: report(40) },
    { name: 'a', report: report(36) }, { name: 'a', report: report(null) }];
  const groups = groupsOf(series);
  assert.deepEqual(groups.map((g) => [g.name, g.members.length]), [['a', 3], ['b', 1]]);
  const [key] = keysOf(series);
  assert.deepEqual(statsOf(groups[0], key, 0), { n: 2, mean: 33, min: 30, max: 36 });
  assert.equal(statsOf(groups[0], key, 1), null);
  assert.equal(difference(statsOf(groups[1], key, 0), statsOf(groups[0], key, 0)).toFixed(4), '21.2121');
  assert.equal(difference(null, statsOf(groups[0], key, 0)), null);
});
