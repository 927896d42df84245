// What plays, large, and the queue. On a phone or tablet it is a sheet over all, with the queue as its second
// page.

import { boxOf, cover, el, fill, iconButton } from "./dom.js";
import { playButton, playingLinks, qualityText, seekBar, volumeBar } from "./bar.js";
import { heartOfPlaying } from "./favorites.js";
import { item, skeleton } from "./items.js";
import { VirtualList } from "./list.js";
import { openMenu } from "./menu.js";
import { leave, replace } from "./nav.js";
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
  #from = el("p", { class: "playing-from" });
  #more = iconButton("more", t("More"), (event) => openMenu(played.row, boxOf(event)));
  #queueHeading = el("h2", { tabindex: "-1" }, t("Queue"));
  #queue = el("div", { class: "queue" });
  #source = null;
  #list = null;
  #isQueue;
  #commands;
  #shown = "";
  #shownLinks = "";
  #scroller;

  /** The path is "!playing" or "!queue": the page that a phone shows. */
  constructor(path, scroller) {
    super();
    this.#scroller = scroller;
    this.#isQueue = path === "!queue";
    const command = (name, label) => iconButton(name, label, () => playback.send(name));
    const [previous, next] = [command("previous", t("Previous")), command("next", t("Next"))];
    const stop = command("stop", t("Stop"));
    this.#commands = [previous, next, stop];
    const play = playButton(this.ended);
    const buttons = el("div", { class: "playing-buttons" }, previous, play, next);
    const side = el("div", { class: "playing-side" }, stop, volumeBar(this.ended), this.#more);
    const lines = el("div", {}, this.heading, this.#artist, this.#album, this.#quality);
    const about = el("div", { class: "playing-about" }, lines, heartOfPlaying(this.ended));
    const awaited = waitingLine(() => [playback, ...(this.#source ? [this.#source] : [])]);
    const words = el("div", { class: "playing-words" }, about, awaited, seekBar(this.ended), buttons, side);
    const playing = el("div", { class: "playing-item" }, this.#cover, words);
    const queue = el("section", { class: "queue-part" }, this.#queueHeading, this.#queue);
    const data = { page: this.#isQueue ? "queue" : "playing" };
    this.element = el("section", { class: "view playing-view", data }, this.#head(), playing, queue);
    for (const what of [playback, played])
      what.addEventListener("changed", () => this.#show(), { signal: this.ended });
    this.#show();
  }

  close() {
    super.close();
    this.#dropQueue();
  }

  focus() {
    super.focus();
    if (document.activeElement !== this.heading) this.#queueHeading.focus({ preventScroll: true });
  }

  // What leads out of the sheet and to its other page.
  #head() {
    const [name, label, path] = this.#isQueue
      ? ["playing", t("Now playing"), "!playing"]
      : ["queue", t("Queue"), "!queue"];
    const other = iconButton(name, label, () => replace(path));
    return el("header", { class: "sheet-head" }, iconButton("down", t("Close"), leave), this.#from, other);
  }

  get title() {
    return t("Now playing");
  }

  get place() {
    return { scroll: this.#scroller.scrollTop };
  }

  #show() {
    const { title = "", icon: picture = "", path = "", list = "", index = -1 } = playback.state;
    for (const button of this.#commands) button.disabled = !playback.isActive;
    this.#quality.textContent = qualityText(playback.state);
    const links = JSON.stringify([title, list, index, played.row, played.list]);
    if (links !== this.#shownLinks) this.#showLinks();
    this.#shownLinks = links;
    const key = [path, picture, list, index, playback.isPlaying].join("\n");
    if (key === this.#shown) return;
    this.#shown = key;
    fill(this.#cover, cover(picture, title || "♪", "album"));
    this.#showQueue(list, index);
  }

  #showLinks() {
    const { title, artist, album } = playingLinks();
    fill(this.heading, title || t("Nothing plays"));
    fill(this.#artist, artist);
    fill(this.#album, album);
    this.#more.hidden = !played.row?.Context;
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
