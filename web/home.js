// The first view: shelves of what was played, what the listener loves and what is new.

import { button, cover, el, fill, icon, twoLines } from "./dom.js";
import { places } from "./kinds.js";
import { go, onPlainClick } from "./nav.js";
import { home, linkTo, loginPath } from "./path.js";
import { playback } from "./playback.js";
import { played } from "./played.js";
import { PlaceRows } from "./recent.js";
import { Shelf } from "./shelf.js";
import { t } from "./text.js";
import { View } from "./view.js";
import { waitingLine } from "./waiting.js";

const shelves = () => [
  [t("Favorite albums"), places.myAlbums],
  [t("Your playlists"), places.myPlaylists],
  [t("Favorite playlists"), places.lovedPlaylists],
  [t("Just in"), places.newAlbums],
  [t("Recommended"), places.recommendedAlbums],
  [t("Recommended playlists"), places.recommendedPlaylists],
  [t("Moods"), places.moods],
];

export class HomeView extends View {
  #source;
  #scroller;
  #place;
  #shelves = [];
  #recent = null;
  #continue = el("section", { class: "shelf", hidden: true });
  #chips = el("ul", { class: "chips" });
  #body = el("div", { class: "view-body" });

  constructor({ place }, scroller) {
    super();
    this.#place = place;
    this.#scroller = scroller;
    this.heading.textContent = t("Home");
    this.#source = new PlaceRows(home, () => this.#update());
    this.#source.addEventListener("call", ({ detail }) => this.tell("call", detail));
    const awaited = () => [this.#source, ...this.#shelves.map((shelf) => shelf.source)].filter(Boolean);
    const waiting = waitingLine(awaited);
    this.element = el("section", { class: "view home" }, this.heading, waiting, this.#body);
    const signal = this.ended;
    for (const what of [playback, played])
      what.addEventListener("changed", () => this.#showPlayed(), { signal });
    this.#source.need(0, 0);
  }

  close() {
    super.close();
    this.#source.close();
    this.#closeShelves();
  }

  get place() {
    return { scroll: this.#scroller.scrollTop };
  }

  #closeShelves() {
    for (const shelf of this.#shelves) shelf.close();
    this.#shelves = [];
    this.#recent = null;
  }

  #update() {
    const { rows, error, isLoaded } = this.#source;
    if (!isLoaded) return;
    const login = rows.find((row) => row.Path === loginPath);
    if (login || (error && !rows.length)) {
      this.#closeShelves();
      if (login) this.#welcome(login, rows);
      else this.#showError(error);
      return;
    }
    const lists = rows.filter((row) => row.Type === "Container" && row.Path);
    if (!lists.length) return;
    fill(this.#chips, lists.map((row) => this.#chip(row)));
    if (!this.#shelves.length) this.#showShelves();
  }

  #chip({ Path, Title }) {
    const link = el("a", { class: "button small", href: linkTo(Path) }, Title);
    onPlainClick(link, () => go(Path, null, true));
    return el("li", {}, link);
  }

  #showShelves() {
    this.heading.textContent = t("Home");
    this.#recent = new Shelf(t("Recently played"));
    this.#shelves = [this.#recent, ...shelves().map(([title, path]) => new Shelf(title, { path }))];
    this.#showPlayed();
    fill(this.#body, this.#chips, this.#continue, this.#shelves.map((shelf) => shelf.element));
    for (const shelf of this.#shelves) {
      shelf.tellTo(this);
      if (shelf !== this.#recent) shelf.watch(this.#scroller);
    }
    if (this.#place) this.#scroller.scrollTop = this.#place.scroll;
    this.#place = null;
  }

  // What played last stands on top while nothing plays.
  #showPlayed() {
    const { lists } = played;
    const [last] = lists;
    this.#recent?.show(lists.map((one) => one.row));
    this.#continue.hidden = !last || playback.isPlaying;
    if (this.#continue.hidden) return;
    const { path, list, index, title, artist, icon: picture } = last.at;
    const isHere = playback.isActive && playback.state.path === path;
    const run = () => (isHere ? playback.toggle() : playback.play(path, { list, index }));
    const from = [artist, last.row.Title].filter(Boolean).join(" · ");
    const inside = [cover(picture, title), twoLines(title, from), el("span", { class: "round" }, icon("play"))];
    const properties = { type: "button", class: "continue", "aria-label": t("Continue with %1", title) };
    const card = el("button", { ...properties, on: { click: run } }, inside);
    fill(this.#continue, el("h2", {}, t("Continue")), card);
  }

  #welcome(login, rows) {
    this.heading.textContent = rows.find((row) => row.Type === "Text")?.Title ?? t("Log in");
    const link = el("a", { class: "button primary large", href: linkTo(loginPath) }, login.Title);
    onPlainClick(link, () => go(loginPath));
    const why = el("p", {}, t("To play music, connect the streamer to your account."));
    fill(this.#body, el("div", { class: "welcome" }, why, link));
  }

  #showError({ message }) {
    const again = button(t("Try again"), () => this.#source.reload());
    fill(this.#body, el("div", { class: "empty", role: "alert" }, el("p", {}, message), again));
  }
}
