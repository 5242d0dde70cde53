// The built page (build-web/trelvin-replay.html) in Debian's chromium, opened from file://: it
// asks for nothing beyond itself, loads replays through its file picker with the same core as
// trelvin-dump, and shows a file's text as text.
import { after, before, test } from "node:test";
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { mkdtemp, rm } from "node:fs/promises";
import { tmpdir } from "node:os";
import path from "node:path";
import { fileURLToPath, pathToFileURL } from "node:url";
import { chromium } from "playwright-core";

const root = fileURLToPath(new URL("../..", import.meta.url));
const pageUrl = pathToFileURL(path.join(root, "build-web", "trelvin-replay.html")).href;
const battle = path.join(root, "samples", "bitva-u-potoka.trp");

// The machine has no network: without these chromium waits on refused connections.
const chromiumFlags = ["--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
  "--disable-background-networking", "--disable-component-update", "--disable-sync"];

let profile;
let context;

before(async () => {
  profile = await mkdtemp(path.join(tmpdir(), "trelvin-page-test-"));
  context = await chromium.launchPersistentContext(profile, {
    executablePath: "/usr/bin/chromium",
    headless: true,
    args: chromiumFlags,
  });
});

after(async () => {
  await context?.close();
  await rm(profile, { recursive: true, force: true });
});

// The page, ready to open a file, with every request it makes and every breach of its
// Content-Security-Policy recorded.
async function openPage() {
  const page = await context.newPage();
  const requests = [];
  page.on("request", (request) => requests.push(request.url()));
  await page.addInitScript(() => {
    window.policyViolations = [];
    document.addEventListener("securitypolicyviolation", (event) =>
      window.policyViolations.push(`${event.violatedDirective} ${event.blockedURI}`));
  });
  await page.goto(pageUrl);
  // Ready, or telling why not.
  await page.locator("#open:enabled, #status:not(:empty)").first().waitFor();
  assert.equal(await page.textContent("#status"), "", "the page did not start");
  return { page, requests };
}

async function expectSelfContained({ page, requests }) {
  const elsewhere = requests.filter((url) => !url.startsWith("file:") && !url.startsWith("data:"));
  assert.deepEqual(elsewhere, []);
  assert.deepEqual(await page.evaluate(() => window.policyViolations), []);
}

// Chooses a file through the "Otevrit" button's picker, as a user does.
async function openReplay(page, file) {
  const chooser = page.waitForEvent("filechooser");
  await page.click("#open");
  await (await chooser).setFiles(file);
}

function statusAfter(page, previous) {
  return page.waitForFunction((old) => {
    const text = document.getElementById("status").textContent;
    return text !== old && text;
  }, previous).then((handle) => handle.jsonValue());
}

// What trelvin-dump (the same core, for node) says of the load.
function dumpedLoad(file) {
  const dump = path.join(root, "build-web", "trelvin-dump.js");
  return JSON.parse(execFileSync(process.execPath, [dump, file], { encoding: "utf8" }).split("\n")[0]).load;
}

test("the page carries its pictures and its core and asks for nothing", async () => {
  const opened = await openPage();
  const pictures = await opened.page.$$eval("#field-pictures img", (images) =>
    images.map((image) => ({ data: image.src.startsWith("data:image/png;base64,"), width: image.naturalWidth })));
  assert.equal(pictures.length, 16);
  assert.ok(pictures.every((picture) => picture.data && picture.width > 0), JSON.stringify(pictures));
  const icon = await opened.page.getAttribute("link[rel=icon]", "href");
  assert.match(icon, /^data:image\/png;base64,/);
  await openReplay(opened.page, battle);
  await statusAfter(opened.page, "");
  await expectSelfContained(opened);
  await opened.page.close();
});

test("the page's policy refuses a remote script", async () => {
  const { page } = await openPage();
  const refused = await page.evaluate(() => new Promise((resolve) => {
    document.addEventListener("securitypolicyviolation", (event) => resolve(event.violatedDirective), { once: true });
    const script = document.createElement("script");
    script.src = "http://127.0.0.1:9/remote.js";
    document.head.append(script);
  }));
  assert.equal(refused, "script-src-elem");
  await page.close();
});

test("a replay shows its count of actions, a bad file the loader's message in its place", async () => {
  const opened = await openPage();
  const { page } = opened;
  await openReplay(page, battle);
  const count = await statusAfter(page, "");
  assert.equal(count, `${dumpedLoad(battle).eventCount} akci`);
  assert.notEqual(count, "0 akci");

  const bad = { name: "spatny.trp", mimeType: "application/octet-stream", buffer: Buffer.from("0;Alfa;x;3;2;3\r\n") };
  await openReplay(page, bad);
  const message = await statusAfter(page, count);
  assert.ok(message.startsWith("Chyba pri nacitani replaye - "), message);
  assert.match(message, /'x' neni cislo/);

  // A good replay after a bad one replaces its message.
  await openReplay(page, battle);
  assert.equal(await statusAfter(page, message), count);
  await expectSelfContained(opened);
  await page.close();
});

test("markup in a file is shown as text, in UTF-8 from Windows-1250", async () => {
  const opened = await openPage();
  const { page } = opened;
  const hostile = '<img src=x onerror="window.hacked=1"><b>Vosi\xe8ka</b>';
  const file = { name: "zly.trp", mimeType: "text/plain", buffer: Buffer.from(`0;Alfa;${hostile};3;2;3\r\n`, "latin1") };
  await openReplay(page, file);
  const message = await statusAfter(page, "");
  assert.ok(message.includes(`'<img src=x onerror="window.hacked=1"><b>Vosička</b>'`), message);
  assert.equal(await page.locator("#status *").count(), 0);
  assert.equal(await page.evaluate(() => window.hacked), undefined);
  await expectSelfContained(opened);
  await page.close();
});
