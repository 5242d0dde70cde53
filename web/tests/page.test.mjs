// The built page (build-web/trelvin-replay.html) in Debian's chromium: it asks for nothing
// beyond itself, opens replays from its picker, from ?replay=URL and from a copy of itself
// saved with the replay inside, follows the position in its link, and shows a file's text as text.
import { after, before, test } from "node:test";
import assert from "node:assert/strict";
import { createServer } from "node:http";
import { mkdtemp, readFile, rm } from "node:fs/promises";
import { tmpdir } from "node:os";
import path from "node:path";
import { pathToFileURL } from "node:url";
import { execFileSync } from "node:child_process";
import { battle, closeBoxes, dump, expectSelfContained, nativeExport, openPage, openReplay, pagePath, press, startBrowser,
  text } from "./support.mjs";

let browser;
let folder;
let server;
let serverUrl;

before(async () => {
  browser = await startBrowser();
  folder = await mkdtemp(path.join(tmpdir(), "trelvin-page-test-"));
  // The page and the battle from a web server, as a link would give them.
  server = createServer(async (request, response) => {
    const files = { "/trelvin-replay.html": [pagePath, "text/html"], "/bitva.trp": [battle, "text/plain"] };
    const file = files[new URL(request.url, "http://localhost").pathname];
    if (!file) return response.writeHead(404).end();
    response.writeHead(200, { "Content-Type": file[1] }).end(await readFile(file[0]));
  });
  await new Promise((resolve) => server.listen(0, "127.0.0.1", resolve));
  serverUrl = `http://127.0.0.1:${server.address().port}`;
});

after(async () => {
  await browser?.close();
  server?.close();
  await rm(folder, { recursive: true, force: true });
});

test("the page's policy refuses a remote script and a connection", async () => {
  const { page } = await openPage(browser.context);
  const refused = await page.evaluate(() => new Promise((resolve) => {
    const seen = [];
    document.addEventListener("securitypolicyviolation", (event) => {
      seen.push(event.violatedDirective);
      if (seen.length === 2) resolve(seen.sort());
    });
    const script = document.createElement("script");
    script.src = "http://127.0.0.1:9/remote.js";
    document.head.append(script);
    fetch("http://127.0.0.1:9/data").catch(() => {});
  }));
  assert.deepEqual(refused, ["connect-src", "script-src-elem"]);
  await page.close();
});

test("a replay shows the action's texts; a bad file the loader's message in a box", async () => {
  const opened = await openPage(browser.context);
  const { page } = opened;
  await openReplay(page, battle);
  assert.deepEqual(await closeBoxes(page), []);
  const { load, events } = dump(battle);
  for (const action of [1, 2, 30]) {
    if (action > 1) await press(page, "ArrowRight", action - Number((await text(page, "#position")).split(" ")[0]));
    assert.equal(await text(page, "#position"), `${action} (${load.eventCount})`);
    assert.equal(await text(page, "#description"), events[action - 1].actionText.replaceAll("\r\n", "\n"));
    // As the reader's locale writes it (the browser's is Czech here).
    const moment = new Date(`${events[action - 1].time}Z`);
    const written = (style) => new Intl.DateTimeFormat("cs-CZ", { ...style, timeZone: "UTC" }).format(moment);
    assert.equal(await text(page, "#time"), `${written({ dateStyle: "short" })} ${written({ timeStyle: "medium" })}`);
  }

  const bad = { name: "spatny.trp", mimeType: "application/octet-stream", buffer: Buffer.from("0;Alfa;x;3;2;3\r\n") };
  await openReplay(page, bad);
  const [message] = await closeBoxes(page);
  assert.ok(message.startsWith("Chyba pri nacitani replaye - "), message);
  assert.match(message, /'x' neni cislo/);
  // The list, the timeline and the charts say what they show after it, the message in their tooltip.
  const note = page.locator("#action-list .failed-load");
  assert.equal(await note.textContent(), "Replay se nepodarilo nacist: neni v nem zadna akce");
  assert.equal(await note.getAttribute("title"), message);
  assert.equal(await page.locator(".failed-load").count(), 3);
  await expectSelfContained(opened);
  await page.close();
});

test("markup in a file is shown as text, in UTF-8 from Windows-1250", async () => {
  const opened = await openPage(browser.context);
  const { page } = opened;
  const hostile = '<img src=x onerror="window.hacked=1"><b>Vosi\xe8ka</b>';
  const lines = [`0;${hostile};2;3;2;3`, "2004-03-07-07-00-00;create_world;NNNNNN", `2004-03-07-07-01-00;create_hq;${hostile};les;A0`];
  const file = { name: "zly.trp", mimeType: "text/plain", buffer: Buffer.from(lines.join("\r\n") + "\r\n", "latin1") };
  await openReplay(page, file);
  await closeBoxes(page);
  await press(page, "End");
  await closeBoxes(page);
  const description = await text(page, "#description");
  assert.ok(description.includes('<img src=x onerror="window.hacked=1"><b>Vosička</b>'), description);
  assert.equal(await page.locator("#player option").nth(1).textContent(), '<img src=x onerror="window.hacked=1"><b>Vosička</b> (les)');
  assert.equal(await page.locator("#list-player option").nth(1).textContent(), '<img src=x onerror="window.hacked=1"><b>Vosička</b>');
  assert.equal(await page.locator("#description *, #status *, #message-text *, #list-detail .description *").count(), 0);
  assert.equal(await page.evaluate(() => window.hacked), undefined);
  await expectSelfContained(opened);
  await page.close();
});

