// What all views have: a heading and an end.

import { el } from "./dom.js";

/**
 * A view of the page; app.js makes, shows and closes it. Events: "current" with {row} when another row has
 * the focus, "call" with an answer of the tree, "loaded" when the title may be another one.
 */
export class View extends EventTarget {
  heading = el("h1", { tabindex: "-1" });
  #end = new AbortController();
  /** Aborted when the view is closed, for the listeners that end with it. */
  ended = this.#end.signal;

  get title() {
    return this.heading.textContent;
  }

  /** Begins at the heading, as a new page would. */
  focus() {
    this.heading.focus({ preventScroll: true });
  }

  /** Sends an event of the view. */
  tell(type, detail) {
    this.dispatchEvent(new CustomEvent(type, { detail }));
  }

  /** Tells which row has the focus, if it is read. */
  tellRow(row) {
    if (row) this.tell("current", { row });
  }

  /** Ends what the view follows. */
  close() {
    this.#end.abort();
  }
}
