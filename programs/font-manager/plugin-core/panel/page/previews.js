// Loads fonts for the samples. Keeps few of them: those of visible rows, and those used last.

import { extractFace, readCharacters } from "/sfnt.js";

const MOST_FACES = 120;
const MOST_BYTES = 96 << 20;
const LARGEST_FILE = 48 << 20;
const AT_ONCE = 4;

export class Previews {
  #token;
  #faces = new Map(); // key -> { family, face, characters, bytes }, the one used last at the end
  #failed = new Set();
  #interrupted = new Set(); // tried again after forgetFailures
  #wanted = new Map(); // key -> font
  #onLoaded = null;
  #loading = new Map(); // key -> AbortController
  #bytes = 0;
  #number = 0;

  constructor(token) {
    this.#token = token;
  }

  // Returns { family, characters } if the font is loaded, { failed: true } if it cannot be or has
  // no id, else null.
  get(font) {
    const key = String(font.id);
    if (!key || this.#failed.has(key)) return { failed: true };
    const loaded = this.#faces.get(key);
    if (!loaded) return null;
    this.#faces.delete(key);
    this.#faces.set(key, loaded);
    return loaded;
  }

  // Replaces the fonts that are wanted: a Map of fonts by their ids. Calls `onLoaded(key)` for each
  // that has been loaded, or cannot be.
  want(fonts, onLoaded) {
    this.#wanted = fonts;
    this.#onLoaded = onLoaded;
    for (const [key, control] of this.#loading) {
      if (!fonts.has(key)) control.abort();
    }
    this.#loadNext();
  }

  // To be called after a new connection: another program may serve other files.
  forgetFailures() {
    this.#failed.clear();
    this.#interrupted.clear();
    this.#loadNext();
  }

  #loadNext() {
    for (const [key, font] of this.#wanted) {
      if (this.#loading.size >= AT_ONCE) return;
      const isKnown = [this.#faces, this.#failed, this.#interrupted, this.#loading].some(
        (keys) => keys.has(key),
      );
      if (isKnown) continue;
      this.#load(key, font);
    }
  }

  async #load(key, font) {
    const control = new AbortController();
    this.#loading.set(key, control);
    try {
      await this.#fetch(key, font, control.signal);
    } catch (error) {
      // fetch throws a TypeError if the connection is lost, which isn't the font's fault.
      const isLost = error instanceof TypeError;
      if (!control.signal.aborted) (isLost ? this.#interrupted : this.#failed).add(key);
    }
    this.#loading.delete(key);
    if (this.#wanted.has(key)) this.#onLoaded(key);
    this.#loadNext();
  }

  async #fetch(key, font, signal) {
    const path = `/font/${encodeURIComponent(font.id)}`;
    const headers = { "X-Panel-Token": this.#token };
    const response = await fetch(path, { headers, signal, cache: "no-store" });
    if (!response.ok) throw new Error(`${response.status}`);
    if (Number(response.headers.get("Content-Length")) > LARGEST_FILE) {
      throw new Error("the file is too large for a preview");
    }
    const index = Number(response.headers.get("X-Face-Index")) || 0;
    const bytes = extractFace(await response.arrayBuffer(), index);
    const face = new FontFace(`preview-${++this.#number}`, bytes);
    await face.load();
    if (signal.aborted) return;
    document.fonts.add(face);
    this.#faces.set(key, {
      family: face.family,
      face,
      characters: readCharactersOf(bytes),
      bytes: bytes.byteLength,
    });
    this.#bytes += bytes.byteLength;
    this.#makeRoom();
  }

  #makeRoom() {
    for (const [key, { face, bytes }] of this.#faces) {
      if (this.#faces.size <= MOST_FACES && this.#bytes <= MOST_BYTES) return;
      if (this.#wanted.has(key)) continue;
      document.fonts.delete(face);
      this.#faces.delete(key);
      this.#bytes -= bytes;
    }
  }
}

// The browser draws some fonts whose tables aren't read here.
function readCharactersOf(bytes) {
  try {
    return readCharacters(bytes);
  } catch {
    return null;
  }
}
