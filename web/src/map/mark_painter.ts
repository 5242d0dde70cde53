// The current action's marks over the pictures, in the window's colours and shapes: an outline
// on each field the action names, a cross in a frame on a captured headquarters, and an arrow
// from field to field on top.
import type { Marks } from "../core";

const markColour = "rgb(255, 0, 220)";
const captureColour = "rgb(210, 0, 0)";
const edgeColour = "rgb(0, 0, 0)";
// On smaller fields the arrow's dark edge would cover more than the arrow.
const smallestEdgedArrow = 12;

export interface Square {
  x: number;
  y: number;
  side: number;
}

function outline(context: CanvasRenderingContext2D, square: Square, width: number, colour: string): void {
  const { x, y, side } = square;
  context.fillStyle = colour;
  if (side <= 2 * width + 1) {
    context.fillRect(x, y, side, side);
    return;
  }
  context.fillRect(x, y, side, width);
  context.fillRect(x, y + side - width, side, width);
  context.fillRect(x, y + width, width, side - 2 * width);
  context.fillRect(x + side - width, y + width, width, side - 2 * width);
}

function cross(context: CanvasRenderingContext2D, square: Square, width: number): void {
  const inset = 2 * width;
  const left = square.x + inset, top = square.y + inset;
  const right = square.x + square.side - inset, bottom = square.y + square.side - inset;
  if (right <= left || bottom <= top) return;
  context.strokeStyle = captureColour;
  context.lineWidth = width;
  context.lineCap = "butt";
  context.beginPath();
  context.moveTo(left, top);
  context.lineTo(right, bottom);
  context.moveTo(right, top);
  context.lineTo(left, bottom);
  context.stroke();
}

function arrow(context: CanvasRenderingContext2D, from: Square, to: Square, side: number): void {
  const start = [from.x + from.side / 2, from.y + from.side / 2];
  const tip = [to.x + to.side / 2, to.y + to.side / 2];
  const along = [tip[0] - start[0], tip[1] - start[1]];
  const length = Math.hypot(along[0], along[1]);
  if (length <= 0) return;
  const unit = [along[0] / length, along[1] / length];
  const across = [-unit[1], unit[0]];
  const head = Math.max(3, side * 0.45);
  const base = [tip[0] - unit[0] * head, tip[1] - unit[1] * head];
  const point = [tip, [base[0] + across[0] * head / 2, base[1] + across[1] * head / 2],
    [base[0] - across[0] * head / 2, base[1] - across[1] * head / 2]];
  const width = Math.max(1, Math.trunc(side / 8));
  const passes = side >= smallestEdgedArrow ? [true, false] : [false];
  for (const edge of passes) {
    const shade = edge ? edgeColour : markColour;
    context.strokeStyle = shade;
    context.lineCap = "butt";
    context.lineJoin = "miter";
    context.lineWidth = edge ? width + 2 : width;
    context.beginPath();
    context.moveTo(start[0], start[1]);
    context.lineTo(base[0], base[1]);
    context.stroke();
    context.beginPath();
    context.moveTo(point[0][0], point[0][1]);
    context.lineTo(point[1][0], point[1][1]);
    context.lineTo(point[2][0], point[2][1]);
    context.closePath();
    context.fillStyle = shade;
    context.fill();
    if (edge) {
      context.lineWidth = 2;
      context.lineCap = "square";
      context.stroke();
    }
  }
}

// `square(k)` places field k; `side` is a field's side in the canvas's pixels.
export function paintMarks(context: CanvasRenderingContext2D, marks: Marks, side: number,
  square: (k: number) => Square): void {
  const width = Math.max(1, Math.trunc(side / 10));
  for (const k of marks.outlined) outline(context, square(k), width, markColour);
  if (marks.capturedHeadquarters !== 0) {
    const fallen = square(marks.capturedHeadquarters);
    outline(context, fallen, width, captureColour);
    cross(context, fallen, width);
  }
  // Over the cross, so the attack that took the headquarters still shows where it came from.
  if (marks.arrowFrom !== 0 && marks.arrowTo !== 0) arrow(context, square(marks.arrowFrom), square(marks.arrowTo), side);
}
