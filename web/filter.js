// A filter for the rows of a list: which of them have a text.

import { el } from "./dom.js";
import { subtitleOf, titleOf } from "./rowtext.js";
import { t } from "./text.js";

const long = 20;

export const plain = (text) => text.normalize("NFKD").replace(/\p{M}/gu, "").toLowerCase();

/** The field above a list. `onChanged` is told when other rows are wanted. */
export class RowFilter {
  #input;
  #said = el("span", { class: "hint", role: "status" });
  #numbers = null; // of the rows that are shown; null for all
  #source;
  element;

  constructor(source, onChanged) {
    this.#source = source;
    const look = async () => {
      // What is not read cannot be looked through.
      if (this.#input.value) await source.need(0, source.count - 1);
      onChanged();
    };
    const shared = { type: "search", "aria-label": t("Filter"), placeholder: t("Filter") };
    this.#input = el("input", { ...shared, on: { input: look } });
    this.element = el("div", { class: "filter", hidden: true }, this.#input, this.#said);
  }

  focus() {
    this.element.hidden = !this.#source.count;
    this.#input.focus();
  }

  /** Looks through the rows as they are now. */
  update() {
    const { count } = this.#source;
    const wanted = plain(this.#input.value.trim());
    if (count > long) this.element.hidden = false;
    const has = (row) => row && plain(`${titleOf(row)} ${subtitleOf(row)}`).includes(wanted);
    const all = wanted ? Array.from({ length: count }, (none, index) => index) : null;
    this.#numbers = all && all.filter((index) => has(this.#source.row(index)));
    this.#said.textContent = all ? t("%1 of %2", this.count, count) : "";
  }

  /** How many rows are shown. */
  get count() {
    return this.#numbers?.length ?? this.#source.count;
  }

  /** The number that a shown row has in the list. */
  at(index) {
    return this.#numbers ? this.#numbers[index] : index;
  }
}
