// One opened replay and everything the page shows of it, as the window's session and panels
// show it: the core moves, the page shows what it reports and draws what it drew.
import { ActionKind, type MoveResult, type OpenResult, type Replay, type ViewName } from "./core";
import { ClockFace } from "./clock_face";
import { dateTimeText } from "./date_text";
import { element } from "./dom";
import { keepMoment, type Moment } from "./link";
import { MapView } from "./map/map_view";
import { MessageBoxes } from "./message_boxes";
import { Playback } from "./playback";
import { PlayerPanel } from "./panels/player_panel";
import type { ReplayBytes } from "./replay_bytes";

// How long a move took, the map's paint included: the latest of each kind, for the benchmark.
function measured(name: string, start: number): void {
  performance.clearMeasures(name);
  performance.measure(name, { start });
}

export class Viewer {
  readonly boxes = new MessageBoxes();
  readonly playback: Playback;
  private readonly clock = new ClockFace(element<HTMLCanvasElement>("clock"));
  private readonly highlight = element<HTMLInputElement>("highlight");
  private readonly fieldName = element<HTMLInputElement>("field-name");
  private readonly status = element<HTMLOutputElement>("status");
  private readonly players: PlayerPanel;
  private opened?: { name: string; bytes: Uint8Array };
  private view: ViewName = "all";
  // What shows the whole replay (the timeline, the list, the charts), told of each one opened,
  // and then of every position.
  readonly openers: Array<() => void> = [];
  readonly followers: Array<(position: number) => void> = [];

  constructor(readonly replay: Replay, readonly map: MapView) {
    this.playback = new Playback({
      first: () => this.step(() => replay.first()),
      back: () => this.step(() => replay.back()),
      forward: () => this.step(() => replay.forward()),
      last: () => this.step(() => replay.last()),
      buttons: () => replay.updateButtons(),
      boxesOpen: () => this.boxes.open,
      whenBoxesClosed: (then) => this.boxes.whenClosed(then),
    });
    this.players = new PlayerPanel(replay);
    map.onFieldClicked = (k) => this.fieldClicked(k);
    map.fieldNameOf = (k) => replay.fieldName(k);
    map.onZoomChanged = () => this.keepLink();
    this.highlight.addEventListener("change", () => this.showMap());
    for (const option of document.querySelectorAll<HTMLInputElement>("input[name=view]"))
      option.addEventListener("change", () => this.setViewMode(option.value as ViewName));
    this.fieldName.addEventListener("input", () => this.inspectField());
  }

  get isOpen(): boolean {
    return this.opened !== undefined;
  }

  get replayFile(): { name: string; bytes: Uint8Array } | undefined {
    return this.opened;
  }

  // Opens a replay in the window's order: the loader's message, the first action's, the grid
  // (whose failure ends the opening there), the panels, the texts, the buttons.
  open(source: ReplayBytes, keepGoing?: (done: number, total: number) => boolean): OpenResult {
    const start = performance.now();
    this.playback.halt();
    this.map.setGrid({ columns: 0, fields: 0, columnCaptions: [], rowCaptions: [] }, this.map.fieldPixels);
    const result = this.replay.open(source.bytes, source.name, source.size, keepGoing);
    this.opened = { name: source.name, bytes: source.bytes };
    this.status.textContent = "";
    this.showFailedLoad(result.failure);
    for (const opener of this.openers) opener();
    const messages = [result.failure, ...result.reports.map((report) => report.text)].filter((text) => text);
    this.map.setGrid(result.grid, this.map.fieldPixels);
    element("drop-hint").hidden = true;
    if (result.gridFailure) {
      this.boxes.show(...messages, result.gridFailure);
      return result;
    }
    this.boxes.show(...messages);
    this.fieldName.disabled = false;
    this.players.enable();
    this.showTexts();
    for (const follow of this.followers) follow(result.position);
    this.playback.updateButtons();
    this.playback.disableStop();
    for (const id of ["save-page", "copy-link", "jump-to"]) element<HTMLButtonElement>(id).disabled = false;
    this.keepLink();
    measured("open", start);
    return result;
  }

  // After a load that failed, the list, the timeline and the charts say so, and what they show.
  private showFailedLoad(failure: string): void {
    const text = this.replay.failedLoadText();
    for (const note of document.querySelectorAll<HTMLElement>(".failed-load")) {
      note.hidden = text === "";
      note.textContent = text;
      note.title = failure;
    }
  }

  // A step of the buttons or the show: its reports in boxes, one after another.
  private step(move: () => MoveResult): void {
    const start = performance.now();
    const result = move();
    this.boxes.show(...result.reports.map((report) => report.text));
    this.moved();
    measured("step", start);
  }

  // Straight to an action, as the timeline, the list, the prompt and the jump keys go: what the
  // actions on the way reported goes to the status line.
  jumpTo(target: number): void {
    if (this.replay.position() < 1 || this.replay.actionsRead() < 1) return;
    const start = performance.now();
    const { position, news } = this.replay.jumpTo(target);
    this.moved();
    measured("jump", start);
    this.status.textContent = news.length > 0
      ? `Akce ${position}: ${news.length} hlaseni, posledni: ${news[news.length - 1]}`
      : `Akce ${position}`;
  }

  // The nearest action of a kind after or before the position.
  jumpToNearest(kind: ActionKind, forward: boolean): void {
    if (!this.isOpen || this.replay.actionsRead() < 1) return;
    const found = this.replay.nearest(kind, forward);
    if (found === 0) {
      this.status.textContent = forward ? "Dale uz zadna takova akce neni" : "Drive zadna takova akce nebyla";
      return;
    }
    this.jumpTo(found);
  }

  private moved(): void {
    this.status.textContent = "";
    this.playback.updateButtons();
    this.showMap();
    this.showTexts();
    for (const follow of this.followers) follow(this.replay.position());
  }

  setViewMode(view: ViewName): void {
    this.view = view;
    const option = document.querySelector<HTMLInputElement>(`input[name=view][value=${view}]`);
    if (option) option.checked = true;
    this.replay.setViewMode(view);
    if (this.isOpen) this.showMap();
  }

  get viewMode(): ViewName {
    return this.view;
  }

  setHighlight(on: boolean): void {
    this.highlight.checked = on;
    this.showMap();
  }

  showMap(): void {
    if (!this.isOpen) return;
    this.map.setFrame(this.replay.pictures().slice(), this.highlight.checked ? this.replay.marks() : null);
    this.keepLink();
  }

  private showTexts(): void {
    element("description").textContent = this.replay.description();
    element("position").textContent = this.replay.positionText();
    element("time").textContent = dateTimeText(this.replay.time());
    this.players.refresh();
    this.clock.show(this.replay.clock(this.clock.scaleHeight));
  }

  private fieldClicked(k: number): void {
    if (this.fieldName.disabled) return;
    const name = this.replay.fieldName(k);
    // A click on the field already named still refreshes the panel.
    this.fieldName.value = name;
    this.inspectField();
  }

  private inspectField(): void {
    const found = this.replay.inspectField(this.fieldName.value);
    if (!found) return;
    element("field-terrain").textContent = found.terrain;
    element("field-owner").textContent = found.owner;
    element("field-army-type").textContent = found.armyType;
    element("field-army-count").textContent = found.armyCount;
  }

  // Where the page stands, for a link to it.
  moment(): Required<Moment> {
    return { action: this.replay.position(), view: this.viewMode, fieldPixels: this.map.fieldPixels, highlight: this.highlight.checked };
  }

  private keepLink(): void {
    if (this.isOpen) keepMoment(this.moment());
  }
}
