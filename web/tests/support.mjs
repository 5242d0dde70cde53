// What the page tests share: Debian's chromium driven by playwright-core (never a browser of
// its own), the built page, the samples, and the native tools the page is held against.
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { mkdtemp, rm } from "node:fs/promises";
import { tmpdir } from "node:os";
import path from "node:path";
import { fileURLToPath, pathToFileURL } from "node:url";
import { chromium } from "playwright-core";

export const root = fileURLToPath(new URL("../..", import.meta.url));
export const pagePath = path.join(root, "build-web", "trelvin-replay.html");
export const pageUrl = pathToFileURL(pagePath).href;
export const battle = path.join(root, "samples", "bitva-u-potoka.trp");

// The machine has no network: without these chromium waits on refused connections.
const chromiumFlags = ["--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
  "--disable-background-networking", "--disable-component-update", "--disable-sync"];

// A browser with a fresh profile for one test file; `close` removes both.
export async function startBrowser(options = {}) {
  const profile = await mkdtemp(path.join(tmpdir(), "trelvin-page-test-"));
  const context = await chromium.launchPersistentContext(profile, {
    executablePath: "/usr/bin/chromium",
    headless: true,
    args: chromiumFlags,
    locale: "cs-CZ",
    acceptDownloads: true,
    ...options,
  });
  return {
    context,
    profile,
    close: async () => {
      await context.close();
      await rm(profile, { recursive: true, force: true });
    },
  };
}

// The page, started, with every request it makes and every breach of its policy recorded.
export async function openPage(context, url = pageUrl) {
  const page = await context.newPage();
  const requests = [];
  const errors = [];
  page.on("request", (request) => requests.push(request.url()));
  page.on("pageerror", (error) => errors.push(error.message));
  await page.addInitScript(() => {
    window.policyViolations = [];
    document.addEventListener("securitypolicyviolation", (event) =>
      window.policyViolations.push(`${event.violatedDirective} ${event.blockedURI}`));
  });
  await page.goto(url);
  await page.waitForSelector("body[data-ready]");
  assert.deepEqual(errors, []);
  return { page, requests, errors };
}

export async function expectSelfContained({ page, requests, errors }) {
  const elsewhere = requests.filter((url) => !url.startsWith("file:") && !url.startsWith("data:") && !url.startsWith("blob:"));
  assert.deepEqual(elsewhere, []);
  assert.deepEqual(await page.evaluate(() => window.policyViolations), []);
  assert.deepEqual(errors, []);
}

// Chooses a file through the "Otevrit" button's picker, as a user does.
export async function openReplay(page, file) {
  const opened = Number(await page.evaluate(() => document.body.dataset.opened ?? 0));
  const chooser = page.waitForEvent("filechooser");
  await page.click("#open");
  await (await chooser).setFiles(file);
  await page.waitForFunction((before) => Number(document.body.dataset.opened ?? 0) > before, opened);
}

// The texts of the open message boxes, each closed with its OK, in order.
export async function closeBoxes(page) {
  const texts = [];
  while (await page.locator("#message[open]").count()) {
    texts.push(await page.textContent("#message-text"));
    await page.click("#message-ok");
    // The next box opens once the closed one has told it.
    await page.evaluate(() => new Promise((resolve) => setTimeout(resolve)));
  }
  return texts;
}

export async function press(page, key, times = 1) {
  for (let i = 0; i < times; ++i) await page.keyboard.press(key);
}

export async function text(page, selector) {
  return page.locator(selector).textContent();
}

// trelvin-dump (the same core, for node) of a replay: the load, then one line an action.
export function dump(file, ...options) {
  const script = path.join(root, "build-web", "trelvin-dump.js");
  const lines = execFileSync(process.execPath, [script, ...options, file], { encoding: "utf8", maxBuffer: 1 << 28 })
    .trimEnd().split("\n").map((line) => JSON.parse(line));
  return { load: lines[0].load, events: lines.slice(1) };
}

// The native trelvin-export, where the native build made it (CTest names it).
export const nativeExport = process.env.TRELVIN_NATIVE_EXPORT;
