// The first view: shelves of what was played, what the listener loves and what is new.

import { cover, el, fill, icon, twoLines } from "./dom.js";
import { places } from "./kinds.js";
import { go, onPlainClick } from "./nav.js";
import { home, linkTo, otherModules, serviceAt } from "./path.js";
import { playback } from "./playback.js";
import { played } from "./played.js";
import { Shelf, ShelfView } from "./shelf.js";
import { t } from "./text.js";

const shelves = () => [
  [t("Favorite albums"), places.myAlbums],
  [t("Your playlists"), places.myPlaylists],
  [t("Favorite playlists"), places.lovedPlaylists],
  [t("Just in"), places.newAlbums],
  [t("Recommended"), places.recommendedAlbums],
  [t("Recommended playlists"), places.recommendedPlaylists],
  [t("Moods"), places.moods],
];

export class HomeView extends ShelfView {
  #login = null;
  #recent = null;
  #continue = el("section", { class: "shelf", hidden: true });
  #chips = el("ul", { class: "chips" });

  constructor(state, scroller) {
    super(home, state, scroller);
    for (const what of [playback, played])
      what.addEventListener("changed", () => this.#showPlayed(), { signal: this.ended });
    this.begin();
  }

  headParts() {
    const please = this.#login && this.source.rows.find((row) => row.Type === "Text");
    return { title: please?.Title ?? t("Home"), buttons: [] };
  }

  showRows() {
    const { rows } = this.source;
    const lists = rows.filter((row) => row.Type === "Container" && row.Path);
    this.#login = rows.find((row) => serviceAt(row.Path));
    this.showHead();
    if (this.#login) return this.#welcome();
    fill(this.#chips, [...lists, ...otherModules()].map((row) => this.#chip(row)));
    if (this.#chips.isConnected || !lists.length) return undefined;
    this.#recent = new Shelf(t("Recently played"));
    this.#showPlayed();
    const all = [this.#recent, ...shelves().map(([title, path]) => new Shelf(title, { path }))];
    return this.put(all, this.#chips, this.#continue);
  }

  #chip({ Path, Title }) {
    const link = el("a", { class: "button small", href: linkTo(Path) }, Title);
    onPlainClick(link, () => go(Path, null, true));
    return el("li", {}, link);
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
    const card = el("button", { type: "button", class: "continue", on: { click: run } }, inside);
    fill(this.#continue, el("h2", {}, t("Continue")), card);
  }

  #welcome() {
    const { Path, Title } = this.#login;
    const link = el("a", { class: "button primary large", href: linkTo(Path) }, Title);
    onPlainClick(link, () => go(Path));
    const why = el("p", {}, t("To play music, connect the streamer to your account."));
    this.put([], el("div", { class: "welcome" }, why, link));
  }
}
