// The numbers behind the charts and tables: series of one name as the repeats of a run, the
// pairs of resolution and level that any series has, and each group's figures for a pair.

import { describe, geometricMean } from './inference.mjs';
import { pairKey } from './report.mjs';
import { contrast } from './contrast.mjs';
import { outliers, coldStart, drift } from './flags.mjs';

// Series that share a name are one group: the repeats of a run.
export function groupsOf(series) {
  const groups = [];
  const byName = new Map();
  for (const s of series) {
    let g = byName.get(s.name);
    if (!g) {
      g = { name: s.name, members: [], index: groups.length };
      byName.set(s.name, g);
      groups.push(g);
    }
    g.members.push(s);
  }
  return groups;
}

export function pixels(res) {
  const m = /^(\d+)x(\d+)$/.exec(res);
  return m ? Number(m[1]) * Number(m[2]) : Infinity;
}

// Every resolution and level pair that any series has: resolutions by their size, levels in
// the order the series bring them in.
export function keysOf(series) {
  // Stryker disable next-line ArrayDeclaration: a name of no series makes no pair
  const resolutions = [];
  // Stryker disable next-line ArrayDeclaration: a name of no series makes no pair
  const levels = [];
  const have = new Set();
  for (const s of series) {
    for (const r of s.report.resolutions) if (resolutions.indexOf(r) < 0) resolutions.push(r);
    for (const l of s.report.levels) if (levels.indexOf(l) < 0) levels.push(l);
    for (const k of s.report.values.keys()) have.add(k);
  }
  // The sort is stable: resolutions of one size, and those that are no size, keep their order.
  resolutions.sort((a, b) => (pixels(a) - pixels(b)) || 0);
  const keys = [];
  for (const r of resolutions) {
    for (const l of levels) if (have.has(pairKey(r, l))) keys.push({ id: pairKey(r, l), res: r, level: l });
  }
  return keys;
}

// A group's figures for a pair in one table: the count, mean, lowest and highest of the rates
// its series have there, and what the repeats say (standard deviation, interval, spread).
export function statsOf(group, key, t) {
  const values = [];
  for (const s of group.members) {
    const rates = s.report.values.get(key.id);
    if (rates && rates[t]) values.push(rates[t].value);
  }
  if (!values.length) return null;
  return { ...describe(values), min: Math.min(...values), max: Math.max(...values), values };
}

// Each table's figures, pair by pair and group by group, with the contrast of each against the
// baseline's where both have a rate: cells[t][k][i] = { g, st, vs }.
export function cellsOf(groups, keys, base, margin) {
  return [0, 1, 2].map((t) => keys.map((key) => {
    const row = groups.map((g) => ({ g, st: statsOf(g, key, t), vs: null }));
    const b = row[base.index].st;
    for (const c of row) if (c.st && b && c.g !== base) c.vs = contrast(c.st.values, b.values, margin);
    return row;
  }));
}

// Each repeat's geometric mean of its Average FPS over the pairs that all the given runs have:
// one figure per run, for the headline and the flags; nulls where they share no pair.
export function repeatMeans(runs, keys) {
  const rate = (s, key) => s.report.values.get(key.id)?.[1]?.value;
  const shared = keys.filter((key) => runs.every((s) => rate(s, key) !== undefined));
  return runs.map((s) => geometricMean(shared.map((key) => rate(s, key))));
}

// The repeats of a group that do not belong, in words, and the runs that are outliers, which
// the user may leave out. Drift is taken against the times the runs started where a kept
// folder's index gives them all, else against the order of the files.
export function flagsOf(g, keys, leaveOut) {
  const values = repeatMeans(g.members, keys);
  if (values[0] === null) return { text: '', outliers: [] };
  const times = g.members.map((s) => Date.parse(String(s.started).replace(' ', 'T')));
  const odd = outliers(values).map((i) => g.members[i]);
  const trend = drift(values, times.every(Number.isFinite) ? times : undefined);
  const text = [odd.length && 'outlier: ' + odd.map((s) => 'repeat ' + (g.members.indexOf(s) + 1) + ' (' + s.file + ')')
    .join(', ') + (leaveOut ? ', left out' : ''),
  coldStart(values) && 'cold start: repeat 1 (' + g.members[0].file + ') is slower than the others allow',
  trend && 'drift: the repeats get steadily ' + trend].filter(Boolean).join('; ');
  return { text, outliers: odd };
}

// The groups as the page compares them, each with its flags in words, and without its outliers
// where the user leaves them out.
export function comparedGroups(series, keys, leaveOut) {
  return groupsOf(series).map((g) => {
    const { text, outliers: odd } = flagsOf(g, keys, leaveOut);
    return { ...g, members: leaveOut ? g.members.filter((s) => !odd.includes(s)) : g.members, flags: text };
  });
}

// The group of the chosen name, or the first where none has it.
export function baselineOf(groups, name) {
  return groups.find((g) => g.name === name) || groups[0];
}
