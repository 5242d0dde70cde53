// The timeline across the page: a bar over the replay with the current action on it, and the
// core's marks: the full hours (days where hours would lie closer than 4 pixels), the start, the
// end of the protection day, captured headquarters and failed actions, a pixel's marks of one
// kind drawn once with their count. Ctrl+wheel zooms the stretch around the pointer (down to 10
// actions); the scroller under it, the wheel or a drag with the middle button pan it. A click or
// a drag goes to the action under the pointer; resting the pointer tells of that action.
import type { Replay } from "../core";
import { dateTimeText } from "../date_text";
import { element, onNextFrame } from "../dom";

const margin = 6;
const smallestSpan = 10;
const zoomStep = 1.5;
const tickSpacing = 4;
const countPixels = 9;
const wheelNotch = 100;

enum Mark { Hour, Day, Start, ProtectionEnd, Capture, Failure }
const colours = ["rgb(150,150,150)", "rgb(90,90,90)", "rgb(40,150,60)", "rgb(40,90,220)", "rgb(200,30,30)", "rgb(240,150,0)"];

// The first index of `sorted` at or above `value`.
function lowerBound(sorted: Int32Array, value: number): number {
  let low = 0, high = sorted.length;
  while (low < high) {
    const middle = (low + high) >> 1;
    if (sorted[middle] < value) low = middle + 1;
    else high = middle;
  }
  return low;
}

export class Timeline {
  private readonly canvas = element<HTMLCanvasElement>("timeline");
  private readonly scroller = element<HTMLInputElement>("timeline-scroll");
  private readonly hover = element("timeline-hover");
  private marks: Int32Array[] = [];
  private count = 0;
  private position = 0;
  private requested = 0;
  private first = 0;
  private last = 0;
  private wheelTurned = 0;
  private pan?: { x: number; first: number };
  private dragging = false;
  private pendingJump = 0;
  // The canvas's size, followed by the resize observer rather than read at every paint.
  private size = { width: 0, height: 0 };

  // Asked for the action under the pointer, once per change and once a frame at most.
  onJump: (event: number) => void = () => {};

  constructor(private readonly replay: Replay) {
    new ResizeObserver(([entry]) => {
      this.size = { width: entry.contentRect.width, height: entry.contentRect.height };
      this.paint();
    }).observe(this.canvas);
    this.scroller.addEventListener("input", () => {
      const first = Number(this.scroller.value) + 1;
      this.setRange(first, first + (this.last - this.first));
    });
    this.canvas.addEventListener("pointerdown", (event) => this.pointerDown(event));
    this.canvas.addEventListener("pointermove", (event) => this.pointerMove(event));
    this.canvas.addEventListener("pointerup", () => this.pointerUp());
    this.canvas.addEventListener("pointercancel", () => this.pointerUp());
    this.canvas.addEventListener("pointerleave", () => {
      this.hover.hidden = true;
      this.left = undefined;
    });
    this.canvas.addEventListener("pointerenter", () => { this.left = undefined; });
    this.canvas.addEventListener("wheel", (event) => this.wheel(event), { passive: false });
  }

  // A newly opened replay, all of it in view.
  showReplay(): void {
    this.count = Math.max(this.replay.actionsRead(), 0);
    this.marks = this.count > 0 ? this.replay.timelineMarks() : [];
    this.position = this.requested = 0;
    this.canvas.setAttribute("aria-valuemax", String(this.count));
    this.setRange(Math.min(1, this.count), this.count);
  }

  // The position, kept in view: a stretch that it leaves follows it.
  setPosition(position: number): void {
    this.position = this.requested = position;
    this.canvas.setAttribute("aria-valuenow", String(position));
    const span = this.last - this.first;
    if (position >= 1 && position < this.first) this.setRange(position, position + span);
    else if (position <= this.count && position > this.last) this.setRange(position - span, position);
    else this.paint();
  }

