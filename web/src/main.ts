// The page: the viewer over the core, opened from a chosen or dropped file, from ?replay=URL
// or from the replay the page carries, starting where its link says.
import { startCore } from "./core";
import { element } from "./dom";
import { pageWithReplay, takeEmbeddedReplay } from "./embedded_replay";
import { askForAction } from "./jump_prompt";
import { installKeys, showKeyTable } from "./keys";
import { momentFragment, readMoment, type Moment } from "./link";
import { FieldPictures, naturalFieldPixels } from "./map/field_pictures";
import { MapView } from "./map/map_view";
import { fetchedBytes, fileBytes, LoadProgress, type ReplayBytes } from "./replay_bytes";
import { ActionList } from "./panels/action_list";
import { showAbout } from "./panels/about";
import { Charts } from "./panels/charts";
import { Timeline } from "./panels/timeline";
import { dateTimeText } from "./date_text";
import { Viewer } from "./viewer";

// Connections are refused but for the replay a link names: a second policy narrows the page's.
function allowOnlyFetchOf(address: string | null): void {
  const policy = document.createElement("meta");
  policy.httpEquiv = "Content-Security-Policy";
  const allowed = address ? new URL(address, location.href).href.replace(/[;,\s]/g, encodeURIComponent) : "'none'";
  policy.content = `connect-src ${allowed}`;
  document.head.append(policy);
}

// Opens a replay and goes where `moment` says: the way of viewing, the field size and the
// marks first, then the action, as a jump goes there.
async function openReplay(viewer: Viewer, read: (progress: LoadProgress) => Promise<ReplayBytes>, name: string,
  moment: Moment = {}): Promise<void> {
  const progress = new LoadProgress(name);
  try {
    const source = await read(progress);
    if (moment.view) viewer.setViewMode(moment.view);
    if (moment.highlight !== undefined) viewer.setHighlight(moment.highlight);
    const opened = viewer.open(source, source.cancelled ? (done, total) => done < total : undefined);
    if (opened.gridFailure) return;
    if (moment.fieldPixels) viewer.map.setFieldPixels(moment.fieldPixels);
    if (moment.action && moment.action >= 1 && moment.action <= viewer.replay.actionsRead()) viewer.jumpTo(moment.action);
  } catch (error) {
    viewer.boxes.show(error instanceof Error ? error.message : String(error));
  } finally {
    progress.close();
    // Tells the page's tests that an opening, good or bad, is over.
    document.body.dataset.opened = String(Number(document.body.dataset.opened ?? 0) + 1);
  }
}

function download(name: string, type: string, content: string): void {
  const link = document.createElement("a");
  link.href = URL.createObjectURL(new Blob([content], { type }));
  link.download = name;
  link.click();
  setTimeout(() => URL.revokeObjectURL(link.href), 60_000);
}

function baseName(name: string): string {
  return name.replace(/\.[^.]*$/, "") || "replay";
}

