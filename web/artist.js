// The page of an artist: the entries that the tree has for it, spread out.

import { setValue } from "./api.js";
import { Dialog, textPage } from "./dialog.js";
import { button, el, fill } from "./dom.js";
import { artistPart } from "./kinds.js";
import { pictureButton, PlaceView } from "./place.js";
import { playback } from "./playback.js";
import { plainText } from "./rowtext.js";
import { Shelf } from "./shelf.js";
import { t } from "./text.js";

const topTracks = 5;

export class ArtistView extends PlaceView {
  #shelves = [];
  #place;
  #bio = el("div", { class: "bio", hidden: true });
  #shown = "";

  constructor(path, state, scroller) {
    super(path, state, scroller);
    this.#place = state.place;
    this.showHead();
    this.source.need(0, 0);
  }

  close() {
    super.close();
    for (const shelf of this.#shelves) shelf.close();
  }

  get place() {
    return { scroll: this.scroller.scrollTop };
  }

  headParts() {
    const entry = (part) => this.source.rows.find((row) => artistPart(row.Path) === part)?.Path;
    const [tracks, radio] = [entry("toptracks"), entry("radio")];
    const buttons = [];
    const play = (name, label, path, kind) =>
      path && buttons.push(pictureButton(name, label, () => playback.play(path), kind));
    play("play", t("Play"), tracks, "primary");
    play("queue", t("Radio"), radio);
    if (this.item.menu) buttons.push(this.menuButton());
    const { title, icon: picture } = this.item;
    return { title, picture, buttons, key: [tracks, radio, this.item.menu] };
  }

  showRows() {
    const { rows } = this.source;
    const paths = rows.map((row) => row.Path).join();
    if (paths === this.#shown) return;
    this.#shown = paths;
    for (const shelf of this.#shelves) shelf.close();
    const lists = rows.filter((row) => row.Type === "Container" && artistPart(row.Path) !== "radio");
    this.#shelves = lists.map((row) => this.#shelf(row));
    fill(this.body, this.#bio, this.#shelves.map((shelf) => shelf.element));
    for (const shelf of this.#shelves) shelf.watch(this.scroller);
    this.scroller.scrollTop = this.#place?.scroll ?? this.scroller.scrollTop;
    this.#place = null;
    const bio = rows.find((row) => artistPart(row.Path) === "bio");
    if (bio) this.#readBio(bio);
  }

  #shelf(row) {
    const isTracks = artistPart(row.Path) === "toptracks";
    const rows = isTracks ? { kind: "rows", most: topTracks } : {};
    const shelf = new Shelf(row.Title, { path: row.Path, ...rows });
    shelf.tellTo(this);
    return shelf;
  }

  // Without an answer the page is as good without it.
  async #readBio(row) {
    const { reply } = await setValue(row.Path).catch(() => ({}));
    const text = plainText(reply?.result?.Description ?? "").trim();
    if (!text || this.ended.aborted) return;
    const words = el("p", {}, text.replace(/\n+/g, "\n"));
    const more = button(t("Read more"), () => this.#openBio(row.Title, text), "small");
    fill(this.#bio, words, more);
    this.#bio.hidden = false;
    more.hidden = words.scrollHeight <= words.clientHeight + 2;
  }

  #openBio(title, text) {
    new Dialog(null, "reading-dialog").push(textPage(title, text));
  }
}
