// A replay's bytes, from a chosen or dropped file, from ?replay=URL or from the page itself,
// read in pieces: a read that runs past half a second shows its progress with a Cancel, and
// no more than the loader's limit is ever held (the core refuses a larger file by its size).
import { element } from "./dom";

export const largestReplay = 64 * 1024 * 1024;
const progressDelay = 500;
const progressRefresh = 40;

export interface ReplayBytes {
  name: string;
  bytes: Uint8Array;
  // The file's own size, which may pass the limit.
  size: number;
  // The reading was cancelled: the core is given what was read, and stops there.
  cancelled: boolean;
}

// "Nacitani: NAME" with a bar and its Cancel, shown once a task runs past half a second.
export class LoadProgress {
  private readonly dialog = element<HTMLDialogElement>("progress");
  private readonly bar = element<HTMLProgressElement>("progress-bar");
  private readonly started = performance.now();
  private shownAt = 0;
  cancelled = false;

  constructor(name: string) {
    element("progress-label").textContent = `Nacitani: ${name}`;
    element("progress-cancel").onclick = () => {
      this.cancelled = true;
    };
  }

  // False once cancelled.
  report(done: number, total: number): boolean {
    const now = performance.now();
    if (now - this.started >= progressDelay && now - this.shownAt >= progressRefresh) {
      if (!this.dialog.open) this.dialog.showModal();
      this.shownAt = now;
      this.bar.value = total > 0 ? Math.round(Math.min(done, total) * 1000 / total) : 0;
    }
    return !this.cancelled;
  }

  get shown(): boolean {
    return this.dialog.open;
  }

  close(): void {
    if (this.dialog.open) this.dialog.close();
  }
}

// Reads a stream of a replay's bytes, `size` of them where it is known (0 where not).
export async function readReplay(name: string, size: number, stream: ReadableStream<Uint8Array> | null,
  progress: LoadProgress): Promise<ReplayBytes> {
  if (size > largestReplay || !stream) return { name, bytes: new Uint8Array(), size, cancelled: false };
  const pieces: Uint8Array[] = [];
  let read = 0;
  const reader = stream.getReader();
  while (read <= largestReplay) {
    const { done, value } = await reader.read();
    if (done) break;
    pieces.push(value);
    read += value.length;
    if (!progress.report(read, size || read)) {
      await reader.cancel();
      break;
    }
  }
  if (read > largestReplay) await reader.cancel();
  const bytes = new Uint8Array(Math.min(read, largestReplay + 1));
  let offset = 0;
  for (const piece of pieces) {
    const part = piece.subarray(0, bytes.length - offset);
    bytes.set(part, offset);
    offset += part.length;
  }
  return { name, bytes, size: Math.max(size, read), cancelled: progress.cancelled };
}

export function fileBytes(file: File, progress: LoadProgress): Promise<ReplayBytes> {
  return readReplay(file.name, file.size, file.size > largestReplay ? null : file.stream(), progress);
}

// The replay named by ?replay=URL; a failure to fetch it is one message.
export async function fetchedBytes(address: string, progress: LoadProgress): Promise<ReplayBytes> {
  const url = new URL(address, location.href);
  const name = decodeURIComponent(url.pathname.split("/").pop() || url.hostname);
  let response: Response;
  try {
    response = await fetch(url, { credentials: "omit" });
  } catch (error) {
    throw new Error(`Replay se nepodarilo stahnout z ${url.href}: ${error instanceof Error ? error.message : String(error)}`);
  }
  if (!response.ok) throw new Error(`Replay se nepodarilo stahnout z ${url.href}: server odpovedel ${response.status} ${response.statusText}`.trimEnd());
  const length = Number(response.headers.get("content-length")) || 0;
  return readReplay(name, length, response.body, progress);
}
