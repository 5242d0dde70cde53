// The map on <canvas id="map">: the fields' pictures, the action's marks over them, and the
// column letters and row numbers on bands that stay at the view's edges while the map pans
// under them, as in the window. Zoom 2 to 80 px a field: the window's steps with the keys and
// Ctrl+wheel around the pointer, any size with a pinch; panning by drag or wheel.
import type { Grid, Marks } from "../core";
import { onNextFrame } from "../dom";
import { FieldPictures, naturalFieldPixels } from "./field_pictures";
import { paintMarks, type Square } from "./mark_painter";

// The window's zoom steps, a field's side in pixels.
const zoomSteps = [2, 3, 4, 5, 6, 8, 10, 12, 14, 16, 20, 24, 30, 40, 50, 60, 80];
export const smallestField = zoomSteps[0];
export const largestField = zoomSteps[zoomSteps.length - 1];
// The captions are 16 px at the natural size; smaller than this they cannot be read.
const captionPixels = 16;
const smallestLegibleCaption = 6;
// A press that moves further than this is a drag, not a click.
const clickSlop = 4;
const wheelNotch = 100;

interface Rect {
  x: number;
  y: number;
  width: number;
  height: number;
}

const noMarks: Marks = { outlined: [], arrowFrom: 0, arrowTo: 0, capturedHeadquarters: 0 };

export class MapView {
  private grid: Grid = { columns: 0, fields: 0, columnCaptions: [], rowCaptions: [] };
  private pictures: Uint8Array = new Uint8Array();
  private marks: Marks = noMarks;
  private size = naturalFieldPixels;
  private scroll = { x: 0, y: 0 };
  private pointers = new Map<number, { x: number; y: number }>();
  private press?: { x: number; y: number; field: number; dragged: boolean };
  private pinch?: { distance: number; size: number };
  private wheelTurned = 0;
  // What the canvas shows: its size, the field size and the grid's place when it was painted.
  private painted = "";
  // The canvas's size, followed by the resize observer rather than read at every paint.
  private view = { width: 0, height: 0 };
  // The bands' colours and font, from the page's style: read once, not at every paint.
  private style?: { background: string; text: string; font: string };

  // Called with a field clicked or tapped, and after the zoom or the view changed.
  onFieldClicked: (k: number) => void = () => {};
  onZoomChanged: (size: number) => void = () => {};

  constructor(private readonly canvas: HTMLCanvasElement, private readonly fieldPictures: FieldPictures) {
    new ResizeObserver(([entry]) => {
      this.view = { width: entry.contentRect.width, height: entry.contentRect.height };
      this.paint();
    }).observe(canvas);
    canvas.addEventListener("pointerdown", (event) => {
      this.corner = undefined;
      this.pointerDown(event);
    });
    canvas.addEventListener("pointerenter", () => { this.corner = undefined; });
    canvas.addEventListener("wheel", () => { this.corner = undefined; }, { passive: true, capture: true });
    canvas.addEventListener("pointermove", (event) => this.pointerMove(event));
    canvas.addEventListener("pointerup", (event) => this.pointerUp(event));
    canvas.addEventListener("pointercancel", (event) => this.pointerUp(event, true));
    canvas.addEventListener("wheel", (event) => this.wheel(event), { passive: false });
  }

  get fieldPixels(): number {
    return this.size;
  }

  // A newly built grid: every field free land until the first move, the view at its corner.
  setGrid(grid: Grid, size: number): void {
    this.grid = grid;
    this.pictures = new Uint8Array(grid.fields).fill(2);
    this.marks = noMarks;
    this.size = size;
    this.scroll = { x: 0, y: 0 };
    this.paint();
  }

  // Painted at once, only what changed: a move is over when its map is.
  setFrame(pictures: Uint8Array, marks: Marks | null): void {
    const before = this.pictures, marksBefore = this.marks;
    this.pictures = pictures;
    this.marks = marks ?? noMarks;
    if (before.length !== pictures.length) return this.paintNow();
    for (const area of this.changedAreas(before, marksBefore)) this.paintNow(area);
  }

  private rows(): number {
    return this.grid.columns > 0 ? Math.ceil(this.grid.fields / this.grid.columns) : 0;
  }

