// The queue: rows that were put in by hand, and behind them the rest of the list that plays.

import { getQueue, pageSize, player } from "./api.js";
import { button, el, icon, iconButton } from "./dom.js";
import { item, skeleton } from "./items.js";
import { placeLink } from "./links.js";
import { VirtualList } from "./list.js";
import { live } from "./live.js";
import { playback } from "./playback.js";
import { played } from "./played.js";
import { RowSource } from "./rows.js";
import { titleOf } from "./rowtext.js";
import { t } from "./text.js";
import { toastError } from "./toast.js";

const edge = 60;
const edgeSpeed = 9;

/** A text with a link to a list at its %1; nothing for a list without a name. */
export function listLine(text, list, listTitle) {
  const item = list && played.list?.path === list ? played.list.item : null;
  const title = item?.title || listTitle;
  if (!title) return [];
  const [before, after] = text.split("%1");
  return [before, placeLink(list, title, item ?? { title }), after];
}

/** What comes after the present item. The player tells of another version of it. */
class QueueRows extends RowSource {
  version = 0;
  queued = 0;
  list = {};
  #newest = 0;

  constructor(onChanged) {
    super("!queue", onChanged);
    live.follow(this, []);
    this.#newest = playback.state.queueVersion;
  }

  async readPage(page, signal) {
    const answer = await getQueue(page * pageSize, (page + 1) * pageSize - 1, signal);
    this.version = answer.version;
    this.queued = answer.queued;
    this.list = answer;
    this.notice(answer.version);
    return { roles: {}, ...answer };
  }

  notice(version) {
    if (version === this.#newest) return;
    this.#newest = version;
    this.readAgainSoon();
  }

  /** Changes the queue as it was read. A refusal is shown, and what is true is read. */
  async edit(change) {
    try {
      await player("queue", { version: this.version, ...change });
    } catch (error) {
      toastError(error);
    }
    await this.reload();
  }
}

/** The queue as a list that can be put in order. `tellRow` is told which row has the focus. */
export class QueueList {
  element = el("div", { class: "queue" });
  #source = new QueueRows(() => this.#update());
  #list;
  #scroller;
  #end = new AbortController();

  constructor(scroller, tellRow) {
    this.#scroller = scroller;
    const source = this.#source;
    this.awaited = [source];
    this.#list = new VirtualList(
      scroller,
      t("Queue"),
      (at) => this.#make(at),
      (at) => this.#contentAt(at),
      (from, to) => source.need(Math.max(0, from - 2), to),
    );
    const { element } = this.#list;
    element.addEventListener("current", ({ detail }) => tellRow(source.row(this.#positionAt(detail))));
    element.addEventListener("keydown", (event) => this.#onKey(event));
    const { signal } = this.#end;
    playback.addEventListener("changed", () => source.notice(playback.state.queueVersion), { signal });
    played.addEventListener("changed", () => this.#update(), { signal });
    source.need(0, 20);
  }

  close() {
    this.#end.abort();
    this.#source.close();
    this.#list.close();
  }

  // Above each of both parts, where it has rows, stands a heading. Its position is -1.
  #positionAt(at) {
    const { queued } = this.#source;
    if (at === 0 || (queued && at === queued + 1)) return -1;
    return at - 1 - (queued && at > queued ? 1 : 0);
  }

  #contentAt(at) {
    const position = this.#positionAt(at);
    const { queued, list } = this.#source;
    return position < 0 ? [queued, list.list, played.list] : [position, this.#source.row(position)];
  }

  #atPosition(position) {
    const { queued } = this.#source;
    return position + 1 + (queued && position >= queued ? 1 : 0);
  }

  #update() {
    const { count, error, isLoaded } = this.#source;
    if (!isLoaded) return;
    const text = t("Play an album, a playlist or a track: what follows stands here.");
    const none = el("p", { class: "empty" }, error?.message ?? text);
    const shown = count ? this.#list.element : none;
    if (!shown.isConnected) this.element.replaceChildren(shown);
    this.#list.update("rows", count && this.#atPosition(count - 1) + 1);
  }

  #heading(isQueued) {
    const { list, listTitle, queued } = this.#source.list;
    const clear = () => this.#source.edit({ action: "remove", position: 0, count: queued });
    const words = isQueued ? t("Next in the queue") : listLine(t("Next from %1"), list, listTitle);
    const main = el("h3", { class: "main", tabindex: "-1" }, words.length ? words : t("Next in the list"));
    return el("li", { class: "item header" }, main, isQueued ? button(t("Clear"), clear, "small") : null);
  }

