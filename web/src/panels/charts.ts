// "Prubeh hry": one quantity at a time over the whole replay, a line for every player in the
// player's colour; the lines come from the core's course lines, the values under the pointer
// and the CSV from the core. A legend entry hides or shows its player (in every quantity), a
// player who left the game ends with a diamond, a red line marks the current action, and a click
// goes to the action under the pointer.
import uPlot from "uplot";
import type { CoreModule, CourseLine, Replay } from "../core";
import { dateTimeText } from "../date_text";
import { element } from "../dom";
import { playerColour } from "./player_colours";

const chartHeight = 200;
const endMarkSize = 5;

export class Charts {
  private readonly panel = element("charts");
  private readonly quantity = element<HTMLSelectElement>("chart-quantity");
  private readonly legend = element("chart-legend");
  private readonly box = element("chart");
  private readonly marker = element("chart-marker");
  private readonly hover = element("chart-hover");
  private readonly missing = element("charts-missing");
  private readonly saveCsv = element<HTMLButtonElement>("save-csv");
  private plot?: uPlot;
  private lines: CourseLine[][] = [];
  private hidden: boolean[] = [];
  private count = 0;
  private position = 0;
  private stale = false;
  // Where the plot lies in the chart's box, measured once a chart is laid out.
  private plotBox = { left: 0, top: 0, height: 0 };

  onJump: (event: number) => void = () => {};
  onCsv: (csv: string) => void = () => {};

  constructor(core: CoreModule, private readonly replay: Replay) {
    core.quantityCaptions().forEach((caption, index) => this.quantity.add(new Option(caption, String(index))));
    this.quantity.addEventListener("change", () => this.build());
    this.saveCsv.addEventListener("click", () => this.onCsv(this.replay.csv()));
    new ResizeObserver(() => this.fit()).observe(this.box);
  }

  get visible(): boolean {
    return !this.panel.hidden;
  }

  toggle(): void {
    this.panel.hidden = !this.panel.hidden;
    element("toggle-charts").setAttribute("aria-pressed", String(!this.panel.hidden));
    if (!this.panel.hidden && this.stale) this.showReplay();
  }

  // A newly opened replay; a hidden panel builds its chart when it is shown.
  showReplay(): void {
    const missing = this.replay.chartsMissing();
    this.saveCsv.disabled = this.replay.actionsRead() < 1 || missing !== "";
    this.saveCsv.title = missing || "Ulozit hodnoty vsech hracu po kazde akci jako CSV";
    this.stale = this.panel.hidden !== false;
    if (this.stale) return;
    this.missing.hidden = missing === "";
    this.missing.textContent = missing;
    this.count = this.replay.chartEvents();
    this.hidden = Array.from({ length: this.replay.chartPlayers() }, () => false);
    this.build();
  }

  setPosition(position: number): void {
    this.position = position;
    this.placeMarker();
  }

  // The chart of the chosen quantity, anew.
  private build(): void {
    this.plot?.destroy();
    this.plot = undefined;
    const players = this.hidden.length;
    const quantity = Number(this.quantity.value || 0);
    this.lines = Array.from({ length: players }, (_, i) => this.replay.courseLines(i + 1, quantity));
    this.showLegend();
    if (this.count < 1 || players === 0) return;
    const xs = Float64Array.from({ length: this.count }, (_, i) => i + 1);
    const data: uPlot.AlignedData = [xs, ...this.lines.map((lines) => this.values(lines))];
    const series: uPlot.Series[] = [{}, ...this.lines.map((_, i) => ({
      stroke: playerColour(i + 1),
      width: 1.5,
      show: !this.hidden[i],
      spanGaps: false,
      points: { show: false },
      paths: uPlot.paths.stepped!({ align: 1 }),
    }))];
    this.plot = new uPlot({
      width: Math.max(this.box.clientWidth, 100),
      height: chartHeight,
      legend: { show: false },
      cursor: { y: false, drag: { x: false, y: false } },
      scales: {
        x: { time: false, range: [1, Math.max(this.count, 2)] },
        y: { range: (_u, low, high) => uPlot.rangeNum(Math.min(0, low), Math.max(high, 1), 0.1, true) },
      },
      axes: [{ size: 30 }, { size: 60 }],
      series,
      // The plot's place is known once the chart is laid out, and again at each size.
      hooks: { draw: [(u) => this.drawEnds(u)], ready: [() => this.measurePlot()], setSize: [() => this.measurePlot()] },
    }, data, this.box);
    this.plot.over.addEventListener("click", (event) => this.onJump(this.eventAt(event.offsetX)));
    this.plot.over.addEventListener("pointermove", (event) => this.showHover(event.offsetX, event.offsetY));
    this.plot.over.addEventListener("pointerleave", () => { this.hover.hidden = true; });
    this.placeMarker();
  }

