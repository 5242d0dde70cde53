// The window's keys, where a browser lets a page have them, and the table F1 shows.
import { ActionKind } from "./core";
import { element } from "./dom";

export const keyTable: ReadonlyArray<[string, string]> = [
  ["Sipka vpravo / vlevo", "---->  /  <----: o akci vpred / zpet (ovladani po tazich)"],
  ["Home / End", "|<--  /  -->|: prvni / posledni akce (v obou rezimech)"],
  ["Mezernik", "Slide-show: spusti prehravani vpred jako -->, bezici zastavi jako II"],
  ["Ctrl+G", "Prejit na akci podle jejiho cisla"],
  ["Ctrl+Sipka vpravo / vlevo", "Dalsi / predchozi utok"],
  ["Ctrl+Shift+Sipka vpravo / vlevo", "Dalsi / predchozi dobyti veleni"],
  ["F8 / Shift+F8", "Dalsi / predchozi akce, ktera hlasila chybu"],
  ["Ctrl+L", "Ukazat nebo skryt seznam akci"],
  ["Ctrl+P", "Ukazat nebo skryt prubeh hry"],
  ["Ctrl++ (Ctrl+=) / Ctrl+- / Ctrl+0 / F", "Mapu priblizit / oddalit / na 100 % / celou"],
  ["Ctrl+H", "Zvyraznit akci na mape: zapnout / vypnout"],
  ["Ctrl + kolecko mysi", "Nad mapou ji priblizi nebo oddali kolem ukazatele, nad casovou osou jeji usek"],
  ["Ctrl+O", "Otevrit"],
  ["F1", "Tato tabulka klaves"],
  ["Tab, Sipka nahoru / dolu", "Na dalsi ovladaci prvek; nahoru a dolu vybiraji ve skupine voleb"],
];

export interface KeyCommands {
  pressStepKey(key: string): boolean;
  jumpToNearest(kind: ActionKind, forward: boolean): void;
  askForAction(): void;
  toggleHighlight(): void;
  open(): void;
  zoomIn(): void;
  zoomOut(): void;
  zoomReset(): void;
  zoomFit(): void;
  extra: Array<(event: KeyboardEvent) => boolean>;
}

// A text field, a list box or an open dialog keeps its editing keys.
function editing(target: EventTarget | null): boolean {
  return target instanceof HTMLInputElement && !["radio", "checkbox", "button"].includes(target.type) ||
    target instanceof HTMLSelectElement || target instanceof HTMLTextAreaElement;
}

export function showKeyTable(): void {
  const body = element("keys-table").querySelector("tbody")!;
  if (body.childElementCount === 0) {
    for (const [keys, does] of keyTable) {
      const row = body.insertRow();
      row.insertCell().textContent = keys;
      row.insertCell().textContent = does;
    }
  }
  const dialog = element<HTMLDialogElement>("keys");
  if (!dialog.open) dialog.showModal();
}

export function installKeys(commands: KeyCommands): void {
  document.addEventListener("keydown", (event) => {
    if (document.querySelector("dialog[open]")) return;
    if (handle(event, commands)) event.preventDefault();
  });
}

function handle(event: KeyboardEvent, commands: KeyCommands): boolean {
  const ctrl = event.ctrlKey || event.metaKey;
  if (event.altKey) return false;
  for (const extra of commands.extra) if (extra(event)) return true;
  if (ctrl) {
    switch (event.key) {
      case "ArrowRight":
      case "ArrowLeft":
        if (editing(event.target)) return false;
        commands.jumpToNearest(event.shiftKey ? ActionKind.HeadquartersCaptures : ActionKind.Attacks, event.key === "ArrowRight");
        return true;
      case "g": case "G": commands.askForAction(); return true;
      case "h": case "H": commands.toggleHighlight(); return true;
      case "o": case "O": commands.open(); return true;
      case "+": case "=": commands.zoomIn(); return true;
      case "-": commands.zoomOut(); return true;
      case "0": commands.zoomReset(); return true;
      default: return false;
    }
  }
  if (event.key === "F8") {
    commands.jumpToNearest(ActionKind.Failures, !event.shiftKey);
    return true;
  }
  if (event.key === "F1") {
    showKeyTable();
    return true;
  }
  if (editing(event.target) || event.shiftKey) return false;
  if (event.key === "f" || event.key === "F") {
    commands.zoomFit();
    return true;
  }
  return commands.pressStepKey(event.key);
}
