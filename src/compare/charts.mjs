// The charts: one grouped bar chart per table, drawn as SVG text.

import { TABLES, listText } from './report.mjs';
import { tag, fps, percent } from './markup.mjs';
import { difference } from './stats.mjs';
import { unsteady, verdict } from './inference.mjs';

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

// A bar's tool tip: the rate, for repeats their interval and spread, and the difference against
// the baseline's bar (base, absent for the baseline itself) with its verdict.
export function barTitle(g, key, st, base) {
  const d = base ? difference(st, base) : null;
  return g.name + ', ' + key.level + ' at ' + key.res + ': ' + (st.n > 1
    ? 'mean ' + fps(st.mean) + ' FPS of ' + st.n + (st.half === null ? '' : ' ±' + fps(st.half) + ' (95 %)') +
      ', ' + fps(st.min) + ' to ' + fps(st.max) + (unsteady(st) ? ', unsteady: run it again' : '')
    : fps(st.mean) + ' FPS') +
    (d === null ? '' : '; ' + percent(d) + ' against the baseline (' + verdict(st, base) + ')');
}

// A grouped bar chart drawn as SVG text: the pairs of resolution and level down the side, one
// bar per group of series across. Horizontal bars keep the level names readable at any count,
// and the chart grows downwards, the way a page scrolls and prints. With titles, each bar
// carries its tool tip, for the downloaded picture; on the page a bar's tool tip is made when
// the pointer first comes to it, since thousands of titles made up front slow the drawing.
export function chartSvg(t, groups, keys, stats, width, titles, base) {
  const title = TABLES[t].title;
  const nG = groups.length;
  const barH = Math.max(3, Math.min(16, Math.floor(96 / nG)));
  const labels = barH >= 10;
  const groupH = nG * barH + 8;
  const left = 118;
  const right = 64;
  const plotW = Math.max(120, width - left - right);

  // The legend wraps by an estimate of its text width, which is all SVG text gives.
  const legend = [];
  let lx = 0;
  let ly = 0;
  groups.forEach((g, i) => {
    const w = 24 + Math.min(g.name.length, 40) * 7;
    if (lx && lx + w > width - 8) { lx = 0; ly += 18; }
    legend.push({ g, i, x: 8 + lx, y: ly });
    lx += w;
  });
  const top = 32 + ly + 18 + 24;

  let max = 0;
  for (const row of stats) for (const st of row) if (st) max = Math.max(max, st.max);
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
      y += 22;
    }
    body.push(tag('text', { class: 'level', x: left - 6, y: y + groupH / 2 + 4, 'text-anchor': 'end' }, key.level));
    groups.forEach((g, i) => {
      const by = y + 4 + i * barH;
      const st = stats[k][i];
      if (!st) {
        if (labels) {
          body.push(tag('text', { class: 'gap', x: left + 4, y: by + barH - 3, 'font-size': 10, 'font-style': 'italic',
            fill: '#666' }, 'no rate'));
        }
        return;
      }
      const w = Math.max(1, x(st.mean) - left);
      body.push(tag('rect', { class: 'bar', 'data-g': i, 'data-k': k, x: left, y: by, width: w.toFixed(2), height: barH - 1,
        fill: colour(i) }, titles && tag('title', null, barTitle(g, key, st, base && g !== base ? stats[k][base.index] : null))));
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
    axis, body);
}
