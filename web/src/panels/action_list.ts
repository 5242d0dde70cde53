// The action list: every action with its number, date and time, keyword and summary, failed
// ones red with a warning sign; narrowed by kind, by player and by a search, all decided by the
// core. Only the rows in view exist, so 32,767 actions scroll as smoothly as ten. The current
// action is selected and kept in view; where the filter hides it, a line "zde je akce N" stands
// where it would be. A click or Return on a row goes there; Up and Down choose a row, whose whole
// text the detail under the list shows.
import type { ActionRows, CoreModule, Replay } from "../core";
import { dateTimeText } from "../date_text";
import { element } from "../dom";

const rowHeight = 22;

export class ActionList {
  private readonly panel = element("action-list");
  private readonly kinds = element<HTMLSelectElement>("list-kind");
  private readonly players = element<HTMLSelectElement>("list-player");
  private readonly search = element<HTMLInputElement>("list-search");
  private readonly view = element("list-rows");
  private readonly spacer = element("list-spacer");
  private readonly empty = element("list-empty");
  private readonly here = element("list-here");
  private readonly detail = element("list-detail");
  private rows?: ActionRows;
  private shown: Int32Array = new Int32Array();
  private position = 0;
  // The row chosen with the keys or the mouse, whose detail is shown; -1 for none.
  private current = -1;
  private drawn = new Map<number, HTMLElement>();
  private spare: HTMLElement[] = [];
  private filtered = false;
  // The rows' view height, followed by the resize observer rather than read at every move.
  private viewHeight = 0;
  private scrolled = 0;
  private scrolling = false;

  onJump: (event: number) => void = () => {};

  constructor(private readonly core: CoreModule, private readonly replay: Replay) {
    core.kindCaptions().forEach((caption, kind) => this.kinds.add(new Option(caption, String(kind))));
    this.kinds.addEventListener("change", () => this.refilter());
    this.players.addEventListener("change", () => this.refilter());
    this.search.addEventListener("input", () => this.refilter());
    this.view.addEventListener("scroll", () => {
      this.scrolled = this.view.scrollTop;
      this.drawRows();
    });
    new ResizeObserver(([entry]) => {
      this.viewHeight = entry.contentRect.height;
      this.keepInView(this.current < 0);
      this.drawRows();
    }).observe(this.view);
    this.view.addEventListener("click", (event) => {
      const row = (event.target as HTMLElement).closest<HTMLElement>("[data-row]");
      if (row) this.choose(Number(row.dataset.row));
    });
    this.view.addEventListener("keydown", (event) => this.key(event));
    this.view.addEventListener("pointerover", (event) => this.giveToolTip(event.target));
  }

  get visible(): boolean {
    return !this.panel.hidden;
  }

  toggle(): void {
    this.panel.hidden = !this.panel.hidden;
    element("toggle-list").setAttribute("aria-pressed", String(!this.panel.hidden));
    if (!this.panel.hidden) this.keepInView();
  }

  // A newly opened replay: its rows, its players, no filter but the chosen ones.
  showReplay(): void {
    this.rows?.delete();
    this.rows = new this.core.ActionRows(this.replay);
    this.players.length = 1;
    this.rows.playerNames().forEach((name, index) => this.players.add(new Option(name, String(index))));
    this.refilter();
  }

  setPosition(position: number): void {
    this.position = position;
    this.selectPosition();
  }

  private refilter(): void {
    if (!this.rows) return;
    const kind = Number(this.kinds.value || 0), player = Number(this.players.value);
    this.shown = this.rows.shown(kind, player, this.search.value);
    this.filtered = kind !== 0 || player !== -1 || this.search.value.trim() !== "";
    this.spacer.style.height = `${this.shown.length * rowHeight}px`;
    this.empty.hidden = !(this.shown.length === 0 && this.filtered && this.replay.actionsRead() > 0);
    this.clearRows();
    this.selectPosition();
  }

  private rowOf(event: number): number {
    let low = 0, high = this.shown.length;
    while (low < high) {
      const middle = (low + high) >> 1;
      if (this.shown[middle] < event) low = middle + 1;
      else high = middle;
    }
    return low;
  }

  private selectPosition(): void {
    const place = this.rowOf(this.position);
    const found = place < this.shown.length && this.shown[place] === this.position;
    this.current = found ? place : -1;
    const known = this.rows && this.position >= 1 && this.shown.length > 0;
    this.here.hidden = found || !known;
    if (!found && known) {
      const label = document.createElement("span");
      label.textContent = `zde je akce ${this.position}`;
      this.here.replaceChildren(label);
      this.here.style.top = `${place * rowHeight - 1}px`;
    }
    this.keepInView(!found);
    this.drawRows(true);
    this.showDetail();
  }

