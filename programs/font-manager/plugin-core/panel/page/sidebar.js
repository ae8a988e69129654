// The lists beside the fonts: libraries and open documents. Names come from others' files, so they
// are only ever set as text.

const DOCUMENT_WORDS = {
  active: "installed",
  activated: "active",
  inactive: "not active",
  missing: "missing",
};

export class Libraries {
  #list;
  #onShow;
  #libraries = [];
  #shown = "";

  // onShow(library) is called to show a library's fonts, with undefined for all.
  constructor(list, onShow) {
    this.#list = list;
    this.#onShow = onShow;
  }

  // The library that fonts for documents are taken from, undefined for all.
  get selected() {
    return this.#libraries.find(({ selected }) => selected);
  }

  get shown() {
    return this.#libraries.find(({ path }) => path === this.#shown);
  }

  // The server lists the fonts that are in use if it isn't asked for a library.
  get allName() {
    return this.selected ? "Fonts in use" : "All fonts";
  }

  set(libraries) {
    this.#libraries = libraries;
    if (this.#shown && !this.shown) this.show("");
    else this.#draw();
  }

  show(path) {
    this.#shown = path;
    this.#draw();
    this.#onShow(this.shown);
  }

  #draw() {
    const focused = document.activeElement?.dataset?.path;
    const all = { name: this.allName, path: "" };
    const rows = [all, ...this.#libraries].map((library) => this.#makeRow(library));
    this.#list.replaceChildren(...rows);
    if (focused === undefined) return;
    [...this.#list.querySelectorAll("button")]
      .find(({ dataset }) => dataset.path === focused)
      ?.focus();
  }

  #makeRow({ name, path, selected, fonts }) {
    const button = document.createElement("button");
    button.dataset.path = path;
    button.title = path;
    if (path === this.#shown) button.setAttribute("aria-current", "true");
    const count = fonts === undefined ? "" : fonts.toLocaleString();
    button.append(text("name", name));
    if (selected) button.append(text("mark", "in use"));
    button.append(text("number", count));
    button.addEventListener("click", () => this.show(path));
    const row = document.createElement("li");
    row.append(button);
    return row;
  }
}

export class Documents {
  #list;
  #hint;
  #onFont;
  #open = new Set(); // keys of the documents whose fonts are shown

  // onFont(name) is called to show a font in the list.
  constructor(list, hint, onFont) {
    this.#list = list;
    this.#hint = hint;
    this.#onFont = onFont;
  }

  set(documents) {
    this.#hint.hidden = documents.length > 0;
    const focused = document.activeElement?.dataset?.key;
    this.#list.replaceChildren(...documents.map((each) => this.#makeRow(each)));
    if (focused === undefined) return;
    [...this.#list.querySelectorAll("[data-key]")]
      .find(({ dataset }) => dataset.key === focused)
      ?.focus();
  }

  #makeRow({ process, name, path, fonts = [] }) {
    const key = `${process}\n${path}`;
    const missing = fonts.filter(({ state }) => state === "missing").length;
    const details = document.createElement("details");
    details.open = this.#open.has(key);
    details.addEventListener("toggle", () => {
      if (details.open) this.#open.add(key);
      else this.#open.delete(key);
    });
    const summary = document.createElement("summary");
    summary.dataset.key = key;
    summary.title = path ?? "";
    const count = `${fonts.length} ${fonts.length === 1 ? "font" : "fonts"}`;
    summary.append(text("name", name || path || "Untitled"));
    if (missing > 0) summary.append(text("mark missing", `${missing} missing`));
    else summary.append(text("number", count));
    const list = document.createElement("ul");
    for (const font of fonts) list.append(this.#makeFont(font, key));
    details.append(summary, list, text("program", `open in ${process}`));
    const row = document.createElement("li");
    row.append(details);
    return row;
  }

  #makeFont({ PostScriptName, state }, key) {
    const button = document.createElement("button");
    button.dataset.key = `${key}\n${PostScriptName}`;
    button.append(text("name", PostScriptName));
    button.append(text(`mark ${state === "missing" ? "missing" : ""}`,
      DOCUMENT_WORDS[state] ?? state));
    button.addEventListener("click", () => this.#onFont(PostScriptName));
    const row = document.createElement("li");
    row.append(button);
    return row;
  }
}

function text(className, words) {
  const element = document.createElement("span");
  element.className = className;
  element.textContent = words;
  return element;
}
