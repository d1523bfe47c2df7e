// The compare page in headless Chromium, fed with the reports that the end-to-end suite writes
// byte for byte, and with copies of them changed in one place. One table of cases; every case
// also checks the charts against the downloaded CSV: a bar for each value and none for a gap,
// bars in the order of the table, lengths and whiskers in proportion to the numbers.
import { test, before, after } from 'node:test';
import assert from 'node:assert/strict';
import fs from 'node:fs';
import { createRequire } from 'node:module';

const { chromium } = createRequire(import.meta.url)('playwright-core');
const PAGE = process.env.KELVARNITE_COMPARE_PAGE;
const golden = (name) => fs.readFileSync(new URL('../e2e/golden/' + name, import.meta.url), 'latin1');
// A golden report with some of its lines (counted from 1) replaced, or cut after a line.
const edit = (name, lines) => {
  const all = golden(name).split('\r\n');
  for (const [n, text] of Object.entries(lines)) {
    if (text === null) all.length = Number(n); else all[n - 1] = text;
  }
  return all.join('\r\n');
};
const file = (name, text) => ({ name, mimeType: 'text/html', buffer: Buffer.from(text, 'latin1') });
const NOT_A_REPORT = ': not a report of Kelvarnite UT2k3 Benchmark (its first line is not ' +
  '"<META GENERATOR=Kelvarnite UT2003 Benchmark>"); not added.';
const q = (s) => '"' + s + '"';

