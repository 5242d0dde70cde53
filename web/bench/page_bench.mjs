// The page's speed and size on the largest replay (109 x 100 fields, 12 players, 32,767
// actions) in headless chromium, one figure a line, with the native benchmark's figures of the
// same machine beside them. Not a test: it prints, it does not judge.
// Usage: node web/bench/page_bench.mjs [BUILD-DIR] [RUNS]   (BUILD-DIR: the native build, "build")
import { execFileSync } from "node:child_process";
import { mkdtemp, readdir, readFile, rm, stat, writeFile } from "node:fs/promises";
import { tmpdir } from "node:os";
import path from "node:path";
import { closeBoxes, openPage, openReplay, pagePath, startBrowser } from "../tests/support.mjs";

const build = path.resolve(process.argv[2] ?? "build");
const runs = Number(process.argv[3] ?? 3);
const median = (values) => [...values].sort((a, b) => a - b)[Math.floor(values.length / 2)];
const print = (name, value, target, native = "") =>
  console.log(`${name.padEnd(22)} ${value.toFixed(1).padStart(8)}   target ${target.padEnd(8)} ${native}`);

// The resident memory of the page's renderer, the largest of the browser's renderers.
async function rendererMegabytes(profile) {
  let largest = 0;
  for (const pid of await readdir("/proc")) {
    if (!/^\d+$/.test(pid)) continue;
    const command = await readFile(`/proc/${pid}/cmdline`, "utf8").catch(() => "");
    if (!command.includes("--type=renderer") || !command.includes(profile)) continue;
    const status = await readFile(`/proc/${pid}/status`, "utf8").catch(() => "");
    largest = Math.max(largest, Number(/VmRSS:\s+(\d+)/.exec(status)?.[1] ?? 0) / 1024);
  }
  return largest;
}

// The native benchmark's figures, by name.
function nativeFigures() {
  const bench = path.join(build, "bench", "trelvin-bench");
  const figures = {};
  try {
    for (const line of execFileSync(bench, ["5"], { encoding: "utf8", maxBuffer: 1 << 24 }).split("\n")) {
      const [name, value] = line.trim().split(/\s+/);
      if (name && value !== undefined && !Number.isNaN(Number(value))) figures[name] = Number(value);
    }
  } catch (error) {
    console.error(`no native figures: ${error.message}`);
  }
  return figures;
}

const folder = await mkdtemp(path.join(tmpdir(), "trelvin-page-bench-"));
const replay = path.join(folder, "largest.trp");
await writeFile(replay, execFileSync(path.join(build, "bench", "trelvin-generate"), ["109", "100", "12", "32767"],
  { maxBuffer: 1 << 26 }));
const browser = await startBrowser({ viewport: { width: 1280, height: 800 } });
const profile = browser.profile;
// What a renderer holds for a page with nothing in it, on this machine.
const blank = await browser.context.newPage();
await blank.setContent("<p>Trelvin</p>");
await blank.waitForTimeout(500);
const blankMemory = await rendererMegabytes(profile);
await blank.close();
const { page } = await openPage(browser.context);
const measure = (name) => page.evaluate((n) => performance.getEntriesByName(n).at(-1)?.duration ?? NaN, name);

const opens = [];
for (let run = 0; run < runs; ++run) {
  await openReplay(page, replay);
  await closeBoxes(page);
  opens.push(await measure("open"));
}
// Jumps to actions spread over the replay in a fixed order, through the prompt (Ctrl+G).
const jumps = [];
let seed = 7;
for (let i = 0; i < 100; ++i) {
  seed = (seed * 1103515245 + 12345) % 2147483648;
  const target = 1 + (seed % 32767);
  await page.keyboard.press("Control+g");
  await page.fill("#jump-number", String(target));
  await page.keyboard.press("Enter");
  jumps.push(await measure("jump"));
}
const steps = [];
await page.keyboard.press("Home");
for (let i = 0; i < 100; ++i) {
  await page.keyboard.press("ArrowRight");
  steps.push(await measure("step"));
}
// A drag along the timeline from one end to the other in 60 moves, one a frame.
const box = await page.locator("#timeline").boundingBox();
const frames = await page.evaluate(async ({ x, y, width }) => {
  const timeline = document.getElementById("timeline");
  const gaps = [];
  const event = (type, at) => new PointerEvent(type, { clientX: at, clientY: y, button: 0, buttons: 1, pointerId: 1, bubbles: true });
  timeline.dispatchEvent(event("pointerdown", x));
  let last = performance.now();
  for (let i = 1; i <= 60; ++i) {
    timeline.dispatchEvent(event("pointermove", x + width * i / 60));
    const now = await new Promise(requestAnimationFrame);
    gaps.push(now - last);
    last = now;
  }
  timeline.dispatchEvent(event("pointerup", x + width));
  return gaps;
}, { x: box.x + 6, y: box.y + 10, width: box.width - 12 });
const memory = await rendererMegabytes(profile);
await browser.close();
await rm(folder, { recursive: true, force: true });

const native = nativeFigures();
const beside = (name) => (name in native ? `native ${name} ${native[name]}` : "");
console.log(`page: ${pagePath}`);
print("page_kib", (await stat(pagePath)).size / 1024, "< 2048");
print("open_ms (median)", median(opens), "< 400", beside("full_open_ms"));
print("jump_any_ms (median)", median(jumps), "< 8", beside("jump_any_ms"));
print("jump_worst_ms", Math.max(...jumps), "", beside("jump_worst_ms"));
print("step_forward_ms", median(steps), "< 4", beside("step_back_ms"));
print("drag_slowest_frame_ms", Math.max(...frames.slice(1)), "< 16.7", beside("drag_slowest_ms"));
print("drag_missed_frames", frames.slice(1).filter((gap) => gap > 1.5 * 1000 / 60).length, `of ${frames.length - 1}`);
print("renderer_memory_mb", memory, "", beside("peak_memory_mb"));
print("blank_renderer_mb", blankMemory, "");
print("page_memory_mb", memory - blankMemory, "< 150");
