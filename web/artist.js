// The page of an artist: the entries that the tree has for it, spread out.

import { setValue } from "./api.js";
import { Dialog, textPage } from "./dialog.js";
import { button, el, fill } from "./dom.js";
import { artistPart } from "./kinds.js";
import { pictureButton } from "./place.js";
import { playback } from "./playback.js";
import { plainText } from "./rowtext.js";
import { Shelf, ShelfView } from "./shelf.js";
import { t } from "./text.js";

const topTracks = 5;

export class ArtistView extends ShelfView {
  #bio = el("div", { class: "bio", hidden: true });
  #shown = "";
  #lists = [];

  constructor(path, state, scroller) {
    super(path, state, scroller);
    this.begin();
  }

  headParts() {
    const entry = (part) => this.source.rows.find((row) => artistPart(row.Path) === part)?.Path;
    const [tracks, radio] = [entry("toptracks"), entry("radio")];
    const buttons = [];
    const play = (name, label, path, kind) =>
      path && buttons.push(pictureButton(name, label, () => playback.play(path), kind));
    play("play", t("Play"), tracks, "primary");
    play("queue", t("Radio"), radio);
    buttons.push(...this.itemButtons());
    const { title, icon: picture } = this.item;
    return { title, picture, buttons, key: [tracks, radio, this.item.menu] };
  }

  showRows() {
    const { rows } = this.source;
    const paths = rows.map((row) => row.Path).join();
    if (paths === this.#shown && this.#bio.isConnected) return this.#lists.forEach((one) => one.refresh());
    this.#shown = paths;
    const lists = rows.filter((row) => row.Type === "Container" && artistPart(row.Path) !== "radio");
    this.#lists = lists.map((row) => this.#shelf(row));
    this.put(this.#lists, this.#bio);
    const bio = rows.find((row) => artistPart(row.Path) === "bio");
    return bio && this.#readBio(bio);
  }

  #shelf(row) {
    const isTracks = artistPart(row.Path) === "toptracks";
    const rows = isTracks ? { kind: "rows", most: topTracks, page: () => ({ artist: this.item.title }) } : {};
    return new Shelf(row.Title, { path: row.Path, ...rows });
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
    words.classList.toggle("cut", !more.hidden);
  }

  #openBio(title, text) {
    new Dialog(null, "reading-dialog").push(textPage(title, text));
  }
}
