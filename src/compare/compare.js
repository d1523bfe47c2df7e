// Compare reports: reads results.html files as the program writes them, and shows them side by
// side as grouped bar charts and tables. Everything runs in the page, from file://, with no
// network and no library.
(function () {
  'use strict';

  // ---- The report format -------------------------------------------------------------------

  const FIRST_LINE = '<META GENERATOR=Kelvarnite UT2003 Benchmark>';
  const TABLE_LINE = '<TABLE BORDER=1 CELLPADDING=3 ALIGN=CENTER>';
  const TABLES = ['Low FPS', 'Average FPS', 'High FPS'].map((title) => ({
    title,
    caption: '<CAPTION ALIGN=TOP><B>' + title + '</b></caption>',
    slug: title.toLowerCase().replace(' ', '-'),
  }));
  // A report of five resolutions and seven levels is under 8 KB; anything this large is some
  // other file, and reading it whole would only stall the page.
  const MAX_BYTES = 1 << 20;
  const NOT_A_REPORT = 'not a report of Kelvarnite UT2k3 Benchmark (its first line is not "' +
    FIRST_LINE + '"); not added.';

  // The game prints a rate as a plain decimal ("73.534819"), and the report keeps it as text in
  // a field of 10 characters. Ten or more digits without a point can only be the head of a
  // longer number that the field cut, so its value is unknown.
  function readRate(text) {
    const rate = text.replace(/ +$/, '');
    if (rate === '') return { blank: true };
    if (!/^[0-9]+(\.[0-9]+)?$/.test(rate)) return { odd: rate, why: 'is not a rate' };
    if (rate.length >= 10 && rate.indexOf('.') < 0) {
      return { odd: rate, why: 'is not a rate (10 digits with no point: cut from a longer number)' };
    }
    return { value: Number(rate), text: rate };
  }

  function listText(items) {
    return items.length < 2 ? items.join('') :
      items.slice(0, -1).join(', ') + ' and ' + items[items.length - 1];
  }

  // Reads the text of one report. Gives { report, messages }: report is null when the file is no
  // report at all; otherwise it holds every cell read before any damage, and the messages say
  // what was wrong. Rates stay gaps unless they are plain numbers.
  function parseReport(text) {
    const lines = text.split(/\r?\n/);
    if (lines[lines.length - 1] === '') lines.pop();
    if (lines[0] !== FIRST_LINE) return { report: null, messages: [NOT_A_REPORT] };

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
        if (typeof at !== 'number') throw at;
        cut = 'the ' + TABLES[t].title + ' table is cut short at line ' + (at + 1) +
          (at >= lines.length ? ' (end of file)' : ' ("' + lines[at].slice(0, 40) + '")') +
          '; the rest shows as gaps.';
      }
    }

    const run = {};
    for (; i < lines.length; i++) {
      const m = /^This test was run using the (.+?) (Option|Rendering Engine|version of Unreal Tournament 2003)$/.exec(lines[i]);
      if (m) run[m[2][0]] = m[1];
    }

    // The Low table lays out the report; the others are read against its rows and columns.
    const messages = [];
    const layout = grids[0];
    const levels = [];
    layout.levels.forEach((field, c) => {
      let name = field.replace(/ +$/, '');
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

    const values = new Map();
    for (const res of resolutions) {
      for (const level of levels) {
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
        values.set(res.name + '\n' + level.name, rates);
      }
    }
    if (cut) messages.push(cut);
    return {
      report: {
        resolutions: resolutions.map((x) => x.name),
        levels: levels.map((x) => x.name),
        values,
        run: [run.O, run.R, run.v].filter(Boolean).join(' · '),
      },
      messages,
    };
  }

  // ---- State -------------------------------------------------------------------------------

  const state = { series: [], baseline: null, nextId: 1 };
  let drawn = 0;

  function stripExtension(file) {
    return file.replace(/\.html?$/i, '') || file;
  }

  // Series that share a name are one group: the repeats of a run.
  function groupsOf(series) {
    const groups = [];
    const byName = new Map();
    for (const s of series) {
      let g = byName.get(s.name);
      if (!g) {
        g = { name: s.name, members: [], index: groups.length };
        byName.set(s.name, g);
        groups.push(g);
      }
      g.members.push(s);
    }
    return groups;
  }

  function pixels(res) {
    const m = /^(\d+)x(\d+)$/.exec(res);
    return m ? Number(m[1]) * Number(m[2]) : Infinity;
  }

  // Every resolution and level pair that any series has: resolutions by their size, levels in
  // the order the series bring them in.
  function keysOf(series) {
    const resolutions = [];
    const levels = [];
    const have = new Set();
    for (const s of series) {
      for (const r of s.report.resolutions) if (resolutions.indexOf(r) < 0) resolutions.push(r);
      for (const l of s.report.levels) if (levels.indexOf(l) < 0) levels.push(l);
      for (const k of s.report.values.keys()) have.add(k);
    }
    const order = resolutions.map((r, i) => ({ r, i })).sort((a, b) => (pixels(a.r) - pixels(b.r)) || (a.i - b.i));
    const keys = [];
    for (const { r } of order) {
      for (const l of levels) if (have.has(r + '\n' + l)) keys.push({ id: r + '\n' + l, res: r, level: l });
    }
    return keys;
  }

  function statsOf(group, key, t) {
    let n = 0;
    let sum = 0;
    let min = Infinity;
    let max = -Infinity;
    for (const s of group.members) {
      const rates = s.report.values.get(key.id);
      const rate = rates && rates[t];
      if (!rate) continue;
      n++;
      sum += rate.value;
      min = Math.min(min, rate.value);
      max = Math.max(max, rate.value);
    }
    return n ? { n, mean: sum / n, min, max } : null;
  }

  function baselineOf(groups) {
    return groups.find((g) => g.name === state.baseline) || groups[0];
  }

  // ---- Formatting --------------------------------------------------------------------------

  function esc(text) {
    return String(text)
      .replace(/[\x00-\x08\x0b\x0c\x0e-\x1f]/g, '\ufffd')
      .replace(/&/g, '&amp;').replace(/</g, '&lt;').replace(/>/g, '&gt;')
      .replace(/"/g, '&quot;').replace(/'/g, '&#39;');
  }

  function fps(v) {
    return v.toFixed(2);
  }

  function difference(st, base) {
    if (!st || !base || base.mean === 0) return null;
    return (st.mean - base.mean) / base.mean * 100;
  }

  function percent(d) {
    const text = Math.abs(d).toFixed(1);
    const sign = Number(text) === 0 ? '±' : d > 0 ? '+' : '−';
    return sign + text + ' %';
  }

  const PALETTE = ['#0072b2', '#e69f00', '#009e73', '#cc79a7', '#56b4e9', '#d55e00', '#444444', '#8c6d1f'];
  function colour(i) {
    return i < PALETTE.length ? PALETTE[i] : 'hsl(' + Math.round(i * 137.508) % 360 + ',60%,42%)';
  }

  // ---- Charts ------------------------------------------------------------------------------

  function niceStep(max) {
    const raw = max / 5;
    const p = Math.pow(10, Math.floor(Math.log10(raw)));
    const m = raw / p;
    return (m <= 1 ? 1 : m <= 2 ? 2 : m <= 5 ? 5 : 10) * p;
  }

  function barTitle(g, key, st) {
    return g.name + ', ' + key.level + ' at ' + key.res + ': ' + (st.n > 1
      ? 'mean ' + fps(st.mean) + ' FPS of ' + st.n + ', ' + fps(st.min) + ' to ' + fps(st.max)
      : fps(st.mean) + ' FPS');
  }

  // A grouped bar chart drawn as SVG text: the pairs of resolution and level down the side, one
  // bar per group of series across. Horizontal bars keep the level names readable at any count,
  // and the chart grows downwards, the way a page scrolls and prints. With titles, each bar
  // carries its tool tip, for the downloaded picture; on the page a bar's tool tip is made when
  // the pointer first comes to it, since thousands of titles made up front slow the drawing.
  function chartSvg(t, groups, keys, stats, width, titles) {
    const title = TABLES[t].title;
    const nG = groups.length;
    const barH = Math.max(3, Math.min(16, Math.floor(96 / nG)));
    const labels = barH >= 10;
    const groupH = nG * barH + 8;
    const left = 118;
    const right = 64;
    const plotW = Math.max(120, width - left - right);

    // The legend wraps by an estimate of its text width, which is all SVG text gives.
    const legend = [];
    let lx = 0;
    let ly = 0;
    groups.forEach((g, i) => {
      const w = 24 + Math.min(g.name.length, 40) * 7;
      if (lx && lx + w > width - 8) { lx = 0; ly += 18; }
      legend.push({ g, i, x: 8 + lx, y: ly });
      lx += w;
    });
    const top = 32 + ly + 18 + 24;

    let max = 0;
    for (const row of stats) for (const st of row) if (st) max = Math.max(max, st.max);
    const step = max > 0 ? niceStep(max) : 1;
    const axisMax = Math.ceil(max / step) * step || step;
    const x = (v) => left + v / axisMax * plotW;

    let y = top;
    const body = [];
    let lastRes = null;
    keys.forEach((key, k) => {
      if (key.res !== lastRes) {
        lastRes = key.res;
        y += 4;
        body.push('<text x="4" y="' + (y + 13) + '" font-weight="bold">' + esc(key.res) + '</text>',
          '<line x1="4" x2="' + (width - 4) + '" y1="' + (y + 18.5) + '" y2="' + (y + 18.5) + '" stroke="#bbb"/>');
        y += 22;
      }
      body.push('<text class="level" x="' + (left - 6) + '" y="' + (y + groupH / 2 + 4) +
        '" text-anchor="end">' + esc(key.level) + '</text>');
      groups.forEach((g, i) => {
        const by = y + 4 + i * barH;
        const st = stats[k][i];
        if (!st) {
          if (labels) {
            body.push('<text class="gap" x="' + (left + 4) + '" y="' + (by + barH - 3) +
              '" font-size="10" font-style="italic" fill="#666">no rate</text>');
          }
          return;
        }
        const w = Math.max(1, x(st.mean) - left);
        body.push('<rect class="bar" data-g="' + i + '" data-k="' + k + '" x="' + left + '" y="' + by +
          '" width="' + w.toFixed(2) + '" height="' + (barH - 1) + '" fill="' + colour(i) + '"' +
          (titles ? '><title>' + esc(barTitle(g, key, st)) + '</title></rect>' : '/>'));
        let end = left + w;
        if (st.n > 1) {
          const a = x(st.min).toFixed(2);
          const b = x(st.max).toFixed(2);
          const cy = by + (barH - 1) / 2;
          body.push('<path class="whisker" data-g="' + i + '" data-k="' + k + '" d="M' + a + ' ' + cy + 'H' + b +
            'M' + a + ' ' + (by + 1) + 'V' + (by + barH - 2) + 'M' + b + ' ' + (by + 1) + 'V' + (by + barH - 2) +
            '" stroke="#000" stroke-width="1.5" fill="none"/>');
          end = Math.max(end, x(st.max));
        }
        if (labels) {
          body.push('<text x="' + (end + 4).toFixed(2) + '" y="' + (by + barH - 3) + '" font-size="10">' +
            fps(st.mean) + '</text>');
        }
      });
      y += groupH;
    });
    const bottom = y + 6;
    const height = bottom + 24;

    const axis = [];
    for (let v = 0; v <= axisMax + step / 2; v += step) {
      const tx = x(v).toFixed(2);
      const label = String(Math.round(v * 1000) / 1000);
      axis.push('<line x1="' + tx + '" x2="' + tx + '" y1="' + (top - 6) + '" y2="' + bottom + '" stroke="' +
        (v ? '#ddd' : '#333') + '"/>',
      '<text x="' + tx + '" y="' + (top - 10) + '" text-anchor="middle" font-size="10">' + label + '</text>',
      '<text x="' + tx + '" y="' + (bottom + 14) + '" text-anchor="middle" font-size="10">' + label + '</text>');
    }

    const names = groups.map((g) => g.name);
    const desc = 'Bar chart of ' + title + ', frames per second, for ' + nG + ' series (' + listText(names) +
      ') at ' + keys.length + ' pairs of resolution and level' +
      (keys.length ? ', from ' + keys[0].level + ' at ' + keys[0].res + ' to ' +
        keys[keys.length - 1].level + ' at ' + keys[keys.length - 1].res : '') +
      '. Repeats show their mean, with a line from the lowest to the highest. The table below gives every number.';
    const id = 'chart-' + TABLES[t].slug;
    return '<svg xmlns="http://www.w3.org/2000/svg" width="' + width + '" height="' + height +
      '" viewBox="0 0 ' + width + ' ' + height + '" role="img" aria-labelledby="' + id + '-t ' + id + '-d"' +
      ' font-family="Arial, Helvetica, sans-serif" font-size="12" fill="#000">' +
      '<title id="' + id + '-t">' + esc(title) + '</title><desc id="' + id + '-d">' + esc(desc) + '</desc>' +
      '<rect width="100%" height="100%" fill="#fff"/>' +
      '<text x="8" y="20" font-size="15" font-weight="bold">' + esc(title) + '</text>' +
      '<text x="' + (width - 8) + '" y="20" text-anchor="end" font-size="10">frames per second' +
      (groups.some((g) => g.members.length > 1) ? '; repeats: mean, lowest to highest' : '') + '</text>' +
      legend.map((l) => '<g class="legend" transform="translate(' + l.x + ' ' + (32 + l.y) + ')"><rect width="14" height="12" fill="' +
        colour(l.i) + '"/><text x="19" y="10.5">' + esc(l.g.name.length > 40 ? l.g.name.slice(0, 39) + '…' : l.g.name) +
        '</text></g>').join('') +
      axis.join('') + body.join('') + '</svg>';
  }

  // ---- Tables and CSV ----------------------------------------------------------------------

  function tableHtml(t, groups, keys, stats, base) {
    const head = groups.map((g) => '<th scope="col">' + esc(g.name) +
      (g === base ? ' <span class="base">(baseline)</span>' : '') + '</th>').join('');
    const rows = keys.map((key, k) => {
      const b = stats[k][base.index];
      return '<tr><th scope="row">' + esc(key.res) + '</th><th scope="row">' + esc(key.level) + '</th>' +
        groups.map((g, i) => {
          const st = stats[k][i];
          if (!st) return '<td class="gap">no rate</td>';
          const d = g === base ? null : difference(st, b);
          // Plain text in lines: a table of 50 series has thousands of these cells, and each
          // element in them costs parse and layout time.
          return '<td>' + fps(st.mean) + (d === null ? '' : ' <br>' + percent(d)) +
            (g.members.length > 1 ? ' <br>spread ' + fps(st.max - st.min) + ', n ' + st.n : '') + '</td>';
        }).join('') + '</tr>';
    }).join('');
    return '<div class="scroll" tabindex="0" role="region" aria-label="' + esc(TABLES[t].title) + ' table">' +
      // Columns of fixed width: the browser then lays out a table of 50 series without
      // measuring each of its thousands of cells first.
      '<table class="numbers" id="table-' + TABLES[t].slug + '" style="width:' + (17.5 + 10.5 * groups.length) + 'em">' +
      '<colgroup><col class="res"><col class="level"><col span="' + groups.length + '" class="val"></colgroup><caption>' + esc(TABLES[t].title) +
      ': mean frames per second, the difference in per cent against ' + esc(base.name) +
      ', and for repeats the spread (highest less lowest) and the count</caption>' +
      '<thead><tr><th scope="col">Resolution</th><th scope="col">Level</th>' + head + '</tr></thead>' +
      '<tbody>' + rows + '</tbody></table></div>';
  }

  function csvField(text) {
    return /[",\r\n]/.test(text) ? '"' + text.replace(/"/g, '""') + '"' : text;
  }

  // One line per table, pair and group, so that a spreadsheet can filter and pivot it; the
  // byte-order mark makes spreadsheet programs on Windows read the names as UTF-8.
  function csvText(view) {
    const { groups, keys, base, all } = view;
    const lines = [['Table', 'Resolution', 'Level', 'Series', 'Mean', 'Min', 'Max', 'Spread', 'Count',
      'Difference % against ' + base.name].map(csvField).join(',')];
    all.forEach((stats, t) => {
      keys.forEach((key, k) => {
        groups.forEach((g, i) => {
          const st = stats[k][i];
          const d = g === base ? null : difference(st, stats[k][base.index]);
          lines.push([TABLES[t].title, key.res, key.level, g.name].map(csvField).concat(st
            ? [st.mean.toFixed(6), st.min.toFixed(6), st.max.toFixed(6), (st.max - st.min).toFixed(6), String(st.n)]
            : ['', '', '', '', '0'], [d === null ? '' : d.toFixed(2)]).join(','));
        });
      });
    });
    return '\ufeff' + lines.join('\r\n') + '\r\n';
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
      return '<tr><td><span class="swatch" style="background:' + colour(g.index) + '"></span></td>' +
        '<td><input type="text" data-kind="name" data-id="' + s.id + '" value="' + esc(s.name) +
        '" aria-label="Name of the series from ' + esc(s.file) + '"></td><td>' + esc(s.file) + '</td><td>' +
        esc(s.report.run) + '</td><td class="no-print"><button type="button" data-kind="remove" data-id="' + s.id +
        '" aria-label="Remove ' + esc(s.name) + ' (' + esc(s.file) + ')">Remove</button></td></tr>';
    }).join('');

    if (!groups.length) {
      view = null;
      $('results').innerHTML = '<p class="empty">No report added yet. Add two or more reports to see them side by side.</p>';
    } else {
      const base = baselineOf(groups);
      state.baseline = base.name;
      $('baseline').innerHTML = groups.map((g) => '<option' + (g === base ? ' selected' : '') + '>' +
        esc(g.name) + '</option>').join('');
      const all = TABLES.map((_, t) => keys.map((key) => groups.map((g) => statsOf(g, key, t))));
      view = { groups, keys, base, all };
      $('results').innerHTML = TABLES.map((table, t) => '<section class="measure" aria-labelledby="h-' + table.slug +
        '"><h2 id="h-' + table.slug + '">' + esc(table.title) + '</h2><figure><div class="chart" data-t="' + t +
        '" id="chart-box-' + table.slug + '"></div><figcaption>' + esc(table.title) + ' of each series, by resolution and level. Where a series has no rate ' +
        'the bar is left out. <span class="no-print"><button type="button" data-kind="png" data-t="' + t +
        '">Download PNG</button> <button type="button" data-kind="svg" data-t="' + t +
        '">Download SVG</button></span></figcaption></figure>' + tableHtml(t, groups, keys, all[t], base) + '</section>').join('');
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
    ul.insertAdjacentHTML('beforeend', list.map((m) => '<li><strong>' + esc(m.file) + '</strong>: ' + esc(m.text) + '</li>').join(''));
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
    const svg = chartSvg(t, view.groups, view.keys, view.all[t], view.width, true);
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
      title.textContent = barTitle(view.groups[g], view.keys[k], view.all[t][k][g]);
      bar.appendChild(title);
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
})();
