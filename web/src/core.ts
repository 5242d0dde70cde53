// The core, instantiated from the bytes the page carries: the page loads nothing.
import createTrelvinCore from "trelvin-web-core.mjs";
import coreWasm from "trelvin-web-core.wasm";

// What an action on a move's way reported: the window's message box.
export interface Report {
  event: number;
  text: string;
}

export interface MoveResult {
  position: number;
  eventCount: number;
  reports: Report[];
  stopped: boolean;
}

// The map's grid as the window lays it out: `fields` shown, `columns` in a row.
export interface Grid {
  columns: number;
  fields: number;
  columnCaptions: string[];
  rowCaptions: string[];
}

// Opening a replay: the loader's failure ("" for none), the first action's reports, the grid
// and the failure of its layout ("" for none).
export interface OpenResult extends MoveResult {
  failure: string;
  worldName: string;
  grid: Grid;
  gridFailure: string;
}

export interface Buttons {
  forward: boolean;
  backward: boolean;
  atBegin: boolean;
  atEnd: boolean;
}

export interface Marks {
  outlined: number[];
  arrowFrom: number;
  arrowTo: number;
  capturedHeadquarters: number;
}

export type Point = [number, number];

export interface Clock {
  marks: Point[];
  centre?: Point;
  hands?: [Point, Point, Point];
  handTime?: [number, number, number];
}

export interface FieldInspection {
  terrain: string;
  owner: string;
  armyType: string;
  armyCount: string;
}

// The kinds of actions the jumps look for, in the core's order.
export const enum ActionKind {
  All = 0,
  Attacks = 1,
  HeadquartersCaptures = 2,
  Economy = 3,
  Moves = 4,
  Lifecycle = 5,
  Failures = 6,
}

export type ViewName = "all" | "les" | "louka";

// One replay through the core's replay cursor (web/bridge/core_bridge.cpp).
export interface Replay {
  // `size` is the file's own: past the limit no bytes need be given.
  open(bytes: Uint8Array, name: string, size: number, keepGoing?: (done: number, total: number) => boolean): OpenResult;
  first(): MoveResult;
  back(): MoveResult;
  forward(): MoveResult;
  last(): MoveResult;
  // `news`: the reports of the actions the user had not passed yet.
  jumpTo(target: number): MoveResult & { news: string[] };
  updateButtons(): Buttons;
  position(): number;
  eventCount(): number;
  // The actions the last open read: those the list, the timeline, the charts and the jumps offer.
  actionsRead(): number;
  // After a load that failed, the line the list, the timeline and the charts show; "" otherwise.
  failedLoadText(): string;
  setViewMode(name: string): boolean;
  // A view into the core's memory: copy it before the next call.
  pictures(): Uint8Array;
  marks(): Marks;
  description(): string;
  positionText(): string;
  time(): number[];
  clock(scaleHeight: number): Clock;
  fieldName(k: number): string;
  inspectField(name: string): FieldInspection | null;
  // "name (side)" of each player, and the chosen one's four values.
  playerEntries(): string[];
  playerStanding(player: number): [string, string, string, string];
  nearest(kind: ActionKind, forward: boolean): number;
  // Every player's standing after every action; "" without the series.
  csv(): string;
  // Hours, days, start, end of protection, captures, failures.
  timelineMarks(): Int32Array[];
  timelineHover(event: number, captures: number, failures: number): string[];
  eventTime(event: number): number[] | null;
  // Why the replay has no charts; "" when it has them.
  chartsMissing(): string;
  // The actions charted: those the pass at opening recorded.
  chartEvents(): number;
  chartPlayers(): number;
  chartPlayerEntry(place: number): string;
  courseLines(place: number, quantity: number): CourseLine[];
  // [entry, value] of a player at an action; null where the place was empty.
  standingAt(event: number, place: number, quantity: number): [string, string] | null;
  delete(): void;
}

export interface CourseLine {
  events: Int32Array;
  values: Int32Array;
  endsOut: boolean;
}

export interface ActionDetail {
  time: number[];
  keyword: string;
  description: string;
  who: string[];
  messages: string[];
}

// The action list's rows over one opened replay.
export interface ActionRows {
  shown(kind: number, player: number, search: string): Int32Array;
  // [time parts, keyword, summary, failed]
  row(event: number): [number[], string, string, boolean];
  toolTip(event: number): string;
  detail(event: number): ActionDetail | null;
  playerNames(): string[];
  delete(): void;
}

export interface CoreModule {
  Replay: new () => Replay;
  ActionRows: new (replay: Replay) => ActionRows;
  kindCaptions(): string[];
  quantityCaptions(): string[];
  licenceText(): { version: string; purpose: string; lines: string[] };
}

export function startCore(): Promise<CoreModule> {
  return createTrelvinCore({ wasmBinary: coreWasm });
}
