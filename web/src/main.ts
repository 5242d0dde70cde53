// The placeholder page: "Otevrit" loads a replay and the status tells its count of actions or
// the loader's message. Every text from a file is shown as text, never parsed as markup.
import { startCore, type LoadResult } from "./core";
import fieldPictures from "trelvin-field-pictures";

function element<T extends HTMLElement>(id: string): T {
  const found = document.getElementById(id);
  if (!found) throw new Error(`#${id} is missing from the page`);
  return found as T;
}

function statusText(result: LoadResult): string {
  return result.messages.length > 0 ? result.messages.join("\n") : `${result.eventCount} akci`;
}

function showFieldPictures(strip: HTMLElement): void {
  fieldPictures.forEach((uri, index) => {
    const picture = document.createElement("img");
    picture.src = uri;
    picture.alt = picture.title = String(index + 1);
    strip.append(picture);
  });
}

async function main(): Promise<void> {
  const open = element<HTMLButtonElement>("open");
  const picker = element<HTMLInputElement>("replay-file");
  const status = element<HTMLOutputElement>("status");
  showFieldPictures(element("field-pictures"));

  const core = await startCore();
  open.addEventListener("click", () => picker.click());
  picker.addEventListener("change", async () => {
    const file = picker.files?.[0];
    if (!file) return;
    const bytes = new Uint8Array(await file.arrayBuffer());
    status.textContent = statusText(core.loadReplay(bytes));
    // The same file chosen again is a change too.
    picker.value = "";
  });
  open.disabled = false;
}

main().catch((error: unknown) => {
  element("status").textContent = `Chyba: ${String(error)}`;
});