test("the link follows the position, the view, the zoom and the marks; a page opened with it starts there", async () => {
  const { page, requests } = await openPage(browser.context, `${serverUrl}/trelvin-replay.html?replay=bitva.trp#a=25&v=les&z=30&h=0`);
  await page.waitForFunction(() => document.getElementById("position").textContent.startsWith("25 "));
  assert.equal(await page.isChecked("input[name=view][value=les]"), true);
  assert.equal(await page.isChecked("#highlight"), false);
  assert.equal(await text(page, "#status"), "Akce 25");
  const entries = await page.evaluate(() => history.length);
  await press(page, "ArrowRight", 2);
  await press(page, "Control+=");
  await page.waitForFunction(() => location.hash === "#a=27&v=les&z=40&h=0");
  assert.deepEqual(requests.filter((url) => !url.startsWith("data:")), [`${serverUrl}/trelvin-replay.html?replay=bitva.trp`, `${serverUrl}/bitva.trp`]);
  // No entry in the history for a step.
  assert.equal(await page.evaluate(() => history.length), entries);
  await page.close();

  const missing = await openPage(browser.context, `${serverUrl}/trelvin-replay.html?replay=chybi.trp`);
  await missing.page.waitForSelector("#message[open]");
  const [message] = await closeBoxes(missing.page);
  assert.match(message, /^Replay se nepodarilo stahnout z http:\/\/127\.0\.0\.1:\d+\/chybi\.trp: server odpovedel 404/);
  await missing.page.close();
});

test("a page saved with its replay opens offline at the action it was saved at", async () => {
  const { page } = await openPage(browser.context);
  await openReplay(page, battle);
  await closeBoxes(page);
  await page.check("input[name=view][value=louka]");
  await press(page, "ArrowRight", 14);
  const download = page.waitForEvent("download");
  await page.click("#save-page");
  const saved = path.join(folder, (await download).suggestedFilename());
  await (await download).saveAs(saved);
  assert.equal(path.basename(saved), "bitva-u-potoka.html");
  await page.close();

  const reopened = await openPage(browser.context, pathToFileURL(saved).href);
  await reopened.page.waitForFunction(() => document.getElementById("position").textContent.startsWith("15 "));
  assert.equal(await reopened.page.isChecked("input[name=view][value=louka]"), true);
  await reopened.page.waitForFunction(() => location.hash === "#a=15&v=louka&z=20&h=1");
  await expectSelfContained(reopened);
  // Saved again, it carries the replay once.
  const again = reopened.page.waitForEvent("download");
  await reopened.page.click("#save-page");
  const copy = await readFile(await (await again).path(), "utf8");
  assert.equal(copy.split('id="embedded-replay"').length, 2);
  await reopened.page.close();
});

test("trelvin-export --html writes the page that opens at its action in its way of viewing",
  { skip: !nativeExport && "no native trelvin-export" }, async () => {
    const exported = path.join(folder, "exported.html");
    execFileSync(nativeExport, [battle, "--html", "--at", "12", "--view", "les", "-o", exported]);
    const opened = await openPage(browser.context, pathToFileURL(exported).href);
    await opened.page.waitForFunction(() => document.getElementById("position").textContent.startsWith("12 "));
    assert.equal(await opened.page.isChecked("input[name=view][value=les]"), true);
    await opened.page.waitForFunction(() => location.hash === "#a=12&v=les&z=20&h=1");
    await expectSelfContained(opened);
    await opened.page.close();
  });

test("on a phone the map comes first and the page does not scroll sideways", async () => {
  const phone = await startBrowser({ viewport: { width: 390, height: 844 }, hasTouch: true, isMobile: true });
  try {
    const { page } = await openPage(phone.context);
    await openReplay(page, battle);
    await closeBoxes(page);
    const sizes = await page.evaluate(() => ({
      page: document.documentElement.scrollWidth,
      view: document.documentElement.clientWidth,
      map: document.getElementById("map").getBoundingClientRect().top,
      panels: document.getElementById("panels").getBoundingClientRect().top,
    }));
    assert.ok(sizes.page <= sizes.view, JSON.stringify(sizes));
    assert.ok(sizes.map < sizes.panels, JSON.stringify(sizes));
    const small = await page.$$eval("button:not([hidden]), select, input:not([type=radio]):not([type=checkbox]):not([hidden])",
      (controls) => controls.filter((c) => c.offsetParent && c.getBoundingClientRect().height < 40).map((c) => c.id));
    assert.deepEqual(small, []);
    await page.close();
  } finally {
    await phone.close();
  }
});
