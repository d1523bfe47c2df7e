// A kept results folder's index.js: the runs of one series, each with its report and how it was
// made. The compare.html that stands in the folder loads it as a script, which calls
// kelvarniteIndex with the index; one that the user adds or drops is read as text and parsed
// as JSON, never run.

import { parseReport } from './report.mjs';
import { settingsOf } from './settings.mjs';

const INDEX_CALL = 'kelvarniteIndex(';
// A report is under 8 KB and escaped at most six times over; 99 repeats of it stay far below.
export const MAX_INDEX_BYTES = 16 << 20;
const NOT_AN_INDEX = 'not an index of a kept results folder (no kelvarniteIndex({...}); with a list of runs); not added.';

// The object an index.js hands to kelvarniteIndex, from the file's text: what lies between the
// call and the last ");" is JSON. Null where it is not.
export function indexFromText(text) {
  const start = text.indexOf(INDEX_CALL);
  const end = text.lastIndexOf(');');
  try {
    return start < 0 ? null : JSON.parse(text.slice(start + INDEX_CALL.length, end));
  } catch {
    return null;
  }
}

// The index's strings carry bytes, a code unit each, in the ANSI code page of the computer
// that wrote them; they are read as windows-1252, as a report dropped on the page is.
const ANSI = new TextDecoder('windows-1252');
function ansi(units) {
  return ANSI.decode(Uint8Array.from(String(units ?? ''), (c) => c.charCodeAt(0)));
}

// The fields of a run that say how it was made, as text.
const SETTING_FIELDS = ['test', 'renderer', 'game', 'gameVersion', 'level', 'sound', 'detail', 'processor', 'display'];

// The series of an index: its name, its runs in run order, each read as a report with its
// settings and start time, and the messages of what was wrong.
export function readIndex(index) {
  if (!index || !Array.isArray(index.runs)) return { runs: [], messages: [NOT_AN_INDEX] };
  if (index.format !== 1) {
    return { runs: [], messages: ['an index of format ' + ansi(index.format) + ', which this page cannot read; not added.'] };
  }
  const messages = [];
  const runs = [];
  for (const run of index.runs) {
    const file = ansi(run.file);
    const { report, messages: said } = parseReport(ansi(run.report));
    for (const text of said) messages.push(file + ': ' + text);
    if (!report) continue;
    const fields = Object.fromEntries(SETTING_FIELDS.map((key) => [key, ansi(run[key])]));
    fields.resolutions = (Array.isArray(run.resolutions) ? run.resolutions : []).map(ansi);
    runs.push({ file, report, settings: settingsOf(report, fields), started: ansi(run.started) });
  }
  if (!runs.length) messages.push('holds no report yet; not added.');
  return { name: ansi(index.name), stopped: ansi(index.stopped), runs, messages };
}
