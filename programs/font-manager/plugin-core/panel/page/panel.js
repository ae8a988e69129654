// The panel's page: connects its parts to the program that serves it.

import { Connection } from "/connection.js";
import { FontList } from "/font-list.js";
import { Notices } from "/notices.js";
import { Previews } from "/previews.js";
import { Documents, Libraries } from "/sidebar.js";
import { takeToken } from "/token.js";

const SEARCH_DELAY = 120; // milliseconds after the last key
const CHANGE_DELAY = 100; // milliseconds that gather several events into one look
const PANGRAM = "Sphinx of black quartz, judge my vow";

const $ = (id) => document.getElementById(id);
const query = { search: "", states: undefined, library: undefined };

const token = takeToken();
const notices = new Notices($("notice"), $("notice-text"), $("notice-action"), $("message"));
const previews = new Previews(token);
const connection = new Connection(token, showConnection, receiveEvent);
const fonts = new FontList($("fonts"), previews, fetchFonts, toggle);
const libraries = new Libraries($("libraries"), showLibrary);
const documents = new Documents($("documents"), $("no-documents"), (name) => {
  $("search").value = name;
  setQuery({ search: name });
});
let changeTimer = 0;
let shownState = "";

function fetchFonts(offset, limit) {
  return connection.request("fonts", { ...query, offset, limit });
}

function setQuery(members) {
  Object.assign(query, members);
  if (connection.isOpen) fonts.reset();
}

fonts.onTotal = (total) => {
  const words = total === 1 ? "1 font" : `${total.toLocaleString()} fonts`;
  if ($("count").textContent !== words) $("count").textContent = words;
  const isFiltered = query.search !== "" || query.states !== undefined;
  $("empty").hidden = total > 0;
  $("empty").textContent = isFiltered
    ? "No font fits the search."
    : "There are no fonts here. Add a folder with fonts as a library.";
};

// Activates or deactivates a font.
async function toggle(font) {
  if (font.isChanging || font.state === "active") return;
  const name = font.PostScriptName;
  const isOn = font.state === "activated";
  font.isChanging = true;
  fonts.setState([name], font.state);
  try {
    if (isOn) await deactivate(name);
    else await activate(name);
  } catch (error) {
    notices.say(`${name}: ${error.message}`, { isUrgent: true });
  }
  font.isChanging = false;
  fonts.setState([], "");
}

async function activate(name) {
  const answer = await connection.request("activate", { fonts: [name] });
  if (answer.missing.length > 0) {
    const { selected } = libraries;
    throw new Error(selected ? `not in ${selected.name}, the only library in use`
      : "no library has it any more, or its file cannot be read");
  }
  fonts.setState([name], "activated");
  notices.say(`${name} is active`);
}

async function deactivate(name) {
  const answer = await connection.request("deactivate", { fonts: [name] });
  if (answer.held.length > 0) throw new Error("a document or another program still needs it");
  if (answer.notActivated.length > 0) {
    throw new Error("active for a document or another program, not by this page");
  }
  fonts.setState([name], "inactive");
  notices.say(`${name} is no longer active`);
}

// Runs a request whose failure is shown.
async function attempt(op, members) {
  try {
    return await connection.request(op, members);
  } catch (error) {
    notices.say(`${members.path}: ${error.message}`, { isUrgent: true });
    return null;
  }
}

async function loadLibraries() {
  const answer = await connection.request("libraries");
  libraries.set(answer.libraries);
  describeLibrary(libraries.shown);
}

async function loadDocuments() {
  documents.set((await connection.request("documents")).documents);
}

function loadAll() {
  previews.forgetFailures();
  fonts.refresh();
  for (const load of [loadLibraries, loadDocuments]) {
    load().catch((error) => connection.isOpen && notices.say(error.message, { isUrgent: true }));
  }
}

function showLibrary(library) {
  describeLibrary(library);
  setQuery({ library: library?.path });
}