  // The current row in view, or the place where the current action would stand in its middle.
  private keepInView(centre = false): void {
    const place = this.current >= 0 ? this.current : this.rowOf(this.position);
    const top = place * rowHeight, height = this.viewHeight;
    let wanted = this.scrolled;
    if (centre) wanted = top - height / 2;
    else if (top < this.scrolled) wanted = top;
    else if (top + rowHeight > this.scrolled + height) wanted = top + rowHeight - height;
    wanted = Math.max(0, Math.min(wanted, this.shown.length * rowHeight - height));
    if (wanted === this.scrolled) return;
    // The rows are drawn for the new place at once; the view scrolls there with the next frame,
    // where the browser lays the page out anyway.
    this.scrolled = wanted;
    if (!this.scrolling) {
      this.scrolling = true;
      requestAnimationFrame(() => {
        this.scrolling = false;
        this.view.scrollTop = this.scrolled;
      });
    }
  }

  private clearRows(): void {
    for (const row of this.drawn.values()) row.hidden = true;
    this.spare.push(...this.drawn.values());
    this.drawn.clear();
  }

  // The rows in view and a few around them; rows that leave are filled anew for others.
  private drawRows(restyle = false): void {
    if (!this.rows || this.panel.hidden) return;
    const from = Math.max(0, Math.floor(this.scrolled / rowHeight) - 5);
    const to = Math.min(this.shown.length, Math.ceil((this.scrolled + this.viewHeight) / rowHeight) + 5);
    for (const [index, row] of this.drawn) {
      if (index >= from && index < to) continue;
      this.spare.push(row);
      this.drawn.delete(index);
    }
    for (let index = from; index < to; ++index) {
      let row = this.drawn.get(index);
      if (!row) {
        row = this.spare.pop() ?? this.newRow();
        this.fillRow(row, index);
        this.drawn.set(index, row);
      } else if (!restyle) {
        continue;
      }
      const selected = index === this.current;
      row.classList.toggle("selected", selected);
      row.setAttribute("aria-selected", String(selected));
    }
    for (const row of this.spare) {
      row.hidden = true;
      row.classList.remove("selected");
    }
  }

  private newRow(): HTMLElement {
    const row = document.createElement("div");
    row.setAttribute("role", "option");
    for (let cell = 0; cell < 4; ++cell) row.append(document.createElement("span"));
    this.view.append(row);
    return row;
  }

  private fillRow(row: HTMLElement, index: number): void {
    const event = this.shown[index];
    const [time, keyword, summary, failed] = this.rows!.row(event);
    row.hidden = false;
    row.className = failed ? "row failed" : "row";
    row.dataset.row = String(index);
    row.dataset.event = String(event);
    row.removeAttribute("title");
    row.style.top = `${index * rowHeight}px`;
    const texts = [failed ? `\u26a0 ${event}` : String(event), dateTimeText(time), keyword, summary];
    texts.forEach((text, cell) => { row.children[cell].textContent = text; });
  }

  // A row's whole description and messages, made when the pointer first rests on it.
  private giveToolTip(target: EventTarget | null): void {
    const row = (target as HTMLElement | null)?.closest<HTMLElement>("[data-event]");
    if (row && !row.title && this.rows) row.title = this.rows.toolTip(Number(row.dataset.event));
  }

  private choose(index: number): void {
    if (index >= 0 && index < this.shown.length) this.onJump(this.shown[index]);
  }

  private key(event: KeyboardEvent): void {
    if (this.shown.length === 0) return;
    const moves: Record<string, number> = { ArrowDown: 1, ArrowUp: -1, PageDown: 10, PageUp: -10 };
    if (event.key in moves) {
      const start = this.current >= 0 ? this.current : this.rowOf(this.position) - (moves[event.key] > 0 ? 1 : 0);
      this.current = Math.max(0, Math.min(this.shown.length - 1, start + moves[event.key]));
      this.keepInView();
      this.drawRows(true);
      this.showDetail();
    } else if (event.key === "Enter") {
      this.choose(this.current);
    } else {
      return;
    }
    event.preventDefault();
    event.stopPropagation();
  }

  private showDetail(): void {
    const event = this.current >= 0 ? this.shown[this.current] : this.position;
    const action = this.rows?.detail(event);
    this.detail.replaceChildren();
    if (!action) {
      const placeholder = document.createElement("p");
      placeholder.className = "placeholder";
      placeholder.textContent = "Popis vybrane akce";
      this.detail.append(placeholder);
      return;
    }
    const paragraph = (text: string, className = "") => {
      const p = document.createElement("p");
      p.textContent = text;
      p.className = className;
      this.detail.append(p);
      return p;
    };
    const head = paragraph(` \u00b7 ${dateTimeText(action.time)} \u00b7 ${action.keyword}`);
    const number = document.createElement("b");
    number.textContent = `Akce ${event}`;
    head.prepend(number);
    paragraph(action.description, "description");
    if (action.who.length > 0) paragraph(action.who.join(" \u00b7 "));
    for (const message of action.messages) paragraph(message, "failure");
  }
}
