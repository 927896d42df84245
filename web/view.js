// What all views have: a heading, a place in the page and an end.

import { el } from "./dom.js";

/**
 * A view of the page; app.js makes, shows and closes it. Events: "current" with {row} when another row has
 * the focus, "call" with an answer of the tree, "loaded" when the title may be another one.
 */
export class View extends EventTarget {
  heading = el("h1", { tabindex: "-1" });

  get title() {
    return this.heading.textContent;
  }

  /** What leads back to where the reader was in it; see nav.js. */
  get place() {
    return {};
  }

  /** Begins at the heading, as a new page would. */
  focus() {
    this.heading.focus({ preventScroll: true });
  }

  /** Sends an event of the view. */
  tell(type, detail) {
    this.dispatchEvent(new CustomEvent(type, { detail }));
  }

  /** Ends what the view follows. */
  close() {}
}
