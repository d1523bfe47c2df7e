// The picture of the compare page that the README and the help show, made from the end-to-end
// suite's reports: two repeats each of a Direct3D and an OpenGL High Quality run of the full
// game, the OpenGL ones 6 % apart, so that the summary ranks them and flags one as unsteady.
// It writes docs/screenshots/compare.png, and the same bytes into data/help.html, which holds
// the picture inline so that the help stays one file.
//
//   node tools/compare-picture.mjs [compare.html]
//
// Without a page it assembles one from src/compare/ with CMake. It needs playwright-core from
// tests/browser (npm ci there), Debian's chromium, and ImageMagick's convert, which keeps the
// picture to 64 colours so that the help stays small.
import { execFileSync } from 'node:child_process';
import fs from 'node:fs';
import os from 'node:os';
import path from 'node:path';

const root = path.resolve(path.dirname(new URL(import.meta.url).pathname), '..');
const { launchChromium } = await import(path.join(root, 'tests/browser/chromium.mjs'));
const scratch = fs.mkdtempSync(path.join(os.tmpdir(), 'compare-picture-'));
let page = process.argv[2] && path.resolve(process.argv[2]);
if (!page) {
  page = path.join(scratch, 'compare.html');
  const src = path.join(root, 'src/compare');
  const version = fs.readFileSync(path.join(root, 'CMakeLists.txt'), 'utf8').match(/VERSION ([0-9.]+)/)[1];
  execFileSync('cmake', [`-DPAGE=${src}/compare.html`, `-DCSS=${src}/compare.css`, `-DMODULES=${src}/modules.txt`,
    `-DVERSION=${version}`, `-DOUT=${page}`, '-P', path.join(root, 'cmake/InlinePage.cmake')]);
}

const golden = (name) => fs.readFileSync(path.join(root, 'tests/e2e/golden', name), 'latin1');
// A report with every rate scaled, written into the report's field of ten characters.
const scaled = (text, by) => text.replace(/^<TD>(\d+\.\d+) *$/gm,
  (_, rate) => '<TD>' + (Number(rate) * by).toFixed(6).padEnd(10).slice(0, 10));
const report = (name, text) => ({ name, mimeType: 'text/html', buffer: Buffer.from(text, 'latin1') });
const d3d = golden('full-d3d-high-quality.html');
const ogl = golden('full-ogl-high-quality.html');
const reports = [report('direct3d.html', d3d), report('direct3d.html', d3d),
  report('opengl.html', scaled(ogl, 0.97)), report('opengl.html', scaled(ogl, 0.91))];

const browser = await launchChromium();
const tab = await browser.newPage({ viewport: { width: 860, height: 1200 } });
await tab.goto('file://' + page);
await tab.setInputFiles('#add', reports);
await tab.waitForFunction(() => Number(document.body.dataset.drawn) > 0);
// From the reports down to the first rows of the Low FPS chart: what the help describes.
const top = await tab.evaluate(() => document.getElementById('input').getBoundingClientRect().top + window.scrollY);
const shot = path.join(scratch, 'shot.png');
await tab.screenshot({ path: shot, fullPage: true, clip: { x: 0, y: top, width: 860, height: 1150 } });
await browser.close();

const picture = path.join(root, 'docs/screenshots/compare.png');
execFileSync('convert', [shot, '-strip', '+dither', '-colors', '64', 'PNG8:' + picture]);
const bytes = fs.readFileSync(picture);
const help = path.join(root, 'data/help.html');
const before = fs.readFileSync(help, 'latin1');
const after = before.replace(/SRC="data:image\/png;base64,[^"]*" WIDTH=\d+ HEIGHT=\d+/,
  `SRC="data:image/png;base64,${bytes.toString('base64')}" WIDTH=${bytes.readUInt32BE(16)} HEIGHT=${bytes.readUInt32BE(20)}`);
if (after === before && !before.includes(bytes.toString('base64'))) throw new Error('data/help.html holds no picture to replace');
fs.writeFileSync(help, after, 'latin1');
fs.rmSync(scratch, { recursive: true, force: true });
console.log(`${path.relative(root, picture)}: ${bytes.length} bytes, also in data/help.html`);
