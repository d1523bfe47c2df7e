// Debian's Chromium, headless, through playwright-core from this folder's modules: for the
// browser test and the compare page's benchmark. Nothing it loads may reach the network.
import { createRequire } from 'node:module';

const { chromium } = createRequire(import.meta.url)('playwright-core');

export function launchChromium() {
  return chromium.launch({
    executablePath: process.env.CHROMIUM || '/usr/bin/chromium', headless: true,
    args: ['--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run', '--disable-background-networking',
      '--disable-component-update', '--disable-sync'],
  });
}
