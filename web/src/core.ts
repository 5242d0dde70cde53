// The core, instantiated from the bytes the page carries: the page loads nothing.
import createTrelvinCore from "trelvin-web-core.mjs";
import coreWasm from "trelvin-web-core.wasm";

// A replay loaded as the window loads one; the messages are the loader's, in UTF-8.
export interface LoadResult {
  loaded: boolean;
  eventCount: number;
  messages: string[];
}

export interface CoreModule {
  loadReplay(bytes: Uint8Array): LoadResult;
}

export function startCore(): Promise<CoreModule> {
  return createTrelvinCore({ wasmBinary: coreWasm });
}
