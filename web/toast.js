// Short messages at the page's foot, read out by screen readers. Errors stay longer.

import { el, fill } from "./dom.js";

const places = {
  note: () => document.getElementById("notes"),
  error: () => document.getElementById("errors"),
};

function show(kind, text) {
  const place = places[kind]();
  const message = el("div", { class: `toast ${kind}` }, text);
  fill(place, message);
  setTimeout(() => message.remove(), kind === "error" ? 9000 : 4000);
}

export const toast = (text) => show("note", text);
export const toastError = (error) => show("error", error.message ?? String(error));