  private band(size = this.size): number {
    return this.grid.columnCaptions.length + this.grid.rowCaptions.length > 0 ? size : 0;
  }

  private contentSize(size = this.size): { width: number; height: number } {
    if (this.grid.fields === 0) return { width: 0, height: 0 };
    return { width: this.band(size) + this.grid.columns * size, height: this.band(size) + this.rows() * size };
  }

  private viewSize(): { width: number; height: number } {
    return this.view;
  }

  private clampScroll(): void {
    const content = this.contentSize(), view = this.viewSize();
    this.scroll.x = Math.max(0, Math.min(this.scroll.x, content.width - view.width));
    this.scroll.y = Math.max(0, Math.min(this.scroll.y, content.height - view.height));
  }

  // Zooms so that the point `anchor` of the view keeps the spot of the map under it.
  setFieldPixels(pixels: number, anchor = { x: 0, y: 0 }): void {
    pixels = Math.max(smallestField, Math.min(largestField, Math.round(pixels)));
    if (pixels === this.size) return;
    const fieldsX = (anchor.x + this.scroll.x) / this.size, fieldsY = (anchor.y + this.scroll.y) / this.size;
    this.size = pixels;
    this.scroll = { x: Math.round(fieldsX * pixels - anchor.x), y: Math.round(fieldsY * pixels - anchor.y) };
    this.paint();
    this.onZoomChanged(pixels);
  }

  zoomIn(anchor?: { x: number; y: number }): void {
    const next = zoomSteps.find((step) => step > this.size);
    if (next) this.setFieldPixels(next, anchor);
  }

  zoomOut(anchor?: { x: number; y: number }): void {
    const next = [...zoomSteps].reverse().find((step) => step < this.size);
    if (next) this.setFieldPixels(next, anchor);
  }

  // The whole map in the view, its bands included.
  zoomToFit(): void {
    if (this.grid.fields === 0) return;
    const view = this.viewSize();
    const bands = this.band(1);
    const pixels = Math.floor(Math.min(view.width / (this.grid.columns + bands), view.height / (this.rows() + bands)));
    this.setFieldPixels(pixels);
    this.scroll = { x: 0, y: 0 };
    this.paint();
  }

  // The field under a point of the view; 0 for none.
  fieldAt(x: number, y: number): number {
    const band = this.band();
    const column = Math.floor((x + this.scroll.x - band) / this.size);
    const row = Math.floor((y + this.scroll.y - band) / this.size);
    if (x < band || y < band || column < 0 || column >= this.grid.columns || row < 0) return 0;
    const k = row * this.grid.columns + column + 1;
    return k <= this.grid.fields ? k : 0;
  }

  // Paints on the next frame, once however often it is asked for.
  readonly paint = onNextFrame(() => this.paintNow());

  // Paints the whole view, or only `dirty` (in the canvas's pixels) when the view is as it was.
  paintNow(dirty?: Rect): void {
    const ratio = window.devicePixelRatio || 1;
    const view = this.viewSize();
    const width = Math.round(view.width * ratio), height = Math.round(view.height * ratio);
    if (this.canvas.width !== width || this.canvas.height !== height) {
      this.canvas.width = width;
      this.canvas.height = height;
      dirty = undefined;
    }
    this.clampScroll();
    const context = this.canvas.getContext("2d", { alpha: false })!;
    context.imageSmoothingEnabled = false;
    if (!this.style) {
      const style = getComputedStyle(this.canvas);
      this.style = { background: style.backgroundColor, text: style.color, font: style.fontFamily };
    }
    const layout = this.layout(ratio);
    const key = `${width}x${height} ${layout.side} ${layout.cornerX},${layout.cornerY} ${this.grid.fields}`;
    if (key !== this.painted) dirty = undefined;
    this.painted = key;
    const area = dirty ?? { x: 0, y: 0, width, height };
    context.save();
    context.beginPath();
    context.rect(area.x, area.y, area.width, area.height);
    context.clip();
    context.fillStyle = this.style.background;
    context.fillRect(area.x, area.y, area.width, area.height);
    if (this.grid.fields > 0) this.paintArea(context, area, layout, ratio);
    context.restore();
  }