  #make(at) {
    const position = this.#positionAt(at);
    if (position < 0) return this.#heading(at === 0 && this.#source.queued > 0);
    const row = this.#source.row(position);
    if (!row) return skeleton("rows");
    const element = item(row, "rows", row.List, row.Index);
    element.removeAttribute("aria-current");
    element.querySelector(".playing")?.remove();
    const main = element.querySelector(".main");
    main.setAttribute("aria-keyshortcuts", "Alt+ArrowUp Alt+ArrowDown Delete");
    const properties = { class: "icon-button remove", tabindex: "-1" };
    const remove = () => this.#source.edit({ action: "remove", position });
    const handle = el("span", { class: "handle", "aria-hidden": "true" }, icon("handle"));
    handle.addEventListener("pointerdown", (event) => this.#drag(event, element, position));
    element.append(iconButton("close", t("Remove %1", titleOf(row)), remove, properties), handle);
    // Here a click goes to the row's place in the queue.
    const jump = (event) => {
      if (row.Disabled || event.defaultPrevented || !event.target.closest(".main")) return;
      event.stopPropagation();
      this.#source.edit({ action: "jump", position });
    };
    element.addEventListener("click", jump, { capture: true });
    return element;
  }

  async #move(position, to, hasFocus) {
    if (to === position || to < 0 || to >= this.#source.count) return;
    await this.#source.edit({ action: "move", position, to });
    if (hasFocus) this.#list.focus(this.#atPosition(to));
  }

  #onKey(event) {
    const position = this.#positionAt(this.#list.current);
    const step = { ArrowUp: -1, ArrowDown: 1 }[event.key];
    if (position < 0 || !(event.key === "Delete" || (event.altKey && step))) return;
    event.preventDefault();
    if (step) this.#move(position, position + step, true);
    else this.#source.edit({ action: "remove", position });
  }

  // The row follows the pointer; near an edge of what is in sight the list moves below it.
  #drag(event, element, position) {
    if (event.button !== 0) return;
    event.preventDefault();
    event.stopPropagation();
    const handle = event.currentTarget;
    const { version } = this.#source;
    const scroller = this.#scroller;
    const height = element.offsetHeight;
    const begin = event.clientY + scroller.scrollTop;
    const line = this.#list.element.appendChild(el("li", { class: "drop-line", "aria-hidden": "true" }));
    let y = event.clientY;
    let at = this.#atPosition(position);
    const from = at;
    const last = this.#atPosition(this.#source.count - 1);
    // The list keeps the row that has the focus.
    element.querySelector(".main").focus({ preventScroll: true });
    element.classList.add("dragged");
    handle.setPointerCapture(event.pointerId);
    const end = new AbortController();
    const follow = () => {
      if (end.signal.aborted) return;
      const box = scroller.getBoundingClientRect();
      scroller.scrollTop += y < box.top + edge ? -edgeSpeed : y > box.bottom - edge ? edgeSpeed : 0;
      const away = y + scroller.scrollTop - begin;
      element.style.transform = `translateY(${away}px)`;
      at = Math.max(1, Math.min(last, from + Math.round(away / height)));
      line.style.top = `${(at + (at > from ? 1 : 0)) * height}px`;
      requestAnimationFrame(follow);
    };
    const drop = ({ type }) => {
      end.abort();
      line.remove();
      element.classList.remove("dragged");
      element.style.transform = "";
      const { queued } = this.#source;
      const isBetween = this.#positionAt(at) < 0;
      const to = isBetween ? queued - (at > from ? 1 : 0) : this.#positionAt(at);
      if (type === "pointerup" && version === this.#source.version) this.#move(position, to, true);
    };
    const { signal } = end;
    handle.addEventListener("pointermove", ({ clientY }) => (y = clientY), { signal });
    for (const type of ["pointerup", "lostpointercapture"]) handle.addEventListener(type, drop, { signal });
    follow();
  }
}
