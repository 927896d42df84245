// Several rows of a list at once: with Shift or Ctrl, on a phone by a long press, or by the menu of a row.

import { player } from "./api.js";
import { boxOf, button, el, icon, iconButton } from "./dom.js";
import { openMenuOfSeveral } from "./menu.js";
import { t } from "./text.js";
import { toast, toastError } from "./toast.js";

/**
 * What is selected of the rows below an element; `rowAt` gives the row that is shown at a number, `numberOf`
 * the one that it has in the list. An item that asks to be selected sends "pick".
 */
export class Selection {
  #rows = new Map(); // by the number in the list
  #last = -1;
  #said = el("strong", { role: "status" });
  #bar = el("div", { class: "selection", role: "toolbar", "aria-label": t("Selected rows") });

  constructor(place, rowAt, numberOf) {
    this.place = place;
    this.rowAt = rowAt;
    this.numberOf = numberOf;
    const add = (at) => () => this.#enqueue(at);
    const more = (event) => openMenuOfSeveral(this.rows, boxOf(event)).then((done) => done && this.clear());
    const one = (name, words, run) => button([icon(name), el("span", {}, words)], run, "small");
    this.#bar.append(
      this.#said,
      one("play-next", t("Play next"), add("next")),
      one("queue", t("Add to queue"), add("end")),
      one("more", t("More"), more),
      iconButton("close", t("Select nothing"), () => this.clear()),
    );
    this.#bar.hidden = true;
    document.body.append(this.#bar);
    place.dataset.selectable = "";
    place.addEventListener("click", (event) => this.#click(event), { capture: true });
    place.addEventListener("keydown", (event) => this.#key(event), { capture: true });
    place.addEventListener("pick", ({ target }) => this.#toggle(Number(target.dataset.index)));
  }

  close() {
    this.#bar.remove();
  }

  /** The rows, in the order of the list. */
  get rows() {
    return [...this.#rows].sort(([one], [other]) => one - other).map(([, row]) => row);
  }

  clear() {
    this.#rows.clear();
    this.#last = -1;
    this.#show();
  }

  /** Forgets rows that are other ones by now; of a number `row` gives undefined while it is not known, or null. */
  update(row) {
    for (const [number, { Path }] of this.#rows) {
      const now = row(number);
      if (now !== undefined && now?.Path !== Path) this.#rows.delete(number);
    }
    this.#show();
  }

  /** Marks an item, which is shown at this number, as selected or not. */
  mark(element, index) {
    element.classList.toggle("selected", this.#rows.has(this.numberOf(index)));
    return element;
  }

  #add(index) {
    const row = this.rowAt(index);
    if (row?.Id && row.Context?.Path) this.#rows.set(this.numberOf(index), row);
  }

  #toggle(index) {
    if (!this.#rows.delete(this.numberOf(index))) this.#add(index);
    this.#last = index;
    this.#show();
  }

  #click(event) {
    const item = event.target.closest("li[data-index]");
    if (!item || item.isHeld || event.target.closest(".more, .heart")) return;
    const index = Number(item.dataset.index);
    const isOne = this.#rows.size > 0 || ((event.ctrlKey || event.metaKey) && !event.target.closest("a"));
    if (!event.shiftKey && !isOne) return void (this.#last = index);
    event.preventDefault();
    event.stopPropagation();
    if (!event.shiftKey) return this.#toggle(index);
    if (this.#last < 0) this.#last = index;
    const [from, to] = [Math.min(index, this.#last), Math.max(index, this.#last)];
    for (let at = from; at <= to; ++at) this.#add(at);
    return this.#show();
  }

  #key(event) {
    if (event.key === "Escape" && this.#rows.size) return event.stopPropagation(), this.clear();
    if (!event.shiftKey || !/^Arrow(Up|Down)$/.test(event.key)) return undefined;
    const number = () => Number(document.activeElement.closest("li")?.dataset.index);
    this.#add(number());
    // The list moves the focus meanwhile.
    return setTimeout(() => (this.#add(number()), this.#show()));
  }

  #show() {
    const { size } = this.#rows;
    this.#bar.hidden = !size;
    this.#said.textContent = size ? t("%1 selected", size) : "";
    const items = this.place.querySelectorAll("li[data-index]");
    for (const item of items) this.mark(item, Number(item.dataset.index));
  }

  async #enqueue(at) {
    const paths = this.rows.map((row) => row.Path);
    try {
      await player("queue", { action: "add", paths, at });
      toast(t("%1 added to the queue", paths.length));
      this.clear();
    } catch (error) {
      toastError(error);
    }
  }
}
