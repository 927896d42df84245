// Search as one types, in one module at a time: the best hit and a shelf for each kind that it offers, or
// else the rows that it answers with.

import { getData, getRows, pageSize } from "./api.js";
import { el, fill } from "./dom.js";
import { failure } from "./failure.js";
import { plain } from "./filter.js";
import { item, skeleton } from "./items.js";
import { kindOf } from "./kinds.js";
import { VirtualList } from "./list.js";
import {
  baseOf,
  home,
  modules,
  parsePath,
  searches,
  setModules,
  startPath,
  topOf,
  withoutParameters,
  withParameter,
} from "./path.js";
import { kindNames } from "./place.js";
import { playback } from "./playback.js";
import { PlaceRows } from "./recent.js";
import { titleOf } from "./rowtext.js";
import { isShown, Shelf } from "./shelf.js";
import { t } from "./text.js";
import { View } from "./view.js";
import { waitingLine } from "./waiting.js";

const inOrder = ["artists", "albums", "tracks", "playlists"];
const mostRecent = 8;
const pictureShare = 0.5;

// Where searches are answered, and by which rows of kinds the last one was: {path, parameter, kinds}, by the
// SearchPath that told it; null where that led to no question.
const places = new Map();
// That of the service, until it has told.
const homePlace = { path: `${home}/search/choose`, parameter: "query", kinds: [] };
const tried = new Set(); // those that failed
let isStale = false;

/** Who offers search may be others: somebody logged in or out. */
export function forgetSearches() {
  isStale = true;
  for (const place of [homePlace, ...places.values()]) if (place) place.kinds = [];
}

/** Asks who offers search, unless the only module does. */
export async function findSearches() {
  if (!isStale && searches.size && modules.size === 1) return;
  setModules((await getRows("/", 0, pageSize - 1)).rows);
  isStale = false;
}

/** The module whose search is asked at a path: the one that it is in, else the first that offers one. */
export function askedAt(path) {
  return [topOf(path), startPath(), ...searches.keys()].find((top) => searches.has(top));
}

async function searchPlace(top) {
  const at = searches.get(top);
  if (!at || places.has(at)) return places.get(at);
  // It is a question itself, or a list that begins with one.
  let { data } = await getData(at);
  if (!data.QueryPath) {
    const [node = {}] = (await getRows(at, 0, 0)).rows;
    data = node.QueryPath || !node.Path ? node : (await getData(node.Path)).data;
  }
  const { QueryPath: path, Query: parameter } = data;
  places.set(at, path ? { path, parameter, kinds: [] } : null);
  return places.get(at);
}

/** The address of a search from a path on; nothing when no module offers one. */
export async function searchPath(text, from) {
  if (isStale || !searches.size) await findSearches();
  const place = await searchPlace(askedAt(from));
  return place && withParameter(place.path, place.parameter, text);
}

const placeAt = (top) => places.get(searches.get(top)) ?? (top === home ? homePlace : null);

/** Asks whether a path is a search, where that is not known yet; null where it is. */
export function learnSearch(path) {
  const top = topOf(path);
  const at = searches.get(top);
  const isKnown = placeAt(top) || !at || tried.has(at) || !path.includes("?");
  return isKnown ? null : searchPlace(top).catch(() => tried.add(at));
}

/** The text that a path searches for; null when it is no search. */
export function searchedText(path) {
  const top = topOf(path);
  const place = placeAt(top);
  if (!place) return null;
  const listOf = (one) => withoutParameters(one, [place.parameter]);
  const none = top === home ? "" : null;
  if (listOf(path) !== listOf(place.path)) return null;
  return parsePath(path).parameters.get(place.parameter) ?? none;
}

const nameOf = ({ Path = "" }) => baseOf(Path).split("/").pop();

// The lists of one kind each that a search is answered with; none where its rows are what was found.
function kindsOf(rows) {
  const isKind = (row) => row.Type === "Container" && !row.Id && inOrder.includes(nameOf(row));
  const kinds = inOrder.map((name) => rows.find((row) => nameOf(row) === name)).filter(Boolean);
  return rows.every(isKind) && kinds.length === rows.length ? kinds : [];
}

const chipGroup = (label, kind = "") =>
  el("div", { class: `search-chips ${kind}`, role: "group", "aria-label": label });

const chip = (title, isPressed, click) => {
  const shared = { type: "button", class: "button small", on: { click } };
  return el("button", { ...shared, "aria-pressed": String(isPressed) }, title);
};

// The chip at the place of the one that had the focus has it then.
function fillChips(group, chips) {
  const focused = [...group.children].indexOf(document.activeElement);
  fill(group, chips);
  group.children[focused]?.focus();
}

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

/** The results for a path of the tree whose rows are the kinds, or what was found. */
export class SearchView extends View {
  #source = null; // of the kinds, while they are not known
  #shelves = [];
  #list = null;
  #only = "";
  #top = "";
  #place = homePlace;
  #kinds = []; // that are shown; those of the place go with a login
  #mark = () => {}; // shows in the list what plays
  #hits = new Map(); // by kind the first of its rows
  #modules = chipGroup(t("Where to search"), "search-modules");
  #hint = el("p", { class: "hint" });
  #chips = chipGroup(t("Kinds"));
  #body = el("div", { class: "results" });

