// The choices that a shared result must carry, kept in the page's address after "#": the margin,
// the frame-rate targets and whether outliers are left out, as "#margin=2&targets=30,60&outliers=out".

import { MARGINS, DEFAULT_MARGIN } from './contrast.mjs';

const DEFAULT_TARGETS = [30, 60];
const TARGET = /^\d{1,4}(\.\d+)?$/;

// The choices an address gives; what is missing or not one of the choices is the default.
export function readAddress(hash) {
  const given = new URLSearchParams(hash.replace(/^#/, ''));
  const margin = Number(given.get('margin'));
  const targets = (given.get('targets') || '').split(',');
  return {
    margin: MARGINS.includes(margin) ? margin : DEFAULT_MARGIN,
    targets: targets.length === DEFAULT_TARGETS.length && targets.every((v) => TARGET.test(v) && Number(v) > 0)
      ? targets.map(Number) : DEFAULT_TARGETS,
    leaveOut: given.get('outliers') === 'out',
  };
}

export function addressOf({ margin, targets, leaveOut }) {
  return '#margin=' + margin + '&targets=' + targets.join(',') + (leaveOut ? '&outliers=out' : '');
}
