// The charts: one grouped bar chart per table, drawn as SVG text.

import { TABLES, listText } from './report.mjs';
import { tag, fps } from './markup.mjs';
import { tipText } from './figures.mjs';

export const PALETTE = ['#0072b2', '#e69f00', '#009e73', '#cc79a7', '#56b4e9', '#d55e00', '#444444', '#8c6d1f'];
export function colour(i) {
  return i < PALETTE.length ? PALETTE[i] : 'hsl(' + Math.round(i * 137.508) % 360 + ',60%,42%)';
}

export function niceStep(max) {
  const raw = max / 5;
  const p = Math.pow(10, Math.floor(Math.log10(raw)));
  const m = raw / p;
  return (m <= 1 ? 1 : m <= 2 ? 2 : m <= 5 ? 5 : 10) * p;
}

// The sizes of the charts, in CSS pixels. Bar chart: the room for the level names on the left
// and for the values on the right, the narrowest plot, a bar's height at most and at least and
// the height that a pair's bars share, the height from which bars carry their values, the gap
// between pairs, a resolution's heading and a row of the legend below the title. Scaling chart:
// the room for the axis on the left and for half the last resolution's name on the right, the
// top, the narrowest plot and the plot's height, and the legend's columns and rows.
export const LAYOUT = {
  bar: { left: 118, right: 64, narrowest: 120, tallest: 16, thinnest: 3, shared: 96, labelled: 10, gap: 8, heading: 22,
    legendTop: 32, legendRow: 18 },
  scaling: { left: 56, right: 44, top: 40, narrowest: 160, height: 260, column: 160, row: 16, perRow: 4 },
};

// The frame-rate targets as lines across a chart, each with its value: at x for the bar chart,
// at y for the scaling chart.
export function targetLines(targets, at, from, to, across) {
  return targets.map((v) => {
    const p = at(v).toFixed(2);
    return [tag('line', { ...(across ? { x1: from, x2: to, y1: p, y2: p } : { x1: p, x2: p, y1: from, y2: to }), class: 'target',
      stroke: '#b00020', 'stroke-dasharray': '4 3' }),
    tag('text', { ...(across ? { x: to - 2, y: (at(v) - 3).toFixed(2), 'text-anchor': 'end' } : { x: (at(v) + 3).toFixed(2),
      y: from + 10 }), 'font-size': 10, fill: '#b00020' }, v + ' FPS')];
  });
}

