// The compare page in headless Chromium, fed with the reports that the end-to-end suite writes
// byte for byte, and with copies of them changed in one place. One table of cases; every case
// also checks the charts against the downloaded CSV: a bar for each value and none for a gap,
// bars in the order of the table, lengths and whiskers in proportion to the numbers.
import { test, before, after } from 'node:test';
import assert from 'node:assert/strict';
import fs from 'node:fs';
import os from 'node:os';
import path from 'node:path';

import { launchChromium } from './chromium.mjs';

const PAGE = process.env.KELVARNITE_COMPARE_PAGE;
const golden = (name) => fs.readFileSync(new URL('../e2e/golden/' + name, import.meta.url), 'latin1');
// A file of a case: a golden report or side file, with some of its lines (counted from 1)
// replaced or the file cut before a line (null), with other line ends, or padded with blanks.
const file = ({ name, from, lines = {}, lineEnd = '\r\n', padTo = 0 }) => {
  const all = golden(from).split('\r\n');
  for (const [n, text] of Object.entries(lines)) {
    if (text === null) all.length = n - 1; else all[n - 1] = text;
  }
  return { name, mimeType: 'text/html', buffer: Buffer.from(all.join(lineEnd).padEnd(padTo), 'latin1') };
};

// A kept results folder as the program leaves it: compare.html and index.js, each run's report
// in it as bytes; every string escaped as the index's writer must, so that no "</script>",
// quote or markup leaves its string.
const quote = (text) => '"' + [...text].map((c) => (/[\x20-\x7e]/.test(c) && !/["\\<>&']/.test(c) ? c
  : '\\u' + c.charCodeAt(0).toString(16).padStart(4, '0'))).join('') + '"';
const json = (v) => (typeof v === 'string' ? quote(v) : Array.isArray(v) ? '[' + v.map(json) + ']'
  : typeof v === 'object' ? '{' + Object.entries(v).map(([k, x]) => quote(k) + ':' + json(x)) + '}' : String(v));
const indexJs = ({ name, runs, format = 1 }) => '// The runs kept in this folder\r\nkelvarniteIndex(' + json({ format, name, program: '2.1.0',
  planned: runs.length, stopped: runs.length + ' of ' + runs.length + ' repeats done' }).slice(0, -1) + ',"runs":[\r\n' +
  runs.map(({ from, lines, ...run }, i) => json({ file: `20261125-20${i}000 0${i + 1} cpu.html`, repeat: i + 1,
    started: `2026-11-25 20:0${i}:00`, finished: `2026-11-25 20:0${i}:50`, test: 'cpu', renderer: 'D3D', game: 'full',
    gameVersion: '2225', resolutions: ['640x480', '1024x768'], level: '', sound: '', detail: '', processor: 'AMD Athlon(tm) XP',
    display: 'RADEON 9700', ...run, report: file({ from, lines }).buffer.toString('latin1') })).join(',\r\n') + '\r\n]});\r\n';
const kept = [];
const keptFolder = (folder) => {
  const dir = fs.mkdtempSync(path.join(os.tmpdir(), 'kept folder é '));
  kept.push(dir);
  fs.copyFileSync(PAGE, path.join(dir, 'compare.html'));
  fs.writeFileSync(path.join(dir, 'index.js'), indexJs(folder), 'latin1');
  return path.join(dir, 'compare.html');
};

// Each case adds or drops its files, then renames a series or picks a baseline, and expects the
// messages, series, cells and CSV lines it names; "csvFile" is the whole CSV, byte for byte.
const cases = JSON.parse(fs.readFileSync(new URL('cases.json', import.meta.url), 'utf8'));

let browser;
before(async () => {
  assert.ok(PAGE && fs.existsSync(PAGE), 'KELVARNITE_COMPARE_PAGE names the assembled page');
  assert.doesNotMatch(fs.readFileSync(PAGE, 'latin1'), /<(script|link|img)\b[^>]*\b(src|href)=/i, 'one file, nothing beside it');
  browser = await launchChromium();
});
after(() => { for (const dir of kept) fs.rmSync(dir, { recursive: true }); return browser && browser.close(); });

test('a browser that cannot run the script says so and what opens the page', async () => {
  const page = await browser.newPage({ javaScriptEnabled: false });
  await page.goto('file://' + PAGE);
  assert.match(await page.textContent('#old-browser'), /This browser cannot run this page\. .* another computer/s);
  await page.close();
});

async function drawn(page, act) {
  const n = await page.evaluate(() => Number(document.body.dataset.drawn));
  await act();
  await page.waitForFunction((m) => Number(document.body.dataset.drawn) > m, n);
}

async function saved(page, selector) {
  const [download] = await Promise.all([page.waitForEvent('download'), page.click(selector)]);
  return { name: download.suggestedFilename(), bytes: fs.readFileSync(await download.path()) };
}

// What a reader sees: the messages, the series, the tables, and the bars and whiskers of each chart.
const look = () => ({
  messages: [...document.querySelectorAll('#messages li')].map((li) => li.textContent),
  series: [...document.querySelectorAll('#series tbody input')].map((i) => i.value),
  files: [...document.querySelectorAll('#series tbody tr')].map((r) => r.cells[2].textContent),
  runs: [...document.querySelectorAll('#series tbody tr')].map((r) => r.cells[3].textContent),
  ran: globalThis.ran,
  address: location.hash,
  note: document.querySelector('.summary .note')?.textContent,
  differ: [...document.querySelectorAll('.mismatch li')].map((li) => li.textContent),
  targets: [...document.querySelectorAll('#results svg')].map((svg) => svg.querySelectorAll('line.target').length),
  tables: Object.fromEntries([...document.querySelectorAll('table.numbers')].map((t) => [t.id.slice(6), {
    head: [...t.tHead.rows[0].cells].map((c) => c.textContent),
    rows: [...t.tBodies[0].rows].map((r) => [...r.cells].map((c) => c.textContent)),
  }])),
  scaling: { points: [...document.querySelectorAll('#scaling polyline')].map((l) => l.getAttribute('points').split(' ').length),
    bands: [...document.querySelectorAll('#scaling polygon')].map((b) => +b.dataset.g) },
  summary: [...document.querySelectorAll('#summary tbody tr')].map((r) => [...r.cells].map((c) => c.textContent)),
  swatches: [...document.querySelectorAll('#series .swatch')].map((e) => getComputedStyle(e).backgroundColor),
  charts: [...document.querySelectorAll('.chart svg')].map((svg) => ({
    bars: [...svg.querySelectorAll('rect.bar')].map((r) => ({ k: +r.dataset.k, g: +r.dataset.g, x: +r.getAttribute('x'), w: +r.getAttribute('width'), fill: getComputedStyle(r).fill })),
    legend: [...svg.querySelectorAll('.legend rect')].map((r) => getComputedStyle(r).fill),
    whiskers: [...svg.querySelectorAll('path.whisker')].map((p) => ({ k: +p.dataset.k, g: +p.dataset.g, d: p.getAttribute('d') })),
  })),
});

for (const c of cases) {
  test(c.name, async () => {
    const page = await browser.newPage({ acceptDownloads: true });
    // In the mutation run the page carries every mutant, and this names the one switched on.
    const mutant = process.env.__STRYKER_ACTIVE_MUTANT__;
    if (mutant) await page.addInitScript((m) => { globalThis.__stryker__ = { activeMutant: m }; }, mutant);
    const errors = [];
    page.on('pageerror', (e) => errors.push(e.message));
    page.on('request', (r) => /^(file|blob|data):/.test(r.url()) || errors.push('request ' + r.url()));
    await page.goto('file://' + (c.folder ? keptFolder(c.folder) : PAGE) + (c.hash || ''));
    if (c.folder) await page.waitForFunction(() => document.body.dataset.drawn === '2');
    for (const folder of c.index || []) {
      await drawn(page, () => page.setInputFiles('#add', [{ name: 'index.js', mimeType: 'text/javascript',
        buffer: Buffer.from(indexJs(folder), 'latin1') }]));
    }
    if (c.add) await drawn(page, () => page.setInputFiles('#add', c.add.map(file)));
    if (c.drop) {
      await drawn(page, () => page.evaluate((files) => {
        const dt = new DataTransfer();
        for (const f of files) dt.items.add(new File([Uint8Array.from(f.bytes, (ch) => ch.charCodeAt(0))], f.name));
        document.getElementById('drop').dispatchEvent(new DragEvent('drop', { dataTransfer: dt, bubbles: true, cancelable: true }));
      }, c.drop.map(file).map((f) => ({ name: f.name, bytes: f.buffer.toString('latin1') }))));
    }
    if (c.rename) {
      const input = `#series input[value=${JSON.stringify(c.rename[0])}]`;
      await page.fill(input, c.rename[1]);
      await drawn(page, () => page.press(input, 'Enter'));
    }
    if (c.baseline) await drawn(page, () => page.selectOption('#baseline', c.baseline));
    if (c.margin) await drawn(page, () => page.selectOption('#margin', c.margin));
    if (c.target) await drawn(page, () => page.fill('#target-' + c.target[0], c.target[1]).then(() => page.locator('#target-' + c.target[0]).blur()));
    if (c.remove) await drawn(page, () => page.click(`#series button[aria-label^=${JSON.stringify('Remove ' + c.remove)}]`));
    const seen = await page.evaluate(look);

    assert.deepEqual(seen.messages, c.messages);
    assert.equal(seen.ran, undefined, 'nothing from a report runs');
    for (const part of ['series', 'files', 'runs', 'summary', 'scaling', 'address', 'note', 'differ', 'targets']) if (c[part]) assert.deepEqual(seen[part], c[part], part);
    const low = seen.tables['low-fps'];
    if (c.head) assert.deepEqual(low.head, c.head);
    if (c.column) assert.deepEqual(low.rows.map((r) => r[0]), c.column);
    for (const [table, rows] of Object.entries(c.rows || {})) {
      for (const [i, row] of Object.entries(rows)) assert.deepEqual(seen.tables[table].rows[i], row, `${table} row ${i}`);
    }

    const csv = await saved(page, '#csv');
    assert.equal(csv.name, 'compare.csv');
    const text = csv.bytes.toString('utf8');
    if (c.csvFile) assert.equal(text, fs.readFileSync(new URL(c.csvFile, import.meta.url), 'utf8'));
    const lines = text.slice(1).split('\r\n');
    for (const line of c.csv || []) assert.ok(lines.includes(line), 'CSV has ' + line);

    // The charts against the CSV: one bar per value, in table order, lengths and whiskers in
    // proportion. The CSV lists tables, then pairs, then series, as the charts draw them.
    const groups = low.head.slice(2).map((h) => h.replace(/ \(baseline\)$/, ''));
    const values = lines.slice(1, -1).map((l) => l.match(/("[^"]*"|[^,]*)(,|$)/g).map((f) => f.replace(/,$/, '')));
    ['Low FPS', 'Average FPS', 'High FPS'].forEach((title, t) => {
      const want = values.filter((v) => v[0] === title).map((v, i) => ({ k: Math.floor(i / groups.length), g: i % groups.length, v }))
        .filter((b) => b.v[8] !== '0');
      const { bars, whiskers } = seen.charts[t];
      assert.deepEqual(bars.map((b) => [b.k, b.g]), want.map((b) => [b.k, b.g]), title + ': a bar for each value, in order');
      const scale = bars.length && bars[0].w / Number(want[0].v[4]);
      bars.forEach((b, i) => assert.ok(Math.abs(b.w - Number(want[i].v[4]) * scale) < 0.02, `${title} bar ${i} in proportion`));
      const repeats = want.filter((b) => Number(b.v[8]) > 1);
      assert.deepEqual(whiskers.map((w) => [w.k, w.g]), repeats.map((b) => [b.k, b.g]), title + ': a whisker for each repeat');
      whiskers.forEach((w, i) => {
        const [, a, b] = w.d.match(/^M([\d.]+) [\d.]+H([\d.]+)/).map(Number);
        const left = bars[0].x;
        assert.ok(Math.abs(a - left - repeats[i].v[5] * scale) < 0.02 && Math.abs(b - left - repeats[i].v[6] * scale) < 0.02,
          title + ': whisker from lowest to highest');
      });
    });

    // Each series has a colour of its own, never black, the same in every chart, its legend and
    // its swatch.
    for (const { bars, legend } of seen.charts) {
      assert.equal(new Set(legend).size, legend.length, 'a colour for each series');
      assert.ok(!legend.includes('rgb(0, 0, 0)'), 'no series is black');
      bars.forEach((b) => assert.equal(b.fill, legend[b.g], 'the bar has its series\' colour'));
      assert.deepEqual([...new Set(seen.swatches)].sort(), [...legend].sort(), 'the swatches have the series\' colours');
    }

    if (c.pictures) {
      // Printed, the page shows no control, only what it says.
      await page.emulateMedia({ media: 'print' });
      assert.deepEqual(await page.$$eval('button, select, input[type=file]', (all) => all.filter((e) => e.offsetParent)
        .map((e) => e.outerHTML)), []);
      await page.emulateMedia({ media: 'screen' });
      // On paper: the summary's page, then a page for each measure and its table at the least.
      const pdf = (await page.pdf({ format: 'A4' })).toString('latin1');
      assert.ok(pdf.startsWith('%PDF-') && pdf.match(/\/Type\s*\/Page\b/g).length >= 4, 'printed on four pages or more');
      const svg = await saved(page, 'button[data-kind="svg"][data-t="0"]');
      assert.equal(svg.name, 'compare-low-fps.svg');
      const bars = (svg.bytes.toString().match(/<rect class="bar"/g) || []).length;
      assert.equal(bars, seen.charts[0].bars.length);
      assert.match(svg.bytes.toString(), /^<\?xml version="1.0" encoding="UTF-8"\?>\n<svg xmlns="http:\/\/www.w3.org\/2000\/svg" width="(\d+)"/);
      const png = await saved(page, 'button[data-kind="png"][data-t="2"]');
      assert.equal(png.name, 'compare-high-fps.png');
      assert.equal(png.bytes.subarray(0, 8).toString('latin1'), '\x89PNG\r\n\x1a\n');
      const svgWidth = Number(svg.bytes.toString().match(/width="(\d+)"/)[1]);
      assert.equal(png.bytes.readUInt32BE(16), svgWidth * 2, 'the PNG is drawn at twice the size');
    }
    assert.equal(await page.$('#old-browser'), null, 'a browser that runs the script shows no warning');
    assert.deepEqual(errors, []);
    await page.close();
  });
}
