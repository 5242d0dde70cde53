// Builds build-web/trelvin-replay.html: one self-contained page with the core's WebAssembly,
// the bundled script, the style, the field pictures and the icon inside it, so that it works
// from file:// and asks for nothing. Run by scripts/build-web.sh after the core is built.
// Usage: node web/build.mjs CORE-DIR   (the folder of trelvin-web-core.mjs and .wasm)
import { readFile, readdir, writeFile } from "node:fs/promises";
import path from "node:path";
import { fileURLToPath } from "node:url";
import * as esbuild from "esbuild";

const web = path.dirname(fileURLToPath(import.meta.url));
const root = path.dirname(web);
const output = path.join(root, "build-web", "trelvin-replay.html");
const sizeLimit = 2 * 1024 * 1024;

const coreDir = process.argv[2];
if (!coreDir) {
  console.error("usage: node web/build.mjs CORE-DIR");
  process.exit(2);
}

async function dataUri(file, type) {
  return `data:${type};base64,${(await readFile(file)).toString("base64")}`;
}

// The pictures of the map, 01.png to 16.png, as one module of data: URIs in order.
async function fieldPicturesModule() {
  const folder = path.join(root, "assets", "fields");
  const expected = Array.from({ length: 16 }, (_, i) => `${String(i + 1).padStart(2, "0")}.png`);
  const present = (await readdir(folder)).filter((name) => name.endsWith(".png")).sort();
  if (present.join() !== expected.join()) throw new Error(`${folder} must hold exactly ${expected.join(" ")}`);
  const uris = await Promise.all(expected.map((name) => dataUri(path.join(folder, name), "image/png")));
  return `export default ${JSON.stringify(uris)};`;
}

// The page's own module names, resolved to the build's files (see web/src/modules.d.ts).
const pageModules = {
  name: "page-modules",
  setup(build) {
    build.onResolve({ filter: /^trelvin-web-core\.(mjs|wasm)$/ }, (args) => ({ path: path.resolve(coreDir, args.path) }));
    build.onResolve({ filter: /^trelvin-field-pictures$/ }, () => ({ path: "field-pictures", namespace: "page" }));
    build.onLoad({ filter: /.*/, namespace: "page" }, async () => ({ contents: await fieldPicturesModule(), loader: "js" }));
  },
};

const bundle = await esbuild.build({
  entryPoints: [path.join(web, "src", "main.ts")],
  bundle: true,
  format: "esm",
  minify: true,
  target: ["chrome100", "firefox100", "safari15"],
  loader: { ".wasm": "binary" },
  plugins: [pageModules],
  write: false,
  logLevel: "warning",
});
const script = bundle.outputFiles[0].text;
// uPlot's own rules first, so that the page's may refine them.
const style = (await readFile(path.join(web, "node_modules", "uplot", "dist", "uPlot.min.css"), "utf8")) + "\n" +
  (await readFile(path.join(web, "src", "style.css"), "utf8"));
// Either would end its element early and let the rest be read as markup.
if (/<\/script/i.test(script) || /<\/style/i.test(style)) throw new Error("an inline part closes its own element");

const parts = {
  "@ICON@": await dataUri(path.join(root, "assets", "icon", "trelvin-32.png"), "image/png"),
  "@STYLE@": style.trimEnd(),
  "@SCRIPT@": script.trimEnd(),
};
const template = await readFile(path.join(web, "src", "page.html"), "utf8");
// One pass, so that no part is searched for another's marker.
const page = template.replace(/@ICON@|@STYLE@|@SCRIPT@/g, (marker) => parts[marker]);
await writeFile(output, page);

const size = Buffer.byteLength(page);
console.log(`${path.relative(root, output)}: ${(size / 1024).toFixed(0)} KiB`);
if (size >= sizeLimit) {
  console.error(`the page must stay under ${sizeLimit / 1024 / 1024} MiB`);
  process.exit(1);
}
