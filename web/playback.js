// The player's state and commands for all views.

import * as api from "./api.js";
import { live } from "./live.js";
import { withoutArtist } from "./rowtext.js";
import { t } from "./text.js";
import { clearToasts, toast, toastError } from "./toast.js";
import { lookForWaiting } from "./waiting.js";

const endsNotes = ["play", "resume", "stop"];
const repeats = ["off", "all", "one"];
const quiet = 30;

/** Events: "changed" when the state is another one. */
class Playback extends EventTarget {
  state = { state: "stopped" };
  #at = performance.now();
  #wantedVolume = null;
  #loud = quiet; // the volume before it was muted
  /** Since when the item's address is awaited; null while none is. */
  awaitedSince = null;

  start() {
    live.addEventListener("player", (event) => this.#take(event.detail));
  }

  get isPlaying() {
    return this.state.state === "playing";
  }

  get isActive() {
    return this.state.state !== "stopped" || Boolean(this.state.path);
  }

  /** Where the item is now, in milliseconds: between two reports time runs on. */
  get position() {
    const { positionMs = 0, durationMs = 0 } = this.state;
    const position = positionMs + (this.isPlaying ? performance.now() - this.#at : 0);
    return durationMs ? Math.min(position, durationMs) : position;
  }

  /** What the volume is, or will be as soon as the streamer has heard of it. */
  get volume() {
    return this.#wantedVolume ?? this.state.volume ?? 100;
  }

  /** Sends a command; a refusal is shown. True when it was done. */
  async send(command, body) {
    if (endsNotes.includes(command)) clearToasts();
    try {
      this.#take(await api.player(command, body));
      return true;
    } catch (error) {
      toastError(error);
      return false;
    }
  }

  /** Whether it is this row that plays or pauses, where it was seen. */
  isAt(path, { list, index }) {
    const { state } = this;
    return this.isActive && state.path === path && state.list === list && (state.index ?? index) === index;
  }

  /** Plays a row or a list; `place` is the {list, index} where a row was seen. */
  play(path, place = {}) {
    return this.send("play", { path, ...place });
  }

  /** Puts a row, or all of a list, into the queue: "next", or at the "end" of what was put in before. */
  async add(path, title, at) {
    try {
      await api.player("queue", { action: "add", path, at });
      const text = at === "next" ? t("Plays next: %1", title) : t("Added to the queue: %1", title);
      toast(text, this.isActive ? null : { title: t("Play"), run: () => this.toggle() });
    } catch (error) {
      toastError(error);
    }
  }

  toggle() {
    if (this.state.state === "playing") return this.send("pause");
    return this.send("resume");
  }

  shuffle() {
    return this.send("shuffle", { on: !this.state.shuffle });
  }

  /** From off to all, to one, to off. */
  repeat() {
    const next = repeats[(repeats.indexOf(this.state.repeat) + 1) % repeats.length];
    return this.send("repeat", { mode: next });
  }

  /** Goes so many milliseconds on in the item, or back. */
  seekBy(milliseconds) {
    const { durationMs = 0 } = this.state;
    if (!durationMs) return false;
    const positionMs = Math.round(Math.max(0, Math.min(this.position + milliseconds, durationMs - 1000)));
    this.#take({ ...this.state, positionMs });
    return this.send("seek", { positionMs });
  }

  /** Sets the volume. One call at a time; of what is wanted meanwhile only the latest counts. */
  async setVolume(percent) {
    const isSending = this.#wantedVolume !== null;
    this.#wantedVolume = Math.max(0, Math.min(100, percent));
    this.#tell();
    if (isSending) return;
    for (let sent = null; sent !== this.#wantedVolume; ) {
      sent = this.#wantedVolume;
      if (!(await this.send("volume", { percent: sent }))) break;
    }
    this.#wantedVolume = null;
    this.#tell();
  }

  toggleMute() {
    const { volume } = this;
    if (volume) this.#loud = volume;
    return this.setVolume(volume ? 0 : this.#loud);
  }

  #take(state) {
    // What was said before this page came is not news.
    if (state.note && this.state.volume !== undefined && state.note !== this.state.note) toast(state.note);
    this.state = state.title ? { ...state, title: withoutArtist(state.title, state.artist ?? "") } : state;
    this.#at = performance.now();
    this.awaitedSince = state.state === "resolving" ? (this.awaitedSince ?? this.#at) : null;
    if (!this.awaitedSince) lookForWaiting();
    this.#tell();
  }

  #tell() {
    this.dispatchEvent(new Event("changed"));
  }
}

export const playback = new Playback();
