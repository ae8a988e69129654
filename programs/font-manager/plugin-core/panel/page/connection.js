// The WebSocket to the program that serves this page: requests with answers, events, and a new
// connection whenever the old one is lost.

const FIRST_DELAY = 250;
const LONGEST_DELAY = 4000;
const OPEN_TIMEOUT = 8000;
const BUSY_AFTER = 4000;

export class Connection {
  #token;
  #onState;
  #onEvent;
  #socket = null;
  #isServed = false;
  #lastId = 0;
  #pending = new Map(); // id -> { resolve, reject, since }
  #delay = FIRST_DELAY;
  #timer = 0;

  // onState(state): "connecting", "open", "busy" (no answer for a while), "lost" (another attempt
  // follows) or "refused", which is final. onEvent(event): an event's object.
  constructor(token, onState, onEvent) {
    this.#token = token;
    this.#onState = onState;
    this.#onEvent = onEvent;
    setInterval(() => this.#lookForDelay(), 1000);
  }

  get isOpen() {
    return this.#isServed;
  }

  open() {
    clearTimeout(this.#timer);
    if (this.#socket) return;
    this.#onState("connecting");
    const socket = new WebSocket(`ws://${location.host}/socket`);
    this.#socket = socket;
    this.#timer = setTimeout(() => this.#drop(socket), OPEN_TIMEOUT);
    socket.onopen = () => socket.send(JSON.stringify({ token: this.#token }));
    socket.onmessage = ({ data }) => {
      if (socket === this.#socket) this.#receive(data);
    };
    socket.onclose = () => this.#drop(socket);
  }

  // Returns the answer. Throws an Error with the server's words, or if the connection is lost.
  request(op, members = {}) {
    if (!this.#isServed) return Promise.reject(new Error("the connection is lost"));
    const id = ++this.#lastId;
    this.#socket.send(JSON.stringify({ ...members, op, id }));
    return new Promise((resolve, reject) => {
      this.#pending.set(id, { resolve, reject, since: Date.now() });
    });
  }

  #receive(data) {
    let message;
    try {
      message = JSON.parse(data);
    } catch {
      return this.#drop(this.#socket);
    }
    if (!this.#isServed) return this.#begin(message);
    this.#onState("open");
    if (message.event) return this.#onEvent(message);
    const request = this.#pending.get(message.id);
    this.#pending.delete(message.id);
    // The others were sent after the one that is answered now.
    for (const other of this.#pending.values()) other.since = Date.now();
    if (message.ok) return request?.resolve(message);
    request?.reject(new Error(message.error || "the request failed"));
  }

  // The answer to the token.
  #begin(message) {
    clearTimeout(this.#timer);
    if (!message.ok) {
      const socket = this.#socket;
      this.#socket = null;
      socket.close();
      // Only the token's refusal is final; an overfull server may have room later.
      if (message.error === "refused") return this.#onState("refused");
      return this.#wait();
    }
    this.#isServed = true;
    this.#delay = FIRST_DELAY;
    this.#onState("open");
  }

  #drop(socket) {
    if (socket !== this.#socket) return;
    this.#socket = null;
    this.#isServed = false;
    clearTimeout(this.#timer);
    socket.close();
    for (const request of this.#pending.values()) {
      request.reject(new Error("the connection is lost"));
    }
    this.#pending.clear();
    this.#wait();
  }

  #wait() {
    this.#onState("lost");
    this.#timer = setTimeout(() => this.open(), this.#delay);
    this.#delay = Math.min(this.#delay * 2, LONGEST_DELAY);
  }

  #lookForDelay() {
    if (!this.#isServed) return;
    const [oldest] = this.#pending.values();
    if (oldest && Date.now() - oldest.since > BUSY_AFTER) this.#onState("busy");
  }
}
