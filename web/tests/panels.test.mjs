// The panels beside the map: the player panel, the action list, the timeline, the charts with
// their CSV, the step's message boxes and the jumps' status line, the slide show and the prompt,
// each held to what trelvin-dump (the same core) tells of the replay.
import { after, before, test } from "node:test";
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { mkdtemp, readFile, rm, writeFile } from "node:fs/promises";
import { tmpdir } from "node:os";
import path from "node:path";
import { battle, closeBoxes, dump, openPage, openReplay, press, root, startBrowser, text } from "./support.mjs";

let browser;
let folder;
before(async () => {
  browser = await startBrowser();
  folder = await mkdtemp(path.join(tmpdir(), "trelvin-panels-test-"));
});
after(async () => {
  await browser?.close();
  await rm(folder, { recursive: true, force: true });
});

async function battlePage() {
  const { page } = await openPage(browser.context);
  await openReplay(page, battle);
  await closeBoxes(page);
  return page;
}

const position = async (page) => Number((await text(page, "#position")).split(" ")[0]);

test("the player panel shows the chosen player's standing after each action", async () => {
  const page = await battlePage();
  const { load, events } = dump(battle);
  for (const action of [10, 40, load.eventCount]) {
    await press(page, "ArrowRight", action - await position(page));
    // The choice stays as the list is made anew at every move.
    if (action === 10) await page.selectOption("#player", { index: 2 });
    const player = events[action - 1].players[1];
    const entries = await page.$$eval("#player option", (options) => options.slice(1).map((o) => o.textContent));
    assert.deepEqual(entries, events[action - 1].players.map((p) => `${p.name} (${p.side})`));
    const shown = await Promise.all(["moves", "nectar", "headquarters", "territory"].map((v) => text(page, `#player-${v}`)));
    assert.deepEqual(shown, player.playing
      ? [`${player.moves} (+ ${load.speed}/hod)`, `${player.nectar} (+ ${player.nectarPerHour}/hod)`, player.hqField, String(player.territory)]
      : ["", "", "Uz nehraje", ""]);
  }
  await page.close();
});

test("the action list narrows to a kind, a search and a player, and goes where a row is chosen", async () => {
  const page = await battlePage();
  const { events } = dump(battle);
  await press(page, "ArrowRight", 4);
  assert.equal(await text(page, "#list-rows .row.selected span:first-child"), "5");
  await page.selectOption("#list-kind", { label: "Utoky" });
  const attacks = await page.$$eval("#list-rows .row:not([hidden]) span:nth-child(3)", (cells) => cells.map((c) => c.textContent));
  assert.ok(attacks.length > 0 && attacks.every((keyword) => keyword === "attack"), attacks.join());
  // The current action is no attack: a line stands where it would be.
  assert.equal(await text(page, "#list-here"), "zde je akce 5");
  await page.click("#list-rows .row:not([hidden]) >> nth=2");
  const chosen = await position(page);
  assert.equal(events[chosen - 1].action, "attack");
  assert.equal(await text(page, "#status"), `Akce ${chosen}`);
  assert.match(await text(page, "#list-detail"), new RegExp(`^Akce ${chosen} · `));

  await page.selectOption("#list-kind", { label: "Vse" });
  await page.fill("#list-search", "zzzz");
  assert.equal(await page.isVisible("#list-empty"), true);
  assert.equal(await text(page, "#list-empty"), "Nic nenalezeno");
  await page.fill("#list-search", "B0");
  const found = await page.$$eval("#list-rows .row:not([hidden]) span:first-child", (cells) => cells.map((c) => Number(c.textContent)));
  const expected = events.filter((e) => /(^|[^A-Za-z0-9])B0($|[^0-9])/.test(e.actionText)).map((e) => e.index);
  for (const index of found) assert.ok(expected.includes(index) || /B0/.test(events[index - 1].actionText), String(index));
  await page.fill("#list-search", "");
  await page.selectOption("#list-player", { label: "Eva" });
  assert.ok(await page.locator("#list-rows .row:not([hidden])").count() > 0);
  await page.close();
});

test("the timeline goes to the action under the pointer and tells of it", async () => {
  const page = await battlePage();
  const { load } = dump(battle);
  const box = await page.locator("#timeline").boundingBox();
  await page.mouse.move(box.x + box.width / 2, box.y + 10);
  const hover = await text(page, "#timeline-hover");
  const under = Number(/^Akce (\d+) z (\d+)/.exec(hover)[1]);
  assert.match(hover, new RegExp(`^Akce ${under} z ${load.eventCount}, .+\\nDruh: `));
  await page.mouse.down();
  await page.mouse.up();
  await page.waitForFunction((n) => document.getElementById("position").textContent.startsWith(`${n} `), under);
  assert.equal(await text(page, "#status"), `Akce ${under}`);
  assert.equal(await text(page, "#timeline-position"), `${under} (${load.eventCount})`);
  await page.close();
});

test("the charts hide and show players, go to an action on a click and save the dump's CSV", async () => {
  const page = await battlePage();
  await press(page, "Control+p");
  const legend = page.locator("#chart-legend button");
  assert.deepEqual(await legend.allTextContents(), ["Karel (les)", "Jana (louka)", "Petr (les)", "Eva (louka)"]);
  await legend.nth(1).click();
  assert.equal(await legend.nth(1).getAttribute("aria-pressed"), "false");
  await page.selectOption("#chart-quantity", { label: "Mnozstvi nektaru" });
  assert.equal(await page.locator("#chart-legend button").nth(1).getAttribute("aria-pressed"), "false");
  const over = await page.locator("#chart .u-over").boundingBox();
  await page.mouse.move(over.x + over.width * 0.75, over.y + over.height / 2);
  assert.match(await text(page, "#chart-hover"), /^Akce \d+ {2}.+Karel \(les\): \d+/s);
  assert.doesNotMatch(await text(page, "#chart-hover"), /Jana/);
  await page.mouse.click(over.x + over.width * 0.75, over.y + over.height / 2);
  await page.waitForFunction(() => document.getElementById("status").textContent.startsWith("Akce "));
  assert.equal(await page.isVisible("#chart-marker"), true);

  const download = page.waitForEvent("download");
  await page.click("#save-csv");
  const saved = await readFile(await (await download).path(), "utf8");
  const dumped = execFileSync(process.execPath, [path.join(root, "build-web", "trelvin-dump.js"), "--csv", battle], { encoding: "utf8" });
  assert.equal(saved, dumped);
  assert.equal((await download).suggestedFilename(), "bitva-u-potoka.csv");
  await page.close();
});

