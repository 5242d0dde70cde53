import { readdir, readFile } from "node:fs/promises";
import { startBrowser, openPage, openReplay, closeBoxes } from "./support.mjs";
const b = await startBrowser({ viewport: { width: 1280, height: 800 } });
const { page } = await openPage(b.context);
const cdp = await page.context().newCDPSession(page);
async function rss() { let m = 0; for (const pid of await readdir("/proc")) { if (!/^\d+$/.test(pid)) continue; const c = await readFile(`/proc/${pid}/cmdline`, "utf8").catch(() => ""); if (!c.includes("--type=renderer") || !c.includes(b.profile)) continue; const s = await readFile(`/proc/${pid}/status`, "utf8"); m = Math.max(m, Number(/VmRSS:\s+(\d+)/.exec(s)[1]) / 1024); } return m.toFixed(0); }
console.log("empty", await rss(), JSON.stringify(await cdp.send("Runtime.getHeapUsage")));
await openReplay(page, "/tmp/largest.trp"); await closeBoxes(page);
console.log("open1", await rss(), JSON.stringify(await cdp.send("Runtime.getHeapUsage")));
await openReplay(page, "/tmp/largest.trp"); await closeBoxes(page);
console.log("open2", await rss(), JSON.stringify(await cdp.send("Runtime.getHeapUsage")));
await page.keyboard.press("Control+p"); await page.waitForTimeout(500);
console.log("charts", await rss(), JSON.stringify(await cdp.send("Runtime.getHeapUsage")));
await b.close();
