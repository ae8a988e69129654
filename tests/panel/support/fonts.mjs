// Makes small valid TrueType fonts with names of their own. Their letters are blocks that depend on
// the seed, so that no two fonts look alike.

import { mkdirSync, writeFileSync } from "node:fs";
import { join } from "node:path";

const UNITS = 1000;
const SHAPES = 16;
const FIRST = 0x20;
const LAST = 0x7e;

// Writes `count` fonts named PREFIX00000-Regular and so on into the folder.
export function makeFonts(folder, prefix, count) {
  mkdirSync(folder, { recursive: true });
  for (let number = 0; number < count; ++number) {
    const family = prefix + String(number).padStart(5, "0");
    writeFileSync(join(folder, `${family}.ttf`), makeFont(family, number));
  }
}

// Returns the bytes of a font whose PostScript name is FAMILY-Regular.
export function makeFont(family, seed, postScriptName = `${family}-Regular`) {
  const glyphs = [makeGlyph(0x7fff), Buffer.alloc(0)];
  for (let shape = 0; shape < SHAPES; ++shape) glyphs.push(makeGlyph(mix(seed * SHAPES + shape)));
  const loca = [0];
  for (const glyph of glyphs) loca.push(loca.at(-1) + glyph.length);
  return makeFile({
    "OS/2": makeOs2(),
    cmap: makeCmap(),
    glyf: Buffer.concat(glyphs),
    head: words([1, 0, 1, 0, 0, 0, 0x5f0f, 0x3cf5, 3, UNITS, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 600,
      UNITS, 0, 8, 2, 1, 0]),
    hhea: words([1, 0, 800, -200, 0, 640, 0, 0, 600, 1, 0, 0, 0, 0, 0, 0, 0, 1]),
    hmtx: words([640, 0, ...glyphs.slice(1).map(() => 0)]),
    loca: longs(loca),
    maxp: words([1, 0, glyphs.length, 64, 16, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0]),
    name: makeName(family, postScriptName),
    post: words([3, 0, 0, 0, -100, 50, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0]),
  });
}

// Returns a collection with the fonts as its faces.
export function makeCollection(fonts) {
  const head = 12 + 4 * fonts.length;
  const starts = fonts.map((_, index) =>
    fonts.slice(0, index).reduce((place, font) => place + font.length, head));
  const faces = fonts.map((font, index) => {
    const face = Buffer.from(font);
    // In a collection, tables are found from the beginning of the file.
    for (let row = 0; row < face.readUInt16BE(4); ++row) {
      const at = 12 + 16 * row + 8;
      face.writeUInt32BE(face.readUInt32BE(at) + starts[index], at);
    }
    return face;
  });
  return Buffer.concat([Buffer.from("ttcf"), longs([0x10000, fonts.length, ...starts]), ...faces]);
}

// Spreads numbers that are near each other.
function mix(number) {
  let mixed = Math.imul(number + 1, 0x9e3779b1);
  mixed = Math.imul(mixed ^ (mixed >>> 15), 0x85ebca6b);
  return (mixed ^ (mixed >>> 13)) & 0x7fff;
}

// A glyph with a block for each bit that is set: three in a row, five rows.
function makeGlyph(bits) {
  const points = [];
  for (let bit = 0; bit < 15; ++bit) {
    if (((bits >> bit) & 1) === 0) continue;
    const left = 40 + 180 * (bit % 3);
    const bottom = 140 * Math.floor(bit / 3);
    points.push([left, bottom], [left, bottom + 130], [left + 170, bottom + 130],
      [left + 170, bottom]);
  }
  if (points.length === 0) return Buffer.alloc(0);
  const ends = points.flatMap((_, index) => (index % 4 === 3 ? [index] : []));
  const deltas = (axis) =>
    points.map((point, index) => point[axis] - (index > 0 ? points[index - 1][axis] : 0));
  const glyph = Buffer.concat([
    words([ends.length, 0, 0, 600, 700, ...ends, 0]),
    Buffer.alloc(points.length, 1), // on the curve, coordinates of two bytes
    words(deltas(0)),
    words(deltas(1)),
  ]);
  return pad(glyph);
}

function makeCmap() {
  const letters = [];
  for (let code = FIRST; code <= LAST; ++code) letters.push(code === FIRST ? 1 : 2 + code % SHAPES);
  const table = [4, 32 + 2 * letters.length, 0, 4, 4, 1, 0, LAST, 0xffff, 0, FIRST, 0xffff, 0, 1,
    4, 0, ...letters];
  return words([0, 1, 3, 1, 0, 12, ...table]);
}

function makeName(family, postScriptName) {
  const texts = [[1, family], [2, "Regular"], [3, postScriptName], [4, family],
    [6, postScriptName]];
  const head = [0, texts.length, 6 + 12 * texts.length];
  const bodies = [];
  let place = 0;
  for (const [id, text] of texts) {
    const body = words([...text].map((letter) => letter.charCodeAt(0)));
    head.push(3, 1, 0x409, id, body.length, place);
    place += body.length;
    bodies.push(body);
  }
  return Buffer.concat([words(head), ...bodies]);
}

function makeOs2() {
  return words([4, 640, 400, 5, 0, 650, 600, 0, 75, 650, 600, 0, 350, 50, 300, 0, 0, 0, 0, 0, 0, 0,
    0, 1, 0, 0, 0, 0, 0, 0x4d41, 0x4445, 0x40, FIRST, LAST, 800, -200, 0, 800, 200, 0, 1, 0, 0,
    500, 700, 0, 0x20, 0]);
}

function makeFile(tables) {
  const names = Object.keys(tables).sort();
  const file = [words([1, 0, names.length, 128, 3, 16 * names.length - 128])];
  const bodies = [];
  let place = 12 + 16 * names.length;
  for (const name of names) {
    const body = pad(tables[name]);
    file.push(Buffer.from(name), longs([sum(body), place, tables[name].length]));
    bodies.push(body);
    place += body.length;
  }
  return Buffer.concat([...file, ...bodies]);
}

function sum(bytes) {
  let total = 0;
  for (let at = 0; at < bytes.length; at += 4) total = (total + bytes.readUInt32BE(at)) >>> 0;
  return total;
}

function pad(bytes) {
  return Buffer.concat([bytes, Buffer.alloc(-bytes.length & 3)]);
}

function words(numbers) {
  const bytes = Buffer.alloc(2 * numbers.length);
  numbers.forEach((number, index) => bytes.writeUInt16BE(number & 0xffff, 2 * index));
  return bytes;
}

function longs(numbers) {
  const bytes = Buffer.alloc(4 * numbers.length);
  numbers.forEach((number, index) => bytes.writeUInt32BE(number, 4 * index));
  return bytes;
}
