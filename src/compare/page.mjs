// The page: the reports the user adds or drops, the series they become, and the drawing of
// the charts and tables whenever either changes. Everything runs in the page, from file://, with
// no network and no library.

import { TABLES, MAX_BYTES, parseReport } from './report.mjs';
import { MAX_INDEX_BYTES, indexFromText, readIndex } from './folder.mjs';
import { settingsOf, settingsText, differences } from './settings.mjs';
import { keysOf, baselineOf, cellsOf, comparedGroups } from './stats.mjs';
import { tag } from './markup.mjs';
import { colour, chartSvg } from './charts.mjs';
import { tableHtml, csvText } from './tables.mjs';
import { summaryOf, summaryHtml, mismatchHtml } from './summary.mjs';
import { scalingSvg } from './scaling.mjs';
import { tipText } from './figures.mjs';
import { readAddress, addressOf } from './address.mjs';

// ---- State -------------------------------------------------------------------------------

// Each series is one run; a source is the file it came from, a report or a kept folder's
// index of several runs, which the list shows, renames and removes as one.
// The margin, the frame-rate targets and whether outliers are left out come from the address.
const state = { series: [], baseline: null, nextId: 1, scalingLevel: '', ...readAddress(location.hash) };
let drawn = 0;

function stripExtension(file) {
  return file.replace(/\.html?$/i, '') || file;
}

// ---- Rendering ---------------------------------------------------------------------------

const $ = (id) => document.getElementById(id);
let view = null;

function chartWidth() {
  return Math.max(360, Math.floor($('results').clientWidth || 900));
}

function renderCharts(width) {
  if (!view) return;
  width = width || chartWidth();
  view.width = width;
  TABLES.forEach((table, t) => {
    $('chart-box-' + table.slug).innerHTML = chartSvg(t, view, width, false, state.targets);
  });
  $('scaling').innerHTML = scalingSvg(view.groups, view.keys, view.cells[1].map((row) => row.map((c) => c.st)),
    state.scalingLevel, width, state.targets);
}

