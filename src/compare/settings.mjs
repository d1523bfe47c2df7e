// How each run was made, as far as its report's notes or its kept folder's index say: the
// settings a series is shown with, and those in which series differ.

import { listText } from './report.mjs';

// Each setting: its key, the words that name it, and how its value reads beside the others.
export const SETTINGS = [
  ['test', 'test'], ['renderer', 'renderer'], ['game', 'game'], ['gameVersion', 'game version', 'version '],
  ['resolutions', 'resolutions'], ['level', 'level'], ['sound', 'sound', 'sound '], ['detail', 'detail', 'detail '],
  ['processor', 'processor'], ['display', 'display adapter'],
].map(([key, name, lead = '']) => ({ key, name, lead }));

// The index names tests and renderers by short words; the report's notes by these.
const WORDS = { cpu: 'CPU Bench', high: 'High Quality', low: 'Low Quality', custom: 'Custom Test', D3D: 'Direct3D',
  OGL: 'OpenGL' };

// A report's own notes and resolutions, or, for a run of a kept folder, what its index says;
// a setting that neither gives is left out, never compared.
export function settingsOf(report, run) {
  const given = run ? { ...run, resolutions: run.resolutions.join(', ') }
    : { ...report.notes, resolutions: report.resolutions.join(', ') };
  const settings = {};
  for (const { key } of SETTINGS) if (given[key]) settings[key] = WORDS[given[key]] || given[key];
  return settings;
}

export function settingsText(settings) {
  return SETTINGS.filter((s) => settings[s.key]).map((s) => s.lead + settings[s.key]).join(' · ');
}

// The values a group's repeats have for a setting, each once.
const settingValues = (g, key) => [...new Set(g.members.map((s) => s.settings[key]).filter(Boolean))];

// What the settings of the series say against comparing them: repeats of one series made in
// different ways, and each series that differs from the baseline in more than its name.
export function differences(groups, base) {
  const lines = [];
  for (const g of groups) {
    const mixed = SETTINGS.filter((s) => settingValues(g, s.key).length > 1)
      .map((s) => s.name + ' (' + listText(settingValues(g, s.key)) + ')');
    if (mixed.length) lines.push('The repeats of ' + g.name + ' differ in ' + listText(mixed) + '.');
  }
  for (const g of groups) {
    if (g === base) continue;
    const apart = SETTINGS.map((s) => [s.name, settingValues(g, s.key).join(' and '), settingValues(base, s.key).join(' and ')])
      .filter(([, mine, theirs]) => mine && theirs && mine !== theirs)
      .map(([name, mine, theirs]) => name + ' (' + mine + ' against ' + theirs + ')');
    if (apart.length) lines.push(g.name + ' differs from ' + base.name + ' in ' + listText(apart) + '.');
  }
  return lines;
}
