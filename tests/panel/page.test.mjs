// The page alone: what it does with failures and with hostile names.

import assert from "node:assert/strict";
import { after, afterEach, before, describe, test } from "node:test";

import { findBarriers, findRow, openPage, pictureOfSample, startBrowser, takePicture }
  from "./support/browser.mjs";
import { answerSocket, serveFonts, startFakeServer, TOKEN } from "./support/fake-server.mjs";
import { makeCollection, makeFont } from "./support/fonts.mjs";

const HOSTILE = "<img src=x onerror=document.title='caught'>\u202e\"'&{}";

function makeFonts(count) {
  return Array.from({ length: count }, (_, id) => ({
    id: String(id), PostScriptName: `Probe${id}-Regular`, family: `Probe${id}`, style: "Regular",
    state: "inactive",
  }));
}

describe("the panel's page", () => {
  let browser;
  let server;
  let page;
  const open = async (serve, options) => {
    page = await openPage(browser, options);
    const state = await answerSocket(page, serve);
    await page.goto(`${server.url}#${TOKEN}`);
    return state;
  };
  before(async () => {
    browser = await startBrowser();
    server = await startFakeServer((id) => ({
      damaged: Buffer.from("no font at all"),
      short: makeFont("Short", 1).subarray(0, 300),
      second: makeCollection([makeFont("One", 1), makeFont("Two", 2)]),
    }[id] ?? makeFont("Probe", Number(id))));
  });
  afterEach(() => page?.context().close());
  after(async () => {
    await browser?.close();
    server?.close();
  });

  test("takes the token out of the address and keeps it for a reload", async () => {
    await open(serveFonts(makeFonts(1)));
    await page.getByText("1 font", { exact: true }).waitFor();
    assert.equal(page.url(), server.url);
    await page.reload();
    await page.getByText("1 font", { exact: true }).waitFor();
    assert.equal(await page.evaluate(() => localStorage.length), 0);
  });

  test("shows names that look like markup as text", async () => {
    const font = { ...makeFonts(1)[0], PostScriptName: HOSTILE, family: HOSTILE, style: HOSTILE };
    await open(serveFonts([font], {
      libraries: [{ name: HOSTILE, path: `/${HOSTILE}`, selected: true, fonts: 1 }],
      documents: [{ process: HOSTILE, name: HOSTILE, path: HOSTILE,
        fonts: [{ PostScriptName: HOSTILE, state: "missing" }] }],
    }));
    await findRow(page, "onerror").waitFor();
    await page.locator("#documents summary").click();
    await page.locator("#libraries button").nth(1).click();
    await page.waitForTimeout(200);
    assert.equal(await page.title(), "Fonts");
    assert.equal(await page.locator("img").count(), 0);
    assert.deepEqual(page.errors, []);
  });

  test("shows only the rows that are visible of a long list", async () => {
    const state = await open(serveFonts(makeFonts(30000)));
    await page.getByText("30,000 fonts").waitFor();
    const grid = page.getByRole("grid");
    assert.equal(await grid.getAttribute("aria-rowcount"), "30000");
    await grid.evaluate((element) => element.scrollTo(0, element.scrollHeight / 2));
    await findRow(page, "Probe15000-Regular").waitFor();
    await grid.press("End");
    await findRow(page, "Probe29999-Regular").waitFor();
    assert.ok(await page.getByRole("row").count() < 40);
    const asked = state.requests.filter(({ op }) => op === "fonts").length;
    assert.ok(asked < 15, `${asked} requests`);
    await pictureOfSample(page, "Probe29999-Regular");
    assert.ok(await page.evaluate(() => document.fonts.size) <= 130);
  });

  test("keeps a bounded number of fonts", async () => {
    await open(serveFonts(makeFonts(2000)));
    const grid = page.getByRole("grid");
    for (let step = 0; step < 25; ++step) {
      await grid.press("PageDown");
      await page.waitForFunction(() => !document.querySelector(".sample.waiting"));
    }
    const count = await page.evaluate(() => document.fonts.size);
    assert.ok(count > 20 && count <= 130, `${count} fonts`);
  });

  test("says that a damaged font has no preview", async () => {
    const [font] = makeFonts(1);
    await open(serveFonts([{ ...font, id: "damaged", PostScriptName: "D" },
      { ...font, id: "short", PostScriptName: "S" }, { ...font, id: "", PostScriptName: "E" },
      font]));
    await pictureOfSample(page, "Probe0-Regular");
    await page.waitForFunction(() => document.querySelectorAll(".sample.failed").length === 3);
    assert.deepEqual(await page.locator(".sample.failed").allTextContents(),
      ["No preview", "No preview", "No preview"]);
  });

  test("asks for the token's address if it has none, and opens no connection", async () => {
    page = await openPage(browser);
    const state = await answerSocket(page, serveFonts([]));
    await page.goto(server.url);
    await page.getByRole("alert").getByText("token").waitFor();
    assert.equal(state.sockets.length, 0);
  });

  test("says so if the token is refused, and does not try again", async () => {
    page = await openPage(browser);
    const state = await answerSocket(page, serveFonts([]));
    await page.goto(`${server.url}#${"cd".repeat(32)}`);
    await page.getByRole("alert").getByText("refused").waitFor();
    await page.waitForTimeout(1500);
    assert.equal(state.sockets.length, 1);
  });

  test("says that the connection is lost, and shows the present state after it", async () => {
    const fonts = makeFonts(3);
    const state = await open(serveFonts(fonts));
    await findRow(page, "Probe0-Regular").waitFor();
    state.isDown = true;
    await state.sockets[0].close();
    await page.getByRole("alert").getByText("The connection is lost").waitFor();
    await findRow(page, "Probe0-Regular").getByRole("button").click();
    fonts[1].state = "activated";
    state.isDown = false;
    await page.getByText("Connected", { exact: true }).waitFor();
    await page.getByRole("alert").waitFor({ state: "hidden" });
    await findRow(page, "Probe1-Regular").getByRole("button", { pressed: true }).waitFor();
  });

  test("says that the program does not answer", async () => {
    let isBusy = false;
    const serve = serveFonts(makeFonts(2));
    const state = await open((request) => (isBusy ? undefined : serve(request)));
    await findRow(page, "Probe0-Regular").waitFor();
    isBusy = true;
    await findRow(page, "Probe0-Regular").getByRole("button").click();
    await page.getByRole("alert").getByText("does not answer").waitFor();
    const { id } = state.requests.at(-1);
    state.sockets[0].send(JSON.stringify({ ok: true, id, activated: [], alreadyActive: [],
      missing: [] }));
    await page.getByRole("alert").waitFor({ state: "hidden" });
  });

  test("reports why a request failed, and that rubbish ends the connection", async () => {
    const serve = serveFonts(makeFonts(2));
    const state = await open((request) => {
      if (request.op === "addLibrary") throw new Error("is not a folder");
      return serve(request);
    });
    await findRow(page, "Probe0-Regular").waitFor();
    await page.getByLabel("Folder to add").fill("/no/folder");
    await page.getByRole("button", { name: "Add" }).click();
    await page.getByRole("alert").getByText("/no/folder: is not a folder").waitFor();
    state.sockets[0].send("{rubbish");
    await page.getByRole("alert").getByText("The connection is lost").waitFor();
    await page.getByText("Connected", { exact: true }).waitFor();
    assert.equal(state.sockets.length, 2);
  });

  test("draws the face of a collection that the server names", async () => {
    page = await openPage(browser);
    await page.route(/\/font\/second$/, async (route) => {
      const response = await route.fetch();
      await route.fulfill({ response, headers: { ...response.headers(), "x-face-index": "1" } });
    });
    const [one, two, first] = [1, 2, "second"].map((id) => ({ ...makeFonts(1)[0], id: String(id),
      PostScriptName: `Face-${id}` }));
    await answerSocket(page, serveFonts([one, two, first]));
    await page.goto(`${server.url}#${TOKEN}`);
    const pictures = [];
    for (const name of ["Face-1", "Face-2", "Face-second"]) {
      pictures.push(await pictureOfSample(page, name));
    }
    assert.ok(pictures[2].equals(pictures[1]), "the second face is drawn");
    assert.ok(!pictures[2].equals(pictures[0]), "the first face is not drawn");
  });

  test("works with the keyboard alone", async () => {
    const fonts = makeFonts(50);
    const state = await open((request) => {
      if (request.op !== "activate") return serveFonts(fonts)(request);
      for (const font of fonts) {
        if (request.fonts.includes(font.PostScriptName)) font.state = "activated";
      }
      return { activated: request.fonts, alreadyActive: [], missing: [] };
    });
    await findRow(page, "Probe0-Regular").waitFor();
    await page.keyboard.press("/");
    assert.equal(await page.evaluate(() => document.activeElement.id), "search");
    await page.keyboard.press("ArrowDown");
    assert.equal(await page.evaluate(() => document.activeElement.id), "fonts");
    await page.keyboard.press("ArrowDown");
    await page.keyboard.press("ArrowDown");
    await page.keyboard.press("Space");
    await page.getByRole("status").getByText("Probe2-Regular is active").waitFor();
    await findRow(page, "Probe2-Regular").getByRole("button", { pressed: true }).waitFor();
    const current = page.getByRole("grid");
    const row = page.locator(`#${await current.getAttribute("aria-activedescendant")}`);
    assert.equal(await row.getAttribute("aria-rowindex"), "3");
    assert.deepEqual(state.requests.filter(({ op }) => op === "activate").map((each) => each.fonts),
      [["Probe2-Regular"]]);
  });

  for (const colorScheme of ["light", "dark"]) {
    test(`has no barriers in ${colorScheme} colors, connected and not`, async () => {
      const state = await open(serveFonts(makeFonts(100), {
        libraries: [{ name: "Fonts", path: "/fonts", selected: true, fonts: 100, removable: true }],
        documents: [{ process: "host", name: "a.ai", path: "/a.ai",
          fonts: [{ PostScriptName: "Probe0-Regular", state: "missing" }] }],
      }), { colorScheme });
      await pictureOfSample(page, "Probe1-Regular");
      await page.locator("#documents summary").click();
      await page.locator("#libraries button").nth(1).click();
      await page.waitForTimeout(300);
      assert.deepEqual(await findBarriers(page), []);
      state.isDown = true;
      await state.sockets.at(-1).close();
      await page.getByRole("alert").waitFor();
      assert.deepEqual(await findBarriers(page), []);
      await takePicture(page, `lost-${colorScheme}`);
    });
  }
});
