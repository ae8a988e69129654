// A row of the list: the font's names, a sample in the font itself, and its switch. All texts come
// from font files, so they are only ever set as text.

import { hasAll, pickLetters } from "/sfnt.js";

const WORDS = { active: "Installed", activated: "Active", inactive: "Inactive" };
let lastNumber = 0;

export class FontRow {
  font;
  #name;
  #style;
  #postScriptName;
  #text;
  #switch;
  #sample;

  constructor(sample) {
    this.#sample = sample;
    this.element = make("div", "row", "row");
    this.element.id = `row-${++lastNumber}`;
    const cell = make("div", "font", "gridcell");
    const names = make("p", "names");
    this.#name = make("span", "family");
    this.#style = make("span", "style");
    this.#postScriptName = make("span", "post-script-name");
    names.append(this.#name, " ", this.#style, " ", this.#postScriptName);
    // Read aloud, the same words in every row would only be noise.
    this.#text = make("p", "sample");
    this.#text.setAttribute("aria-hidden", "true");
    cell.append(names, this.#text);
    const state = make("div", "state", "gridcell");
    // The grid has the keyboard's focus; Space acts on the current row.
    this.#switch = make("button", "switch");
    this.#switch.tabIndex = -1;
    state.append(this.#switch);
    this.element.append(cell, state);
  }

  place(index, height) {
    this.element.setAttribute("aria-rowindex", String(index + 1));
    this.element.style.height = `${height}px`;
    this.element.style.transform = `translateY(${index * height}px)`;
  }

  setCurrent(isCurrent) {
    this.element.setAttribute("aria-selected", String(isCurrent));
  }

  setFont(font, previews) {
    if (font === this.font && font) return this.update();
    this.font = font;
    this.element.setAttribute("aria-busy", String(!font));
    this.#switch.hidden = !font;
    this.#name.textContent = font?.family || font?.PostScriptName || "";
    this.#style.textContent = font?.style ?? "";
    const isNamed = Boolean(font?.family);
    this.#postScriptName.textContent = isNamed ? font.PostScriptName : "";
    this.setSample(this.#sample, previews);
    this.update();
  }

  // Shows the font's state.
  update() {
    if (!this.font) return;
    const { state, isChanging } = this.font;
    const isOn = state === "activated";
    this.element.dataset.state = state;
    this.#switch.textContent = WORDS[state] ?? state;
    this.#switch.classList.toggle("busy", Boolean(isChanging));
    this.#switch.disabled = state === "active";
    if (state === "active") {
      this.#switch.removeAttribute("aria-pressed");
      this.#switch.title = "Active without the font manager";
    } else {
      this.#switch.setAttribute("aria-pressed", String(isOn));
      this.#switch.title = isOn ? "Deactivate" : "Activate";
    }
  }

  setSample(sample, previews) {
    this.#sample = sample;
    const text = this.#text;
    const preview = this.font && previews.get(this.font);
    text.style.fontSize = `${sample.size}px`;
    text.classList.toggle("waiting", !preview);
    text.classList.toggle("failed", Boolean(preview?.failed));
    text.title = "";
    if (!preview?.family) {
      text.style.fontFamily = "";
      if (preview?.failed) text.style.fontSize = "";
      text.textContent = preview?.failed ? "No preview" : "";
      return;
    }
    text.style.fontFamily = `"${preview.family}"`;
    // A letter that the font lacks would be drawn in another one.
    const { characters } = preview;
    const isWhole = !characters || hasAll(characters, sample.text);
    text.textContent = isWhole ? sample.text : pickLetters(characters, 40);
    if (!isWhole) text.title = "The font lacks letters of the sample text";
  }
}

function make(tag, className, role) {
  const element = document.createElement(tag);
  element.className = className;
  if (role) element.setAttribute("role", role);
  return element;
}
