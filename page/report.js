'use strict';
// The page of a bill beside its drawing. Texts of the bill reach the page by textContent alone.
const $ = (id) => document.getElementById(id);
const data = JSON.parse($('data').textContent); // report.json; without handles where the drawing is a picture
const drawing = $('sheet').querySelector('svg');
const picture = $('sheet').querySelector('img');
const MONEY = ['price', 'total'];
const NUMBERS = ['price', 'quantity', 'total'];
const RIGHT_TO_LEFT = /[\u0590-\u08FF\uFB1D-\uFDFF\uFE70-\uFEFC]/gu;
const HEAVY = 1500; // with more elements, moving shows one picture until the hand rests

function element(name, className, text) {
  const made = document.createElement(name);
  if (className) made.className = className;
  if (text !== undefined) made.textContent = text;
  return made;
}

// ---- What stands where in the drawing ----

function numbersOf(text) {
  return (text || '').match(/-?[\d.]+(?:e[-+]?\d+)?/gi)?.map(Number) ?? [];
}

/** The corners of a box in the coordinates around a shape. */
function cornersOf([x, y, width, height], shape) {
  const own = numbersOf(shape.getAttribute('transform'));
  const [a, b, c, d, e, f] = own.length ? own : [1, 0, 0, 1, 0, 0];
  return [[x, y], [x + width, y], [x + width, y + height], [x, y + height]]
    .map(([px, py]) => [a * px + c * py + e, b * px + d * py + f]);
}

/** Every reference of the space: {handle, block, corners}, and where to find it. */
class Places {
  constructor() {
    this.all = [];
    this.byHandle = new Map();
    this.byBlock = new Map();
    this.byShape = new Map();
    if (!drawing) return;
    const boxes = new Map();
    for (const symbol of drawing.querySelectorAll('symbol[data-box]')) boxes.set(symbol.id, numbersOf(symbol.dataset.box));
    const shapes = [...drawing.querySelectorAll(':scope > g > [data-handle]')];
    for (const use of shapes.filter((shape) => shape.localName === 'use')) {
      const box = boxes.get(use.getAttribute('href').slice(1));
      if (box) this.add(use, cornersOf(box, use));
    }
    // Attributes stand beside their block. Of some references they are all that is seen.
    for (const shape of shapes.filter((each) => each.localName !== 'use' && !this.byHandle.has(each.dataset.handle))) {
      const { x, y, width, height } = shape.getBBox();
      this.add(shape, cornersOf([x, y, width, height], shape));
    }
  }

  add(shape, corners) {
    const place = { handle: shape.dataset.handle, block: shape.dataset.block.toLowerCase(), corners };
    this.all.push(place);
    for (const [map, key] of [[this.byHandle, place.handle], [this.byBlock, place.block], [this.byShape, shape]]) {
      if (!map.has(key)) map.set(key, []);
      map.get(key).push(place);
    }
  }

  /** The places of an item's handles, or of its blocks where the drawing has no handles, and of the references that hold such
   *  blocks inside. */
  of({ handles, blocks, inside }) {
    const known = handles.filter((handle) => handle !== '0');
    const found = known.length ? known.map((handle) => this.byHandle.get(handle)) : blocks.map((block) => this.byBlock.get(block.toLowerCase()));
    return [...new Set([...found.flatMap((some) => some ?? []), ...this.around(inside)])];
  }

  around(blocks) {
    const names = new Set(blocks.map((block) => block.toLowerCase()));
    const open = drawing && names.size ? [...drawing.querySelectorAll('symbol use')].filter((use) => names.has(use.dataset.block?.toLowerCase())) : [];
    const found = [];
    const seen = new Set();
    while (open.length) {
      const use = open.pop();
      const symbol = use.closest('symbol');
      if (!symbol) {
        found.push(...(this.byShape.get(use) ?? []));
      } else if (!seen.has(symbol.id)) {
        seen.add(symbol.id);
        open.push(...drawing.querySelectorAll(`use[href="#${symbol.id}"]`));
      }
    }
    return found;
  }
}

function boundsOf(places) {
  let [left, top, right, bottom] = [Infinity, Infinity, -Infinity, -Infinity];
  for (const { corners } of places) {
    for (const [x, y] of corners) {
      left = Math.min(left, x); right = Math.max(right, x);
      top = Math.min(top, y); bottom = Math.max(bottom, y);
    }
  }
  return { x: left, y: top, width: right - left, height: bottom - top };
}

