// The page: the reports the user adds or drops, the series they become, and the drawing of
// the charts and tables whenever either changes. Everything runs in the page, from file://, with
// no network and no library.

import { TABLES, MAX_BYTES, parseReport } from './report.mjs';
import { groupsOf, keysOf, statsOf, baselineOf } from './stats.mjs';
import { tag } from './markup.mjs';
import { colour, chartSvg, barTitle } from './charts.mjs';
import { tableHtml, csvText } from './tables.mjs';
import { summaryOf, summaryHtml } from './summary.mjs';
import { scalingSvg } from './scaling.mjs';

// ---- State -------------------------------------------------------------------------------

const state = { series: [], baseline: null, nextId: 1, scalingLevel: '' };
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
  view.all.forEach((stats, t) => {
    $('chart-box-' + TABLES[t].slug).innerHTML = chartSvg(t, view.groups, view.keys, stats, width);
  });
  $('scaling').innerHTML = scalingSvg(view.groups, view.keys, view.all[1], state.scalingLevel, width);
}

function render() {
  const focus = document.activeElement;
  const focusId = focus && focus.dataset ? focus.dataset.id : undefined;
  const focusKind = focus && focus.dataset ? focus.dataset.kind : undefined;

  // The width is read while the layout is still clean: read after the new series and tables
  // go in, it would make the browser lay all of them out at once.
  const width = chartWidth();
  const groups = groupsOf(state.series);
  const keys = keysOf(state.series);
  $('series-box').hidden = !state.series.length;
  $('series').tBodies[0].innerHTML = state.series.map((s) => {
    const g = groups.find((x) => x.name === s.name);
    return tag('tr', null, tag('td', null, tag('span', { class: 'swatch', style: 'background:' + colour(g.index) })),
      tag('td', null, tag('input', { type: 'text', 'data-kind': 'name', 'data-id': s.id, value: s.name,
        'aria-label': 'Name of the series from ' + s.file })), tag('td', null, s.file), tag('td', null, s.report.run),
      tag('td', { class: 'no-print' }, tag('button', { type: 'button', 'data-kind': 'remove', 'data-id': s.id,
        'aria-label': 'Remove ' + s.name + ' (' + s.file + ')' }, 'Remove')));
  }).join('');

  if (!groups.length) {
    view = null;
    $('results').innerHTML = tag('p', { class: 'empty' },
      'No report added yet. Add two or more reports to see them side by side.');
  } else {
    const base = baselineOf(groups, state.baseline);
    state.baseline = base.name;
    $('baseline').innerHTML = groups.map((g) => tag('option', { selected: g === base }, g.name)).join('');
    const all = TABLES.map((_, t) => keys.map((key) => groups.map((g) => statsOf(g, key, t))));
    view = { groups, keys, base, all };
    const levels = [...new Set(keys.map((k) => k.level))];
    if (!levels.includes(state.scalingLevel)) state.scalingLevel = '';
    $('results').innerHTML = [summaryHtml(summaryOf(groups, keys, all[1], base), base),
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
        tableHtml(t, groups, keys, all[t], base)))].join('');
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

async function readFile(file) {
  if (file.size > MAX_BYTES) return { report: null, messages: ['not a report (larger than 1 MiB); not added.'] };
  let text;
  try {
    // One byte a character, as the program writes the report.
    text = new TextDecoder('windows-1252').decode(await file.arrayBuffer());
  } catch (e) {
    return { report: null, messages: ['cannot be read (' + (e && e.name || 'error') + '); not added.'] };
  }
  return parseReport(text);
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
      if (res.report) {
        state.series.push({ id: state.nextId++, file, name: stripExtension(file), report: res.report });
        added++;
      }
    });
    addMessages(messages);
    render();
    say(added + ' of ' + files.length + ' file' + (files.length === 1 ? '' : 's') + ' added' +
      (messages.length ? '; see the problems above.' : '.'));
  });
  return queue;
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
  const svg = chartSvg(t, view.groups, view.keys, view.all[t], view.width, true, view.base);
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
  const s = state.series.find((x) => x.id === Number(input.dataset.id));
  if (!s) return;
  const name = input.value.trim() || stripExtension(s.file);
  if (name === s.name) { input.value = name; return; }
  const alone = state.series.filter((x) => x.name === s.name).length === 1;
  if (alone && state.baseline === s.name) state.baseline = name;
  s.name = name;
  render();
}

function remove(id) {
  const at = state.series.findIndex((x) => x.id === id);
  if (at < 0) return;
  const gone = state.series.splice(at, 1)[0];
  render();
  const next = document.querySelectorAll('button[data-kind="remove"]')[Math.min(at, state.series.length - 1)];
  (next || $('add')).focus();
  say('Removed ' + gone.name + ' (' + gone.file + ').');
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
    const base = view.groups[g] === view.base ? null : view.all[t][k][view.base.index];
    title.textContent = barTitle(view.groups[g], view.keys[k], view.all[t][k][g], base);
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
}

init();