function describeLibrary(library) {
  const { selected, allName } = libraries;
  const all = selected ? `The fonts of ${selected.name} only` : "The fonts of all libraries";
  $("place").textContent = library?.name ?? allName;
  $("place-detail").textContent = library?.path ?? all;
  $("place-actions").hidden = !library;
  $("remove-library").hidden = !library?.removable;
  $("use-only").setAttribute("aria-pressed", String(Boolean(library?.selected)));
}

// Several programs may change much at once, so an event only causes a look.
function receiveEvent({ event, activated = [], deactivated = [] }) {
  if (event === "fonts") {
    fonts.setState(activated, "activated");
    fonts.setState(deactivated, "inactive");
  }
  clearTimeout(changeTimer);
  changeTimer = setTimeout(() => connection.isOpen && loadAll(), CHANGE_DELAY);
}

function showConnection(state) {
  if (state === shownState) return;
  const wasServed = shownState === "open" || shownState === "busy";
  shownState = state;
  document.documentElement.dataset.connection = state;
  $("connection").dataset.state = state;
  const words = {
    connecting: "Connecting…",
    open: "Connected",
    busy: "The program is busy",
    lost: "Not connected",
    refused: "Refused",
  };
  $("connection").firstElementChild.textContent = words[state];
  if (state === "open") {
    notices.clear("connection");
    if (!wasServed) {
      connection.request("subscribe").catch(() => {});
      loadAll();
    }
  } else if (state === "lost") {
    // The same words at each attempt, so that screen readers say them once.
    notices.keep("connection", "The connection is lost. This page tries again every few seconds; " +
      "if the program has ended, open the panel from it again.", "Try now",
      () => connection.open());
  } else if (state === "refused") {
    notices.keep("connection", "This page's token was refused. " +
      "Open the panel again from the program, or with “Vexcor panel”.");
  } else if (state === "busy") {
    notices.keep("connection", "The program does not answer at the moment. It may be showing " +
      "a dialog.");
  }
}

function setSample() {
  const size = Number($("size").value);
  $("size").setAttribute("aria-valuetext", `${size} pixels`);
  fonts.setSample($("sample").value || PANGRAM, size);
}

let searchTimer = 0;
$("search").addEventListener("input", () => {
  clearTimeout(searchTimer);
  searchTimer = setTimeout(() => setQuery({ search: $("search").value.trim() }), SEARCH_DELAY);
});
$("search").addEventListener("keydown", (event) => {
  if (event.key !== "ArrowDown") return;
  event.preventDefault();
  $("fonts").focus();
});
$("states").addEventListener("change", ({ target }) => {
  setQuery({ states: target.value ? [target.value] : undefined });
});
$("sample").placeholder = PANGRAM;
$("sample").addEventListener("input", setSample);
$("size").addEventListener("input", setSample);
$("add-library").addEventListener("submit", async (event) => {
  event.preventDefault();
  const path = $("add-path").value.trim();
  if (!path || !(await attempt("addLibrary", { path }))) return;
  $("add-path").value = "";
  notices.say(`${path} is a library now`);
  loadAll();
});
$("use-only").addEventListener("click", async () => {
  const { path, selected } = libraries.shown;
  if (await attempt("selectLibrary", { path, selected: !selected })) loadAll();
});
$("remove-library").addEventListener("click", async () => {
  const { path, name } = libraries.shown;
  if (!(await attempt("removeLibrary", { path }))) return;
  libraries.show("");
  loadAll();
  notices.say(`${name} is no longer a library. Its files are where they were.`, {
    action: "Undo",
    onAction: async () => (await attempt("addLibrary", { path })) && loadAll(),
  });
});
document.addEventListener("keydown", (event) => {
  const isTyping = event.target.matches("input:not([type=radio], [type=range])");
  if (event.key !== "/" || isTyping || event.ctrlKey || event.altKey || event.metaKey) return;
  event.preventDefault();
  $("search").select();
});

// Browsers slow the timers of a page down that isn't seen.
document.addEventListener("visibilitychange", () => {
  if (!document.hidden && shownState === "lost") connection.open();
});

// The address with another token was opened in this tab.
window.addEventListener("hashchange", () => takeToken() && location.reload());

setSample();
if (token) connection.open();
else showConnection("refused");