function render() {
  const focus = document.activeElement;
  const focusId = focus && focus.dataset ? focus.dataset.id : undefined;
  const focusKind = focus && focus.dataset ? focus.dataset.kind : undefined;

  // The width is read while the layout is still clean: read after the new series and tables
  // go in, it would make the browser lay all of them out at once.
  const width = chartWidth();
  const keys = keysOf(state.series);
  const groups = comparedGroups(state.series, keys, state.leaveOut);
  history.replaceState(null, '', addressOf(state));
  $('series-box').hidden = !state.series.length;
  const sources = [...new Set(state.series.map((s) => s.source))].map((id) => state.series.filter((s) => s.source === id));
  $('series').tBodies[0].innerHTML = sources.map((runs) => {
    const s = runs[0];
    const g = groups.find((x) => x.name === s.name);
    return tag('tr', null, tag('td', null, tag('span', { class: 'swatch', style: 'background:' + colour(g.index) })),
      tag('td', null, tag('input', { type: 'text', 'data-kind': 'name', 'data-id': s.source, value: s.name,
        'aria-label': 'Name of the series from ' + (s.from || s.file) })),
      tag('td', null, s.from ? s.from + ': ' + runs.length + (runs.length === 1 ? ' report' : ' reports') +
        (s.stopped ? ', ' + s.stopped : '') : s.file),
      tag('td', null, settingsText(s.settings)),
      tag('td', { class: 'no-print' }, tag('button', { type: 'button', 'data-kind': 'remove', 'data-id': s.source,
        'aria-label': 'Remove ' + s.name + ' (' + (s.from || s.file) + ')' }, 'Remove')));
  }).join('');

  if (!groups.length) {
    view = null;
    $('results').innerHTML = tag('p', { class: 'empty' },
      'No report added yet. Add two or more reports to see them side by side.');
  } else {
    const base = baselineOf(groups, state.baseline);
    state.baseline = base.name;
    $('baseline').innerHTML = groups.map((g) => tag('option', { selected: g === base }, g.name)).join('');
    view = { groups, keys, base, margin: state.margin, cells: cellsOf(groups, keys, base, state.margin) };
    const summary = summaryOf(view, state.targets);
    view.headlines = summary.rows;
    const levels = [...new Set(keys.map((k) => k.level))];
    if (!levels.includes(state.scalingLevel)) state.scalingLevel = '';
    $('results').innerHTML = [mismatchHtml(differences(groups, base)), summaryHtml(summary, base),
      tag('section', { class: 'measure', 'aria-labelledby': 'h-scaling' },
        tag('h2', { id: 'h-scaling' }, 'Scaling with resolution'),
        tag('p', { class: 'controls' }, tag('label', { for: 'scaling-level' }, 'Average FPS of'), ' ',
          tag('select', { id: 'scaling-level' }, ['', ...levels].map((l) => tag('option',
            { value: l, selected: l === state.scalingLevel }, l === '' ? 'the geometric mean of the levels' : l)))),
        tag('figure', null, tag('div', { class: 'scaling', id: 'scaling' }), tag('figcaption', null, 'Where a line flattens, ' +
          'the processor sets the pace; where it falls with each step of resolution, the graphics card does.'))),
      ...TABLES.map((table, t) => tag('section', { class: 'measure', 'aria-labelledby': 'h-' + table.slug },
        tag('h2', { id: 'h-' + table.slug }, table.title),
        tag('figure', null, tag('div', { class: 'chart', 'data-t': t, id: 'chart-box-' + table.slug }), tag('figcaption', null,
          table.title + ' of each series, by resolution and level. Where a series has no rate the bar is left out. ',
          tag('span', { class: 'no-print' }, ['png', 'svg'].map((kind, n) => [n ? ' ' : '',
            tag('button', { type: 'button', 'data-kind': kind, 'data-t': t }, 'Download ' + kind.toUpperCase())])))),
        tableHtml(t, view)))].join('');
    renderCharts(width);
  }

  if (focusId !== undefined) {
    const again = document.querySelector('[data-kind="' + focusKind + '"][data-id="' + focusId + '"]');
    if (again) again.focus();
  }
  // How many times the page has drawn, for whoever waits for a drawing to end.
  document.body.dataset.drawn = String(++drawn);
}

function say(text) {
  $('status').textContent = text;
}

function addMessages(list) {
  if (!list.length) return;
  const ul = $('messages');
  ul.insertAdjacentHTML('beforeend', list.map((m) => tag('li', null, tag('strong', null, m.file), ': ' + m.text)).join(''));
  $('problems').hidden = false;
}

// ---- Input -------------------------------------------------------------------------------

// What a file gives: the runs of one source under their name, and the messages of what was wrong.
async function readFile(file) {
  const index = /\.js$/i.test(file.name);
  const limit = index ? MAX_INDEX_BYTES : MAX_BYTES;
  if (file.size > limit) {
    return { runs: [], messages: ['not a ' + (index ? 'kept folder\'s index' : 'report') + ' (larger than ' + (limit >> 20) +
      ' MiB); not added.'] };
  }
  let text;
  try {
    // One byte a character, as the program writes the report.
    text = new TextDecoder('windows-1252').decode(await file.arrayBuffer());
  } catch (e) {
    return { runs: [], messages: ['cannot be read (' + (e && e.name || 'error') + '); not added.'] };
  }
  if (index) return { ...readIndex(indexFromText(text)), from: file.name };
  const { report, messages } = parseReport(text);
  return { name: stripExtension(file.name), runs: report ? [{ file: file.name, report, settings: settingsOf(report) }] : [], messages };
}

