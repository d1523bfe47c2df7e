// Reads the reports that the program writes: results.html, one table each of Low, Average and
// High FPS, a row per resolution and a column per level, then the notes of the run.

const FIRST_LINE = '<META GENERATOR=Kelvarnite UT2003 Benchmark>';
const TABLE_LINE = '<TABLE BORDER=1 CELLPADDING=3 ALIGN=CENTER>';
export const TABLES = ['Low FPS', 'Average FPS', 'High FPS'].map((title) => ({
  title,
  caption: '<CAPTION ALIGN=TOP><B>' + title + '</b></caption>',
  slug: title.toLowerCase().replace(' ', '-'),
}));
// A report of five resolutions and seven levels is under 8 KB; anything this large is some
// other file, and reading it whole would only stall the page.
export const MAX_BYTES = 1 << 20;
const NOT_A_REPORT = 'not a report of Kelvarnite UT2k3 Benchmark (its first line is not "' +
  FIRST_LINE + '"); not added.';

// A field of the report without the blanks that pad it to its width; those inside it stay.
const unpadded = (field) => field.replace(/ +$/, '');

// The game prints a rate as a plain decimal ("73.534819"), and the report keeps it as text in
// a field of 10 characters. Ten or more digits without a point can only be the head of a
// longer number that the field cut, so its value is unknown.
export function readRate(text) {
  const rate = unpadded(text);
  if (rate === '') return { blank: true };
  if (!/^[0-9]+(\.[0-9]+)?$/.test(rate)) return { odd: rate, why: 'is not a rate' };
  // Stryker disable next-line EqualityOperator: a rate that passed the pattern has no point first
  if (rate.length >= 10 && rate.indexOf('.') < 0) {
    return { odd: rate, why: 'is not a rate (10 digits with no point: cut from a longer number)' };
  }
  return { value: Number(rate), text: rate };
}

export function listText(items) {
  // Stryker disable next-line StringLiteral: one item or none joins without its separator
  return items.length < 2 ? items.join('') :
    items.slice(0, -1).join(', ') + ' and ' + items[items.length - 1];
}

// The key of a pair of resolution and level in a report's values.
export const pairKey = (res, level) => res + '\n' + level;

// The three tables as the lines give them, each a list of level fields and of rows of cell
// fields, up to the first line out of place; cut says where that was, and at is the line after.
function readGrids(lines) {
  const grids = [];
  let i = 1;
  let cut = null;
  const expect = (line) => {
    if (lines[i] !== line) throw i;
    i++;
  };
  const cell = () => {
    if (i >= lines.length || lines[i].slice(0, 4) !== '<TD>') throw i;
    return lines[i++].slice(4);
  };
  for (let t = 0; t < 3 && !cut; t++) {
    const grid = { levels: [], rows: [] };
    grids.push(grid);
    try {
      expect(TABLE_LINE);
      expect(TABLES[t].caption);
      expect('<TR>');
      expect('<TD>Resolution');
      while (i < lines.length && lines[i].slice(0, 4) === '<TD>') grid.levels.push(cell());
      expect('</TR>');
      while (lines[i] === '<TR>') {
        i++;
        const row = { name: cell(), cells: [] };
        grid.rows.push(row);
        while (row.cells.length < grid.levels.length) row.cells.push(cell());
        expect('</TR>');
      }
      expect('</TABLE>');
      while (lines[i] === '<BR>') i++;
    } catch (at) {
      // Stryker disable next-line ConditionalExpression: only a fault of this code throws anything else
      if (typeof at !== 'number') throw at;
      cut = 'the ' + TABLES[t].title + ' table is cut short at line ' + (at + 1) +
        (at >= lines.length ? ' (end of file)' : ' ("' + lines[at].slice(0, 40) + '")') +
        '; the rest shows as gaps.';
    }
  }
  return { grids, cut, at: i };
}

// The notes under the tables: the test, the renderer and full game or demo, each where a whole
// line says it.
const NOTE = /^This test was run using the (.+?) (Option|Rendering Engine|version of Unreal Tournament 2003)$/;
function readNotes(lines, from) {
  const notes = {};
  // Stryker disable next-line EqualityOperator: a line past the end matches no note
  for (let i = from; i < lines.length; i++) {
    const m = NOTE.exec(lines[i]);
    if (m) notes[{ O: 'test', R: 'renderer', v: 'game' }[m[2][0]]] = m[1];
  }
  return notes;
}