  setRange(first: number, last: number): void {
    if (this.count <= 1) {
      this.first = this.last = this.count;
    } else {
      const span = Math.max(Math.min(last - first, this.count - 1), Math.min(smallestSpan, this.count - 1));
      this.first = Math.max(1, Math.min(first, this.count - span));
      this.last = this.first + span;
    }
    const span = this.last - this.first;
    this.scroller.max = String(Math.max(0, this.count - 1 - span));
    this.scroller.value = String(this.first - 1);
    this.scroller.step = "1";
    this.scroller.disabled = Number(this.scroller.max) === 0;
    this.paint();
  }

  range(): [number, number] {
    return [this.first, this.last];
  }

  zoomAt(x: number, steps: number): void {
    if (this.count <= 1 || steps === 0) return;
    const share = this.share(x);
    const anchor = this.first + share * (this.last - this.first);
    const span = Math.round((this.last - this.first) / zoomStep ** steps);
    const first = Math.round(anchor - share * span);
    this.setRange(first, first + Math.max(span, 1));
  }

  private barWidth(): number {
    return Math.max(this.size.width - 2 * margin, 1);
  }

  private share(x: number): number {
    return Math.max(0, Math.min(1, (x - margin) / Math.max(this.barWidth() - 1, 1)));
  }

  eventAt(x: number): number {
    if (this.count <= 1) return this.count;
    return this.first + Math.floor(this.share(x) * (this.last - this.first) + 0.5);
  }

  xOf(event: number): number {
    if (this.count <= 1 || this.last === this.first) return margin;
    return margin + Math.round((event - this.first) / (this.last - this.first) * (this.barWidth() - 1));
  }

  private shown(kind: Mark): [number, number] {
    const events = this.marks[kind];
    return [lowerBound(events, this.first), lowerBound(events, this.last + 1)];
  }

  private showsDays(): boolean {
    const [from, to] = this.shown(Mark.Hour);
    return to - from > 0 && this.barWidth() / (to - from + 1) < tickSpacing;
  }

  readonly paint = onNextFrame(() => this.paintNow());

  paintNow(): void {
    const ratio = window.devicePixelRatio || 1;
    const { width, height } = this.size;
    this.canvas.width = Math.round(width * ratio);
    this.canvas.height = Math.round(height * ratio);
    const context = this.canvas.getContext("2d")!;
    context.scale(ratio, ratio);
    const top = 2, bottom = height - 3, middle = Math.floor((top + bottom) / 2);
    context.fillStyle = "#a0a0a0";
    context.fillRect(margin, middle - 3, this.barWidth(), 7);
    if (this.count === 0) return;
    context.font = `${countPixels}px sans-serif`;
    context.textBaseline = "top";
    this.paintMarks(context, this.showsDays() ? Mark.Day : Mark.Hour, middle + 4, bottom);
    this.paintMarks(context, Mark.Start, top, bottom);
    this.paintMarks(context, Mark.ProtectionEnd, top, bottom);
    this.paintMarks(context, Mark.Failure, top, middle - 4);
    this.paintMarks(context, Mark.Capture, top, top + 5);
    if (this.position < 1) return;
    context.fillStyle = context.strokeStyle = "#000080";
    if (this.position >= this.first && this.position <= this.last) {
      context.fillRect(this.xOf(this.position) - 1, top, 3, bottom - top + 1);
    } else {
      // Outside the stretch shown: an arrow at the end it lies beyond.
      const before = this.position < this.first;
      const tip = before ? 1 : width - 1, base = before ? tip + 5 : tip - 5;
      context.beginPath();
      context.moveTo(tip, middle);
      context.lineTo(base, middle - 5);
      context.lineTo(base, middle + 5);
      context.fill();
    }
  }

  private paintMarks(context: CanvasRenderingContext2D, kind: Mark, top: number, bottom: number): void {
    const events = this.marks[kind];
    const counted = kind === Mark.Capture || kind === Mark.Failure;
    context.fillStyle = colours[kind];
    let countsEnd = -1;
    const [from, to] = this.shown(kind);
    for (let i = from; i < to;) {
      // The marks of this pixel column are drawn once.
      const x = this.xOf(events[i]);
      let next = i;
      while (next < to && this.xOf(events[next]) === x) ++next;
      const count = next - i;
      i = next;
      if (kind === Mark.Capture) {
        context.beginPath();
        context.moveTo(x - 3, top);
        context.lineTo(x + 4, top);
        context.lineTo(x + 0.5, top + 6);
        context.fill();
      } else {
        context.fillRect(x, top, 1, bottom - top + 1);
      }
      if (!counted || count < 2) continue;
      const left = x + 4;
      if (left <= countsEnd) continue;
      context.fillText(String(count), left, top - 1);
      countsEnd = left + context.measureText(String(count)).width + 2;
    }
  }

