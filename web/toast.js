// Short messages at the page's foot, read out by screen readers; some with something to do about them.

import { button, el, fill } from "./dom.js";
import { explain } from "./failure.js";

const shownFor = 8000;

function show(place, kind, text, action) {
  const act = action && button(action.title, () => (message.remove(), action.run()), "small");
  const message = el("div", { class: `toast ${kind}` }, el("span", {}, text), act);
  fill(document.getElementById(place), message);
  // Who is about to press its button is given the time.
  const end = () => (message.matches(":hover, :focus-within") ? setTimeout(end, shownFor) : message.remove());
  setTimeout(end, shownFor);
}

/** Shows a note; `action` is {title, run}. */
export const toast = (text, action = null) => show("notes", "note", text, action);

export async function toastError(error) {
  show("errors", "error", error.status ? (await explain(error)).text : (error.message ?? String(error)));
}

/** Takes away what was said of something that is over. */
export function clearToasts() {
  for (const place of ["notes", "errors"]) fill(document.getElementById(place));
}