  constructor(path, text, scroller) {
    super();
    this.scroller = scroller;
    this.heading.className = "visually-hidden";
    const sources = () => [this.#source, ...this.#shelves.map((shelf) => shelf.source)].filter(Boolean);
    const parts = [this.heading, this.#modules, this.#hint, this.#chips, waitingLine(sources), this.#body];
    this.element = el("section", { class: "view search wide" }, parts);
    this.#body.addEventListener("click", (event) => {
      if (event.target.closest("li, .link")) rememberSearch(this.text);
    });
    playback.addEventListener("changed", () => this.#mark(), { signal: this.ended });
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
    this.#mark = () => {};
  }

  /** Looks for another text; what was found before stays until there is something new. */
  look(path, text) {
    this.path = path;
    this.text = text.trim();
    this.heading.textContent = text ? t("Search: %1", text) : t("Search");
    this.#end();
    this.#showModules(topOf(path));
    if (!this.text) {
      const words = t("Type what you look for: an artist, an album, a track, a playlist.");
      fill(this.#chips);
      const recent = recentList((one) => this.tell("search", [one]));
      return fill(this.#body, el("p", { class: "empty" }, words), recent);
    }
    const place = this.#place;
    const pathOf = (row) => withParameter(row.Path, place.parameter, this.text);
    place.kinds = place.kinds.map((row) => ({ ...row, Path: pathOf(row) }));
    if (place.kinds.length) return this.#show();
    this.#source = new PlaceRows(path, () => this.#takeKinds());
    return this.#source.need(0, 20);
  }

  // Which module is asked, where there is a choice; what another one has found is gone.
  #showModules(top) {
    if (this.#top && top !== this.#top) fill(this.#body);
    this.#top = top;
    this.#place = placeAt(top);
    const all = this.text ? [...new Set([startPath(), top, ...searches.keys()])] : [];
    const tops = all.filter((one) => one === top || searches.has(one));
    const chipOf = (one) => chip(modules.get(one), one === top, () => this.tell("search", [this.text, one]));
    fillChips(this.#modules, tops.length > 1 ? tops.map(chipOf) : []);
    const isOnly = tops.length === 1 && top !== startPath();
    fill(this.#hint, isOnly ? t("Only %1 can be searched now.", modules.get(top)) : null);
  }

  #takeKinds() {
    const { error, rows } = this.#source;
    if (error) return fill(this.#body, failure(this.#source));
    this.#place.kinds = kindsOf(rows);
    return this.#show();
  }

  #show() {
    const kinds = (this.#kinds = this.#place.kinds);
    const chipOf = (name, title) =>
      chip(title, name === this.#only, () => ((this.#only = name), this.#end(), this.#show()));
    const chips = [chipOf("", t("All")), ...kinds.map((row) => chipOf(nameOf(row), row.Title))];
    fillChips(this.#chips, kinds.length ? chips : []);
    if (!kinds.length) return this.#showOnly({ Path: this.path, Title: this.title });
    const only = kinds.find((row) => nameOf(row) === this.#only);
    return only ? this.#showOnly(only) : this.#showAll();
  }

  #nothing(properties = {}) {
    return el("p", { class: "empty", ...properties }, t("Nothing was found for “%1”.", this.text));
  }

  #showOnly(row) {
    this.#end();
    let kind = this.#only === "tracks" ? "rows" : "grid";
    const source = (this.#source = new PlaceRows(row.Path, () => {
      if (source.error && !source.count) return fill(this.#body, failure(source));
      if (!source.count) return fill(this.#body, this.#nothing());
      const pictures = source.rows.filter((one) => one.Type === "Container" && one.Icon).length;
      if (!this.#kinds.length) kind = pictures > source.rows.length * pictureShare ? "grid" : "rows";
      if (!list.element.isConnected) fill(this.#body, list.element);
      list.update(kind, source.count);
      return this.dispatchEvent(new Event("loaded"));
    }));
    const make = (index) => {
      const hit = source.row(index);
      return hit ? item(hit, kind, row.Path, index) : skeleton(kind);
    };
    const need = (from, to) => source.need(from, to);
    const isPlayed = (hit) => hit?.Path === playback.state.path && playback.isPlaying;
    const content = (index) => [source.row(index), isPlayed(source.row(index))];
    const list = new VirtualList(this.scroller, row.Title, make, content, need);
    list.element.addEventListener("current", (event) => this.tellRow(source.row(event.detail)));
    this.#list = list;
    this.#mark = () => source.isLoaded && list.update(kind, source.count);
    source.need(0, 0);
  }

  #showAll() {
    this.#hits.clear();
    const best = el("ul", { class: "plain-list best", "aria-label": t("Best hit") }, skeleton("rows"));
    const kinds = this.#kinds;
    const nothing = this.#nothing({ hidden: true });
    this.#shelves = kinds.map((row) => {
      const look = nameOf(row) === "tracks" ? { kind: "rows", most: 5 } : {};
      const shelf = new Shelf(row.Title, { path: row.Path, ...look });
      for (const type of ["current", "call"])
        shelf.addEventListener(type, ({ detail }) => this.tell(type, detail));
      shelf.read();
      shelf.source.addEventListener("changed", () => {
        this.#hits.set(row, shelf.source.rows.filter(isShown));
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
    const kinds = this.#kinds;
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
    const kind = best && (best.row.Type === "Audio" ? t("Track") : kindNames()[kindOf(best.row.Path)]);
    if (kind) subtitle.prepend(kind, subtitle.textContent ? " · " : "");
    this.dispatchEvent(new Event("loaded"));
  }
}