  // Where the grid stands in the canvas: a field is a whole number of its pixels, so that fields touch.
  private layout(ratio: number): { side: number; band: number; cornerX: number; cornerY: number } {
    const side = Math.max(1, Math.round(this.size * ratio));
    const band = this.band() > 0 ? side : 0;
    return { side, band, cornerX: band - Math.round(this.scroll.x * ratio), cornerY: band - Math.round(this.scroll.y * ratio) };
  }

  private paintArea(context: CanvasRenderingContext2D, area: Rect,
    { side, band, cornerX, cornerY }: ReturnType<MapView["layout"]>, ratio: number): void {
    const columns = this.grid.columns, rows = this.rows();
    const c0 = Math.max(0, Math.floor((area.x - cornerX) / side));
    const c1 = Math.min(columns - 1, Math.floor((area.x + area.width - cornerX) / side));
    const r0 = Math.max(0, Math.floor((area.y - cornerY) / side));
    const r1 = Math.min(rows - 1, Math.floor((area.y + area.height - cornerY) / side));
    const strip = this.fieldPictures.strip(side);
    for (let r = r0; r <= r1; ++r) {
      for (let c = c0; c <= c1; ++c) {
        const k = r * columns + c;
        if (k >= this.grid.fields) break;
        const picture = this.pictures[k];
        const x = cornerX + c * side, y = cornerY + r * side;
        if (picture >= 1 && picture <= 16) {
          context.drawImage(strip, (picture - 1) * side, 0, side, side, x, y, side, side);
        } else {
          context.fillStyle = "#808080";
          context.fillRect(x, y, side, side);
        }
      }
    }
    paintMarks(context, this.marks, side, (k) => this.square(k, side, cornerX, cornerY));
    if (band > 0 && (area.x < band || area.y < band)) this.paintCaptions(context, side, cornerX, cornerY, ratio);
  }

  private square(k: number, side: number, cornerX: number, cornerY: number): Square {
    const columns = this.grid.columns;
    return { x: cornerX + ((k - 1) % columns) * side, y: cornerY + Math.floor((k - 1) / columns) * side, side };
  }

  // The rectangles of the canvas that changed: the block of the fields whose picture changed,
  // and those of the marks before and after.
  private changedAreas(before: Uint8Array, marksBefore: Marks): Rect[] {
    const ratio = window.devicePixelRatio || 1;
    const { side, cornerX, cornerY } = this.layout(ratio);
    const block = (fields: number[]): Rect[] => {
      if (fields.length === 0) return [];
      let left = Infinity, top = Infinity, right = -Infinity, bottom = -Infinity;
      for (const k of fields) {
        const square = this.square(k, side, cornerX, cornerY);
        left = Math.min(left, square.x);
        top = Math.min(top, square.y);
        right = Math.max(right, square.x + side);
        bottom = Math.max(bottom, square.y + side);
      }
      return [{ x: left, y: top, width: right - left, height: bottom - top }];
    };
    const marked = (marks: Marks) => [...marks.outlined, ...(marks.capturedHeadquarters ? [marks.capturedHeadquarters] : [])];
    const changed: number[] = [];
    for (let i = 0; i < this.pictures.length; ++i) if (before[i] !== this.pictures[i]) changed.push(i + 1);
    return [...block(changed), ...block(marked(marksBefore)), ...block(marked(this.marks))];
  }

  // The bands stick to the view's top and left edges; they meet in a corner of their own colour.
  private paintCaptions(context: CanvasRenderingContext2D, side: number, cornerX: number, cornerY: number,
    ratio: number): void {
    const style = this.style!;
    const fontPixels = captionPixels * this.size / naturalFieldPixels;
    const legible = Math.trunc(fontPixels) >= smallestLegibleCaption;
    context.font = `${Math.trunc(fontPixels) * ratio}px ${style.font}`;
    context.textAlign = "center";
    context.textBaseline = "middle";
    const paint = (x: number, y: number, caption: string) => {
      context.fillStyle = style.background;
      context.fillRect(x, y, side, side);
      if (!legible) return;
      context.fillStyle = style.text;
      context.fillText(caption, x + side / 2, y + side / 2);
    };
    const top = Math.max(cornerY - side, 0), left = Math.max(cornerX - side, 0);
    this.grid.columnCaptions.forEach((caption, j) => {
      const x = cornerX + j * side;
      if (x + side > 0 && x < this.canvas.width) paint(x, top, caption);
    });
    this.grid.rowCaptions.forEach((caption, i) => {
      const y = cornerY + i * side;
      if (y + side > 0 && y < this.canvas.height) paint(left, y, caption);
    });
    context.fillStyle = style.background;
    context.fillRect(left, top, side, side);
  }

