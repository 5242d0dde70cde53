// The map on the canvas: at 20 px a field, with the marks off, its pixels are the native
// trelvin-export picture of the same action in each way of viewing; the marks lie over it.
import { after, before, test } from "node:test";
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { mkdtemp, readFile, rm, writeFile } from "node:fs/promises";
import { tmpdir } from "node:os";
import path from "node:path";
import { battle, closeBoxes, dump, nativeExport, openPage, openReplay, press, startBrowser } from "./support.mjs";

let browser;
let folder;
before(async () => {
  browser = await startBrowser();
  folder = await mkdtemp(path.join(tmpdir(), "trelvin-map-test-"));
});
after(async () => {
  await browser?.close();
  await rm(folder, { recursive: true, force: true });
});

// Pixels of the map's grid on the canvas that differ from the PNG's, counted in the page.
function differingPixels(page, png, columns, rows) {
  return page.evaluate(async ({ base64, columns, rows }) => {
    const bytes = Uint8Array.from(atob(base64), (c) => c.charCodeAt(0));
    const picture = await createImageBitmap(new Blob([bytes], { type: "image/png" }), { colorSpaceConversion: "none" });
    const scratch = document.createElement("canvas");
    scratch.width = picture.width;
    scratch.height = picture.height;
    const context = scratch.getContext("2d");
    context.drawImage(picture, 0, 0);
    const expected = context.getImageData(0, 0, picture.width, picture.height).data;
    if (picture.width !== columns * 20 || picture.height !== rows * 20) return `picture is ${picture.width}x${picture.height}`;
    // The grid starts one field in, past the bands of the captions.
    const shown = document.getElementById("map").getContext("2d").getImageData(20, 20, columns * 20, rows * 20).data;
    let differing = 0;
    for (let i = 0; i < expected.length; i += 4)
      if (expected[i] !== shown[i] || expected[i + 1] !== shown[i + 1] || expected[i + 2] !== shown[i + 2]) ++differing;
    return differing;
  }, { base64: png.toString("base64"), columns, rows });
}

async function stepTo(page, action) {
  await press(page, "Home");
  await closeBoxes(page);
  for (let position = 1; position < action; ++position) {
    await press(page, "ArrowRight");
    await closeBoxes(page);
  }
}

test("at 20 px without marks the canvas is the native export of the action, in every way of viewing",
  { skip: !nativeExport && "no native trelvin-export" }, async () => {
    const { page } = await openPage(browser.context);
    await openReplay(page, battle);
    await closeBoxes(page);
    await page.uncheck("#highlight");
    const { load } = dump(battle);
    for (const [view, action] of [["all", 41], ["les", 63], ["louka", load.eventCount]]) {
      await page.check(`input[name=view][value=${view}]`);
      await stepTo(page, action);
      assert.equal(await page.textContent("#position"), `${action} (${load.eventCount})`);
      const png = path.join(folder, `${view}-${action}.png`);
      execFileSync(nativeExport, [battle, "--at", String(action), "--view", view, "-o", png]);
      await page.evaluate(() => new Promise(requestAnimationFrame));
      assert.equal(await differingPixels(page, await readFile(png), load.mapWidth, load.mapHeight), 0, `${view} at ${action}`);
    }
    await page.close();
  });

test("the marks lie over the pictures and the switch takes them away", async () => {
  const { page } = await openPage(browser.context);
  await openReplay(page, battle);
  await closeBoxes(page);
  // An attack: its two fields outlined, an arrow between them.
  await stepTo(page, 12);
  const magenta = () => page.evaluate(() => {
    const map = document.getElementById("map");
    const data = map.getContext("2d").getImageData(0, 0, map.width, map.height).data;
    let count = 0;
    for (let i = 0; i < data.length; i += 4) if (data[i] === 255 && data[i + 1] === 0 && data[i + 2] === 220) ++count;
    return count;
  });
  const frame = () => page.evaluate(() => new Promise(requestAnimationFrame));
  await frame();
  assert.ok(await magenta() > 0, "the action is marked");
  await press(page, "Control+h");
  await frame();
  assert.equal(await magenta(), 0);
  await page.waitForFunction(() => location.hash.endsWith("&h=0"));
  await page.close();
});

test("a click on a field or its typed name shows the field's values", async () => {
  const { page } = await openPage(browser.context);
  await openReplay(page, battle);
  await closeBoxes(page);
  await stepTo(page, 10);
  // Field B0: one field right of A0, past the row numbers' band.
  const box = await page.locator("#map").boundingBox();
  await page.mouse.click(box.x + 20 + 20 + 10, box.y + 20 + 10);
  assert.equal(await page.inputValue("#field-name"), "B0");
  const clicked = await page.textContent("#field-owner");
  assert.ok(clicked.length > 0);
  await page.fill("#field-name", "A0");
  assert.notEqual(await page.textContent("#field-terrain"), "");
  await page.close();
});

test("Ctrl+wheel zooms around the pointer through the window's steps, F fits the whole map",
  { skip: !process.env.TRELVIN_GENERATOR && "no generator" }, async () => {
    // A map larger than the view, so that the view can keep the field under the pointer.
    const file = path.join(folder, "wide.trp");
    await writeFile(file, execFileSync(process.env.TRELVIN_GENERATOR, ["40", "30", "4", "300"]));
    const { page } = await openPage(browser.context);
    await openReplay(page, file);
    await closeBoxes(page);
    const box = await page.locator("#map").boundingBox();
    // Over field C2: two fields right and two down from A0, past the bands.
    const at = { x: box.x + 20 + 2 * 20 + 10, y: box.y + 20 + 2 * 20 + 10 };
    await page.mouse.move(at.x, at.y);
    await page.keyboard.down("Control");
    await page.mouse.wheel(0, -100);
    await page.keyboard.up("Control");
    await page.waitForFunction(() => location.hash.includes("&z=24&"));
    const title = await page.evaluate(({ x, y }) => {
      document.getElementById("map").dispatchEvent(new PointerEvent("pointermove", { clientX: x, clientY: y, bubbles: true }));
      return document.getElementById("map").title;
    }, at);
    assert.equal(title, "C2");
    await press(page, "f");
    const fitted = Number(await page.evaluate(() => new Promise((resolve) =>
      setTimeout(() => resolve(/z=(\d+)/.exec(location.hash)[1]), 300))));
    const { load } = dump(file);
    assert.equal(fitted, Math.min(80, Math.floor(Math.min(box.width / (load.mapWidth + 1), box.height / (load.mapHeight + 1)))));
    await page.close();
  });
