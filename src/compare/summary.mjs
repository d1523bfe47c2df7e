// The summary above the charts: for each series the geometric mean of its Average FPS over the
// levels, at each resolution and over all, its difference against the baseline, and its rank.

import { tag, fps, percent } from './markup.mjs';
import { geometricMean, unsteady } from './inference.mjs';

// The rows, ranked. A series is compared with the baseline like for like, over the
// pairs of resolution and level that both have, so that a gap on one side moves no number.
export function summaryOf(groups, keys, averages, base) {
  const resolutions = [...new Set(keys.map((k) => k.res))];
  const mean = (i, res, pairs = keys.map((_, k) => k)) => geometricMean(pairs
    .filter((k) => res === undefined || keys[k].res === res)
    .map((k) => (averages[k][i] ? averages[k][i].mean : null)));
  const rows = groups.map((g, i) => {
    const common = keys.map((_, k) => k).filter((k) => averages[k][i] && averages[k][base.index]);
    const own = mean(i, undefined, common);
    const theirs = mean(base.index, undefined, common);
    const figures = keys.map((_, k) => averages[k][i]).filter(Boolean);
    return {
      g, overall: mean(i), byRes: resolutions.map((res) => mean(i, res)),
      repeats: figures.some(unsteady) ? 'unsteady: run it again'
        : figures.some((st) => st.n > 1) ? 'steady' : 'one run',
      difference: g === base || own === null ? null : (own - theirs) / theirs * 100,
    };
  });
  // Ranked by that difference, which compares like for like; the baseline's is none.
  const rankOf = (r) => (r.g === base ? 0 : r.difference === null ? -Infinity : r.difference);
  rows.sort((a, b) => rankOf(b) - rankOf(a));
  return { resolutions, rows };
}

export function summaryHtml(summary, base) {
  const cell = (v) => (v === null ? tag('td', { class: 'gap' }, 'no rate') : tag('td', null, fps(v)));
  const head = ['Rank', 'Series', 'All resolutions'].concat(summary.resolutions, ['Against ' + base.name, 'Repeats']);
  return tag('section', { class: 'summary', 'aria-labelledby': 'h-summary' }, tag('h2', { id: 'h-summary' }, 'Summary'),
    tag('div', { class: 'scroll', tabindex: 0, role: 'region', 'aria-label': 'Summary table' }, tag('table', { id: 'summary' },
      tag('caption', null, 'Geometric mean of Average FPS over the levels; the series are ranked by their difference in ' +
        'per cent against the baseline, taken over the pairs of resolution and level that both have; repeats that ' +
        'vary by more than 3 % at any pair are unsteady'),
      tag('thead', null, tag('tr', null, head.map((h) => tag('th', { scope: 'col' }, h)))),
      tag('tbody', null, summary.rows.map((r, rank) => tag('tr', null, tag('td', null, rank + 1),
        tag('th', { scope: 'row' }, r.g.name), cell(r.overall), r.byRes.map(cell),
        tag('td', null, r.g === base ? 'baseline' : r.difference === null ? 'nothing in common' : percent(r.difference)),
        tag('td', null, r.repeats)))))));
}