function areaOf(corners) {
  return Math.abs(corners.reduce((sum, [x, y], i) => sum + x * corners[(i + 1) % 4][1] - y * corners[(i + 1) % 4][0], 0)) / 2;
}

function encloses(corners, x, y) {
  let inside = false;
  corners.forEach(([ax, ay], i) => {
    const [bx, by] = corners[(i + 3) % 4];
    if ((ay > y) !== (by > y) && x < (bx - ax) * (y - ay) / (by - ay) + ax) inside = !inside;
  });
  return inside;
}

// ---- The view ----

/** The part of the drawing that is seen: its centre, and how many pixels a unit has. */
class View {
  constructor() {
    const [x, y, width, height] = drawing ? numbersOf(drawing.getAttribute('viewBox')) : [0, 0, picture.naturalWidth || 1600, picture.naturalHeight || 1200];
    this.whole = { x, y, width, height };
    this.heavy = drawing !== null && drawing.querySelectorAll(':scope > g > *').length > HEAVY;
    this.dashes = drawing ? [...drawing.querySelector('style').sheet.cssRules].filter((rule) => rule.style.getPropertyValue('--dashes')) : [];
    this.resize();
    this.fit();
    if (this.heavy) drawing.style.willChange = 'transform';
    $('sheet').className = 'ready'; // which lets the browser lay it out
  }

  /** Takes the size of the pane; true when it has changed. */
  resize() {
    const { clientWidth, clientHeight } = $('view');
    const [width, height] = [Math.max(clientWidth, 1), Math.max(clientHeight, 1)];
    const changed = width !== this.width || height !== this.height;
    Object.assign(this, { width, height });
    return changed;
  }

  show({ x, y, width, height }, widest = Infinity) {
    this.set(x + width / 2, y + height / 2, Math.min(this.width / width, this.height / height, widest));
  }

  fit() { this.show(this.whole); }

  set(x, y, scale) {
    const fit = Math.min(this.width / this.whole.width, this.height / this.whole.height);
    Object.assign(this, { x, y, scale: Math.min(Math.max(scale, fit / 20), fit * 1e5) });
    this.apply();
  }

  toDrawing(px, py) { return [this.x + (px - this.width / 2) / this.scale, this.y + (py - this.height / 2) / this.scale]; }

  zoom(factor, px = this.width / 2, py = this.height / 2) {
    const [x, y] = this.toDrawing(px, py);
    const before = this.scale;
    this.scale *= factor;
    this.set(x - (x - this.x) * before / this.scale, y - (y - this.y) * before / this.scale, this.scale);
  }

  pan(dx, dy) { this.set(this.x - dx / this.scale, this.y - dy / this.scale, this.scale); }

  box() {
    return [this.x - this.width / 2 / this.scale, this.y - this.height / 2 / this.scale, this.width / this.scale, this.height / this.scale];
  }

  /** What is lit follows at once. A drawing of many parts is moved as a picture, and painted anew when the hand rests. */
  apply() {
    const box = this.box();
    $('light').setAttribute('viewBox', box.join(' '));
    if (picture) {
      picture.style.transform = `translate(${-box[0] * this.scale}px, ${-box[1] * this.scale}px) scale(${this.scale})`;
      return;
    }
    if (!this.heavy || !this.painted) {
      this.paint();
      return;
    }
    const [dx, dy] = [this.painted[0] - box[0], this.painted[1] - box[1]].map((units) => units * this.scale);
    drawing.style.transform = `translate(${dx}px, ${dy}px) scale(${this.painted[2] / box[2]})`;
    clearTimeout(this.rest);
    this.rest = setTimeout(() => this.paint(), 150);
  }

  paint() {
    clearTimeout(this.rest);
    this.painted = this.box();
    drawing.setAttribute('viewBox', this.painted.join(' '));
    drawing.style.transform = '';
    for (const rule of this.dashes) {
      const lengths = numbersOf(rule.style.getPropertyValue('--dashes')).map((length) => length * this.scale);
      rule.style.strokeDasharray = lengths.reduce((sum, length) => sum + length, 0) < 3 ? 'none' : lengths.join(' ');
    }
  }
}

// ---- The bill ----

