// "Hraci": the players' list, rebuilt at every move with the choice kept, and the chosen
// player's moves, nectar, headquarters and territory, in the core's words.
import type { Replay } from "../core";
import { element } from "../dom";
import { playerColour } from "./player_colours";

export class PlayerPanel {
  private readonly box = element<HTMLSelectElement>("player");
  private readonly swatch = element("player-colour");
  private readonly values = ["player-moves", "player-nectar", "player-headquarters", "player-territory"].map((id) => element(id));

  private entries: string[] = [];

  constructor(private readonly replay: Replay) {
    this.box.addEventListener("change", () => this.showChosen());
  }

  enable(): void {
    this.box.disabled = false;
  }

  // The entries anew, the one chosen before kept where the list still has it.
  refresh(): void {
    const entries = this.replay.playerEntries();
    if (entries.join("\n") !== this.entries.join("\n")) {
      const remembered = this.box.selectedIndex;
      this.box.length = 1;
      entries.forEach((entry) => this.box.add(new Option(entry)));
      this.box.selectedIndex = remembered < this.box.length ? remembered : 0;
      this.entries = entries;
    }
    this.showChosen();
  }

  private showChosen(): void {
    const player = this.box.selectedIndex;
    this.box.title = player > 0 ? this.box.options[player].text : "";
    this.swatch.style.background = player > 0 ? playerColour(player) : "transparent";
    if (player < 1) return;
    this.replay.playerStanding(player).forEach((text, i) => {
      if (this.values[i].textContent === text) return;
      this.values[i].textContent = text;
      this.values[i].title = text;
    });
  }
}
