// Short messages at the page's foot, read out by screen readers. Errors stay longer.

import { el, fill } from "./dom.js";

function show(place, kind, text, time, action) {
  const message = el("div", { class: `toast ${kind}` }, text);
  const click = () => (message.remove(), action.run());
  const button = action && el("button", { type: "button", class: "link", on: { click } }, action.title);
  if (button) message.append(" · ", button);
  fill(document.getElementById(place), message);
  setTimeout(() => message.remove(), time);
}

/** `action`: what can be done about it, {title, run}. */
export const toast = (text, action = null) => show("notes", "note", text, action ? 8000 : 4000, action);
export const toastError = (error) => show("errors", "error", error.message ?? String(error), 9000);
