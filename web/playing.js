// What plays, large, and the queue: the rows that follow in the list which is played.

import { iconButton, cover, el, fill } from "./dom.js";
import { playButton, playingLinks, qualityText, seekBar, volumeBar } from "./bar.js";
import { item, skeleton } from "./items.js";
import { VirtualList } from "./list.js";
import { playback } from "./playback.js";
import { played } from "./played.js";
import { PlaceRows } from "./recent.js";
import { t } from "./text.js";
import { View } from "./view.js";
import { waitingLine } from "./waiting.js";

/** Events: "current" when a row of the queue has the focus. */
export class PlayingView extends View {
  #artist = el("p", { class: "playing-artist" });
  #album = el("p", { class: "subtitle" });
  #quality = el("p", { class: "quality" });
  #cover = el("div", { class: "playing-cover" });
  #queue = el("div", { class: "queue" });
  #source = null;
  #list = null;
  #shown = "";
  #shownLinks = "";
  #scroller;

  constructor(scroller) {
    super();
    this.#scroller = scroller;
    const command = (name, label) => iconButton(name, label, () => playback.send(name));
    const [previous, next] = [command("previous", t("Previous")), command("next", t("Next"))];
    const stop = command("stop", t("Stop"));
    const buttons = el("div", { class: "playing-buttons" }, previous, playButton(this.ended), next, stop);
    const about = [this.heading, this.#artist, this.#album, this.#quality];
    const controls = [seekBar(this.ended), buttons, volumeBar(this.ended)];
    const words = el("div", { class: "playing-words" }, about, controls);
    const playing = el("div", { class: "playing-item" }, this.#cover, words);
    const waiting = waitingLine(() => (this.#source ? [this.#source] : []));
    const queue = el("section", { class: "queue-part" }, el("h2", {}, t("Queue")), waiting, this.#queue);
    this.element = el("section", { class: "view playing-view" }, playing, queue);
    for (const what of [playback, played])
      what.addEventListener("changed", () => this.#show(), { signal: this.ended });
    this.#show();
  }

  close() {
    super.close();
    this.#dropQueue();
  }

  get title() {
    return t("Now playing");
  }

  get place() {
    return { scroll: this.#scroller.scrollTop };
  }

  #show() {
    const { title = "", icon: picture = "", path = "", list = "", index = -1 } = playback.state;
    this.#quality.textContent = qualityText(playback.state);
    const links = JSON.stringify([title, list, index, played.row, played.list]);
    if (links !== this.#shownLinks) this.#showLinks();
    this.#shownLinks = links;
    const key = [path, picture, list, index, playback.isPlaying].join("\n");
    if (key === this.#shown) return;
    this.#shown = key;
    fill(this.#cover, cover(picture, title || "♪"));
    this.#showQueue(list, index);
  }

  #showLinks() {
    const { title, artist, album } = playingLinks();
    fill(this.heading, title || t("Nothing plays"));
    fill(this.#artist, artist);
    fill(this.#album, album);
  }

  #showQueue(path, index) {
    if (!path) {
      this.#dropQueue();
      const text = t("Play an album, a playlist or a track: what follows stands here.");
      return fill(this.#queue, el("p", { class: "empty" }, text));
    }
    if (this.#source?.path !== path) {
      this.#dropQueue();
      this.#source = new PlaceRows(path, () => this.#update());
      this.#list = new VirtualList(
        this.#scroller,
        t("Queue"),
        (at) => this.#make(at),
        (at) => this.#contentOf(at + this.first),
        (from, to) => this.#source.need(from + this.first, to + this.first),
      );
      this.#list.element.addEventListener("current", ({ detail }) =>
        this.tellRow(this.#source.row(detail + this.first)),
      );
      fill(this.#queue, this.#list.element);
    }
    this.first = Math.max(0, index);
    this.#source.need(this.first, this.first + 20);
    this.#update();
  }

  #update() {
    if (this.#source.isLoaded) this.#list.update("rows", Math.max(0, this.#source.count - this.first));
  }

  #contentOf(index) {
    return [index === playback.state.index, playback.isPlaying, this.#source.row(index)];
  }

  #make(at) {
    const index = at + this.first;
    const row = this.#source.row(index);
    return row ? item(row, "rows", this.#source.path, index) : skeleton("rows");
  }

  #dropQueue() {
    this.#source?.close();
    this.#list?.close();
    this.#source = this.#list = null;
  }
}
