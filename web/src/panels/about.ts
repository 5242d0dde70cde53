// "O programu": the version and the licence's lines, as every program's --version prints them.
import type { CoreModule } from "../core";
import { element } from "../dom";

export function showAbout(core: CoreModule): void {
  const { version, purpose, lines } = core.licenceText();
  const text = element("about-text");
  text.replaceChildren();
  const title = document.createElement("h3");
  title.textContent = `Trelvin Replay ${version}`;
  text.append(title);
  for (const line of [purpose, ...lines]) {
    const paragraph = document.createElement("p");
    paragraph.textContent = line;
    text.append(paragraph);
  }
  element<HTMLDialogElement>("about").showModal();
}