/** A row for each kind of note: its line, and the references that it tells of: by their handles, or all of some blocks (where
 * handles say nothing), or what has some blocks inside. */
function notesOf({ notes, note_lines: lines }) {
  const codes = [...new Set(notes.map((note) => note.code))];
  return codes.map((code, number) => {
    const told = notes.filter((note) => note.code === code);
    const blocks = [...new Set(told.map((note) => note.block).filter((block) => block !== undefined))].sort();
    return { text: lines[number], note: true, handles: told.flatMap((note) => note.handles ?? []),
      blocks: code === 'unpriced' ? blocks : [], inside: code === 'nested' ? blocks : [] };
  });
}

const billRows = data.rows.map((row, number) => ({ ...row, number, blocks: [row.block], inside: [] }));
const notes = notesOf(data);
const keys = Object.keys(data.columns);
// `current` is the place of the current row in `shown`, `at` that of the reference in `found` that was gone to last; -1: none.
const state = { marked: [], at: -1, sort: null, down: false, hidden: new Set(), shown: [], current: -1, found: [] };
const ticked = new Set();
let places;
let view;

function recallTicks() {
  try { JSON.parse(localStorage.getItem(`bill ${data.drawing.sha256}`))?.forEach((block) => ticked.add(block)); } catch { /* nothing is kept here */ }
}

function tick(row, on) {
  ticked[on ? 'add' : 'delete'](row.block);
  try { localStorage.setItem(`bill ${data.drawing.sha256}`, JSON.stringify([...ticked])); } catch { /* nothing is kept here */ }
  render();
}

const visibleKeys = () => keys.filter((key) => !state.hidden.has(key) && ($('money').checked || !MONEY.includes(key)));
const cellText = (row, key) => String(row[key] ?? '');

function compare(a, b, key) {
  const order = NUMBERS.includes(key) ? (parseFloat(a[key]) || 0) - (parseFloat(b[key]) || 0)
    : cellText(a, key).localeCompare(cellText(b, key), undefined, { numeric: true });
  return (state.down ? -order : order) || a.number - b.number;
}

function render() {
  const shownKeys = visibleKeys();
  const wanted = $('search').value.trim().toLowerCase();
  const matches = (texts) => texts.some((text) => text.toLowerCase().includes(wanted));
  const rows = billRows.filter((row) => matches(shownKeys.map((key) => cellText(row, key))));
  if (state.sort) rows.sort((a, b) => compare(a, b, state.sort));
  const shownNotes = notes.filter((note) => matches([note.text]));
  const current = state.shown[state.current];
  state.shown = [...rows, ...shownNotes];
  state.current = state.shown.indexOf(current);
  $('count').textContent = `${rows.length} of ${billRows.length}`;
  $('head').replaceChildren(element('th', 'tick'), ...shownKeys.map(heading));
  $('rows').replaceChildren(...rows.map((row) => rowElement(row, shownKeys)));
  $('notes').replaceChildren(...shownNotes.map((note) => noteElement(note, shownKeys.length + 1)));
  $('sum').replaceChildren(...sumElements(shownKeys));
  const done = billRows.filter((row) => ticked.has(row.block)).length;
  $('ticked').textContent = done ? `${done} of ${billRows.length} checked` : '';
  mark();
}

function heading(key) {
  const cell = element('th', NUMBERS.includes(key) ? 'number' : '');
  const button = element('button', '', data.columns[key]);
  button.dir = 'auto';
  button.onclick = () => {
    [state.sort, state.down] = state.sort !== key ? [key, false] : state.down ? [null, false] : [key, true];
    render();
    $('head').children[visibleKeys().indexOf(key) + 1].firstChild.focus();
  };
  cell.scope = 'col';
  cell.dataset.heading = data.columns[key]; // printed pages repeat this, and not the button
  cell.ariaSort = state.sort !== key ? 'none' : state.down ? 'descending' : 'ascending';
  cell.append(button);
  return cell;
}

function box(label, checked, changed) {
  const made = element('input');
  Object.assign(made, { type: 'checkbox', checked, ariaLabel: label, onchange: () => changed(made.checked) });
  return made;
}

function itemElement(item) {
  item.element = element('tr');
  item.element.onclick = (event) => {
    if (event.target.type !== 'checkbox') choose(item, event.shiftKey ? 'to' : event.ctrlKey || event.metaKey ? 'also' : 'alone');
  };
  return item.element;
}

