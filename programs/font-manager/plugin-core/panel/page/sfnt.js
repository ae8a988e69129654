// What the previews need of a font file. Every number is bounded by the size of the file: a
// DataView throws a RangeError beyond it, which callers treat as a damaged file.

const COLLECTION = 0x74746366; // "ttcf"
const CMAP = 0x636d6170; // "cmap"
const MOST_TABLES = 256;
const MOST_RANGES = 20000;

// Browsers take only single fonts from memory. Returns the face at `index` of a collection as a
// font of its own, and other fonts unchanged.
export function extractFace(buffer, index) {
  const view = new DataView(buffer);
  if (view.getUint32(0) !== COLLECTION) return buffer;
  const start = view.getUint32(12 + 4 * index);
  const tables = readTables(view, start);
  const headSize = 12 + 16 * tables.length;
  let size = headSize;
  for (const table of tables) size += (table.length + 3) & ~3;
  if (size > 4 * buffer.byteLength) throw new RangeError("the tables overlap too much");
  const face = new Uint8Array(size);
  face.set(new Uint8Array(buffer, start, headSize));
  const out = new DataView(face.buffer);
  let place = headSize;
  tables.forEach((table, row) => {
    face.set(new Uint8Array(buffer, table.offset, table.length), place);
    out.setUint32(12 + 16 * row + 8, place);
    place += (table.length + 3) & ~3;
  });
  return face.buffer;
}

// Returns the ranges [first, last] of the characters that the font has, in ascending order; null if
// they are in a form that isn't read here.
export function readCharacters(buffer) {
  const view = new DataView(buffer);
  const cmap = readTables(view, 0).find((table) => table.tag === CMAP);
  if (!cmap) return null;
  let best = 0;
  let bestFormat = 0;
  for (let row = 0; row < Math.min(view.getUint16(cmap.offset + 2), 64); ++row) {
    const entry = cmap.offset + 4 + 8 * row;
    const platform = view.getUint16(entry);
    const offset = cmap.offset + view.getUint32(entry + 4);
    const format = view.getUint16(offset);
    const isUnicode = platform === 0 || (platform === 3 && view.getUint16(entry + 2) !== 0);
    if (isUnicode && (format === 4 || format === 12) && format > bestFormat) {
      best = offset;
      bestFormat = format;
    }
  }
  if (bestFormat === 0) return null;
  return bestFormat === 12 ? readGroups(view, best) : readSegments(view, best);
}

// Characters that show nothing, or need no glyph of their own.
const BLANK = /^[\s\p{C}]$/u;

export function hasAll(ranges, text) {
  return [...text].every((letter) => {
    const code = letter.codePointAt(0);
    return BLANK.test(letter) || ranges.some(([first, last]) => first <= code && code <= last);
  });
}

// Returns up to `count` visible characters of the ranges.
export function pickLetters(ranges, count) {
  let letters = "";
  let found = 0;
  for (const [first, last] of ranges) {
    for (let code = Math.max(first, 33); code <= last && found < count; ++code) {
      const letter = String.fromCodePoint(code);
      if (/^[\p{C}\p{M}\p{Z}]$/u.test(letter) && !/^\p{Co}$/u.test(letter)) continue;
      letters += letter;
      ++found;
    }
  }
  return letters;
}

function readTables(view, start) {
  const count = Math.min(view.getUint16(start + 4), MOST_TABLES);
  const tables = [];
  for (let row = 0; row < count; ++row) {
    const entry = start + 12 + 16 * row;
    tables.push({
      tag: view.getUint32(entry),
      offset: view.getUint32(entry + 8),
      length: view.getUint32(entry + 12),
    });
  }
  return tables;
}

// Format 4. Characters without a glyph within a segment are rare and don't matter here.
function readSegments(view, start) {
  const doubled = view.getUint16(start + 6);
  const ranges = [];
  for (let row = 0; row < doubled; row += 2) {
    const last = view.getUint16(start + 14 + row);
    const first = view.getUint16(start + 16 + doubled + row);
    if (first <= last && first < 0xffff) ranges.push([first, Math.min(last, 0xfffe)]);
  }
  return ranges;
}

// Format 12.
function readGroups(view, start) {
  const ranges = [];
  for (let row = 0; row < Math.min(view.getUint32(start + 12), MOST_RANGES); ++row) {
    const first = view.getUint32(start + 16 + 12 * row);
    const last = view.getUint32(start + 20 + 12 * row);
    if (first <= last && last <= 0x10ffff) ranges.push([first, last]);
  }
  return ranges;
}
