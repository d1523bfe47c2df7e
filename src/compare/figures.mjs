// Every figure of a series at a pair, described once: its CSV columns, its text in the table's
// cell and its words in the bar's tool tip. The tables, the CSV and the tool tips are all made
// from this list. Each reads a cell, { g, st, vs }: the group, its figures there (statsOf, null
// for a gap) and its contrast with the baseline's (null for the baseline itself).

import { fps, percent } from './markup.mjs';
import { unsteady } from './inference.mjs';
import { MOST_REPEATS } from './contrast.mjs';

const six = (v) => (v === null || v === undefined ? '' : v.toFixed(6));
const two = (v) => v.toFixed(2);
const signed = (v) => percent(v).replace(' %', '');
const has = (c, key) => c.st && c.st[key] !== null && c.st[key] !== undefined;

export function verdictText(vs, margin) {
  if (vs.verdict === 'same') return 'the same within ±' + margin + ' %';
  if (vs.verdict !== 'unsure') return vs.verdict;
  return "can't tell yet: " + (vs.more === Infinity ? 'more than ' + MOST_REPEATS + ' repeats of each would be needed'
    : 'about ' + vs.more + ' more repeat' + (vs.more === 1 ? '' : 's') + ' of each would settle it');
}

// The difference's interval, " (−7.9 to −3.2 %)", or nothing where it has none.
const intervalText = (vs) => (vs.low === null ? '' : ' (' + signed(vs.low) + ' to ' + percent(vs.high) + ')');

// The difference with its interval, as the summary and the tool tips show it: "−5.6 % (−7.9 to −3.2 %)".
export function differenceText(vs) {
  return percent(vs.difference) + intervalText(vs);
}

// Each figure: its CSV heads and values, its text on a line of the cell (null for none), and its
// words in the tool tip (null for none); a figure with no cell or no tip at all leaves it out.
// The view gives the baseline's name and the margin.
export function figuresOf({ base, margin }) {
  return [
    { heads: ['Mean'], csv: (c) => [six(c.st?.mean)], line: 0, cell: (c) => fps(c.st.mean),
      tip: (c) => (c.st.n > 1 ? 'mean ' : '') + fps(c.st.mean) + ' FPS' + (has(c, 'half') ? ' ±' + fps(c.st.half) + ' (95 %)' : '') },
    { heads: ['Min', 'Max', 'Spread'], csv: (c) => (has(c, 'min') ? [six(c.st.min), six(c.st.max), six(c.st.max - c.st.min)] : ['', '', '']),
      tip: (c) => (c.st.n > 1 && has(c, 'min') ? fps(c.st.min) + ' to ' + fps(c.st.max) : null) },
    { heads: ['Count'], csv: (c) => [String(c.st ? c.st.n : 0)], line: 3,
      cell: (c) => (c.g.members.length > 1 ? 'n ' + c.st.n : null), tip: (c) => (c.st.n > 1 ? 'of ' + c.st.n + ' runs' : null) },
    { heads: ['Difference % against ' + base.name], csv: (c) => [c.vs ? two(c.vs.difference) : ''], line: 1,
      cell: (c) => (c.vs ? percent(c.vs.difference) : null), tip: (c) => (c.vs ? differenceText(c.vs) + ' against the baseline' : null) },
    { heads: ['Difference 95 % interval low', 'Difference 95 % interval high'], line: 1,
      csv: (c) => (c.vs && c.vs.low !== null ? [two(c.vs.low), two(c.vs.high)] : ['', '']),
      cell: (c) => (c.vs ? intervalText(c.vs) || null : null) },
    { heads: ['SD'], csv: (c) => [six(c.st?.sd)], line: 3,
      cell: (c) => (c.g.members.length > 1 ? ', sd ' + (has(c, 'sd') ? fps(c.st.sd) : '–') : null),
      tip: (c) => (has(c, 'sd') ? 'sd ' + fps(c.st.sd) : null) },
    { heads: ['95 % interval low', '95 % interval high'], line: 0,
      csv: (c) => (has(c, 'half') ? [six(c.st.mean - c.st.half), six(c.st.mean + c.st.half)] : ['', '']),
      cell: (c) => (has(c, 'half') ? ' ±' + fps(c.st.half) : null) },
    { heads: ['Verdict'], csv: (c) => [c.vs ? verdictText(c.vs, margin) : ''], line: 2,
      cell: (c) => (c.vs ? verdictText(c.vs, margin) : null), tip: (c) => (c.vs ? verdictText(c.vs, margin) : null) },
    { heads: ['Unsteady'], csv: (c) => [c.st && unsteady(c.st) ? 'unsteady' : ''], line: 3,
      cell: (c) => (unsteady(c.st) ? ', unsteady' : null), tip: (c) => (unsteady(c.st) ? 'unsteady: run it again' : null) },
    { heads: ['Margin %'], csv: () => [String(margin)] },
    { heads: ['Flags'], csv: (c) => [c.g.flags], tip: (c) => c.g.flags || null },
  ];
}

// A bar's tool tip: the group, the pair, and the words of every figure there.
export function tipText(view, c, key) {
  return c.g.name + ', ' + key.level + ' at ' + key.res + ': ' +
    figuresOf(view).map((f) => f.tip?.(c)).filter(Boolean).join(', ');
}
