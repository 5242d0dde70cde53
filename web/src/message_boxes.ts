// The window's message boxes: one at a time, in the order they were told, each waiting for
// its OK. The slide show waits while one is open, as the window's modal boxes make it wait.
import { element } from "./dom";

export class MessageBoxes {
  private readonly queue: string[] = [];
  private readonly dialog = element<HTMLDialogElement>("message");
  private readonly text = element("message-text");
  private idle: Array<() => void> = [];

  constructor() {
    this.dialog.addEventListener("close", () => this.showNext());
  }

  get open(): boolean {
    return this.dialog.open;
  }

  show(...texts: string[]): void {
    this.queue.push(...texts);
    if (!this.dialog.open) this.showNext();
  }

  // Runs `then` once no box is open.
  whenClosed(then: () => void): void {
    if (this.dialog.open) this.idle.push(then);
    else then();
  }

  private showNext(): void {
    const next = this.queue.shift();
    if (next === undefined) {
      const waiting = this.idle;
      this.idle = [];
      waiting.forEach((then) => then());
      return;
    }
    this.text.textContent = next;
    this.dialog.showModal();
    element("message-ok").focus();
  }
}