  // A player's values at every action: each line's steps held until its next change, nothing
  // where the player has no line.
  private values(lines: CourseLine[]): Array<number | null> {
    const values = new Array<number | null>(this.count).fill(null);
    for (const line of lines) {
      for (let j = 0; j < line.events.length; ++j) {
        const end = j + 1 < line.events.length ? line.events[j + 1] - 1 : line.events[j];
        for (let event = line.events[j]; event <= end && event <= this.count; ++event) values[event - 1] = line.values[j];
      }
    }
    return values;
  }

  private drawEnds(u: uPlot): void {
    const ratio = window.devicePixelRatio || 1;
    u.ctx.save();
    this.lines.forEach((lines, i) => {
      if (this.hidden[i]) return;
      u.ctx.fillStyle = playerColour(i + 1);
      for (const line of lines) {
        if (!line.endsOut || line.events.length === 0) continue;
        const last = line.events.length - 1;
        const x = u.valToPos(line.events[last], "x", true), y = u.valToPos(line.values[last], "y", true);
        const r = endMarkSize * ratio;
        u.ctx.beginPath();
        u.ctx.moveTo(x, y - r);
        u.ctx.lineTo(x + r, y);
        u.ctx.lineTo(x, y + r);
        u.ctx.lineTo(x - r, y);
        u.ctx.fill();
      }
    });
    u.ctx.restore();
  }

  private showLegend(): void {
    this.legend.replaceChildren();
    this.hidden.forEach((hidden, i) => {
      const entry = document.createElement("button");
      entry.type = "button";
      entry.setAttribute("aria-pressed", String(!hidden));
      const swatch = document.createElement("span");
      swatch.className = "swatch";
      swatch.style.background = playerColour(i + 1);
      entry.append(swatch, this.replay.chartPlayerEntry(i + 1));
      entry.addEventListener("click", () => this.togglePlayer(i, entry));
      this.legend.append(entry);
    });
  }

  private togglePlayer(index: number, entry: HTMLElement): void {
    this.hidden[index] = !this.hidden[index];
    entry.setAttribute("aria-pressed", String(!this.hidden[index]));
    this.plot?.setSeries(index + 1, { show: !this.hidden[index] });
  }

  private fit(): void {
    if (!this.plot || this.box.clientWidth === 0) return;
    this.plot.setSize({ width: this.box.clientWidth, height: chartHeight });
  }

  private eventAt(x: number): number {
    return Math.max(1, Math.min(this.count, Math.round(this.plot!.posToVal(x, "x"))));
  }

  private measurePlot(): void {
    const over = this.plot?.over;
    if (!over) return;
    this.plotBox = { left: over.offsetLeft, top: over.offsetTop, height: over.clientHeight };
    this.placeMarker();
  }

  // The marker is a line over the plot, moved without a repaint of the chart.
  private placeMarker(): void {
    const plot = this.plot;
    const shown = plot !== undefined && this.position >= 1 && this.position <= this.count;
    this.marker.hidden = !shown;
    if (!shown) return;
    this.marker.style.left = `${this.plotBox.left + plot.valToPos(this.position, "x")}px`;
    this.marker.style.top = `${this.plotBox.top}px`;
    this.marker.style.height = `${this.plotBox.height}px`;
  }

  private showHover(x: number, y: number): void {
    const event = this.eventAt(x);
    const quantity = Number(this.quantity.value || 0);
    this.hover.replaceChildren();
    const head = document.createElement("b");
    head.textContent = `Akce ${event}`;
    const time = this.replay.eventTime(event);
    this.hover.append(head, time ? `  ${dateTimeText(time)}` : "");
    this.hidden.forEach((hidden, i) => {
      const standing = hidden ? null : this.replay.standingAt(event, i + 1, quantity);
      if (!standing) return;
      const line = document.createElement("div");
      const swatch = document.createElement("span");
      swatch.className = "swatch";
      swatch.style.background = playerColour(i + 1);
      line.append(swatch, `${standing[0]}: ${standing[1]}`);
      this.hover.append(line);
    });
    this.hover.hidden = false;
    const over = this.plot!.over;
    this.hover.style.left = `${Math.min(over.offsetLeft + x + 14, this.box.clientWidth - this.hover.offsetWidth)}px`;
    this.hover.style.top = `${over.offsetTop + Math.max(0, y - 20)}px`;
  }
}
