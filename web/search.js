// Search as one types: the best hit, and a shelf for each kind that the tree offers.

import { getData, getRows } from "./api.js";
import { el, fill } from "./dom.js";
import { failure } from "./failure.js";
import { plain } from "./filter.js";
import { item, skeleton } from "./items.js";
import { kindOf } from "./kinds.js";
import { VirtualList } from "./list.js";
import { baseOf, home, parsePath, startPath, withParameter } from "./path.js";
import { kindNames } from "./place.js";
import { PlaceRows } from "./recent.js";
import { titleOf } from "./rowtext.js";
import { Shelf } from "./shelf.js";
import { t } from "./text.js";
import { View } from "./view.js";
import { waitingLine } from "./waiting.js";

const inOrder = ["artists", "albums", "tracks", "playlists"];
const mostRecent = 8;

let found = null;
let kinds = []; // the rows of the last search: one for each kind

/** Where the tree answers searches: {path, parameter}; null while nobody is logged in. */
async function searchPlace() {
  if (found) return found;
  const { SearchPath } = (await getRows(startPath(), 0, 0)).roles;
  if (!SearchPath) return null;
  // It is a question itself, or a list that begins with one.
  let { data } = await getData(SearchPath);
  if (!data.QueryPath) {
    const [node] = (await getRows(SearchPath, 0, 0)).rows;
    if (!node?.Path) return null;
    data = node.QueryPath ? node : (await getData(node.Path)).data;
  }
  found = data.QueryPath ? { path: data.QueryPath, parameter: data.Query } : null;
  return found;
}

/** Forgets what the tree offered: somebody logged in or out. */
export function forgetSearchPlace() {
  found = null;
  kinds = [];
}

/** The address of a search, or null when the tree offers none. */
export async function searchPath(text) {
  const place = await searchPlace();
  return place && withParameter(place.path, place.parameter, text);
}

const queryBase = "/search/choose";

/** The text that a path searches for; null when it is no search, or one whose rows are no lists of kinds. */
export function searchedText(path) {
  const { base, parameters } = parsePath(path);
  const place = found ? parsePath(found.path).base : home + queryBase;
  return base === place && startPath() === home ? (parameters.get(found?.parameter ?? "query") ?? "") : null;
}

const nameOf = (row) => baseOf(row.Path).split("/").pop();

const recentSearches = () => JSON.parse(localStorage.getItem("searches") ?? "[]");

/** Keeps what was searched for with success, for another time. */
export function rememberSearch(text) {
  const others = recentSearches().filter((one) => one !== text);
  localStorage.setItem("searches", JSON.stringify([text, ...others].slice(0, mostRecent)));
}

/** The recent searches as buttons; null where there are none. `run` is told the one that is taken. */
export function recentList(run) {
  const texts = recentSearches();
  if (!texts.length) return null;
  const clear = () => (localStorage.removeItem("searches"), list.remove());
  const entry = (text, click, kind) => el("button", { type: "button", class: kind, on: { click } }, text);
  const entries = texts.map((text) => el("li", {}, entry(text, () => run(text), "button")));
  const end = el("li", {}, entry(t("Clear"), clear, "link"));
  const list = el("ul", { class: "recent", "aria-label": t("Recent searches") }, entries, end);
  return list;
}

// How well a title fits: whole, from its beginning, from the beginning of a word, or anyhow.
function fitOf(row, text) {
  const [title, wanted] = [plain(titleOf(row)), plain(text.trim())];
  if (title === wanted) return 3;
  if (title.startsWith(wanted)) return 2;
  return ` ${title}`.includes(` ${wanted}`) ? 1 : 0;
}

/** The results for a path of the tree whose rows are the kinds. */
export class SearchView extends View {
  #source = null; // of the kinds, while they are not known
  #shelves = [];
  #list = null;
  #only = "";
  #hits = new Map(); // by kind the first of its rows
  #chips = el("div", { class: "search-chips", role: "group", "aria-label": t("Kinds") });
  #body = el("div", { class: "results" });

  constructor(path, text, scroller) {
    super();
    this.scroller = scroller;
    this.heading.className = "visually-hidden";
    const sources = () => [this.#source, ...this.#shelves.map((shelf) => shelf.source)].filter(Boolean);
    const parts = [this.heading, this.#chips, waitingLine(sources), this.#body];
    this.element = el("section", { class: "view search wide" }, parts);
    this.#body.addEventListener("click", (event) => {
      if (event.target.closest("li, .link")) rememberSearch(this.text);
    });
    this.look(path, text);
  }

  close() {
    super.close();
    this.#end();
  }

  #end() {
    this.#source?.close();
    this.#list?.close();
    for (const shelf of this.#shelves) shelf.close();
    this.#source = this.#list = null;
    this.#shelves = [];
  }

