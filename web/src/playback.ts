// The step buttons and the slide show, as the window's playback drives them: the buttons
// follow the core's step buttons after every move, the show steps at once and then once per
// interval towards the end it heads for, and stops there. A tick that falls due while a
// message box is open waits for it, and runs once.
import type { Buttons } from "./core";
import { element } from "./dom";

export const slowInterval = 5000;
export const fastInterval = 1000;

export interface Steps {
  first(): void;
  back(): void;
  forward(): void;
  last(): void;
  // The core's step buttons for the position as it stands.
  buttons(): Buttons;
  // Whether a message box is open, and a way to wait for it.
  boxesOpen(): boolean;
  whenBoxesClosed(then: () => void): void;
}

export class Playback {
  private timer?: number;
  private forwards = false;
  private stopEnabled = false;
  private state: Buttons = { forward: false, backward: false, atBegin: true, atEnd: false };
  private tickPending = false;

  private readonly backward = ["first", "back", "show-first", "play-back-fast", "play-back"].map((id) => element<HTMLButtonElement>(id));
  private readonly forward = ["forward", "last", "show-last", "play", "play-fast"].map((id) => element<HTMLButtonElement>(id));
  private readonly stopButton = element<HTMLButtonElement>("stop");
  private readonly stepMode = element<HTMLInputElement>("mode-steps");

  constructor(private readonly steps: Steps) {
    const bind = (id: string, run: () => void) => element(id).addEventListener("click", run);
    bind("first", () => steps.first());
    bind("show-first", () => steps.first());
    bind("back", () => steps.back());
    bind("forward", () => steps.forward());
    bind("last", () => steps.last());
    bind("show-last", () => steps.last());
    bind("play-back-fast", () => this.play(false, fastInterval));
    bind("play-back", () => this.play(false, slowInterval));
    bind("play", () => this.play(true, slowInterval));
    bind("play-fast", () => this.play(true, fastInterval));
    bind("stop", () => this.stop());
    for (const id of ["mode-steps", "mode-show"]) element(id).addEventListener("click", () => this.modeChosen());
  }

  get playing(): boolean {
    return this.timer !== undefined;
  }

  get inStepMode(): boolean {
    return this.stepMode.checked;
  }

  // The button groups for the position as it stands.
  updateButtons(): void {
    this.state = this.steps.buttons();
    this.showEnabled();
  }

  private showEnabled(): void {
    for (const button of this.backward) button.disabled = !this.state.backward;
    for (const button of this.forward) button.disabled = !this.state.forward;
    this.stopButton.disabled = !this.stopEnabled;
  }

  // Starts or redirects the show: one step at once, then one per interval.
  play(forwards: boolean, interval: number): void {
    this.forwards = forwards;
    this.stopEnabled = true;
    this.showEnabled();
    this.halt();
    this.timer = window.setInterval(() => this.onTimeout(), interval);
    this.tick();
  }

  stop(): void {
    this.halt();
    this.stopEnabled = false;
    this.updateButtons();
  }

  // The timer alone, as a change of the mode or a new replay stops it.
  halt(): void {
    if (this.timer !== undefined) window.clearInterval(this.timer);
    this.timer = undefined;
  }

  disableStop(): void {
    this.stopEnabled = false;
    this.showEnabled();
  }

  private onTimeout(): void {
    if (this.steps.boxesOpen()) {
      if (this.tickPending) return;
      this.tickPending = true;
      this.steps.whenBoxesClosed(() => {
        this.tickPending = false;
        if (this.playing) this.tick();
      });
      return;
    }
    this.tick();
  }

  private tick(): void {
    this.updateButtons();
    if (this.forwards) {
      if (this.state.atEnd) this.stop();
      else this.steps.forward();
    } else if (this.state.atBegin) {
      this.stop();
    } else {
      this.steps.back();
    }
  }

  private modeChosen(): void {
    this.halt();
    element("step-row").hidden = !this.inStepMode;
    element("show-row").hidden = this.inStepMode;
  }

  // The button a key presses in the current mode; none where the key has none.
  buttonForKey(key: string): HTMLButtonElement | null {
    const steps = this.inStepMode;
    switch (key) {
      case "ArrowLeft": return steps ? element("back") : null;
      case "ArrowRight": return steps ? element("forward") : null;
      case "Home": return element(steps ? "first" : "show-first");
      case "End": return element(steps ? "last" : "show-last");
      case " ": return steps ? null : element(this.playing ? "stop" : "play");
      default: return null;
    }
  }
}