// A grouped bar chart drawn as SVG text: the pairs of resolution and level down the side, one
// bar per group of series across. Horizontal bars keep the level names readable at any count,
// and the chart grows downwards, the way a page scrolls and prints. With tips, each bar carries
// its tool tip, for the downloaded picture; on the page a bar's tool tip is made when the pointer
// first comes to it, since thousands of titles made up front slow the drawing. The Low FPS chart
// draws the frame-rate targets.
export function chartSvg(t, view, width, tips, targets = []) {
  const { groups, keys } = view;
  const L = LAYOUT.bar;
  const title = TABLES[t].title;
  const nG = groups.length;
  const barH = Math.max(L.thinnest, Math.min(L.tallest, Math.floor(L.shared / nG)));
  const labels = barH >= L.labelled;
  const groupH = nG * barH + L.gap;
  const left = L.left;
  const plotW = Math.max(L.narrowest, width - left - L.right);
  if (t !== 0) targets = [];

  // The legend wraps by an estimate of its text width, which is all SVG text gives.
  const legend = [];
  let lx = 0;
  let ly = 0;
  groups.forEach((g, i) => {
    const w = 24 + Math.min(g.name.length, 40) * 7;
    if (lx && lx + w > width - 8) { lx = 0; ly += L.legendRow; }
    legend.push({ g, i, x: 8 + lx, y: ly });
    lx += w;
  });
  const top = L.legendTop + ly + L.legendRow + 24;

  let max = Math.max(0, ...targets);
  for (const row of view.cells[t]) for (const c of row) if (c.st) max = Math.max(max, c.st.max);
  const step = max > 0 ? niceStep(max) : 1;
  const axisMax = Math.ceil(max / step) * step || step;
  const x = (v) => left + v / axisMax * plotW;

  let y = top;
  const body = [];
  let lastRes = null;
  keys.forEach((key, k) => {
    if (key.res !== lastRes) {
      lastRes = key.res;
      y += 4;
      body.push(tag('text', { x: 4, y: y + 13, 'font-weight': 'bold' }, key.res),
        tag('line', { x1: 4, x2: width - 4, y1: y + 18.5, y2: y + 18.5, stroke: '#bbb' }));
      y += L.heading;
    }
    body.push(tag('text', { class: 'level', x: left - 6, y: y + groupH / 2 + 4, 'text-anchor': 'end' }, key.level));
    view.cells[t][k].forEach((c, i) => {
      const by = y + 4 + i * barH;
      const st = c.st;
      if (!st) {
        if (labels) {
          body.push(tag('text', { class: 'gap', x: left + 4, y: by + barH - 3, 'font-size': 10, 'font-style': 'italic',
            fill: '#666' }, 'no rate'));
        }
        return;
      }
      const w = Math.max(1, x(st.mean) - left);
      body.push(tag('rect', { class: 'bar', 'data-g': i, 'data-k': k, x: left, y: by, width: w.toFixed(2), height: barH - 1,
        fill: colour(i) }, tips && tag('title', null, tipText(view, c, key))));
      let end = left + w;
      if (st.n > 1) {
        const a = x(st.min).toFixed(2);
        const b = x(st.max).toFixed(2);
        const cy = by + (barH - 1) / 2;
        body.push(tag('path', { class: 'whisker', 'data-g': i, 'data-k': k, d: 'M' + a + ' ' + cy + 'H' + b +
          'M' + a + ' ' + (by + 1) + 'V' + (by + barH - 2) + 'M' + b + ' ' + (by + 1) + 'V' + (by + barH - 2),
          stroke: '#000', 'stroke-width': 1.5, fill: 'none' }));
        end = Math.max(end, x(st.max));
      }
      if (labels) {
        body.push(tag('text', { x: (end + 4).toFixed(2), y: by + barH - 3, 'font-size': 10 }, fps(st.mean)));
      }
    });
    y += groupH;
  });
  const bottom = y + 6;
  const height = bottom + 24;

  const axis = [];
  for (let v = 0; v <= axisMax + step / 2; v += step) {
    const tx = x(v).toFixed(2);
    const label = String(Math.round(v * 1000) / 1000);
    axis.push(tag('line', { x1: tx, x2: tx, y1: top - 6, y2: bottom, stroke: v ? '#ddd' : '#333' }),
      [top - 10, bottom + 14].map((ty) => tag('text', { x: tx, y: ty, 'text-anchor': 'middle', 'font-size': 10 }, label)));
  }

  const names = groups.map((g) => g.name);
  const desc = 'Bar chart of ' + title + ', frames per second, for ' + nG + ' series (' + listText(names) +
    ') at ' + keys.length + ' pairs of resolution and level' +
    (keys.length ? ', from ' + keys[0].level + ' at ' + keys[0].res + ' to ' +
      keys[keys.length - 1].level + ' at ' + keys[keys.length - 1].res : '') +
    '. Repeats show their mean, with a line from the lowest to the highest. The table below gives every number.';
  const id = 'chart-' + TABLES[t].slug;
  return tag('svg', { xmlns: 'http://www.w3.org/2000/svg', width, height, viewBox: '0 0 ' + width + ' ' + height, role: 'img',
    'aria-labelledby': id + '-t ' + id + '-d', 'font-family': 'Arial, Helvetica, sans-serif', 'font-size': 12, fill: '#000' },
    tag('title', { id: id + '-t' }, title), tag('desc', { id: id + '-d' }, desc),
    tag('rect', { width: '100%', height: '100%', fill: '#fff' }),
    tag('text', { x: 8, y: 20, 'font-size': 15, 'font-weight': 'bold' }, title),
    tag('text', { x: width - 8, y: 20, 'text-anchor': 'end', 'font-size': 10 }, 'frames per second' +
      (groups.some((g) => g.members.length > 1) ? '; repeats: mean, lowest to highest' : '')),
    legend.map((l) => tag('g', { class: 'legend', transform: 'translate(' + l.x + ' ' + (32 + l.y) + ')' },
      tag('rect', { width: 14, height: 12, fill: colour(l.i) }),
      tag('text', { x: 19, y: 10.5 }, l.g.name.length > 40 ? l.g.name.slice(0, 39) + '…' : l.g.name))),
    axis, body, targetLines(targets, x, top - 6, bottom, false));
}
