// A replay carried inside the page: "Ulozit stranku s replayem" writes it, and so do
// trelvin-export --html and the window's export, as
//   <script type="application/x-trelvin-replay" id="embedded-replay" data-name="NAME"
//           data-moment="#a=..">BASE64</script>
// right before the page's own script. The page keeps its source as it was loaded, without the
// replay, so that it can write itself again with another.
const embeddedId = "embedded-replay";
const moduleScript = '<script type="module">';

export interface EmbeddedReplay {
  name: string;
  bytes: Uint8Array;
  moment: string;
}

let pageSource = "";

// Takes the replay out of the page, and remembers the page without it; call before anything
// else changes the page.
export function takeEmbeddedReplay(): EmbeddedReplay | null {
  const carrier = document.getElementById(embeddedId);
  carrier?.remove();
  pageSource = `<!doctype html>\n${document.documentElement.outerHTML}\n`;
  if (!carrier) return null;
  const text = atob((carrier.textContent ?? "").replace(/\s+/g, ""));
  const bytes = new Uint8Array(text.length);
  for (let i = 0; i < text.length; ++i) bytes[i] = text.charCodeAt(i);
  return { name: carrier.dataset.name ?? "replay.trp", bytes, moment: carrier.dataset.moment ?? "" };
}

function base64(bytes: Uint8Array): string {
  const chunk = 0x8000;
  let text = "";
  for (let i = 0; i < bytes.length; i += chunk) text += String.fromCharCode(...bytes.subarray(i, i + chunk));
  return btoa(text);
}

// The page with `replay` inside, opening at `moment`.
export function pageWithReplay(replay: EmbeddedReplay): string {
  const carrier = document.createElement("script");
  carrier.type = "application/x-trelvin-replay";
  carrier.id = embeddedId;
  carrier.dataset.name = replay.name;
  carrier.dataset.moment = replay.moment;
  carrier.textContent = base64(replay.bytes);
  const at = pageSource.indexOf(moduleScript);
  return `${pageSource.slice(0, at)}${carrier.outerHTML}\n${pageSource.slice(at)}`;
}
