// "Prejit na akci" (Ctrl+G): asks for an action's number and answers a wrong one in the prompt
// itself, with the window's texts.
import { element } from "./dom";

const dialog = () => element<HTMLDialogElement>("jump-prompt");

export function askForAction(actionsRead: number, position: number, go: (action: number) => void): void {
  const entry = element<HTMLInputElement>("jump-number");
  const problem = element("jump-problem");
  element("jump-label").textContent = `Cislo akce (1 az ${actionsRead}):`;
  entry.value = String(position);
  problem.hidden = true;
  element("jump-cancel").onclick = () => dialog().close();
  element<HTMLFormElement>("jump-form").onsubmit = (event) => {
    const typed = entry.value.trim();
    const range = `od 1 do ${actionsRead}`;
    const wanted = /^[+-]?\d{1,10}$/.test(typed) ? Number(typed) : NaN;
    if (!Number.isInteger(wanted) || Math.abs(wanted) > 2 ** 31 - 1) {
      problem.textContent = `'${typed}' neni cislo akce: zadejte cele cislo ${range}.`;
    } else if (wanted < 1 || wanted > actionsRead) {
      problem.textContent = `Akce ${wanted} v replayi neni: zadejte cislo ${range}.`;
    } else {
      return go(wanted);
    }
    event.preventDefault();
    problem.hidden = false;
    entry.select();
    entry.focus();
  };
  dialog().showModal();
  entry.select();
}