const cases = [
  {
    name: 'a report as written, a renamed copy and a stand-in demo line up on what they share',
    add: [file('radeon 9700.html', golden('full-d3d-high-quality.html')), file('demo-d3d-high-quality.html', golden('demo-d3d-high-quality.html'))],
    messages: [],
    series: ['radeon 9700', 'demo-d3d-high-quality'],
    rows: {
      'low-fps': { 0: ['640x480', 'DM-Antalus', '36.97', '36.97 ±0.0 %'], 1: ['640x480', 'DOM-SunTemple', '36.93', 'no rate'],
        6: ['640x480', 'DM-Asbestos', '52.13', '47.79 −8.3 %'], 13: ['1024x768', 'DM-Asbestos', '37.32', '36.19 −3.0 %'] },
      'average-fps': { 6: ['640x480', 'DM-Asbestos', '109.31', '105.52 −3.5 %'] },
    },
    csv: ['Average FPS,640x480,DM-Asbestos,demo-d3d-high-quality,105.517719,105.517719,105.517719,0.000000,1,-3.47',
      'High FPS,1024x768,DM-Asbestos,radeon 9700,100.775975,100.775975,100.775975,0.000000,1,',
      'High FPS,1024x768,DM-Phobos2,demo-d3d-high-quality,,,,,0,'],
  },
  {
    name: 'series of one name are repeats: mean, spread and count, and a rename joins them',
    add: [file('run.html', golden('full-d3d-high-quality.html')), file('run.html', edit('full-d3d-high-quality.html', { 16: '<TD>40.000001 ' })),
      file('other.html', golden('full-d3d-high-quality.html'))],
    rename: ['other', 'run'],
    messages: [],
    series: ['run', 'run', 'run'],
    rows: { 'low-fps': { 0: ['640x480', 'DM-Antalus', '37.98 spread 3.03, n 3'], 1: ['640x480', 'DOM-SunTemple', '36.93 spread 0.00, n 3'] } },
    csv: ['Low FPS,640x480,DM-Antalus,run,37.979962,36.969943,40.000001,3.030058,3,'],
  },
  {
    name: 'the baseline is picked; resolutions in order of size, gaps where a report has none',
    add: [file('full-d3d-high-quality.html', golden('full-d3d-high-quality.html')), file('high-quality-five.html', golden('high-quality-five.html')),
      file('demo-d3d-high-quality.html', golden('demo-d3d-high-quality.html'))],
    baseline: 'demo-d3d-high-quality',
    messages: [],
    head: ['Resolution', 'Level', 'full-d3d-high-quality', 'high-quality-five', 'demo-d3d-high-quality (baseline)'],
    column: ['640x480', '800x600', '1024x768', '1280x1024', '1600x1200'].flatMap((r) => Array(7).fill(r)),
    rows: { 'low-fps': { 6: ['640x480', 'DM-Asbestos', '52.13 +9.1 %', '52.13 +9.1 %', '47.79'], 7: ['800x600', 'DM-Antalus', 'no rate', '31.81', 'no rate'] } },
  },
  {
    name: 'a run that left no record is a gap and is named, never a zero',
    add: [file('thirteen.html', edit('full-d3d-high-quality.html', { 32: '<TD>          ', 67: '<TD>          ', 102: '<TD>          ' })),
      file('crash-mid-suite.html', golden('crash-mid-suite.html')), file('game-crashes.html', golden('game-crashes.html'))],
    messages: ['thirteen.html: no rate for DM-Asbestos at 1024x768 in Low, Average and High FPS (a run left no record); shown as gaps.',
      'crash-mid-suite.html: column 7 has no level name and no rates (a run left no record); left out.',
      'game-crashes.html: column 1 has no level name and no rates (a run left no record); left out.'],
    series: ['thirteen', 'crash-mid-suite', 'game-crashes'],
    rows: { 'high-fps': { 10: ['1024x768', 'DM-Inferno', '89.02', 'no rate', 'no rate'], 13: ['1024x768', 'DM-Asbestos', 'no rate', '100.78', 'no rate'] } },
  },
  {
    name: 'each kind of bad file is named with what is wrong, and the other series stay',
    add: [file('notes.html', golden('full-d3d.starts')), file('cut.html', edit('full-d3d-high-quality.html', { 52: null })),
      file('damaged.html', edit('full-d3d-high-quality.html', { 33: '<TD>extra     ' })), file('odd.html', edit('full-d3d-high-quality.html', { 16: '<TD>abc       ' })),
      file('rate-inf.html', golden('rate-inf.html')), file('rate-of-40-characters.html', golden('rate-of-40-characters.html')),
      file('big.html', golden('full-d3d-high-quality.html').padEnd(1048577))],
    messages: ['notes.html' + NOT_A_REPORT,
      'cut.html: the Average FPS table is cut short at line 53 (end of file); the rest shows as gaps.',
      'damaged.html: the Low FPS table is cut short at line 33 ("<TD>extra     "); the rest shows as gaps.',
      'odd.html: "abc" for DM-Antalus at 640x480 in Low FPS is not a rate; shown as a gap.',
      'rate-inf.html: "inf" for DM-Inferno at 640x480 in High FPS is not a rate; shown as a gap.',
      'rate-of-40-characters.html: "0000000000" for DM-Inferno at 640x480 in Average FPS is not a rate (10 digits with no point: cut from a longer number); shown as a gap.',
      'big.html: not a report (larger than 1 MiB); not added.'],
    series: ['cut', 'damaged', 'odd', 'rate-inf', 'rate-of-40-characters'],
    rows: {
      'low-fps': { 0: ['640x480', 'DM-Antalus', '36.97', '36.97 ±0.0 %', 'no rate', 'no rate', 'no rate'], 7: ['1024x768', 'DM-Antalus', '24.54', '24.54 ±0.0 %', '24.54 ±0.0 %', 'no rate', 'no rate'] },
      'average-fps': { 1: ['640x480', 'DOM-SunTemple', '78.85', 'no rate', '78.85 ±0.0 %', 'no rate', 'no rate'], 2: ['640x480', 'DM-Phobos2', 'no rate', 'no rate', '92.34', 'no rate', 'no rate'],
        3: ['640x480', 'DM-Inferno', 'no rate', 'no rate', '88.17', '153.03', 'no rate'] },
    },
  },
  {
    name: 'reports dropped onto the page; the numbers as CSV, the charts as SVG and PNG',
    drop: [file('before.html', golden('rate-inf.html')), file('after, patched.html', edit('full-d3d-cpu-benchmark.html', { 10: '<TD>80.888301 ' }))],
    messages: ['before.html: "inf" for DM-Inferno at 640x480 in High FPS is not a rate; shown as a gap.'],
    series: ['before', 'after, patched'],
    csvBytes: '\ufeffTable,Resolution,Level,Series,Mean,Min,Max,Spread,Count,Difference % against before\r\n' + [
      'Low FPS,640x480,DM-Inferno,before,73.534819,73.534819,73.534819,0.000000,1,',
      'Low FPS,640x480,DM-Inferno,"after, patched",80.888301,80.888301,80.888301,0.000000,1,10.00',
      'Low FPS,1024x768,DM-Inferno,before,,,,,0,',
      'Low FPS,1024x768,DM-Inferno,"after, patched",65.316786,65.316786,65.316786,0.000000,1,',
      'Average FPS,640x480,DM-Inferno,before,153.025935,153.025935,153.025935,0.000000,1,',
      'Average FPS,640x480,DM-Inferno,"after, patched",153.025935,153.025935,153.025935,0.000000,1,0.00',
      'Average FPS,1024x768,DM-Inferno,before,,,,,0,',
      'Average FPS,1024x768,DM-Inferno,"after, patched",138.453363,138.453363,138.453363,0.000000,1,',
      'High FPS,640x480,DM-Inferno,before,,,,,0,',
      'High FPS,640x480,DM-Inferno,"after, patched",205.507604,205.507604,205.507604,0.000000,1,',
      'High FPS,1024x768,DM-Inferno,before,,,,,0,',
      'High FPS,1024x768,DM-Inferno,"after, patched",196.463654,196.463654,196.463654,0.000000,1,'].join('\r\n') + '\r\n',
    pictures: true,
  },
];

