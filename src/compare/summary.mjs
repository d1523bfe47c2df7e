// The summary above the charts: for each series the geometric mean of its Average FPS over the
// levels, at each resolution and over all, its difference against the baseline with its interval
// and verdict, what its repeats say, and the highest resolution at which it keeps each frame-rate
// target; ranked by that difference.

import { tag, fps } from './markup.mjs';
import { geometricMean, unsteady } from './inference.mjs';
import { contrast } from './contrast.mjs';
import { repeatMeans } from './stats.mjs';
import { differenceText, verdictText } from './figures.mjs';

// The highest resolution at which every level the group has keeps its Low FPS at or above the
// target; null where none does. The pairs come in order of resolution.
function highestKept(lows, keys, i, target) {
  let kept = null;
  for (const res of new Set(keys.map((k) => k.res))) {
    const there = keys.flatMap((k, j) => (k.res === res && lows[j][i].st ? [lows[j][i].st.mean] : []));
    if (there.length && Math.min(...there) >= target) kept = res;
  }
  return kept;
}

// The rows, ranked. The headline compares a series with the baseline like for like: each repeat
// on either side is the geometric mean of its Average FPS over the pairs that every repeat of both
// has, so that a gap on one side moves no number, and the two sets of repeats are contrasted.
export function summaryOf(view, targets) {
  const { groups, keys, base, cells, margin } = view;
  const resolutions = [...new Set(keys.map((k) => k.res))];
  const averages = cells[1];
  const mean = (i, res) => geometricMean(keys.map((key, k) => (res === undefined || key.res === res) &&
    averages[k][i].st ? averages[k][i].st.mean : null));
  const rows = groups.map((g, i) => {
    const both = repeatMeans([...g.members, ...base.members], keys);
    const figures = averages.map((row) => row[i].st).filter(Boolean);
    const overall = mean(i);
    // st and vs as a cell of the tables has them, for the summary's lines of the CSV.
    return {
      g, overall, byRes: resolutions.map((res) => mean(i, res)), st: { n: g.members.length, mean: overall },
      repeats: figures.some(unsteady) ? 'unsteady: run it again' : figures.some((st) => st.n > 1) ? 'steady' : 'one run',
      vs: g === base || both[0] === null ? null
        : contrast(both.slice(0, g.members.length), both.slice(g.members.length), margin),
      kept: targets.map((target) => highestKept(cells[0], keys, i, target)),
    };
  });
  // Ranked by that difference, which compares like for like; the baseline's is none.
  const rankOf = (r) => (r.g === base ? 0 : r.vs === null ? -Infinity : r.vs.difference);
  rows.sort((a, b) => rankOf(b) - rankOf(a));
  return { resolutions, rows, margin, targets };
}

// Above the summary: the settings in which series differ, where any do.
export function mismatchHtml(lines) {
  return lines.length ? tag('section', { class: 'mismatch', 'aria-labelledby': 'h-mismatch' },
    tag('h2', { id: 'h-mismatch' }, 'Settings that differ'), tag('ul', null, lines.map((line) => tag('li', null, line)))) : '';
}

export function summaryHtml(summary, base) {
  const cell = (v) => (v === null ? tag('td', { class: 'gap' }, 'no rate') : tag('td', null, fps(v)));
  const head = ['Rank', 'Series', 'All resolutions'].concat(summary.resolutions, ['Against ' + base.name, 'Verdict', 'Repeats'],
    summary.targets.map((target) => 'Low FPS ≥ ' + target + ' up to'));
  const single = summary.rows.some((r) => r.vs && r.vs.verdict === 'repeats needed');
  return tag('section', { class: 'summary', 'aria-labelledby': 'h-summary' }, tag('h2', { id: 'h-summary' }, 'Summary'),
    tag('div', { class: 'scroll', tabindex: 0, role: 'region', 'aria-label': 'Summary table' }, tag('table', { id: 'summary' },
      tag('caption', null, 'Geometric mean of Average FPS over the levels; the series are ranked by their difference in ' +
        'per cent against the baseline, with its 95 % interval, taken over the pairs of resolution and level that every ' +
        'repeat of both has, and judged against a margin of ±' + summary.margin + ' %; repeats that vary by more than 3 % ' +
        'at any pair are unsteady; the last columns give the highest resolution at which every level keeps its Low FPS ' +
        'at or above the target'),
      tag('thead', null, tag('tr', null, head.map((h) => tag('th', { scope: 'col' }, h)))),
      tag('tbody', null, summary.rows.map((r, rank) => tag('tr', null, tag('td', null, rank + 1),
        tag('th', { scope: 'row' }, r.g.name), cell(r.overall), r.byRes.map(cell),
        tag('td', { class: 'against' }, r.g === base ? 'baseline' : r.vs === null ? 'nothing in common' : differenceText(r.vs)),
        tag('td', { class: 'words' }, r.vs ? verdictText(r.vs, summary.margin) : ''),
        tag('td', { class: 'words' }, [r.repeats, r.g.flags && '; ' + r.g.flags]),
        r.kept.map((res) => tag('td', null, res || 'none'))))))),
    single && tag('p', { class: 'note' }, 'With one run on a side there is no interval and no verdict: one run cannot tell ' +
      'a real difference from the spread between runs. Run each series at least twice, better three times or more.'));
}
