// Short messages at the page's foot, read out by screen readers. Errors stay longer.

import { el, fill } from "./dom.js";

function show(place, kind, text, time) {
  const message = el("div", { class: `toast ${kind}` }, text);
  fill(document.getElementById(place), message);
  setTimeout(() => message.remove(), time);
}

export const toast = (text) => show("notes", "note", text, 4000);
export const toastError = (error) => show("errors", "error", error.message ?? String(error), 9000);
