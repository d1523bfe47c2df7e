// Text for the page's HTML and SVG, and the numbers as the page shows them.

export function esc(text) {
  return String(text)
    .replace(/[\x00-\x08\x0b\x0c\x0e-\x1f]/g, '\ufffd')
    .replace(/&/g, '&amp;').replace(/</g, '&lt;').replace(/>/g, '&gt;')
    .replace(/"/g, '&quot;').replace(/'/g, '&#39;');
}

export function fps(v) {
  return v.toFixed(2);
}

export function percent(d) {
  const text = Math.abs(d).toFixed(1);
  const sign = Number(text) === 0 ? '±' : d > 0 ? '+' : '−';
  return sign + text + ' %';
}