  // The pointer's place on the canvas. The canvas's own place is measured when a press or the
  // pointer comes to it, not at every move: a move would make the browser lay out the page at once.
  private corner?: { left: number; top: number };

  private local(event: PointerEvent | WheelEvent): { x: number; y: number } {
    this.corner ??= this.canvas.getBoundingClientRect();
    return { x: event.clientX - this.corner.left, y: event.clientY - this.corner.top };
  }

  private pointerDown(event: PointerEvent): void {
    if (event.pointerType === "mouse" && event.button !== 0) return;
    this.canvas.setPointerCapture(event.pointerId);
    const at = this.local(event);
    this.pointers.set(event.pointerId, at);
    if (this.pointers.size === 1) {
      this.press = { ...at, field: this.fieldAt(at.x, at.y), dragged: false };
    } else {
      this.press = undefined;
      this.pinch = { distance: this.pointerDistance(), size: this.size };
    }
  }

  private pointerDistance(): number {
    const [a, b] = [...this.pointers.values()];
    return Math.hypot(a.x - b.x, a.y - b.y);
  }

  private pointerMove(event: PointerEvent): void {
    const at = this.local(event);
    const before = this.pointers.get(event.pointerId);
    if (!before) {
      const k = this.fieldAt(at.x, at.y);
      this.canvas.title = k ? this.fieldNameOf(k) : "";
      return;
    }
    this.pointers.set(event.pointerId, at);
    if (this.pinch && this.pointers.size === 2) {
      const [a, b] = [...this.pointers.values()];
      const middle = { x: (a.x + b.x) / 2, y: (a.y + b.y) / 2 };
      this.setFieldPixels(this.pinch.size * this.pointerDistance() / Math.max(1, this.pinch.distance), middle);
      return;
    }
    if (this.press && !this.press.dragged && Math.hypot(at.x - this.press.x, at.y - this.press.y) > clickSlop)
      this.press.dragged = true;
    if (this.press?.dragged) this.panBy(before.x - at.x, before.y - at.y);
  }

  private pointerUp(event: PointerEvent, cancelled = false): void {
    this.pointers.delete(event.pointerId);
    if (this.pointers.size < 2) this.pinch = undefined;
    const press = this.press;
    this.press = undefined;
    if (cancelled || !press || press.dragged) return;
    const at = this.local(event);
    if (press.field !== 0 && this.fieldAt(at.x, at.y) === press.field) this.onFieldClicked(press.field);
  }

  panBy(dx: number, dy: number): void {
    this.scroll.x += dx;
    this.scroll.y += dy;
    this.clampScroll();
    this.paint();
  }

  // Ctrl+wheel (a touchpad's pinch too) zooms around the pointer; the wheel alone pans.
  private wheel(event: WheelEvent): void {
    event.preventDefault();
    const lines = event.deltaMode === WheelEvent.DOM_DELTA_LINE ? 16 : event.deltaMode === WheelEvent.DOM_DELTA_PAGE ? 400 : 1;
    if (!event.ctrlKey) {
      const dx = event.shiftKey && !event.deltaX ? event.deltaY : event.deltaX;
      const dy = event.shiftKey && !event.deltaX ? 0 : event.deltaY;
      this.panBy(dx * lines, dy * lines);
      return;
    }
    this.wheelTurned -= event.deltaY * lines;
    const steps = Math.trunc(this.wheelTurned / wheelNotch);
    this.wheelTurned -= steps * wheelNotch;
    const at = this.local(event);
    for (let i = 0; i < Math.abs(steps); ++i) steps > 0 ? this.zoomIn(at) : this.zoomOut(at);
  }

  fieldNameOf: (k: number) => string = () => "";
}