  /** Looks for another text; what was found before stays until there is something new. */
  look(path, text) {
    this.path = path;
    this.text = text.trim();
    this.heading.textContent = text ? t("Search: %1", text) : t("Search");
    this.#end();
    if (!this.text) {
      const words = t("Type what you look for: an artist, an album, a track, a playlist.");
      fill(this.#chips);
      const recent = recentList((one) => this.tell("search", one));
      return fill(this.#body, el("p", { class: "empty" }, words), recent);
    }
    const pathOf = (row) => withParameter(row.Path, found?.parameter ?? "query", this.text);
    kinds = kinds.map((row) => ({ ...row, Path: pathOf(row) }));
    if (kinds.length) return this.#show();
    this.#source = new PlaceRows(path, () => this.#takeKinds());
    return this.#source.need(0, 20);
  }

  #takeKinds() {
    const { error, rows } = this.#source;
    if (error) return fill(this.#body, failure(this.#source));
    kinds = inOrder.map((name) => rows.find((row) => nameOf(row) === name)).filter(Boolean);
    return this.#show();
  }

  #show() {
    const chip = (name, title) => {
      const choose = () => ((this.#only = name), this.#end(), this.#show());
      const isPressed = String(name === this.#only);
      const shared = { type: "button", class: "button small", on: { click: choose } };
      return el("button", { ...shared, "aria-pressed": isPressed }, title);
    };
    const focused = [...this.#chips.children].indexOf(document.activeElement);
    fill(this.#chips, chip("", t("All")), kinds.map((row) => chip(nameOf(row), row.Title)));
    this.#chips.children[focused]?.focus();
    const only = kinds.find((row) => nameOf(row) === this.#only);
    return only ? this.#showOnly(only) : this.#showAll();
  }

  #showOnly(row) {
    const kind = this.#only === "tracks" ? "rows" : "grid";
    const source = (this.#source = new PlaceRows(row.Path, () => {
      if (source.error && !source.count) return fill(this.#body, failure(source));
      if (!list.element.isConnected) fill(this.#body, list.element);
      list.update(kind, source.count);
      return this.dispatchEvent(new Event("loaded"));
    }));
    const make = (index) => {
      const hit = source.row(index);
      return hit ? item(hit, kind, row.Path, index) : skeleton(kind);
    };
    const need = (from, to) => source.need(from, to);
    const list = new VirtualList(this.scroller, row.Title, make, (index) => source.row(index), need);
    list.element.addEventListener("current", (event) => this.tellRow(source.row(event.detail)));
    this.#list = list;
    source.need(0, 0);
  }

  #showAll() {
    this.#hits.clear();
    const best = el("ul", { class: "plain-list best", "aria-label": t("Best hit") }, skeleton("rows"));
    const words = t("Nothing was found for “%1”.", this.text);
    const nothing = el("p", { class: "empty", hidden: true }, words);
    this.#shelves = kinds.map((row) => {
      const look = nameOf(row) === "tracks" ? { kind: "rows", most: 5 } : {};
      const shelf = new Shelf(row.Title, { path: row.Path, ...look });
      for (const type of ["current", "call"])
        shelf.addEventListener(type, ({ detail }) => this.tell(type, detail));
      shelf.read();
      shelf.source.addEventListener("changed", () => {
        this.#hits.set(row, shelf.source.rows.filter((one) => one.Id));
        this.#showBest(best, nothing);
      });
      return shelf;
    });
    const elements = [best, nothing, this.#shelves.map((shelf) => shelf.element)];
    // What is there from the search before is better to look at than what is not there yet.
    const isFirst = !this.#body.querySelector(".best");
    this.#replace = () => fill(this.#body, elements);
    if (isFirst) this.#replace();
  }

  #replace = () => {};

  #showBest(place, nothing) {
    if (this.#hits.size < kinds.length) return;
    this.#replace();
    this.#replace = () => {};
    const hitsOf = (kind) => this.#hits.get(kind).map((row, index) => ({ kind, row, index }));
    const hits = kinds.flatMap(hitsOf);
    const [best] = hits.sort((one, other) => fitOf(other.row, this.text) - fitOf(one.row, this.text));
    place.hidden = !best;
    nothing.hidden = Boolean(best);
    if (best) fill(place, item(best.row, "rows", best.kind.Path, best.index));
    const subtitle = best && place.querySelector(".subtitle");
    const kind = best && { "": t("Track"), ...kindNames() }[kindOf(best.row.Path)];
    subtitle?.prepend(kind, subtitle.textContent ? " · " : "");
    this.dispatchEvent(new Event("loaded"));
  }
}