function rowElement(item, shownKeys) {
  const row = itemElement(item);
  const cell = element('td', 'tick');
  cell.append(box(`${item.block} checked`, ticked.has(item.block), (on) => tick(item, on)));
  row.append(cell, ...shownKeys.map((key) => {
    const number = NUMBERS.includes(key);
    return Object.assign(element('td', number ? 'number' : '', cellText(item, key)), { dir: number ? 'ltr' : 'auto' });
  }));
  row.classList.toggle('done', ticked.has(item.block));
  return row;
}

function noteElement(item, width) {
  const row = itemElement(item);
  row.append(Object.assign(element('td', '', item.text), { colSpan: width, dir: 'auto' }));
  return row;
}

function sumElements(shownKeys) {
  if (data.sum === null || !shownKeys.includes('total')) return [];
  const row = element('tr');
  row.append(element('td', 'tick'), ...shownKeys.map((key, place) => {
    const text = key === 'total' ? data.sum : place === 0 ? 'Summary:' : '';
    return Object.assign(element('td', NUMBERS.includes(key) ? 'number' : '', text), { dir: 'auto' });
  }));
  return [row];
}

// ---- Marking rows, and lighting up what they stand for ----

function choose(item, how = 'alone') {
  const from = state.shown[state.current] ?? item;
  state.current = state.shown.indexOf(item);
  if (how === 'also' && state.marked.includes(item)) {
    state.marked = state.marked.filter((each) => each !== item);
  } else if (how === 'to') {
    const [first, last] = [state.shown.indexOf(state.anchor ?? from), state.current].sort((a, b) => a - b);
    state.marked = state.shown.slice(Math.max(first, 0), last + 1);
  } else {
    state.marked = how === 'also' ? [...state.marked, item] : [item];
    state.anchor = item;
  }
  light();
  lookAt(state.found);
}

function light(at = -1) {
  state.found = [...new Set(state.marked.flatMap((item) => places.of(item)))];
  state.at = at;
  $('all').setAttribute('d', outline(state.found));
  walk(at, false);
  mark();
}

const outline = (found) => found.map(({ corners: [a, b, c, d] }) => `M${a}L${b}L${c}L${d}Z`).join('');

function mark() {
  for (const item of [...billRows, ...notes]) {
    const marked = state.marked.includes(item);
    item.element?.classList.toggle('marked', marked);
    if (item.element) item.element.ariaSelected = String(marked);
  }
  const current = state.shown[state.current]?.element;
  if (current?.isConnected) current.scrollIntoView({ block: 'nearest' });
}

function lookAt(found, around = 1.3) {
  if (!found.length) return;
  const { x, y, width, height } = boundsOf(found);
  const least = Math.max(view.whole.width, view.whole.height) * 1e-4;
  const [wide, high] = [Math.max(width * around, least), Math.max(height * around, least)];
  const fit = Math.min(view.width / view.whole.width, view.height / view.whole.height);
  const single = Math.min(view.width / wide, view.height / high) / 3; // a single thing is shown with its neighbours
  view.show({ x: x + (width - wide) / 2, y: y + (height - high) / 2, width: wide, height: high }, found.length === 1 ? Math.max(single, fit) : Infinity);
}

/** Goes to the lit reference at this place of `found`; -1 for none. */
function walk(at, look = true) {
  const { found } = state;
  state.at = found.length && at >= 0 ? at % found.length : -1;
  const one = found[state.at];
  $('one').setAttribute('d', one ? outline([one]) : '');
  const name = state.marked.length === 1 ? state.marked[0].block ?? '' : '';
  const unseen = state.marked.reduce((sum, item) => sum + item.handles.length, 0) - found.length;
  const number = one ? `${state.at + 1} of ${found.length}` : name ? found.length : `${found.length} places`;
  $('place').textContent = !state.marked.length ? '' : !drawing ? 'not shown in a picture'
    : `${one?.block ?? name} ${number}${unseen > 0 ? ` (${unseen} not seen)` : ''}`.trim();
  $('back').disabled = $('next').disabled = !found.length;
  if (look && one) lookAt([one]);
}

function step(by) {
  const count = state.found.length;
  if (count) walk(state.at < 0 ? (by > 0 ? 0 : count - 1) : (state.at + by + count) % count);
}

