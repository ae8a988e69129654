// Serves the page's files as PluginCore does, for tests of the page alone. Its WebSocket is
// answered inside of the browser, so that a test can make any answer and any failure.

import { readFileSync } from "node:fs";
import { createServer } from "node:http";
import { fileURLToPath } from "node:url";

import { makeFont } from "./fonts.mjs";

const folder = new URL("../../../programs/font-manager/plugin-core/panel/page/", import.meta.url);
const types = { html: "text/html", js: "text/javascript", css: "text/css" };

export const TOKEN = "ab".repeat(32);

// Returns { url, close() }. `fontOf(id)` returns a font's bytes, or null.
export async function startFakeServer(fontOf = (id) => makeFont("Probe", Number(id))) {
  const server = createServer((request, response) => {
    const origin = `ws://127.0.0.1:${server.address().port}`;
    response.setHeader("Content-Security-Policy", "default-src 'none'; script-src 'self'; " +
      `style-src 'self'; connect-src 'self' ${origin}; base-uri 'none'; form-action 'none'; ` +
      "frame-ancestors 'none'");
    response.setHeader("X-Content-Type-Options", "nosniff");
    const answer = request.url.startsWith("/font/")
      ? makeFontAnswer(request, fontOf)
      : readPageFile(request.url);
    response.writeHead(answer ? 200 : 404, answer?.headers);
    response.end(answer?.body);
  });
  await new Promise((resolve) => server.listen(0, "127.0.0.1", resolve));
  return {
    url: `http://127.0.0.1:${server.address().port}/`,
    close: () => server.close(),
  };
}

function makeFontAnswer(request, fontOf) {
  const isAllowed = request.headers["x-panel-token"] === TOKEN;
  const body = isAllowed && fontOf(request.url.slice("/font/".length));
  return body && { headers: { "Content-Type": "font/ttf", "X-Face-Index": "0" }, body };
}

function readPageFile(url) {
  const name = url === "/" ? "index.html" : url.slice(1);
  const extension = name.split(".").at(-1);
  try {
    const body = readFileSync(fileURLToPath(new URL(name, folder)));
    return { headers: { "Content-Type": `${types[extension]}; charset=utf-8` }, body };
  } catch {
    return null;
  }
}

// Answers the page's WebSocket. `serve(request, socket)` returns the members of an answer,
// undefined for none, or throws an Error, which becomes a failed request. Returns an object whose
// `sockets` are the connections so far, and whose `isDown` can be set to refuse more.
export async function answerSocket(page, serve) {
  const state = { sockets: [], requests: [], isDown: false };
  await page.routeWebSocket(/\/socket$/, (socket) => {
    if (state.isDown) return socket.close();
    state.sockets.push(socket);
    socket.onMessage((text) => {
      const request = JSON.parse(text);
      state.requests.push(request);
      if ("token" in request) {
        const isRight = request.token === TOKEN;
        socket.send(JSON.stringify(isRight ? { ok: true } : { ok: false, error: "refused" }));
        if (!isRight) socket.close({ code: 1008 });
        return;
      }
      let answer;
      try {
        answer = serve(request, socket);
        if (answer) answer = { ok: true, ...answer };
      } catch (error) {
        answer = { ok: false, error: error.message };
      }
      if (answer) socket.send(JSON.stringify({ id: request.id, ...answer }));
    });
  });
  return state;
}

// Serves a list of fonts, without search, and of the rest as little as the page needs.
export function serveFonts(fonts, { libraries = [], documents = [] } = {}) {
  return ({ op, offset, limit }) => {
    if (op === "fonts") return { total: fonts.length, fonts: fonts.slice(offset, offset + limit) };
    return { libraries: { libraries }, documents: { documents }, subscribe: {} }[op];
  };
}
