// What plays, large, and the queue. On a phone or tablet it is a sheet over all, with the queue as its second
// page.

import { boxOf, cover, el, fill, iconButton } from "./dom.js";
import { orderButtons, playButton, playingLinks, qualityText, seekBar, volumeBar } from "./bar.js";
import { heartOfPlaying } from "./favorites.js";
import { openMenu } from "./menu.js";
import { leave, replace } from "./nav.js";
import { playback } from "./playback.js";
import { played } from "./played.js";
import { listLine, QueueList } from "./queue.js";
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
  #queue;
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
    this.#queue = new QueueList(scroller, (row) => this.tellRow(row));
    const command = (name, label) => iconButton(name, label, () => playback.send(name));
    const [previous, next] = [command("previous", t("Previous")), command("next", t("Next"))];
    const stop = command("stop", t("Stop"));
    this.#commands = [previous, next, stop];
    const [shuffle, repeat] = orderButtons(this.ended);
    const play = playButton(this.ended);
    const buttons = el("div", { class: "playing-buttons" }, shuffle, previous, play, next, repeat);
    const side = el("div", { class: "playing-side" }, stop, volumeBar(this.ended), this.#more);
    const lines = el("div", {}, this.heading, this.#artist, this.#album, this.#quality);
    const about = el("div", { class: "playing-about" }, lines, heartOfPlaying(this.ended));
    const awaited = waitingLine(() => [playback, ...this.#queue.awaited]);
    const words = el("div", { class: "playing-words" }, about, awaited, seekBar(this.ended), buttons, side);
    const playing = el("div", { class: "playing-item" }, this.#cover, words);
    const queue = el("section", { class: "queue-part" }, this.#queueHeading, this.#queue.element);
    const data = { page: this.#isQueue ? "queue" : "playing" };
    this.element = el("section", { class: "view playing-view", data }, this.#head(), playing, queue);
    for (const what of [playback, played])
      what.addEventListener("changed", () => this.#show(), { signal: this.ended });
    this.#show();
  }

  close() {
    super.close();
    this.#queue.close();
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
    const { title = "", icon: picture = "", path = "", list = "", index = -1, listTitle } = playback.state;
    for (const button of this.#commands) button.disabled = !playback.isActive;
    this.#quality.textContent = qualityText(playback.state);
    const links = JSON.stringify([title, list, index, listTitle, played.row, played.list]);
    if (links !== this.#shownLinks) this.#showLinks();
    this.#shownLinks = links;
    const key = [path, picture].join("\n");
    if (key === this.#shown) return;
    this.#shown = key;
    fill(this.#cover, cover(picture, title || "♪", "album"));
  }

  #showLinks() {
    const { title, artist, album } = playingLinks();
    fill(this.heading, title || t("Nothing plays"));
    fill(this.#artist, artist);
    fill(this.#album, album);
    const { list, listTitle } = playback.state;
    fill(this.#from, listLine(t("Playing from %1"), list, listTitle));
    this.#more.hidden = !played.row?.Context;
  }
}
