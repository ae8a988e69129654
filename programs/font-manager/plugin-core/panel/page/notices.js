// What the page tells: a line at the bottom for what went well, a bar above the list for the rest.

const SHOWN_FOR = 8000; // milliseconds

export class Notices {
  #bar;
  #text;
  #button;
  #status;
  #kind = "";
  #action = null;
  #timer = 0;

  constructor(bar, text, button, status) {
    this.#bar = bar;
    this.#text = text;
    this.#button = button;
    this.#status = status;
    button.addEventListener("click", () => {
      const action = this.#action;
      this.#hide();
      action?.();
    });
  }

  // Tells something for a while: in the bar if it is urgent or has an action. A notice that is
  // kept remains in the bar.
  say(words, { isUrgent = false, action = "", onAction = null } = {}) {
    if (!isUrgent && !action) {
      this.#status.textContent = words;
      return;
    }
    if (this.#kind) return;
    this.#show(words, action, onAction);
    this.#bar.classList.toggle("urgent", isUrgent);
    this.#timer = setTimeout(() => this.#hide(), SHOWN_FOR);
  }

  // Shows a notice until `clear` is called with its kind.
  keep(kind, words, action = "", onAction = null) {
    this.#kind = kind;
    this.#show(words, action, onAction);
    this.#bar.classList.add("urgent");
  }

  clear(kind) {
    if (this.#kind === kind) this.#hide();
  }

  #show(words, action, onAction) {
    clearTimeout(this.#timer);
    this.#action = onAction;
    if (this.#text.textContent !== words) this.#text.textContent = words;
    this.#button.textContent = action;
    this.#button.hidden = !action;
    this.#bar.hidden = false;
  }

  #hide() {
    clearTimeout(this.#timer);
    this.#kind = "";
    this.#action = null;
    this.#bar.hidden = true;
    this.#text.textContent = "";
  }
}
