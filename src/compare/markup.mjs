// Text for the page's HTML and SVG, and the numbers as the page shows them.

const ENTITY = { '&': '&amp;', '<': '&lt;', '>': '&gt;', '"': '&quot;', "'": '&#39;' };
const UNSAFE = /[\x00-\x08\x0b\x0c\x0e-\x1f&<>"']/g;
// Control characters, which XML does not allow, become the replacement character. Most text is
// safe as it is, and looking first makes the thousands of numbers in a drawing cheap.
function esc(text) {
  const s = String(text);
  // Stryker disable next-line ConditionalExpression: the look first only saves the replace
  return s.search(UNSAFE) < 0 ? s : s.replace(UNSAFE, (c) => ENTITY[c] || '\ufffd');
}

// What tag() built goes in as it is, where any other text is escaped: a name from a report never
// becomes markup, and nothing is escaped twice.
class Markup {
  constructor(text) { this.text = text; }
  toString() { return this.text; }
}

const none = (v) => v === null || v === undefined || v === false;
// HTML's void elements have no end tag; SVG's shapes, when empty, close in their start tag.
const VOID = /^(br|col|input)$/;
const SHAPE = /^(circle|line|path|polygon|polyline|rect)$/;

// Every element of the page's HTML and SVG. Attributes keep their order; null, undefined and
// false leave one out, true writes it bare. Children are text, numbers, tags or lists of them.
export function tag(name, attrs, ...children) {
  let text = '<' + name;
  for (const key in attrs) {
    if (!none(attrs[key])) text += ' ' + key + (attrs[key] === true ? '' : '="' + esc(attrs[key]) + '"');
  }
  const inner = content(children);
  return new Markup(text + (VOID.test(name) ? '>' : !inner && SHAPE.test(name) ? '/>' : '>' + inner + '</' + name + '>'));
}

const content = (list) => list.reduce((text, c) => text +
  (Array.isArray(c) ? content(c) : c instanceof Markup ? c.text : none(c) ? '' : esc(c)), '');

export function fps(v) {
  return v.toFixed(2);
}

export function percent(d) {
  const text = Math.abs(d).toFixed(1);
  // Stryker disable next-line EqualityOperator: a d of 0 shows as 0.0, which takes ±
  const sign = Number(text) === 0 ? '±' : d > 0 ? '+' : '−';
  return sign + text + ' %';
}