function clear() {
  state.marked = [];
  state.current = -1;
  state.anchor = null;
  light();
}

/** Marks the row of the reference at a pixel, or within six pixels of it: the smallest one. */
function pick(px, py) {
  const [x, y] = view.toDrawing(px, py);
  const reach = 6 / view.scale;
  const near = ({ corners }) => corners.some(([ax, ay], i) => {
    const [wayX, wayY] = [corners[(i + 1) % 4][0] - ax, corners[(i + 1) % 4][1] - ay];
    const part = Math.min(1, Math.max(0, ((x - ax) * wayX + (y - ay) * wayY) / (wayX ** 2 + wayY ** 2 || 1)));
    return Math.hypot(ax + part * wayX - x, ay + part * wayY - y) < reach;
  });
  const hits = places.all.filter((place) => encloses(place.corners, x, y) || near(place));
  if (!hits.length) return clear();
  const hit = hits.reduce((best, place) => (areaOf(place.corners) < areaOf(best.corners) ? place : best));
  const has = (item) => places.of(item).includes(hit);
  const item = billRows.find(has) ?? notes.find(has);
  state.marked = item ? [item] : [];
  if (item && !state.shown.includes(item)) {
    $('search').value = '';
    render();
  }
  state.current = state.shown.indexOf(item);
  state.anchor = item;
  light();
  if (item) return walk(state.found.indexOf(hit), false);
  $('one').setAttribute('d', outline([hit]));
  $('place').textContent = `${hit.block} is not in the bill`;
}

// ---- Hands ----

const pointers = new Map();
let travelled = 0;

function positionOf(event) {
  const { left, top } = $('view').getBoundingClientRect();
  return [event.clientX - left, event.clientY - top];
}

function spread() {
  const [[ax, ay], [bx, by]] = [...pointers.values()];
  return { length: Math.max(Math.hypot(ax - bx, ay - by), 1), x: (ax + bx) / 2, y: (ay + by) / 2 };
}

function movePointer(event) {
  if (!pointers.has(event.pointerId)) return;
  const before = pointers.size === 2 ? spread() : null;
  const [oldX, oldY] = pointers.get(event.pointerId);
  const [x, y] = positionOf(event);
  pointers.set(event.pointerId, [x, y]);
  travelled += Math.hypot(x - oldX, y - oldY);
  if (before) {
    const after = spread();
    view.pan(after.x - before.x, after.y - before.y);
    view.zoom(after.length / before.length, after.x, after.y);
  } else if (pointers.size === 1 && travelled > 4) {
    $('view').classList.add('moving');
    view.pan(x - oldX, y - oldY);
  }
}

function letGo(event) {
  if (!pointers.delete(event.pointerId) || pointers.size) return;
  $('view').classList.remove('moving');
  if (event.type === 'pointerup' && travelled <= 4) pick(...positionOf(event));
}

function followHands() {
  const pane = $('view');
  pane.addEventListener('pointerdown', (event) => {
    if (event.target.closest('#tools')) return;
    if (!pointers.size) travelled = 0;
    pointers.set(event.pointerId, positionOf(event));
    if (pointers.size > 1) travelled = Infinity;
    pane.setPointerCapture(event.pointerId);
  });
  pane.addEventListener('pointermove', movePointer);
  pane.addEventListener('pointerup', letGo);
  pane.addEventListener('pointercancel', letGo);
  pane.addEventListener('dblclick', (event) => { if (!event.target.closest('#tools')) view.fit(); });
  pane.addEventListener('wheel', (event) => {
    event.preventDefault();
    const lines = event.deltaY * (event.deltaMode === 1 ? 20 : 1);
    view.zoom(Math.exp(-Math.max(-300, Math.min(300, lines)) * 0.0018), ...positionOf(event));
  }, { passive: false });
  new ResizeObserver(() => { if (view.resize()) view.set(view.x, view.y, view.scale); }).observe(pane);
}

function moveMark(by, how) {
  if (!state.shown.length) return;
  const to = state.current < 0 ? (by > 0 ? 0 : state.shown.length - 1) : state.current + by;
  choose(state.shown[Math.max(0, Math.min(state.shown.length - 1, to))], how);
}