  // What resting the pointer at x tells, a line each.
  hoverText(x: number): string {
    if (this.count === 0) return "";
    const event = this.eventAt(x);
    const countAt = (kind: Mark) => {
      const [from, to] = this.shown(kind);
      let count = 0;
      for (let i = from; i < to; ++i) if (this.xOf(this.marks[kind][i]) === this.xOf(event)) ++count;
      return count;
    };
    const lines = this.replay.timelineHover(event, countAt(Mark.Capture), countAt(Mark.Failure));
    const time = this.replay.eventTime(event);
    if (time) lines[0] += `, ${dateTimeText(time)}`;
    return lines.join("\n");
  }

  private request(x: number): void {
    const event = this.eventAt(x);
    if (event < 1 || event === this.requested) return;
    this.requested = event;
    // A drag asks faster than the page paints: the latest wins, once a frame.
    const scheduled = this.pendingJump !== 0;
    this.pendingJump = event;
    if (scheduled) return;
    requestAnimationFrame(() => {
      const wanted = this.pendingJump;
      this.pendingJump = 0;
      if (wanted !== this.replay.position()) this.onJump(wanted);
    });
  }

  // The pointer's place on the bar. The bar's own place is measured when the pointer comes to
  // it, not at every move: a move during a drag would make the browser lay out the page at once.
  private left?: number;

  private local(event: PointerEvent | WheelEvent): number {
    this.left ??= this.canvas.getBoundingClientRect().left;
    return event.clientX - this.left;
  }

  private pointerDown(event: PointerEvent): void {
    this.left = undefined;
    const x = this.local(event);
    this.canvas.setPointerCapture(event.pointerId);
    if (event.button === 1) {
      event.preventDefault();
      this.pan = { x, first: this.first };
    } else if (event.button === 0) {
      this.dragging = true;
      this.request(x);
    }
  }

  private pointerMove(event: PointerEvent): void {
    const x = this.local(event);
    if (this.dragging) this.request(x);
    if (this.pan) {
      // The stretch follows the pointer, as a map dragged by hand.
      const perPixel = (this.last - this.first) / Math.max(this.barWidth() - 1, 1);
      const first = this.pan.first - Math.round((x - this.pan.x) * perPixel);
      this.setRange(first, first + (this.last - this.first));
    }
    // Resting the pointer tells of the action under it; a drag goes there instead.
    if (this.dragging || this.pan) {
      this.hover.hidden = true;
      return;
    }
    const text = this.hoverText(x);
    this.hover.hidden = !text;
    this.hover.textContent = text;
    // Beside the pointer, on the side with room, without measuring the text.
    const left = x < this.size.width / 2;
    this.hover.style.left = left ? `${x + 12}px` : "auto";
    this.hover.style.right = left ? "auto" : `${this.size.width - x + 12}px`;
  }

  private pointerUp(): void {
    this.dragging = false;
    this.pan = undefined;
  }

  private wheel(event: WheelEvent): void {
    event.preventDefault();
    const delta = event.deltaMode === WheelEvent.DOM_DELTA_LINE ? event.deltaY * 33 : event.deltaY;
    if (event.ctrlKey) {
      this.wheelTurned -= delta;
      const steps = Math.trunc(this.wheelTurned / wheelNotch);
      this.wheelTurned -= steps * wheelNotch;
      this.zoomAt(this.local(event), steps);
      return;
    }
    const turned = Math.abs(event.deltaX) > Math.abs(delta) ? event.deltaX : delta;
    const notches = Math.trunc(turned / wheelNotch) || Math.sign(turned);
    const step = Math.max(1, Math.trunc((this.last - this.first) / 10)) * notches;
    this.setRange(this.first + step, this.last + step);
  }
}
