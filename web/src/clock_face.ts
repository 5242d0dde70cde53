// The 24-hour clock face: grey marks, one an hour; hours blue, minutes red, seconds light grey
// on top. Every point comes from the core's clock geometry, in its scale units (15 a pixel).
import type { Clock, Point } from "./core";

const unitsPerPixel = 15;
const howToRead = "Cas akce na 24hodinovem ciferniku: hodiny modre, minuty cervene, sekundy sede";

export class ClockFace {
  // The face's side in pixels, inside its frame; the box keeps its size, so it is read once.
  private side = 0;

  constructor(private readonly canvas: HTMLCanvasElement) {}

  // The box's height in scale units, which the core's geometry is given.
  get scaleHeight(): number {
    this.side ||= this.canvas.clientHeight;
    return this.side * unitsPerPixel;
  }

  show(clock: Clock | null): void {
    const ratio = window.devicePixelRatio || 1;
    const side = this.scaleHeight / unitsPerPixel;
    this.canvas.width = this.canvas.height = Math.round(side * ratio);
    const context = this.canvas.getContext("2d")!;
    context.clearRect(0, 0, this.canvas.width, this.canvas.height);
    const time = clock?.handTime?.map((part) => String(part).padStart(2, "0")).join(":");
    this.canvas.title = time ? `${howToRead}\n${time}` : howToRead;
    this.canvas.setAttribute("aria-label", this.canvas.title);
    if (!clock) return;
    context.scale(ratio / unitsPerPixel, ratio / unitsPerPixel);
    const dot = 1 + 3 * unitsPerPixel / 2;
    context.fillStyle = "rgb(100, 100, 100)";
    for (const [x, y] of clock.marks) {
      context.beginPath();
      context.arc(x, y, dot, 0, 2 * Math.PI);
      context.fill();
    }
    const { hands, centre } = clock;
    if (!hands || !centre) return;
    const hand = (end: Point, width: number, colour: string) => {
      context.strokeStyle = colour;
      context.lineWidth = width * unitsPerPixel;
      context.lineCap = "round";
      context.beginPath();
      context.moveTo(centre[0], centre[1]);
      context.lineTo(end[0], end[1]);
      context.stroke();
    };
    hand(hands[0], 4, "rgb(0, 0, 255)");
    hand(hands[1], 2, "rgb(255, 0, 0)");
    hand(hands[2], 1, "rgb(200, 200, 200)");
  }
}