const KEYS = {
  ArrowDown: (event) => moveMark(1, event.shiftKey ? 'to' : 'alone'),
  ArrowUp: (event) => moveMark(-1, event.shiftKey ? 'to' : 'alone'),
  Home: () => { state.current = 0; moveMark(0); },
  End: () => { state.current = state.shown.length - 1; moveMark(0); },
  ArrowRight: () => step(1),
  ArrowLeft: () => step(-1),
  '/': () => $('search').select(),
  '+': () => view.zoom(1.4),
  '-': () => view.zoom(1 / 1.4),
  ' ': () => state.marked.filter((item) => !item.note).forEach((row) => tick(row, !ticked.has(row.block))),
  Escape: () => { if (state.marked.length) clear(); else view.fit(); $('columns').open = false; },
};

function press(event) {
  const { target, key } = event;
  if (event.ctrlKey || event.altKey || event.metaKey) return;
  if (target === $('search')) {
    if (key === 'Escape') { target.value = ''; render(); target.blur(); }
    if (key === 'Enter' || key === 'ArrowDown') { target.blur(); state.current = -1; moveMark(1); event.preventDefault(); }
    return;
  }
  if (key === ' ' && target.closest('button, input, summary')) return;
  if (!Object.hasOwn(KEYS, key)) return;
  event.preventDefault();
  KEYS[key](event);
}

// ---- Rows for a spreadsheet ----

/** Guards a text as in the bill's CSV, so that no spreadsheet takes it for a formula. */
function plain(text) { return (/^[=+\-@]/.test(text) ? `'${text}` : text).replace(/[\t\r\n]+/g, ' '); }

function rowsAsText() {
  const marked = state.shown.filter((item) => state.marked.includes(item) && !item.note);
  const rows = marked.length ? marked : state.shown.filter((item) => !item.note);
  const lines = rows.map((row) => visibleKeys().map((key) => (NUMBERS.includes(key) ? cellText(row, key) : plain(cellText(row, key)))));
  return [visibleKeys().map((key) => data.columns[key]), ...lines].map((cells) => cells.join('\t') + '\r\n').join('');
}

function copy(event) {
  if (event.target.closest?.('input') || !getSelection().isCollapsed) return;
  event.clipboardData.setData('text/plain', rowsAsText());
  event.preventDefault();
}

// ---- The start ----

function columnChoice(key) {
  const label = element('label');
  const show = (on) => { state.hidden[on ? 'delete' : 'add'](key); render(); };
  label.append(box(data.columns[key], true, show), ` ${data.columns[key]}`);
  return label;
}

function runsFromRight() {
  const text = data.rows.map((row) => `${row.block}${row.description ?? ''}`).join('');
  const letters = text.match(/\p{L}/gu)?.length ?? 0;
  return (text.match(RIGHT_TO_LEFT)?.length ?? 0) * 2 > letters;
}

function start() {
  document.title = `${data.drawing.name} – bill of materials`;
  $('title').textContent = data.drawing.name;
  if (runsFromRight()) $('bill').dir = 'rtl';
  $('money-choice').hidden = !keys.some((key) => MONEY.includes(key));
  $('column-list').append(...keys.map(columnChoice));
  $('dark').checked = matchMedia('(prefers-color-scheme: dark)').matches;
  const ground = () => document.documentElement.classList.toggle('dark', $('dark').checked);
  ground();
  if (!drawing) {
    $('still').hidden = false;
    $('still').textContent = 'The drawing has too many parts for a browser: this is a picture of it, in which nothing can be lit up.';
  }
  view = new View();
  places = new Places();
  recallTicks();
  render();
  walk(-1);
  followHands();
  $('search').oninput = render;
  $('money').onchange = render;
  $('dark').onchange = ground;
  $('copy').onclick = () => { getSelection().removeAllRanges(); document.execCommand('copy'); };
  $('print').onclick = () => print();
  const tools = { closer: () => view.zoom(1.4), away: () => view.zoom(1 / 1.4), fit: () => view.fit(), next: () => step(1), back: () => step(-1) };
  for (const [id, act] of Object.entries(tools)) $(id).onclick = act;
  document.addEventListener('keydown', press);
  document.addEventListener('copy', copy);
  addEventListener('beforeprint', () => { document.documentElement.classList.remove('dark'); view.resize(); if (drawing) view.paint(); });
  addEventListener('afterprint', () => { ground(); view.resize(); view.set(view.x, view.y, view.scale); });
}

start();