// The runs of a source become series; an index that is here already is not added twice, as its
// repeats would then count twice.
function addSource(file, read, messages) {
  const from = read.from || null;
  const own = read.name || stripExtension(file);
  if (!read.runs.length) return 0;
  const same = (s) => s.from && s.own === own && s.file === read.runs[0].file && s.started === read.runs[0].started;
  if (from && state.series.some(same)) {
    messages.push({ file, text: 'is already added; not added again.' });
    return 0;
  }
  const source = state.nextId;
  for (const run of read.runs) state.series.push({ ...run, id: state.nextId++, source, from, stopped: read.stopped, own, name: own });
  return 1;
}

let queue = Promise.resolve();
function addFiles(files) {
  files = Array.from(files || []);
  if (!files.length) return queue;
  queue = queue.then(async () => {
    const results = await Promise.all(files.map(readFile));
    const messages = [];
    let added = 0;
    results.forEach((res, i) => {
      const file = files[i].name;
      for (const text of res.messages) messages.push({ file, text });
      added += addSource(file, res, messages);
    });
    addMessages(messages);
    render();
    say(added + ' of ' + files.length + ' file' + (files.length === 1 ? '' : 's') + ' added' +
      (messages.length ? '; see the problems above.' : '.'));
  });
  return queue;
}

// A kept folder's compare.html finds the folder's index.js beside it; the script calls
// kelvarniteIndex, defined here before it loads. Beside the program there is none, and the page
// waits for files as before.
function loadFolder() {
  let given = null;
  globalThis.kelvarniteIndex = (index) => { given = index; };
  const script = document.createElement('script');
  script.src = 'index.js';
  script.onload = () => {
    queue = queue.then(() => {
      const read = { ...readIndex(given), from: 'index.js' };
      const messages = read.messages.map((text) => ({ file: 'index.js', text }));
      const added = addSource('index.js', read, messages);
      addMessages(messages);
      render();
      say(added ? 'The runs of this folder: ' + read.runs.length + ' reports of ' + (read.name || 'index.js') + '.' : '');
    });
  };
  document.head.appendChild(script);
}

function download(name, blob) {
  const a = document.createElement('a');
  a.href = URL.createObjectURL(blob);
  a.download = name;
  document.body.appendChild(a);
  a.click();
  a.remove();
  setTimeout(() => URL.revokeObjectURL(a.href), 60000);
}

function downloadChart(t, kind) {
  const svg = chartSvg(t, view, view.width, true, state.targets);
  const name = 'compare-' + TABLES[t].slug;
  const blob = new Blob(['<?xml version="1.0" encoding="UTF-8"?>\n' + svg + '\n'], { type: 'image/svg+xml' });
  if (kind === 'svg') return download(name + '.svg', blob);
  const img = new Image();
  const url = URL.createObjectURL(blob);
  img.onload = () => {
    // Twice the size for sharp print, within what a canvas takes.
    const scale = Math.min(2, 16000 / img.height);
    const canvas = document.createElement('canvas');
    canvas.width = Math.round(img.width * scale);
    canvas.height = Math.round(img.height * scale);
    const ctx = canvas.getContext('2d');
    ctx.scale(scale, scale);
    ctx.drawImage(img, 0, 0);
    URL.revokeObjectURL(url);
    canvas.toBlob((png) => download(name + '.png', png), 'image/png');
  };
  img.onerror = () => {
    URL.revokeObjectURL(url);
    say('The chart could not be turned into a PNG picture; the SVG download still works.');
  };
  img.src = url;
}

function rename(input) {
  const runs = state.series.filter((x) => x.source === Number(input.dataset.id));
  if (!runs.length) return;
  const s = runs[0];
  const name = input.value.trim() || s.own;
  if (name === s.name) { input.value = name; return; }
  const alone = state.series.every((x) => x.name !== s.name || x.source === s.source);
  if (alone && state.baseline === s.name) state.baseline = name;
  for (const x of runs) x.name = name;
  render();
}

function remove(id) {
  const sources = [...new Set(state.series.map((s) => s.source))];
  const at = sources.indexOf(id);
  if (at < 0) return;
  const gone = state.series.find((x) => x.source === id);
  state.series = state.series.filter((x) => x.source !== id);
  render();
  const next = document.querySelectorAll('button[data-kind="remove"]')[Math.min(at, sources.length - 2)];
  (next || $('add')).focus();
  say('Removed ' + gone.name + ' (' + (gone.from || gone.file) + ').');
}

