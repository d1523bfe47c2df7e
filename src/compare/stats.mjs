// The numbers behind the charts and tables: series of one name as the repeats of a run, the
// pairs of resolution and level that any series has, and each group's figures for a pair.

import { describe } from './inference.mjs';
import { pairKey } from './report.mjs';

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
  return { ...describe(values), min: Math.min(...values), max: Math.max(...values) };
}

// The group of the chosen name, or the first where none has it.
export function baselineOf(groups, name) {
  return groups.find((g) => g.name === name) || groups[0];
}

export function difference(st, base) {
  if (!st || !base || base.mean === 0) return null;
  return (st.mean - base.mean) / base.mean * 100;
}
