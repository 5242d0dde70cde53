// The README's pictures of the page: docs/web-desktop.png (1280 x 800) and docs/web-phone.png
// (390 x 844, the whole page), halfway through the battle sample with a player, a field, the
// list and the charts shown. Usage: node web/screenshots.mjs   (after scripts/build-web.sh)
import path from "node:path";
import { battle, closeBoxes, openPage, openReplay, press, root, startBrowser } from "./tests/support.mjs";

async function picture(viewport, file, phone) {
  const browser = await startBrowser({ viewport, isMobile: phone, hasTouch: phone, deviceScaleFactor: 1 });
  const { page } = await openPage(browser.context);
  await openReplay(page, battle);
  await closeBoxes(page);
  await press(page, "ArrowRight", 44);
  await closeBoxes(page);
  await page.selectOption("#player", { index: 2 });
  await page.fill("#field-name", "F4");
  if (!phone) {
    await page.click("#zoom-in");
    await page.click("#zoom-in");
  }
  await press(page, "Control+p");
  await page.selectOption("#chart-quantity", { index: 1 });
  await page.evaluate(() => new Promise(requestAnimationFrame));
  await page.screenshot({ path: path.join(root, "docs", file), fullPage: phone });
  await browser.close();
}

await picture({ width: 1280, height: 800 }, "web-desktop.png", false);
await picture({ width: 390, height: 844 }, "web-phone.png", true);
