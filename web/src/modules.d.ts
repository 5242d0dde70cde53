// Modules that web/build.mjs provides when it bundles the page.

// The core compiled by emscripten (web/bridge/core_bridge.cpp): its factory, and the bytes of
// its WebAssembly, which come inside the page.
declare module "trelvin-web-core.mjs" {
  const createTrelvinCore: (options: { wasmBinary: Uint8Array }) => Promise<import("./core").CoreModule>;
  export default createTrelvinCore;
}
declare module "trelvin-web-core.wasm" {
  const bytes: Uint8Array;
  export default bytes;
}

// The 16 field pictures of the map (assets/fields/01.png .. 16.png) as data: URIs, in order.
declare module "trelvin-field-pictures" {
  const dataUris: readonly string[];
  export default dataUris;
}
