// The tables of numbers under the charts, and the same numbers as CSV, both made from the
// descriptions of the figures.

import { TABLES } from './report.mjs';
import { tag } from './markup.mjs';
import { figuresOf } from './figures.mjs';

// A cell's lines, each the texts its figures give there.
function cellLines(figures, c) {
  const lines = [];
  for (const f of figures) {
    const text = f.cell?.(c) ?? null;
    if (text !== null) lines[f.line] = (lines[f.line] || '') + text;
  }
  return lines.filter(Boolean);
}

export function tableHtml(t, view) {
  const { groups, keys, base, cells } = view;
  const figures = figuresOf(view);
  const head = groups.map((g) => tag('th', { scope: 'col' }, g.name,
    g === base && [' ', tag('span', { class: 'base' }, '(baseline)')]));
  const rows = keys.map((key, k) => tag('tr', null, tag('th', { scope: 'row' }, key.res), tag('th', { scope: 'row' }, key.level),
    cells[t][k].map((c) => {
      if (!c.st) return tag('td', { class: 'gap' }, 'no rate');
      // Plain text in lines: a table of 50 series has thousands of these cells, and each
      // element in them costs parse and layout time.
      return tag('td', null, cellLines(figures, c).map((line, n) => (n ? [' ', tag('br'), line] : line)));
    })));
  return tag('div', { class: 'scroll', tabindex: 0, role: 'region', 'aria-label': TABLES[t].title + ' table' },
    // Columns of fixed width: the browser then lays out a table of 50 series without
    // measuring each of its thousands of cells first.
    tag('table', { class: 'numbers', id: 'table-' + TABLES[t].slug, style: 'width:' + (17.5 + 10.5 * groups.length) + 'em' },
      tag('colgroup', null, tag('col', { class: 'res' }), tag('col', { class: 'level' }),
        tag('col', { span: groups.length, class: 'val' })),
      tag('caption', null, TABLES[t].title + ': mean frames per second, for repeats ± the half width of its 95 % interval; ' +
        'the difference in per cent against ' + base.name + ' with its 95 % interval and the verdict within ±' + view.margin +
        ' %; for repeats the standard deviation and the count, and "unsteady" where they vary by more than 3 %: run that ' +
        'series again'),
      tag('thead', null, tag('tr', null, tag('th', { scope: 'col' }, 'Resolution'), tag('th', { scope: 'col' }, 'Level'), head)),
      tag('tbody', null, rows)));
}

export function csvField(text) {
  return /[",\r\n]/.test(text) ? '"' + text.replace(/"/g, '""') + '"' : text;
}

// One line per table, pair and group, so that a spreadsheet can filter and pivot it, then one
// per group for the summary's headline; the byte-order mark makes spreadsheet programs on
// Windows read the names as UTF-8.
export function csvText(view) {
  const figures = figuresOf(view);
  const line = (first, c) => first.concat(...figures.map((f) => f.csv(c))).map(csvField).join(',');
  const lines = [['Table', 'Resolution', 'Level', 'Series'].concat(...figures.map((f) => f.heads)).map(csvField).join(',')];
  view.cells.forEach((table, t) => view.keys.forEach((key, k) => table[k].forEach((c) =>
    lines.push(line([TABLES[t].title, key.res, key.level, c.g.name], c)))));
  for (const c of view.headlines) lines.push(line(['Summary', 'all', 'geometric mean of the levels', c.g.name], c));
  return '\ufeff' + lines.join('\r\n') + '\r\n';
}
