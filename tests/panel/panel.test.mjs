// The page with the real server, plug-in, PluginCore and fontconfig: 10,000 fonts, two hosts.

import assert from "node:assert/strict";
import { cpSync } from "node:fs";
import { join } from "node:path";
import { after, before, describe, test } from "node:test";
import { fileURLToPath } from "node:url";

import { findBarriers, findRow, openPage, pictureOfSample, startBrowser, takePicture }
  from "./support/browser.mjs";
import { makeFonts } from "./support/fonts.mjs";
import { Home, Host } from "./support/programs.mjs";

const COUNT = 10000;
const samples = fileURLToPath(new URL("../../samples/", import.meta.url));

describe("the panel", () => {
  let home;
  let host;
  let second;
  let browser;
  let page;

  before(async () => {
    home = new Home();
    makeFonts(join(home.library, "Many"), "Probe", COUNT);
    makeFonts(join(home.folder, "Other"), "Other", 3);
    cpSync(samples, join(home.folder, "samples"), { recursive: true });
    await home.vexcor("install");
    const since = Date.now();
    await home.vexcor("list");
    console.log(`# ${COUNT} fonts are indexed after ${Date.now() - since} ms`);
    host = await Host.start(home);
    browser = await startBrowser();
  });
  after(async () => {
    await browser?.close();
    await host?.kill();
    await second?.kill();
    home?.remove();
  });

  const address = (token = home.token) => `http://127.0.0.1:${host.port}/#${token}`;
  const search = (words) => page.getByLabel("Search fonts").fill(words);
  const switchOf = (name) => findRow(page, name).getByRole("button");

  test("gives nothing to a wrong token", async () => {
    const stranger = await openPage(browser);
    await stranger.goto(address("0".repeat(64)));
    await stranger.getByRole("alert").getByText("refused").waitFor();
    assert.equal(await stranger.getByRole("row").count(), 0);
    const response = await stranger.request.get(`http://127.0.0.1:${host.port}/font/1`,
      { headers: { "X-Panel-Token": "0".repeat(64) } });
    assert.ok([403, 404].includes(response.status()), `status ${response.status()}`);
    await stranger.context().close();
  });

  test("gives nothing to a page of another origin", async () => {
    const stranger = await openPage(browser);
    await stranger.route("http://stranger.test/", (route) =>
      route.fulfill({ contentType: "text/html", body: "<!DOCTYPE html><title>x</title>" }));
    await stranger.goto("http://stranger.test/");
    const outcome = await stranger.evaluate(async ([port, token]) => {
      const socket = new WebSocket(`ws://127.0.0.1:${port}/socket`);
      const opened = await new Promise((resolve) => {
        socket.onopen = () => resolve("open");
        socket.onerror = () => resolve("refused");
      });
      const headers = { "X-Panel-Token": token };
      const read = await fetch(`http://127.0.0.1:${port}/`, { headers }).then(
        () => "read", () => "refused");
      return [opened, read];
    }, [host.port, home.token]);
    assert.deepEqual(outcome, ["refused", "refused"]);
    await stranger.context().close();
  });

  test("shows the first of many fonts in its own font", async () => {
    page = await openPage(browser);
    const since = Date.now();
    await page.goto(address());
    await page.locator(".sample:not(.waiting, .failed)").first().waitFor();
    console.log(`# the first of ${COUNT} fonts is drawn after ${Date.now() - since} ms`);
    await page.getByText("10,000 fonts", { exact: true }).waitFor();
    await page.getByText("Connected", { exact: true }).waitFor();
    assert.equal(new URL(page.url()).hash, "");
    await pictureOfSample(page, "Probe00000-Regular");
    await page.waitForFunction(() => !document.querySelector(".sample.waiting"));
    await takePicture(page, "many-fonts");
  });

  test("draws each font in itself", async () => {
    const first = await pictureOfSample(page, "Probe00000-Regular");
    const other = await pictureOfSample(page, "Probe00001-Regular");
    assert.ok(!first.equals(other), "two fonts look alike");
    await page.getByLabel("Sample text").fill("Ag");
    const changed = await pictureOfSample(page, "Probe00000-Regular");
    assert.ok(!first.equals(changed), "the sample text does not matter");
    await page.getByLabel("Sample text").fill("");
    assert.ok(first.equals(await pictureOfSample(page, "Probe00000-Regular")),
      "the same sample looks different");
  });

  test("scrolls to any of them", async () => {
    const grid = page.getByRole("grid");
    await grid.evaluate((element) => element.scrollTo(0, element.scrollHeight));
    await pictureOfSample(page, "Probe09999-Regular");
    await grid.evaluate((element) => element.scrollTo(0, 0));
    await findRow(page, "Probe00000-Regular").waitFor();
  });

  test("finds one of them", async () => {
    const since = Date.now();
    await search("PROBE04242");
    await page.getByText("1 font", { exact: true }).waitFor();
    console.log(`# a search among ${COUNT} fonts takes ${Date.now() - since} ms`);
    await pictureOfSample(page, "Probe04242-Regular");
    assert.equal(await page.getByRole("row").count(), 1);
    await search("no such font");
    await page.getByText("No font fits the search.").waitFor();
    await search("Probe0424");
    await page.getByText("10 fonts", { exact: true }).waitFor();
  });

  test("activates and deactivates by one click", async () => {
    assert.equal(await home.sees("Probe04242-Regular"), false);
    await switchOf("Probe04242-Regular").click();
    await page.getByText("Probe04242-Regular is active").waitFor();
    assert.equal(await home.sees("Probe04242-Regular"), true);
    await page.getByText("Active", { exact: true }).first().click(); // the filter
    await page.getByText("1 font", { exact: true }).waitFor();
    await takePicture(page, "active");
    await switchOf("Probe04242-Regular").click();
    await page.getByText("Probe04242-Regular is no longer active").waitFor();
    assert.equal(await home.sees("Probe04242-Regular"), false);
    await page.getByText("No font fits the search.").waitFor();
    await page.getByText("All", { exact: true }).click();
  });

  test("shows what another host changes", async () => {
    second = await Host.start(home);
    const since = Date.now();
    await second.perform(`panel '{"op":"activate","fonts":["Probe04243-Regular"]}'`);
    await findRow(page, "Probe04243-Regular").getByRole("button", { pressed: true }).waitFor();
    const duration = Date.now() - since;
    console.log(`# a change of another host is shown after ${duration} ms`);
    assert.ok(duration < 5000);
  });

  test("shows open documents and what they lack", async () => {
    await second.perform(`open ${join(home.folder, "samples/missing-font.pdf")}`);
    const summary = page.locator("#documents summary").filter({ hasText: "missing-font.pdf" });
    await summary.waitFor();
    await summary.click();
    await page.locator("#documents").getByText("NoSuchFace-Regular").waitFor();
    await takePicture(page, "documents");
    await second.perform("close");
    await summary.waitFor({ state: "detached" });
  });

  test("adds a library, and removes it", async () => {
    await search("");
    const folder = join(home.folder, "Other");
    await page.getByLabel("Folder to add").fill(folder);
    await page.getByRole("button", { name: "Add", exact: true }).click();
    const library = page.locator("#libraries button").filter({ hasText: "Other" });
    await library.click();
    await page.getByText("3 fonts", { exact: true }).waitFor();
    await pictureOfSample(page, "Other00002-Regular");
    await page.getByRole("button", { name: "Use only this" }).click();
    await library.getByText("in use").waitFor();
    await takePicture(page, "library");
    await page.getByRole("button", { name: "Use only this", pressed: true }).click();
    await library.getByText("in use").waitFor({ state: "detached" });
    await page.getByRole("button", { name: "Remove" }).click();
    await library.waitFor({ state: "detached" });
    await page.getByRole("button", { name: "Undo" }).click();
    await library.waitFor();
  });

  test("reports a folder that is not there", async () => {
    await page.getByLabel("Folder to add").fill("/no/such/folder");
    await page.getByRole("button", { name: "Add", exact: true }).click();
    await page.getByRole("alert").getByText("/no/such/folder").waitFor();
  });

  test("has no barriers", async () => {
    assert.deepEqual(await findBarriers(page), []);
  });

  test("wrote no warning to the console", () => {
    assert.deepEqual(page.errors, []);
  });

  test("says that the host is gone, and is back with it", async () => {
    await search("Probe0424");
    await page.getByText("10 fonts", { exact: true }).waitFor();
    await host.kill();
    await page.getByRole("alert").getByText("The connection is lost").waitFor();
    await takePicture(page, "host-gone");
    const { port } = host;
    host = await Host.start(home);
    assert.equal(host.port, port);
    await page.getByText("Connected", { exact: true }).waitFor();
    await page.getByRole("alert").waitFor({ state: "hidden" });
    await switchOf("Probe04242-Regular").click();
    await page.getByText("Probe04242-Regular is active").waitFor();
    assert.equal(await home.sees("Probe04242-Regular"), true);
  });
});
