// The compare page's report reader and statistics under node's test runner, in milliseconds and
// without a browser; drawing, downloads and the keyboard are the browser test's.
import { test } from 'node:test';
import assert from 'node:assert/strict';
import fs from 'node:fs';

import { parseReport, readRate } from '../../src/compare/report.mjs';
import { groupsOf, keysOf, statsOf, difference } from '../../src/compare/stats.mjs';

const read = (name) => parseReport(fs.readFileSync(new URL('../e2e/golden/' + name, import.meta.url), 'latin1'));

test('a rate is a plain decimal; anything else is a gap, never a zero', () => {
  const odd = (text, why = 'is not a rate') => [text, { odd: text, why }];
  for (const [text, want] of [['73.534819 ', { value: 73.534819, text: '73.534819' }], ['    ', { blank: true }],
    odd('abc'), odd('inf'), odd('-1.5'), odd('0000000000', 'is not a rate (10 digits with no point: cut from a longer number)')]) {
    assert.deepEqual(readRate(text), want, JSON.stringify(text));
  }
});

test('reports as the program writes them, whole and with a run that left no record', () => {
  const { report, messages } = read('full-d3d-high-quality.html');
  assert.deepEqual([messages, report.resolutions, report.levels.length, report.run],
    [[], ['640x480', '1024x768'], 7, 'High Quality · Direct3D · full']);
  assert.deepEqual(report.values.get('640x480\nDM-Antalus').map((r) => r.text), ['36.969943', '75.706753', '106.609808']);
  assert.deepEqual(read('crash-mid-suite.html').messages, ['column 7 has no level name and no rates (a run left no record); left out.']);
  assert.equal(parseReport('<HTML>\r\n').report, null);
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
});
