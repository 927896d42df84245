// What is waited for, in words, where rows or an action are awaited while an answer is late.

import { el, fill } from "./dom.js";
import { live } from "./live.js";
import { t } from "./text.js";

const patience = 1500;
const sayAgain = 15;

let late = null; // {from, since}: whom the streamer waits for, and since when by the page's clock
let timer = 0;
const awaitedBy = new WeakMap();

/**
 * A line that stays empty until something of it is awaited for a while and the streamer says that an answer
 * is late. `awaited` gives what stands behind it: objects whose `awaitedSince` is null while they await
 * nothing. It ends with the document's last hold on it.
 */
export function waitingLine(awaited) {
  const line = el("p", { class: "waiting", role: "status" });
  awaitedBy.set(line, awaited);
  return line;
}

/** Looks again whether the lines in the document have to say something; for whatever has got its answer. */
export function lookForWaiting() {
  for (const line of document.querySelectorAll(".waiting")) showLine(line);
}

function showLine(line) {
  const now = performance.now();
  const isAwaited = ({ awaitedSince }) => awaitedSince !== null && now - awaitedSince >= patience;
  const isLate = late !== null && awaitedBy.get(line)().some(isAwaited);
  line.parentElement.classList.toggle("late", isLate);
  if (!isLate) {
    fill(line);
    return;
  }
  const seconds = Math.floor((now - late.since) / 1000);
  const isService = late.from === "service";
  const text = isService
    ? t("Waiting for the music service, %1 s", seconds)
    : t("Waiting for the streamer, %1 s", seconds);
  // The seconds are seen as they pass; to be read out they are said now and then.
  if (!line.childElementCount)
    fill(line, el("span", { "aria-hidden": "true" }), el("span", { class: "visually-hidden" }));
  line.firstChild.textContent = text;
  const said = Number(line.lastChild.dataset.seconds ?? -sayAgain);
  if (seconds >= said && seconds < said + sayAgain) return;
  line.lastChild.dataset.seconds = seconds;
  line.lastChild.textContent = text;
}

live.addEventListener("waiting", ({ detail }) => {
  clearInterval(timer);
  late = detail.for ? { from: detail.for, since: performance.now() - detail.seconds * 1000 } : null;
  if (late) timer = setInterval(lookForWaiting, 1000);
  lookForWaiting();
});
