// Shelves: a heading and a few rows of a list below it, read when they come into sight.

import { button, el, fill, icon, iconButton } from "./dom.js";
import { explain } from "./failure.js";
import { item, skeleton } from "./items.js";
import { placeLink } from "./links.js";
import { PlaceView } from "./place.js";
import { playback } from "./playback.js";
import { PlaceRows } from "./recent.js";
import { t } from "./text.js";

const ahead = "300px 0px";

/** Whether a row is something to open or to play. */
export const isShown = (row) => ["Container", "Audio"].includes(row.Type) && row.Path;

/**
 * Covers side by side ("grid"), or rows one below the other. It is gone when there is nothing on it, and
 * says itself what it could not load. Events: "current" with {row}, "call", as a view has them; "shown".
 */
export class Shelf extends EventTarget {
  source = null;
  #rows = [];
  #list;
  #all;
  #shown = "";
  #end = new AbortController();

  /**
   * Holds `most` rows of a path; without a path those that show() is given. `page` gives what stands above them,
   * as item() takes it.
   */
  constructor(title, { path = "", kind = "grid", most = 16, page = () => ({}) } = {}) {
    super();
    this.page = page;
    this.path = path;
    this.kind = kind;
    this.most = most;
    const on = { keydown: (event) => this.#move(event), focusin: (event) => this.#focused(event) };
    this.#list = el("ul", { class: `shelf-rows ${kind} plain-list`, "aria-label": title, on });
    this.#all = placeLink(path, "", { title }, { class: "link", hidden: true });
    const scroll = (sign) => () => this.#list.scrollBy({ left: sign * 0.8 * this.#list.clientWidth });
    const turn = (name, label, sign) =>
      iconButton(name, label, scroll(sign), { class: "icon-button turn", tabindex: "-1" });
    const turns = [turn("back", t("Back"), -1), turn("forward", t("Forward"), 1)];
    const header = el("header", {}, el("h2", {}, title), this.#all, kind === "grid" ? turns : []);
    this.element = el("section", { class: "shelf" }, header, this.#list);
    playback.addEventListener("changed", () => this.#show(), { signal: this.#end.signal });
    this.element.hidden = !path;
    fill(this.#list, Array.from({ length: Math.min(most, 8) }, () => skeleton(kind)));
  }

  /** Reads its rows as soon as it is near what is in sight of the scroller. */
  watch(scroller) {
    const look = (entries) => {
      if (!entries.some((entry) => entry.isIntersecting)) return;
      observer.disconnect();
      this.read();
    };
    const observer = new IntersectionObserver(look, { root: scroller, rootMargin: ahead });
    observer.observe(this.element);
    this.#end.signal.addEventListener("abort", () => observer.disconnect());
  }

  close() {
    this.#end.abort();
    this.source?.close();
  }

  /** Shows these rows. */
  show(rows) {
    this.#rows = rows.filter(isShown).slice(0, this.most);
    this.element.hidden = !this.#rows.length;
    this.#show();
  }

  /** What stands above the rows is known by now, or is another thing. */
  refresh() {
    this.#show();
  }

  /** Reads its rows. */
  read() {
    this.source = new PlaceRows(this.path, () => this.#update());
    this.source.addEventListener("call", ({ detail }) => this.#tell("call", detail));
    this.source.need(0, this.most - 1);
  }

  #update() {
    const { error, rows, isLoaded } = this.source;
    if (!isLoaded) return;
    if (!error || rows.length) return this.show(rows);
    this.#shown = "";
    const again = button(t("Try again"), () => this.source.reload(), "small");
    const words = el("span", {}, error.message);
    explain(error).then(({ text }) => (words.textContent = text));
    fill(this.#list, el("li", { class: "problem", role: "alert" }, words, again));
  }

  #show() {
    const { path, list } = playback.state;
    const isHere = this.#rows.some((row) => [path, list].includes(row.Path));
    const page = this.page();
    const key = JSON.stringify([this.#rows, page, isHere && [path, playback.isPlaying]]);
    if (key === this.#shown || !this.#rows.length) return;
    this.#shown = key;
    const at = [...this.#list.children].indexOf(document.activeElement.closest("li"));
    const { scrollLeft } = this.#list;
    const count = this.source?.count ?? 0;
    this.#all.hidden = count <= this.#rows.length;
    fill(this.#all, t("All %1", count), icon("forward"));
    fill(
      this.#list,
      this.#rows.map((row, index) => item(row, this.kind, this.path, index, page)),
    );
    this.#list.scrollLeft = scrollLeft;
    this.element.classList.toggle("fits", this.#list.scrollWidth <= this.#list.clientWidth);
    this.#stopAt(Math.max(0, at));
    if (at >= 0) this.#focus(at);
    this.#tell("shown");
  }

  // One of its items takes part in the tab order.
  #stopAt(index) {
    [...this.#list.children].forEach((element, at) => {
      for (const one of element.querySelectorAll(".main, .more, .subtitle a"))
        one.tabIndex = at === index ? 0 : -1;
    });
  }

  #focus(index) {
    this.#list.children[index]?.querySelector(".main").focus();
  }

  #focused(event) {
    const index = [...this.#list.children].indexOf(event.target.closest("li"));
    if (index < 0 || !this.#rows[index]) return;
    this.#stopAt(index);
    this.#tell("current", { row: this.#rows[index] });
  }

  #move(event) {
    if (event.altKey || event.ctrlKey || event.metaKey) return;
    const [before, after] = this.kind === "grid" ? ["ArrowLeft", "ArrowRight"] : ["ArrowUp", "ArrowDown"];
    const at = [...this.#list.children].indexOf(event.target.closest("li"));
    const last = this.#rows.length - 1;
    const target = { [before]: at - 1, [after]: at + 1, Home: 0, End: last }[event.key];
    if (target === undefined || at < 0) return;
    event.preventDefault();
    this.#focus(Math.max(0, Math.min(last, target)));
  }

  #tell(type, detail) {
    this.dispatchEvent(new CustomEvent(type, { detail }));
  }
}

/** A place of which the view is shelves. Who comes back to it finds the scroll and the focus where they were. */
export class ShelfView extends PlaceView {
  #shelves = [];
  #place;

  constructor(path, state, scroller) {
    super(path, state, scroller);
    this.#place = state.place;
    this.element.classList.add("wide");
  }

  close() {
    super.close();
    for (const shelf of this.#shelves) shelf.close();
  }

  get awaited() {
    return [this.source, ...this.#shelves.map((shelf) => shelf.source).filter(Boolean)];
  }

  get place() {
    const { activeElement } = document;
    const focus = this.body.contains(activeElement) ? activeElement.getAttribute("href") : null;
    return { scroll: this.scroller.scrollTop, focus };
  }

  /** Puts shelves in place of what is there, below the elements `above`. */
  put(shelves, ...above) {
    for (const shelf of this.#shelves) shelf.close();
    this.#shelves = shelves;
    fill(this.body, above, shelves.map((shelf) => shelf.element));
    for (const shelf of shelves) {
      for (const type of ["current", "call"])
        shelf.addEventListener(type, ({ detail }) => this.tell(type, detail));
      shelf.addEventListener("shown", () => this.#giveFocusBack());
      if (shelf.path) shelf.watch(this.scroller);
    }
    if (shelves.length && this.#place) this.scroller.scrollTop = this.#place.scroll;
    this.#giveFocusBack();
  }

  #giveFocusBack() {
    const href = this.#place?.focus;
    if (!href || document.activeElement !== this.heading) return;
    this.body.querySelector(`.main[href=${JSON.stringify(href)}]`)?.focus({ preventScroll: true });
  }
}
