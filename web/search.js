// Search as one types: the kinds that the tree offers, side by side.

import { getData, getRows } from "./api.js";
import { el, fill, icon } from "./dom.js";
import { item } from "./items.js";
import { go } from "./nav.js";
import { home, parsePath, withParameter } from "./path.js";
import { PlaceRows } from "./recent.js";
import { t } from "./text.js";
import { View } from "./view.js";
import { waitingLine } from "./waiting.js";

const mostRows = () => (matchMedia("(max-width: 760px)").matches ? 5 : 12);

let found = null;

/** Where the tree answers searches: {path, parameter}; null while nobody is logged in. */
async function searchPlace() {
  if (found) return found;
  const top = await getRows(home, 0, 0);
  if (!top.roles.SearchPath) return null;
  const container = await getRows(top.roles.SearchPath, 0, 0);
  const node = container.rows[0];
  if (!node?.Path) return null;
  const data = node.QueryPath ? node : (await getData(node.Path)).data;
  found = data.QueryPath ? { path: data.QueryPath, parameter: data.Query } : null;
  return found;
}

/** Forgets what the tree offered: somebody logged in or out. */
export function forgetSearchPlace() {
  found = null;
}

/** The address of a search, or null when the tree offers none. */
export async function searchPath(text) {
  const place = await searchPlace();
  return place && withParameter(place.path, place.parameter, text);
}

const queryBase = "/search/choose";

/** The text that a path searches for; null when it is no search. */
export function searchedText(path) {
  const { base, parameters } = parsePath(path);
  const place = found ? parsePath(found.path).base : home + queryBase;
  return base === place ? (parameters.get(found?.parameter ?? "query") ?? "") : null;
}

/** The results for a path of the tree whose rows are the kinds. */
export class SearchView extends View {
  #kinds;
  #columns = [];
  #body = el("div", { class: "search-columns" });

  constructor(path, text) {
    super();
    this.path = path;
    this.text = text;
    this.heading.className = "visually-hidden";
    this.heading.textContent = text ? t("Search: %1", text) : t("Search");
    const sources = () => [this.#kinds, ...this.#columns.map((column) => column.source)].filter(Boolean);
    this.element = el("section", { class: "view search" }, this.heading, waitingLine(sources), this.#body);
    if (!text.trim()) {
      const text = t("Type what you look for: an artist, an album, a track, a playlist.");
      fill(this.#body, el("p", { class: "empty" }, text));
      return;
    }
    this.#kinds = new PlaceRows(path, () => this.#show());
    this.#kinds.need(0, 20);
  }

  close() {
    super.close();
    this.#kinds?.close();
    for (const column of this.#columns) column.source.close();
  }

  #show() {
    if (this.#kinds.error) {
      fill(this.#body, el("p", { class: "empty", role: "alert" }, this.#kinds.error.message));
      return;
    }
    const rows = this.#kinds.rows.filter((row) => row.Type === "Container");
    if (rows.map((row) => row.Path).join() === this.#columns.map((column) => column.row.Path).join()) return;
    for (const column of this.#columns) column.source.close();
    this.#columns = rows.map((row) => this.#column(row));
    fill(this.#body, this.#columns.map((column) => column.element));
  }

  #column(row) {
    const most = mostRows();
    const searching = el("li", { class: "busy" }, t("Searching…"));
    const list = el("ul", { class: "plain-list", "aria-label": row.Title }, searching);
    const showAll = () => go(row.Path, { title: t("%1: “%2”", row.Title, this.text) });
    const all = el("button", { type: "button", class: "link", hidden: true, on: { click: showAll } });
    const header = el("header", {}, el("h2", {}, row.Title), all);
    const element = el("section", { class: "search-column" }, header, list);
    const source = new PlaceRows(row.Path, () => {
      const { error } = source;
      if (error) return fill(list, el("li", { class: "problem", role: "alert" }, error.message));
      const hits = source.rows.slice(0, most);
      fill(list, hits.map((hit, index) => item(hit, "rows", row.Path, index)));
      all.hidden = source.count <= most;
      fill(all, t("All %1", source.count), icon("forward"));
      this.dispatchEvent(new Event("loaded"));
    });
    list.addEventListener("focusin", (event) => {
      const index = [...list.children].indexOf(event.target.closest("li"));
      this.tellRow(source.row(index));
    });
    list.addEventListener("keydown", (event) => moveInList(event, list));
    source.need(0, most - 1);
    return { row, source, element };
  }
}

function moveInList(event, list) {
  const step = { ArrowDown: 1, ArrowUp: -1 }[event.key];
  const items = [...list.querySelectorAll(".main")];
  const at = items.findIndex((main) => main.closest("li").contains(document.activeElement));
  if (!step || at < 0) return;
  event.preventDefault();
  items[Math.max(0, Math.min(items.length - 1, at + step))].focus();
}