let browser;
before(async () => {
  assert.ok(PAGE && fs.existsSync(PAGE), 'KELVARNITE_COMPARE_PAGE names the assembled page');
  assert.doesNotMatch(fs.readFileSync(PAGE, 'latin1'), /<(script|link|img)\b[^>]*\b(src|href)=/i, 'one file, nothing beside it');
  browser = await chromium.launch({ executablePath: process.env.CHROMIUM || '/usr/bin/chromium', headless: true,
    args: ['--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run', '--disable-background-networking',
      '--disable-component-update', '--disable-sync'] });
});
after(() => browser && browser.close());

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
  tables: Object.fromEntries([...document.querySelectorAll('table.numbers')].map((t) => [t.id.slice(6), {
    head: [...t.tHead.rows[0].cells].map((c) => c.textContent),
    rows: [...t.tBodies[0].rows].map((r) => [...r.cells].map((c) => c.textContent)),
  }])),
  charts: [...document.querySelectorAll('.chart svg')].map((svg) => ({
    bars: [...svg.querySelectorAll('rect.bar')].map((r) => ({ k: +r.dataset.k, g: +r.dataset.g, x: +r.getAttribute('x'), w: +r.getAttribute('width') })),
    whiskers: [...svg.querySelectorAll('path.whisker')].map((p) => ({ k: +p.dataset.k, g: +p.dataset.g, d: p.getAttribute('d') })),
  })),
});

for (const c of cases) {
  test(c.name, async () => {
    const page = await browser.newPage({ acceptDownloads: true });
    const errors = [];
    page.on('pageerror', (e) => errors.push(e.message));
    page.on('request', (r) => /^(file|blob|data):/.test(r.url()) || errors.push('request ' + r.url()));
    await page.goto('file://' + PAGE);
    if (c.add) await drawn(page, () => page.setInputFiles('#add', c.add));
    if (c.drop) {
      await drawn(page, () => page.evaluate((files) => {
        const dt = new DataTransfer();
        for (const f of files) dt.items.add(new File([Uint8Array.from(f.bytes, (ch) => ch.charCodeAt(0))], f.name));
        document.getElementById('drop').dispatchEvent(new DragEvent('drop', { dataTransfer: dt, bubbles: true, cancelable: true }));
      }, c.drop.map((f) => ({ name: f.name, bytes: f.buffer.toString('latin1') }))));
    }
    if (c.rename) {
      const input = `#series input[value=${q(c.rename[0])}]`;
      await page.fill(input, c.rename[1]);
      await drawn(page, () => page.press(input, 'Enter'));
    }
    if (c.baseline) await drawn(page, () => page.selectOption('#baseline', c.baseline));
    const seen = await page.evaluate(look);

    assert.deepEqual(seen.messages, c.messages);
    if (c.series) assert.deepEqual(seen.series, c.series);
    const low = seen.tables['low-fps'];
    if (c.head) assert.deepEqual(low.head, c.head);
    if (c.column) assert.deepEqual(low.rows.map((r) => r[0]), c.column);
    for (const [table, rows] of Object.entries(c.rows || {})) {
      for (const [i, row] of Object.entries(rows)) assert.deepEqual(seen.tables[table].rows[i], row, `${table} row ${i}`);
    }

    const csv = await saved(page, '#csv');
    assert.equal(csv.name, 'compare.csv');
    const text = csv.bytes.toString('utf8');
    if (c.csvBytes) assert.equal(text, c.csvBytes);
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

    if (c.pictures) {
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
    assert.deepEqual(errors, []);
    await page.close();
  });
}