test("a step shows each failure in a box, in order; a jump writes them on the status line", async () => {
  const lines = ["0;Chyby;2;3;2;3", "2004-03-07-07-00-00;create_world;NNNNNN", "2004-03-07-07-01-00;create_hq;Karel;les;A0",
    "2004-03-07-07-02-00;create_hq;Jana;louka;C1", "2004-03-07-07-03-00;move;A0;Z8;1", "2004-03-07-07-04-00;buy;A0;Beruška;1",
    "2004-03-07-07-05-00;move;A0;Z9;1", "2004-03-07-07-06-00;buy;C1;Beruška;1"];
  const file = path.join(folder, "chyby.trp");
  await writeFile(file, lines.join("\r\n") + "\r\n", "latin1");
  const { load, events } = dump(file);
  const reported = events.flatMap((event) => event.messages);
  assert.equal(reported.length, 2);
  const { page } = await openPage(browser.context);
  await openReplay(page, file);
  await closeBoxes(page);
  await press(page, "End");
  assert.deepEqual(await closeBoxes(page), reported);
  await press(page, "Home");
  await closeBoxes(page);
  await press(page, "Control+g");
  assert.equal(await text(page, "#jump-label"), `Cislo akce (1 az ${load.eventCount}):`);
  await page.fill("#jump-number", "abc");
  await page.click("#jump-go");
  assert.equal(await text(page, "#jump-problem"), `'abc' neni cislo akce: zadejte cele cislo od 1 do ${load.eventCount}.`);
  await page.fill("#jump-number", "99");
  await page.click("#jump-go");
  assert.equal(await text(page, "#jump-problem"), `Akce 99 v replayi neni: zadejte cislo od 1 do ${load.eventCount}.`);
  await page.fill("#jump-number", String(load.eventCount));
  await page.click("#jump-go");
  assert.equal(await page.locator("#message[open]").count(), 0);
  // Both failures lie between the first action and the last.
  assert.equal(await text(page, "#status"), `Akce ${load.eventCount}: 2 hlaseni, posledni: ${reported[1]}`);
  // The jump keys: the previous failures, and none before the first.
  const failing = events.filter((event) => event.messages.length > 0).map((event) => event.index);
  await press(page, "Shift+F8");
  assert.match(await text(page, "#status"), new RegExp(`^Akce ${failing[1]}:`));
  await press(page, "Shift+F8");
  assert.match(await text(page, "#status"), new RegExp(`^Akce ${failing[0]}:`));
  await press(page, "Shift+F8");
  assert.equal(await text(page, "#status"), "Drive zadna takova akce nebyla");
  await page.close();
});

test("the slide show steps at once and then every interval, and stops at the end", async () => {
  const { page } = await openPage(browser.context);
  await page.clock.install();
  await openReplay(page, battle);
  await closeBoxes(page);
  await page.check("#mode-show");
  assert.equal(await page.isVisible("#play"), true);
  await press(page, "Space");
  assert.equal(await position(page), 2);
  assert.equal(await page.isEnabled("#stop"), true);
  await page.clock.runFor(5000);
  assert.equal(await position(page), 3);
  await page.click("#play-fast");
  assert.equal(await position(page), 4);
  await page.clock.runFor(3000);
  assert.equal(await position(page), 7);
  await press(page, "Space");
  assert.equal(await page.isEnabled("#stop"), false);
  await page.clock.runFor(3000);
  assert.equal(await position(page), 7);
  // Backwards from the end; Home goes to the first action without stopping, the next tick stops.
  const count = dump(battle).load.eventCount;
  await press(page, "End");
  assert.equal(await page.isEnabled("#play"), false);
  await page.click("#play-back-fast");
  assert.equal(await position(page), count - 1);
  await page.clock.runFor(1000);
  assert.equal(await position(page), count - 2);
  await press(page, "Home");
  assert.equal(await position(page), 1);
  assert.equal(await page.isEnabled("#stop"), true);
  await page.clock.runFor(1000);
  assert.equal(await page.isEnabled("#stop"), false);
  assert.equal(await position(page), 1);
  await page.close();
});

test("the largest replay's list holds every action and draws only the rows in view",
  { skip: !process.env.TRELVIN_GENERATOR && "no generator" }, async () => {
    const file = path.join(folder, "largest.trp");
    await writeFile(file, execFileSync(process.env.TRELVIN_GENERATOR, ["109", "100", "12", "32767"], { maxBuffer: 1 << 26 }));
    const { page } = await openPage(browser.context);
    await openReplay(page, file);
    await closeBoxes(page);
    await press(page, "End");
    await closeBoxes(page);
    assert.equal(await text(page, "#list-rows .row.selected span:first-child"), "32767");
    assert.ok(await page.locator("#list-rows .row:not([hidden])").count() < 100);
    const spacer = await page.$eval("#list-spacer", (s) => s.offsetHeight);
    assert.equal(spacer, 32767 * 22);
    await page.close();
  });
