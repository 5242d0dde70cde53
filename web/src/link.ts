// A link to one moment of a replay: the fragment #a=123&v=les&z=20&h=1 holds the action, the
// way of viewing, the field size and whether the action is marked. It follows the page with
// history.replaceState, never one history entry a step.
import type { ViewName } from "./core";

export interface Moment {
  action?: number;
  view?: ViewName;
  fieldPixels?: number;
  highlight?: boolean;
}

const views: readonly string[] = ["all", "les", "louka"];

function wholeNumber(text: string | null): number | undefined {
  return text !== null && /^\d{1,9}$/.test(text) ? Number(text) : undefined;
}

// What a fragment asks for; a part it cannot read is left out.
export function readMoment(fragment: string): Moment {
  const parts = new URLSearchParams(fragment.replace(/^#/, ""));
  const view = parts.get("v");
  const highlight = parts.get("h");
  return {
    action: wholeNumber(parts.get("a")),
    view: view !== null && views.includes(view) ? (view as ViewName) : undefined,
    fieldPixels: wholeNumber(parts.get("z")),
    highlight: highlight === "1" ? true : highlight === "0" ? false : undefined,
  };
}

export function momentFragment(moment: Required<Moment>): string {
  return `#a=${moment.action}&v=${moment.view}&z=${moment.fieldPixels}&h=${moment.highlight ? 1 : 0}`;
}

// Replacing the address takes the browser a while: it is replaced after the move, and during a
// slide show or a drag once the page rests for a moment, with the last moment asked for.
const restPeriod = 150;
let pending: string | undefined;
let lastReplaced = 0;

export function keepMoment(moment: Required<Moment>): void {
  const scheduled = pending !== undefined;
  pending = momentFragment(moment);
  if (scheduled) return;
  const replace = () => {
    if (pending !== undefined && location.hash !== pending) history.replaceState(history.state, "", pending);
    pending = undefined;
    lastReplaced = performance.now();
  };
  setTimeout(replace, Math.max(0, restPeriod - (performance.now() - lastReplaced)));
}
