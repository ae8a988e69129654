// Debian's Chromium, without a window, played by Playwright.

import { mkdirSync, readFileSync } from "node:fs";
import { createRequire } from "node:module";
import { join } from "node:path";
import { fileURLToPath } from "node:url";

const root = fileURLToPath(new URL("../../../", import.meta.url));
const require = createRequire(join(root, ".deps/panel/"));
const { chromium } = require("playwright-core");
const axeScript = readFileSync(require.resolve("axe-core/axe.min.js"), "utf8");

// For those who look at the page after a test.
const pictures = join(root, "build/panel-test");
mkdirSync(pictures, { recursive: true });

export function startBrowser() {
  return chromium.launch({
    executablePath: process.env.CHROMIUM || "/usr/bin/chromium",
    args: ["--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
      "--disable-background-networking", "--disable-component-update", "--disable-sync"],
  });
}

// Opens a page in a context of its own: nothing is kept from another one. `page.errors` has what
// the page wrote to the console as warnings or errors.
export async function openPage(browser, options = {}) {
  const size = { width: 1180, height: 760 };
  const context = await browser.newContext({ viewport: size, ...options });
  const page = await context.newPage();
  page.setDefaultTimeout(30000);
  page.errors = [];
  page.on("pageerror", (error) => page.errors.push(String(error)));
  page.on("console", (message) => {
    if (["error", "warning"].includes(message.type())) page.errors.push(message.text());
  });
  return page;
}

export function takePicture(page, name) {
  return page.screenshot({ path: join(pictures, `${name}.png`) });
}

// Returns a line for each violation that axe-core finds.
export async function findBarriers(page) {
  await page.evaluate(axeScript);
  const { violations } = await page.evaluate(() => globalThis.axe.run());
  return violations.flatMap(({ id, nodes }) => nodes.map(({ target }) => `${id}: ${target}`));
}

// The row of a font whose name is shown.
export function findRow(page, name) {
  return page.getByRole("row").filter({ hasText: name });
}

// Waits until a row's sample is drawn, and returns its picture.
export async function pictureOfSample(page, name) {
  const sample = findRow(page, name).locator(".sample:not(.waiting, .failed)");
  await sample.waitFor();
  await page.waitForTimeout(200); // it fades in
  return sample.screenshot();
}
