// The tables of numbers under the charts, and the same numbers as CSV.

import { TABLES } from './report.mjs';
import { tag, fps, percent } from './markup.mjs';
import { difference } from './stats.mjs';
import { unsteady, verdict } from './inference.mjs';

export function tableHtml(t, groups, keys, stats, base) {
  const head = groups.map((g) => tag('th', { scope: 'col' }, g.name,
    g === base && [' ', tag('span', { class: 'base' }, '(baseline)')]));
  const rows = keys.map((key, k) => {
    const b = stats[k][base.index];
    return tag('tr', null, tag('th', { scope: 'row' }, key.res), tag('th', { scope: 'row' }, key.level),
      groups.map((g, i) => {
        const st = stats[k][i];
        if (!st) return tag('td', { class: 'gap' }, 'no rate');
        const d = g === base ? null : difference(st, b);
        // Plain text in lines: a table of 50 series has thousands of these cells, and each
        // element in them costs parse and layout time.
        const lines = [fps(st.mean) + (st.half === null ? '' : ' ±' + fps(st.half))];
        if (d !== null) lines.push(percent(d) + ' (' + verdict(st, b) + ')');
        if (g.members.length > 1) {
          lines.push('sd ' + (st.sd === null ? '–' : fps(st.sd)) + ', n ' + st.n + (unsteady(st) ? ', unsteady' : ''));
        }
        return tag('td', { class: unsteady(st) && 'unsteady' }, lines.map((line, n) => (n ? [' ', tag('br'), line] : line)));
      }));
  });
  return tag('div', { class: 'scroll', tabindex: 0, role: 'region', 'aria-label': TABLES[t].title + ' table' },
    // Columns of fixed width: the browser then lays out a table of 50 series without
    // measuring each of its thousands of cells first.
    tag('table', { class: 'numbers', id: 'table-' + TABLES[t].slug, style: 'width:' + (17.5 + 10.5 * groups.length) + 'em' },
      tag('colgroup', null, tag('col', { class: 'res' }), tag('col', { class: 'level' }),
        tag('col', { span: groups.length, class: 'val' })),
      tag('caption', null, TABLES[t].title + ': mean frames per second, for repeats ± the half width of its 95 % interval; ' +
        'the difference in per cent against ' + base.name + ' and whether it is real (Welch\'s t-test at 5 %); for repeats ' +
        'the standard deviation and the count, and "unsteady" where they vary by more than 3 %: run that series again'),
      tag('thead', null, tag('tr', null, tag('th', { scope: 'col' }, 'Resolution'), tag('th', { scope: 'col' }, 'Level'), head)),
      tag('tbody', null, rows)));
}

export function csvField(text) {
  return /[",\r\n]/.test(text) ? '"' + text.replace(/"/g, '""') + '"' : text;
}

// One line per table, pair and group, so that a spreadsheet can filter and pivot it; the
// byte-order mark makes spreadsheet programs on Windows read the names as UTF-8.
export function csvText(view) {
  const { groups, keys, base, all } = view;
  const lines = [['Table', 'Resolution', 'Level', 'Series', 'Mean', 'Min', 'Max', 'Spread', 'Count',
    'Difference % against ' + base.name, 'SD', '95 % interval low', '95 % interval high', 'Verdict',
    'Unsteady'].map(csvField).join(',')];
  all.forEach((stats, t) => {
    keys.forEach((key, k) => {
      groups.forEach((g, i) => {
        const st = stats[k][i];
        const b = stats[k][base.index];
        const d = g === base ? null : difference(st, b);
        const repeats = st && st.half !== null;
        lines.push([TABLES[t].title, key.res, key.level, g.name].map(csvField).concat(st
          ? [st.mean.toFixed(6), st.min.toFixed(6), st.max.toFixed(6), (st.max - st.min).toFixed(6), String(st.n)]
          : ['', '', '', '', '0'], [d === null ? '' : d.toFixed(2)],
        repeats ? [st.sd.toFixed(6), (st.mean - st.half).toFixed(6), (st.mean + st.half).toFixed(6)] : ['', '', ''],
        [d === null ? '' : verdict(st, b), st && unsteady(st) ? 'unsteady' : '']).join(','));
      });
    });
  });
  return '\ufeff' + lines.join('\r\n') + '\r\n';
}
