// The list of fonts. Only the rows that are visible exist, and only the parts of the list that were
// visible are known, so that its length doesn't matter.

import { FontRow } from "/font-row.js";

const PART = 100; // fonts of a request
const MOST_PARTS = 60;
const BEYOND = 4; // rows above and below the visible ones
const PREVIEW_DELAY = 60; // milliseconds without scrolling
const ROW_EXTRA = 46; // pixels of a row besides its sample
const TALLEST = 15000000; // pixels that every browser can lay out

export class FontList {
  #grid;
  #rowGroup;
  #previews;
  #fetch;
  #onToggle;
  #rows = new Map(); // index -> FontRow
  #parts = new Map(); // number -> { fonts, isStale, isLoading }
  #generation = 0;
  #total = 0;
  #cursor = 0;
  #sample = { text: "", size: 30 };
  #frame = 0;
  #previewTimer = 0;

  // fetchPart(offset, limit) returns a promise of { total, fonts }. onToggle(font) is called to
  // activate or deactivate.
  constructor(grid, previews, fetchPart, onToggle) {
    this.#grid = grid;
    this.#previews = previews;
    this.#fetch = fetchPart;
    this.#onToggle = onToggle;
    this.#rowGroup = document.createElement("div");
    this.#rowGroup.setAttribute("role", "rowgroup");
    grid.append(this.#rowGroup);
    grid.addEventListener("scroll", () => this.#draw(), { passive: true });
    grid.addEventListener("keydown", (event) => this.#press(event));
    grid.addEventListener("click", (event) => this.#click(event));
    new ResizeObserver(() => this.#draw()).observe(grid);
  }

  onTotal = () => {};

  setSample(text, size) {
    const first = this.#grid.scrollTop / this.#rowHeight;
    this.#sample = { text, size };
    for (const row of this.#rows.values()) row.setSample(this.#sample, this.#previews);
    this.#layOut();
    this.#grid.scrollTop = first * this.#rowHeight;
  }

  // Shows another list from its beginning.
  reset() {
    this.#cursor = 0;
    this.#grid.scrollTop = 0;
    this.refresh();
  }

  // Asks again for what is visible. The rows remain until the answer arrives.
  refresh() {
    ++this.#generation;
    for (const part of this.#parts.values()) {
      part.isStale = true;
      part.isLoading = false;
    }
    if (this.#parts.size === 0) this.#load(0);
    this.#draw();
  }

  // Shows a state before the next answer confirms it.
  setState(names, state) {
    const changed = new Set(names);
    for (const part of this.#parts.values()) {
      for (const font of part.fonts) if (changed.has(font.PostScriptName)) font.state = state;
    }
    for (const row of this.#rows.values()) row.update();
  }

  get #rowHeight() {
    return Math.round(this.#sample.size * 1.5) + ROW_EXTRA;
  }

  #getFont(index) {
    return this.#parts.get(Math.floor(index / PART))?.fonts[index % PART];
  }

  async #load(number) {
    const part = this.#parts.get(number) ?? { fonts: [] };
    part.isLoading = true;
    part.isStale = false;
    this.#parts.set(number, part);
    const generation = this.#generation;
    try {
      const fonts = [];
      let total = 0;
      // An answer may have fewer fonts than the limit.
      do {
        const offset = number * PART + fonts.length;
        const answer = await this.#fetch(offset, PART - fonts.length);
        if (generation !== this.#generation) return;
        if (answer.fonts.length === 0) fonts.length = Math.min(PART, total);
        fonts.push(...answer.fonts);
        total = Math.max(0, answer.total - number * PART);
        this.#setTotal(answer.total);
      } while (fonts.length < Math.min(PART, total));
      part.fonts = fonts;
    } catch {
      // The connection is lost, which the page shows. After the next one everything is asked anew.
      if (generation === this.#generation) part.isStale = true;
      return;
    } finally {
      if (generation === this.#generation) part.isLoading = false;
    }
    this.#forgetParts(number);
    this.#draw();
  }

  #forgetParts(nearest) {
    for (const number of this.#parts.keys()) {
      if (this.#parts.size <= MOST_PARTS) return;
      if (Math.abs(number - nearest) > 2) this.#parts.delete(number);
    }
  }

  #setTotal(total) {
    this.#total = total;
    this.#cursor = Math.max(0, Math.min(this.#cursor, total - 1));
    this.#grid.setAttribute("aria-rowcount", String(total));
    this.#layOut();
    this.onTotal(total);
  }

  #layOut() {
    const height = Math.min(this.#total * this.#rowHeight, TALLEST);
    this.#rowGroup.style.height = `${height}px`;
    this.#draw();
  }

  #draw() {
    if (this.#frame) return;
    this.#frame = requestAnimationFrame(() => {
      this.#frame = 0;
      this.#drawNow();
    });
  }

  #drawNow() {
    const height = this.#rowHeight;
    const top = this.#grid.scrollTop;
    const first = Math.max(0, Math.floor(top / height) - BEYOND);
    const visible = Math.ceil((top + this.#grid.clientHeight) / height) + BEYOND;
    const end = Math.min(this.#total, visible, Math.floor(TALLEST / height));
    for (const [index, row] of this.#rows) {
      if (index >= first && index < end) continue;
      row.element.remove();
      this.#rows.delete(index);
    }
    for (let index = first; index < end; ++index) {
      const row = this.#rows.get(index) ?? this.#addRow(index);
      row.place(index, height);
      row.setCurrent(index === this.#cursor);
      row.setFont(this.#getFont(index), this.#previews);
    }
    for (let part = Math.floor(first / PART); part * PART < end; ++part) {
      const known = this.#parts.get(part);
      if (!known || (known.isStale && !known.isLoading)) this.#load(part);
    }
    const current = this.#rows.get(this.#cursor);
    if (current) this.#grid.setAttribute("aria-activedescendant", current.element.id);
    else this.#grid.removeAttribute("aria-activedescendant");
    clearTimeout(this.#previewTimer);
    this.#previewTimer = setTimeout(() => this.#wantPreviews(), PREVIEW_DELAY);
  }

  #addRow(index) {
    const row = new FontRow(this.#sample);
    this.#rows.set(index, row);
    // The order in the document is the order on the screen, for screen readers.
    const next = this.#rows.get(index + 1);
    if (next) next.element.before(row.element);
    else this.#rowGroup.append(row.element);
    return row;
  }

  #wantPreviews() {
    const fonts = new Map();
    for (const [, row] of [...this.#rows].sort(([left], [right]) => left - right)) {
      if (row.font?.id) fonts.set(String(row.font.id), row.font);
    }
    this.#previews.want(fonts, (key) => {
      for (const row of this.#rows.values()) {
        if (String(row.font?.id) === key) row.setSample(this.#sample, this.#previews);
      }
    });
  }

  #press(event) {
    if (event.altKey || event.ctrlKey || event.metaKey) return;
    const visible = Math.max(1, Math.floor(this.#grid.clientHeight / this.#rowHeight) - 1);
    const targets = {
      ArrowDown: this.#cursor + 1,
      ArrowUp: this.#cursor - 1,
      PageDown: this.#cursor + visible,
      PageUp: this.#cursor - visible,
      Home: 0,
      End: this.#total - 1,
    };
    if (event.key in targets) {
      this.#moveTo(targets[event.key]);
    } else if (event.key === " " || event.key === "Enter") {
      const font = this.#getFont(this.#cursor);
      if (font) this.#onToggle(font);
    } else {
      return;
    }
    event.preventDefault();
  }

  #moveTo(index) {
    this.#cursor = Math.max(0, Math.min(index, this.#total - 1));
    const height = this.#rowHeight;
    const grid = this.#grid;
    const top = this.#cursor * height;
    if (top < grid.scrollTop) grid.scrollTop = top;
    if (top + height > grid.scrollTop + grid.clientHeight) {
      grid.scrollTop = top + height - grid.clientHeight;
    }
    this.#draw();
  }

  #click(event) {
    const element = event.target.closest("[role=row]");
    const [index, row] = [...this.#rows].find(([, each]) => each.element === element) ?? [];
    if (!row?.font) return;
    this.#cursor = index;
    if (event.target.closest(".switch")) this.#onToggle(row.font);
    this.#draw();
  }
}
