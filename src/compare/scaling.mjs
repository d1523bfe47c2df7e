// The scaling chart: Average FPS against resolution, a line per series, for one level or for
// the geometric mean of the levels, so that one sees where a card stops keeping up as the
// pixels grow. Repeats draw their 95 % interval as a band around the line.

import { tag, fps } from './markup.mjs';
import { geometricMean } from './inference.mjs';
import { colour, niceStep, LAYOUT, targetLines } from './charts.mjs';

// For each group, a point per resolution: its mean and the interval's ends, or null where the
// group has no rate there. A level's point is its figures; the geometric mean's point takes the
// geometric mean of the levels' means and of their interval's ends, and has a band only where
// every level it takes has one.
export function scalingPoints(groups, keys, averages, level) {
  const resolutions = [...new Set(keys.map((k) => k.res))];
  return groups.map((g, i) => resolutions.map((res) => {
    const figures = keys.map((k, j) => ({ k, st: averages[j][i] }))
      .filter(({ k, st }) => st && k.res === res && (level === '' || k.level === level)).map(({ st }) => st);
    if (!figures.length) return null;
    const banded = figures.every((st) => st.half !== null);
    return {
      res,
      mean: geometricMean(figures.map((st) => st.mean)),
      low: banded ? geometricMean(figures.map((st) => st.mean - st.half)) : null,
      high: banded ? geometricMean(figures.map((st) => st.mean + st.half)) : null,
    };
  }));
}

export function scalingSvg(groups, keys, averages, level, width, targets) {
  const points = scalingPoints(groups, keys, averages, level);
  const resolutions = [...new Set(keys.map((k) => k.res))];
  const L = LAYOUT.scaling;
  const { left, top } = L;
  const plotW = Math.max(L.narrowest, width - left - L.right);
  const plotH = L.height;
  let max = Math.max(0, ...targets);
  for (const line of points) for (const p of line) if (p) max = Math.max(max, p.high ?? p.mean);
  const step = max > 0 ? niceStep(max) : 1;
  const ceiling = Math.ceil(max / step) * step || 1;
  const x = (r) => left + (resolutions.length < 2 ? plotW / 2 : r * plotW / (resolutions.length - 1));
  const y = (v) => top + plotH - v / ceiling * plotH;
  const what = level === '' ? 'the geometric mean of the levels' : level;
  const parts = [];
  for (let v = 0; v <= ceiling + 1e-9; v += step) {
    parts.push(tag('line', { x1: left, x2: left + plotW, y1: y(v).toFixed(2), y2: y(v).toFixed(2), stroke: '#ddd' }),
      tag('text', { x: left - 6, y: (y(v) + 4).toFixed(2), 'text-anchor': 'end', 'font-size': 10 }, v));
  }
  resolutions.forEach((res, r) => parts.push(tag('text', { x: x(r).toFixed(2), y: top + plotH + 16,
    'text-anchor': 'middle', 'font-size': 11 }, res)));
  points.forEach((line, i) => {
    const there = line.map((p, r) => p && { ...p, r }).filter(Boolean);
    const band = there.filter((p) => p.low !== null);
    if (band.length) {
      const edge = band.map((p) => x(p.r).toFixed(2) + ',' + y(p.high).toFixed(2))
        .concat(band.slice().reverse().map((p) => x(p.r).toFixed(2) + ',' + y(p.low).toFixed(2)));
      parts.push(tag('polygon', { class: 'band', 'data-g': i, points: edge.join(' '), fill: colour(i), 'fill-opacity': 0.2,
        stroke: colour(i), 'stroke-opacity': 0.4 }));
    }
    parts.push(tag('polyline', { class: 'line', 'data-g': i, points: there.map((p) => x(p.r).toFixed(2) + ',' +
      y(p.mean).toFixed(2)).join(' '), fill: 'none', stroke: colour(i), 'stroke-width': 2 }));
    there.forEach((p) => parts.push(tag('circle', { cx: x(p.r).toFixed(2), cy: y(p.mean).toFixed(2), r: 3, fill: colour(i) },
      tag('title', null, groups[i].name + ', ' + p.res + ': ' + fps(p.mean) + ' FPS' +
        (p.low === null ? '' : ', 95 % interval ' + fps(p.low) + ' to ' + fps(p.high))))));
  });
  const legend = groups.map((g, i) => tag('g', { transform: 'translate(' + (left + (i % L.perRow) * L.column) + ' ' +
    (top + plotH + 34 + Math.floor(i / L.perRow) * L.row) + ')' }, tag('rect', { width: 14, height: 4, y: 4, fill: colour(i) }),
    tag('text', { x: 19, y: 10 }, g.name.length > 22 ? g.name.slice(0, 21) + '…' : g.name)));
  const height = top + plotH + 40 + Math.ceil(groups.length / L.perRow) * L.row;
  return tag('svg', { xmlns: 'http://www.w3.org/2000/svg', width, height, viewBox: '0 0 ' + width + ' ' + height, role: 'img',
    'aria-labelledby': 'scaling-t scaling-d', 'font-family': 'Arial, Helvetica, sans-serif', 'font-size': 12 },
    tag('title', { id: 'scaling-t' }, 'Average FPS against resolution'), tag('desc', { id: 'scaling-d' }, 'Average FPS of ' +
      what + ' at each resolution, a line for each of ' + groups.length + ' series; repeats show their 95 % interval as a band.'),
    tag('rect', { width: '100%', height: '100%', fill: '#fff' }),
    tag('text', { x: 8, y: 20, 'font-size': 15, 'font-weight': 'bold' }, 'Average FPS against resolution: ' + what),
    parts, targetLines(targets, y, left, left + plotW, true), legend);
}
