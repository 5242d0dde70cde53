// The README's pictures of the page: docs/web-desktop.png (1280 x 800), and on a phone (390 x
// 844) docs/web-phone.png (the first screen) and docs/web-phone-panels.png (scrolled to the
// panels), halfway through the battle sample with a player, a field, the list and the charts
// shown. Usage: node web/screenshots.mjs   (after scripts/build-web.sh)
import path from "node:path";
import { battle, closeBoxes, openPage, openReplay, press, root, startBrowser } from "./tests/support.mjs";

async function picture(viewport, files, phone) {
  const browser = await startBrowser({ viewport, isMobile: phone, hasTouch: phone, deviceScaleFactor: 1 });
  const { page } = await openPage(browser.context);
  await openReplay(page, battle);
  await closeBoxes(page);
  await press(page, "ArrowRight", 44);
  await closeBoxes(page);
  await page.selectOption("#player", { index: 2 });
  await page.fill("#field-name", "F4");
  // The map as large as the screen lets it be.
  await page.click("#zoom-fit");
  await press(page, "Control+p");
  await page.selectOption("#chart-quantity", { index: 1 });
  await page.evaluate(() => new Promise(requestAnimationFrame));
  // Typing the field's name scrolled it into view: the first picture is the top of the page.
  await page.evaluate(() => window.scrollTo(0, 0));
  await page.screenshot({ path: path.join(root, "docs", files[0]) });
  if (files[1]) {
    await page.evaluate(() => document.getElementById("players").scrollIntoView());
    await page.screenshot({ path: path.join(root, "docs", files[1]) });
  }
  await browser.close();
}

await picture({ width: 1280, height: 800 }, ["web-desktop.png"], false);
await picture({ width: 390, height: 844 }, ["web-phone.png", "web-phone-panels.png"], true);
