// A list of rows of which only those in sight are in the document. As rows or as a grid of covers.

import { el } from "./dom.js";

const overscan = { rows: 6, tracks: 8, grid: 1 };
const heights = { rows: 64, tracks: 48 };

/**
 * Shows items by number, as "rows", "tracks" or as a "grid". `make(index, kind)` gives an item's element,
 * `content(index)` what it is made from: an item is made anew when that is another one. `onRange(from, to)`
 * tells what is in sight. One item at a time takes part in the tab order; arrow keys move along.
 */
export class VirtualList {
  #items = new Map();
  #keys = new Map(); // what each item in sight was made from
  #current = 0;
  #count = 0;
  #columns = 1;
  #height = 64;
  #kind = "rows";
  #hasLines = true;
  #make;
  #content;
  #onRange;
  #scroller;
  #frame = 0;
  #onScroll = () => this.#schedule();
  #resize = new ResizeObserver(() => this.layOut());

  constructor(scroller, label, make, content, onRange) {
    this.#scroller = scroller;
    this.#make = make;
    this.#content = content;
    this.#onRange = onRange;
    const on = { keydown: (event) => this.#move(event), focusin: (event) => this.#focused(event) };
    this.element = el("ul", { class: "list", "aria-label": label, on });
    scroller.addEventListener("scroll", this.#onScroll, { passive: true });
    this.#resize.observe(this.element);
  }

  close() {
    this.#scroller.removeEventListener("scroll", this.#onScroll);
    this.#resize.disconnect();
    cancelAnimationFrame(this.#frame);
  }

  /** The number of the item that has, or had last, the focus. */
  get current() {
    return this.#current;
  }

  /**
   * New figures or new items; of what is in sight, the items that are other ones are made anew. Below the
   * titles of a grid stand lines, or none do.
   */
  update(kind, count, hasLines = true) {
    this.#kind = kind;
    this.#hasLines = hasLines;
    this.#count = count;
    this.#current = Math.max(0, Math.min(this.#current, count - 1));
    const focused = document.activeElement;
    const hadFocus = this.element.contains(focused);
    for (const [index, item] of [...this.#items]) {
      if (this.#keys.get(index) === this.#key(index)) item.setAttribute("aria-setsize", count);
      else this.#drop(index);
    }
    this.layOut();
    if (!hadFocus || focused.isConnected || !count) return;
    this.focus(this.#current, focused.classList.contains("more"));
  }

  /** Makes one item anew, where it is in sight. */
  refresh(index) {
    const old = this.#items.get(index);
    if (!old) return;
    const hadFocus = old.contains(document.activeElement);
    const fresh = this.#place(index);
    old.replaceWith(fresh);
    this.#items.set(index, fresh);
    if (hadFocus) this.focus(index);
  }

  layOut() {
    const width = this.element.clientWidth;
    this.element.classList.toggle("grid", this.#kind === "grid");
    if (this.#kind === "grid") {
      this.#columns = Math.max(2, Math.floor(width / 203));
      this.#height = Math.floor(width / this.#columns) + (this.#hasLines ? 80 : 60);
    } else {
      this.#columns = 1;
      this.#height = heights[this.#kind];
    }
    const lines = Math.ceil(this.#count / this.#columns);
    this.element.style.height = `${lines * this.#height}px`;
    for (const [index, item] of this.#items) this.#position(item, index);
    this.#show();
  }

  /** Scrolls to an item and gives it the focus. */
  focus(index, more = false) {
    this.#current = index;
    const top = this.element.offsetTop + Math.floor(index / this.#columns) * this.#height;
    const { scrollTop, clientHeight } = this.#scroller;
    if (top < scrollTop) this.#scroller.scrollTop = top - 8;
    else if (top + this.#height > scrollTop + clientHeight)
      this.#scroller.scrollTop = top + this.#height - clientHeight + 8;
    this.#show();
    this.#tabOrder();
    const item = this.#items.get(index);
    const target = (more && item?.querySelector(".more")) || item?.querySelector(".main") || item;
    target?.focus({ preventScroll: true });
  }

  #schedule() {
    cancelAnimationFrame(this.#frame);
    this.#frame = requestAnimationFrame(() => this.#show());
  }

  #show() {
    const above = this.#scroller.scrollTop - this.element.offsetTop;
    const spare = overscan[this.#kind];
    const first = Math.max(0, (Math.floor(above / this.#height) - spare) * this.#columns);
    const lines = Math.ceil(this.#scroller.clientHeight / this.#height) + 2 * spare;
    const last = Math.min(this.#count - 1, first + lines * this.#columns - 1);
    const focused = this.element.contains(document.activeElement) ? this.#current : -1;
    for (const index of [...this.#items.keys()]) {
      if ((index >= first && index <= last) || index === focused) continue;
      this.#drop(index);
    }
    for (let index = first; index <= last; ++index) {
      if (this.#items.has(index)) continue;
      const item = this.#place(index);
      this.#items.set(index, item);
      // In the order of the list, for whoever reads the document instead of looking at it.
      let next = index + 1;
      while (next <= last && !this.#items.has(next)) ++next;
      this.element.insertBefore(item, this.#items.get(next) ?? null);
    }
    if (this.#count) this.#onRange(first, Math.max(first, last));
    this.#tabOrder();
  }

  #place(index) {
    const item = this.#make(index, this.#kind);
    item.setAttribute("aria-setsize", this.#count);
    item.setAttribute("aria-posinset", index + 1);
    item.dataset.index = index;
    this.#keys.set(index, this.#key(index));
    this.#position(item, index);
    return item;
  }

  #drop(index) {
    this.#items.get(index).remove();
    this.#items.delete(index);
    this.#keys.delete(index);
  }

  #key(index) {
    return `${this.#kind} ${index < this.#count ? JSON.stringify(this.#content(index)) : ""}`;
  }

  #position(item, index) {
    const column = index % this.#columns;
    item.style.height = `${this.#height}px`;
    item.style.width = `${100 / this.#columns}%`;
    item.style.left = `${(column * 100) / this.#columns}%`;
    item.style.top = `${Math.floor(index / this.#columns) * this.#height}px`;
  }

  #tabOrder() {
    const stop = this.#items.has(this.#current) ? this.#current : Math.min(...this.#items.keys());
    for (const [index, item] of this.#items)
      for (const target of item.querySelectorAll(".main, .more, .subtitle a")) target.tabIndex = index === stop ? 0 : -1;
  }

  #focused(event) {
    const item = event.target.closest("li");
    if (!item) return;
    this.#current = Number(item.dataset.index);
    this.#tabOrder();
    this.element.dispatchEvent(new CustomEvent("current", { detail: this.#current }));
  }

  #move(event) {
    if (event.altKey || event.ctrlKey || event.metaKey) return;
    const page = Math.max(1, Math.floor(this.#scroller.clientHeight / this.#height) - 1) * this.#columns;
    const isGrid = this.#columns > 1;
    const more = event.target.classList.contains("more");
    const steps = { PageDown: page, PageUp: -page, Home: -this.#count, End: this.#count };
    Object.assign(steps, { ArrowDown: this.#columns, ArrowUp: -this.#columns });
    if (isGrid) Object.assign(steps, { ArrowRight: 1, ArrowLeft: -1 });
    const step = steps[event.key];
    if (step === undefined) {
      const isSideways = event.key === "ArrowRight" || event.key === "ArrowLeft";
      if (!isGrid && isSideways) this.focus(this.#current, event.key === "ArrowRight");
      return;
    }
    event.preventDefault();
    const target = this.#current + step;
    // Up from the first line and down from the last one stay, unless a whole page was asked for.
    if (Math.abs(step) <= this.#columns && (target < 0 || target >= this.#count)) return;
    this.focus(Math.max(0, Math.min(this.#count - 1, target)), more && !isGrid);
  }
}