async function main(): Promise<void> {
  const embedded = takeEmbeddedReplay();
  const address = new URLSearchParams(location.search).get("replay");
  allowOnlyFetchOf(address);
  const [core, pictures] = await Promise.all([startCore(), FieldPictures.decode()]);
  const map = new MapView(element<HTMLCanvasElement>("map"), pictures);
  const viewer = new Viewer(new core.Replay(), map);
  const picker = element<HTMLInputElement>("replay-file");
  const status = element("status");
  const jump = (event: number) => viewer.jumpTo(event);
  const timeline = new Timeline(viewer.replay);
  const list = new ActionList(core, viewer.replay);
  const charts = new Charts(core, viewer.replay);
  timeline.onJump = list.onJump = charts.onJump = (event) => {
    if (event !== viewer.replay.position()) jump(event);
  };
  charts.onCsv = (csv) => download(`${baseName(viewer.replayFile?.name ?? "replay")}.csv`, "text/csv", csv);
  viewer.openers.push(() => timeline.showReplay(), () => list.showReplay(), () => charts.showReplay());
  viewer.followers.push((position) => {
    timeline.setPosition(position);
    element("timeline-position").textContent = viewer.replay.positionText();
    const time = viewer.replay.eventTime(position);
    element("timeline-time").textContent = time ? dateTimeText(time) : "";
    list.setPosition(position);
    charts.setPosition(position);
  });
  element("toggle-list").addEventListener("click", () => list.toggle());
  element("toggle-charts").addEventListener("click", () => charts.toggle());
  element("show-about").addEventListener("click", () => showAbout(core));

  const openFile = (file: File) => openReplay(viewer, (progress) => fileBytes(file, progress), file.name);
  element("open").addEventListener("click", () => picker.click());
  picker.addEventListener("change", () => {
    const file = picker.files?.[0];
    // The same file chosen again is a change too.
    picker.value = "";
    if (file) void openFile(file);
  });
  document.addEventListener("dragover", (event) => {
    event.preventDefault();
    document.body.classList.add("dragging");
  });
  document.addEventListener("dragleave", () => document.body.classList.remove("dragging"));
  document.addEventListener("drop", (event) => {
    event.preventDefault();
    document.body.classList.remove("dragging");
    // One file; anything else is refused, as the window refuses it.
    const files = event.dataTransfer?.files;
    if (files?.length === 1) void openFile(files[0]);
  });

  element("save-page").addEventListener("click", () => {
    const file = viewer.replayFile;
    if (!file) return;
    const page = pageWithReplay({ ...file, moment: momentFragment(viewer.moment()) });
    download(`${baseName(file.name)}.html`, "text/html", page);
  });
  element("copy-link").addEventListener("click", async () => {
    try {
      await navigator.clipboard.writeText(location.href);
      status.textContent = `Odkaz zkopirovan: ${location.href}`;
    } catch {
      status.textContent = `Odkaz: ${location.href}`;
    }
  });
  const jumpPrompt = () => {
    if (viewer.isOpen && viewer.replay.actionsRead() > 0)
      askForAction(viewer.replay.actionsRead(), viewer.replay.position(), (action) => viewer.jumpTo(action));
  };
  element("jump-to").addEventListener("click", jumpPrompt);
  element("show-keys").addEventListener("click", showKeyTable);
  element("zoom-in").addEventListener("click", () => map.zoomIn());
  element("zoom-out").addEventListener("click", () => map.zoomOut());
  element("zoom-reset").addEventListener("click", () => map.setFieldPixels(naturalFieldPixels));
  element("zoom-fit").addEventListener("click", () => map.zoomToFit());
  installKeys({
    pressStepKey: (key) => {
      const button = viewer.playback.buttonForKey(key);
      if (!button) return false;
      // A key does nothing while its button is disabled, as a click does nothing then.
      button.click();
      return true;
    },
    jumpToNearest: (kind, forward) => viewer.jumpToNearest(kind, forward),
    askForAction: jumpPrompt,
    toggleHighlight: () => viewer.setHighlight(!element<HTMLInputElement>("highlight").checked),
    open: () => picker.click(),
    zoomIn: () => map.zoomIn(),
    zoomOut: () => map.zoomOut(),
    zoomReset: () => map.setFieldPixels(naturalFieldPixels),
    zoomFit: () => map.zoomToFit(),
    extra: [(event) => {
      if (!(event.ctrlKey || event.metaKey) || event.shiftKey) return false;
      if (event.key === "l" || event.key === "L") list.toggle();
      else if (event.key === "p" || event.key === "P") charts.toggle();
      else return false;
      return true;
    }],
  });
  element<HTMLButtonElement>("open").disabled = false;

  if (embedded) {
    await openReplay(viewer, async () => ({ ...embedded, size: embedded.bytes.length, cancelled: false }), embedded.name,
      readMoment(location.hash || embedded.moment));
  } else if (address) {
    await openReplay(viewer, (progress) => fetchedBytes(address, progress), address, readMoment(location.hash));
  }
  document.body.dataset.ready = "1";
}

main().catch((error: unknown) => {
  element("status").textContent = `Chyba: ${String(error)}`;
});
