// A filter for the rows of a list: which of them have a text. It looks through the whole list, page by page,
// also where that is longer than what is kept of it.

import { pageSize } from "./api.js";
import { isIdle } from "./entries.js";
import { el } from "./dom.js";
import { subtitleOf, titleOf } from "./rowtext.js";
import { t } from "./text.js";

const long = 20;
const mostKept = 60; // pages
const mostFound = 1000;
const typingPause = 200;
const saidEvery = 10; // pages
const inWords = (number) => number.toLocaleString(document.documentElement.lang);

export const plain = (text) => text.normalize("NFKD").replace(/\p{M}/gu, "").toLowerCase();

/** The field above a list. `onChanged` is told when other rows are wanted. */
export class RowFilter {
  #input;
  #said = el("span", { class: "hint", role: "status" });
  #found = null; // the rows that are shown as [number, row]; null for all
  #kept = new Map(); // by number the pages that were looked through
  #run = new AbortController();
  #source;
  #onChanged;
  element;

  constructor(source, onChanged) {
    this.#source = source;
    this.#onChanged = onChanged;
    const shared = { type: "search", "aria-label": t("Filter"), placeholder: t("Filter") };
    this.#input = el("input", { ...shared, on: { input: () => this.#look() } });
    this.element = el("div", { class: "filter", hidden: true }, this.#input, this.#said);
  }

  focus() {
    this.element.hidden = !this.#source.count;
    this.#input.focus();
  }

  close() {
    this.#run.abort();
  }

  /** The list's rows may be other ones: looks through them again. */
  update() {
    if (this.#source.count > long) this.element.hidden = false;
    this.#kept.clear();
    if (this.#found) this.#look(this.#found);
  }

  /** How many rows are shown. */
  get count() {
    return this.#found?.length ?? this.#source.count;
  }

  /** The number that a shown row has in the list. */
  at(index) {
    return this.#found ? this.#found[index]?.[0] : index;
  }

  /** A shown row; undefined while it is not read. */
  row(index) {
    return this.#found ? this.#found[index]?.[1] : this.#source.row(index);
  }

  /** The row with a number in the list; undefined while it is not known, null where there is none. */
  rowOf(number) {
    if (number >= this.#source.count) return null;
    return this.#source.row(number) ?? this.#found?.find(([one]) => one === number)?.[1];
  }

  /** Has the rows read that are shown from one to another. */
  need(from, to) {
    if (!this.#found) this.#source.need(from, to);
  }

  // What was found `before` stays until all has been looked through.
  async #look(before = null) {
    this.#run.abort();
    const { signal } = (this.#run = new AbortController());
    const wanted = plain(this.#input.value.trim());
    if (!wanted) {
      this.#kept.clear();
      this.#said.textContent = "";
      return this.#show(null);
    }
    const has = (row) => plain(`${titleOf(row)} ${subtitleOf(row)}`).includes(wanted);
    const found = [];
    let { count } = this.#source;
    try {
      for (let page = 0; page * pageSize < count && found.length < mostFound; ++page) {
        const rows = this.#kept.get(page) ?? (await this.#read(page, signal));
        if (signal.aborted) return undefined;
        rows.forEach((row, at) => has(row) && found.push([page * pageSize + at, row]));
        ({ count } = this.#source);
        const looked = Math.min(count, (page + 1) * pageSize);
        const isAll = looked >= count;
        const said = [found.length, looked, count].map(inWords);
        const isEnd = isAll || found.length >= mostFound;
        const text = isAll ? t("%1 of %2", said[0], said[2]) : t("%1 in the first %2 of %3", ...said);
        if (isEnd || page % saidEvery === 0) this.#said.textContent = text;
        if (isEnd || !before) this.#show(found);
      }
    } catch (error) {
      if (!signal.aborted) this.#said.textContent = error.message;
    }
    return undefined;
  }

  async #read(page, signal) {
    // Who types on wants other rows.
    if (!this.#kept.size) await new Promise((resolve) => setTimeout(resolve, typingPause));
    if (signal.aborted) return [];
    const rows = (await this.#source.readPage(page, signal)).rows.filter((row) => !isIdle(row));
    if (this.#kept.size < mostKept) this.#kept.set(page, rows);
    return rows;
  }

  #show(found) {
    this.#found = found;
    this.#onChanged();
  }
}