function init() {
  $('old-browser').remove();
  $('add').addEventListener('change', (e) => {
    const input = e.target;
    addFiles(input.files).then(() => { input.value = ''; });
  });
  // Dropping anywhere adds; the browser would otherwise open the dropped file in place of this page.
  const drop = $('drop');
  document.addEventListener('dragover', (e) => {
    e.preventDefault();
    drop.classList.add('over');
  });
  document.addEventListener('dragleave', (e) => {
    if (!e.relatedTarget) drop.classList.remove('over');
  });
  document.addEventListener('drop', (e) => {
    e.preventDefault();
    drop.classList.remove('over');
    addFiles(e.dataTransfer && e.dataTransfer.files);
  });
  $('series').addEventListener('change', (e) => {
    if (e.target.dataset.kind === 'name') rename(e.target);
  });
  $('series').addEventListener('keydown', (e) => {
    if (e.key === 'Enter' && e.target.dataset.kind === 'name') rename(e.target);
  });
  $('series').addEventListener('click', (e) => {
    if (e.target.dataset.kind === 'remove') remove(Number(e.target.dataset.id));
  });
  $('results').addEventListener('click', (e) => {
    const kind = e.target.dataset.kind;
    if (kind === 'png' || kind === 'svg') downloadChart(Number(e.target.dataset.t), kind);
  });
  $('results').addEventListener('mouseover', (e) => {
    const bar = e.target;
    if (!view || !bar.classList.contains('bar') || bar.firstChild) return;
    const k = Number(bar.dataset.k);
    const g = Number(bar.dataset.g);
    const t = Number(bar.closest('.chart').dataset.t);
    const title = document.createElementNS('http://www.w3.org/2000/svg', 'title');
    title.textContent = tipText(view, view.cells[t][k][g], view.keys[k]);
    bar.appendChild(title);
  });
  $('results').addEventListener('change', (e) => {
    if (e.target.id !== 'scaling-level') return;
    state.scalingLevel = e.target.value;
    renderCharts();
  });
  $('baseline').addEventListener('change', (e) => {
    state.baseline = e.target.value;
    render();
  });
  // The choices that the address keeps: the margin, outliers left out or not, and the targets,
  // each of which takes effect once it is a number above 0.
  $('margin').value = String(state.margin);
  $('leave-out').checked = state.leaveOut;
  state.targets.forEach((v, n) => { $('target-' + n).value = String(v); });
  $('choices').addEventListener('change', (e) => {
    state.margin = Number($('margin').value);
    state.leaveOut = $('leave-out').checked;
    const targets = state.targets.map((v, n) => Number($('target-' + n).value));
    if (targets.every((v) => v > 0)) state.targets = targets;
    render();
  });
  $('csv').addEventListener('click', () => {
    if (view) download('compare.csv', new Blob([csvText(view)], { type: 'text/csv' }));
  });
  $('clear').addEventListener('click', () => {
    state.series = [];
    render();
    $('add').focus();
    say('All series removed.');
  });
  $('dismiss').addEventListener('click', () => {
    $('messages').innerHTML = '';
    $('problems').hidden = true;
    $('add').focus();
  });
  // The charts are drawn to the width of the page, so that their text keeps its size when
  // the window or the zoom changes; only the charts are drawn again.
  let timer = 0;
  window.addEventListener('resize', () => {
    clearTimeout(timer);
    timer = setTimeout(() => { if (view && chartWidth() !== view.width) renderCharts(); }, 150);
  });
  // A printed page is about 700 CSS pixels wide; charts drawn wider would shrink their text.
  window.addEventListener('beforeprint', () => renderCharts(Math.min(chartWidth(), 700)));
  window.addEventListener('afterprint', () => renderCharts());
  render();
  loadFolder();
}

init();