// The levels and resolutions of the Low table, which lays out the report: a blank level name
// with rates is "column N", and a level or resolution named twice is kept once.
function layoutOf(grids, messages) {
  const layout = grids[0];
  const levels = [];
  layout.levels.forEach((field, c) => {
    let name = unpadded(field);
    if (name === '') {
      const rated = grids.some((g) => g.rows.some((r) => c < r.cells.length && !readRate(r.cells[c]).blank));
      if (!rated) {
        messages.push('column ' + (c + 1) + ' has no level name and no rates (a run left no record); left out.');
        return;
      }
      name = 'column ' + (c + 1);
    }
    if (levels.some((l) => l.name === name)) {
      messages.push('column ' + (c + 1) + ' repeats the level ' + name + '; the first is kept.');
      return;
    }
    levels.push({ name, c });
  });
  const resolutions = [];
  layout.rows.forEach((row, r) => {
    if (resolutions.some((x) => x.name === row.name)) {
      messages.push('row ' + (r + 1) + ' repeats the resolution ' + row.name + '; the first is kept.');
    } else {
      resolutions.push({ name: row.name, r });
    }
  });
  return { levels, resolutions };
}

// The Average and High tables are read against the Low table's rows and columns: where one
// has another resolution or level, its cells there are gaps, and a message says why.
function checkAgainstLow(grids, messages) {
  grids.slice(1).forEach((g, k) => {
    const differs = (at, name, low) => {
      if (low === undefined || name === low) return;
      messages.push('the ' + TABLES[k + 1].title + ' table has "' + unpadded(name) + '" at ' + at +
        ' where the Low FPS table has "' + unpadded(low) + '"; its cells there show as gaps.');
    };
    g.rows.forEach((row, r) => differs('row ' + (r + 1), row.name, grids[0].rows[r]?.name));
    g.levels.forEach((name, c) => differs('column ' + (c + 1), name, grids[0].levels[c]));
  });
}

// The three rates of each pair, a gap where a table has none or a cell is no rate.
function valuesOf(grids, { levels, resolutions }, messages) {
  const layout = grids[0];
  const values = new Map();
  for (const res of resolutions) {
    for (const level of levels) {
      // Stryker disable next-line ArrayDeclaration: a gap left undefined reads as one left null
      const rates = [null, null, null];
      const blank = [];
      grids.forEach((g, t) => {
        const row = g.rows[res.r];
        if (!row || row.name !== res.name || level.c >= row.cells.length ||
            g.levels[level.c] !== layout.levels[level.c]) return;
        const rate = readRate(row.cells[level.c]);
        if (rate.blank) blank.push(TABLES[t].title.replace(' FPS', ''));
        else if (rate.odd !== undefined) {
          messages.push('"' + rate.odd + '" for ' + level.name + ' at ' + res.name + ' in ' +
            TABLES[t].title + ' ' + rate.why + '; shown as a gap.');
        } else rates[t] = rate;
      });
      if (blank.length) {
        messages.push('no rate for ' + level.name + ' at ' + res.name + ' in ' + listText(blank) +
          ' FPS (a run left no record); shown as gaps.');
      }
      values.set(pairKey(res.name, level.name), rates);
    }
  }
  return values;
}

// Reads the text of one report. Gives { report, messages }: report is null when the file is no
// report at all; otherwise it holds every cell read before any damage, and the messages say
// what was wrong. Rates stay gaps unless they are plain numbers.
export function parseReport(text) {
  const lines = text.split(/\r?\n/);
  if (lines[lines.length - 1] === '') lines.pop();
  if (lines[0] !== FIRST_LINE) return { report: null, messages: [NOT_A_REPORT] };
  const { grids, cut, at } = readGrids(lines);
  const messages = [];
  const layout = layoutOf(grids, messages);
  checkAgainstLow(grids, messages);
  const values = valuesOf(grids, layout, messages);
  if (cut) messages.push(cut);
  return {
    report: {
      resolutions: layout.resolutions.map((x) => x.name),
      levels: layout.levels.map((x) => x.name),
      values,
      notes: readNotes(lines, at),
    },
    messages,
  };
}
