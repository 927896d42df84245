// The player's state and commands for all views.

import * as api from "./api.js";
import { live } from "./live.js";
import { withoutArtist } from "./rowtext.js";
import { clearToasts, toast, toastError } from "./toast.js";
import { lookForWaiting } from "./waiting.js";

const endsNotes = ["play", "resume", "stop"];

/** Events: "changed" when the state is another one. */
class Playback extends EventTarget {
  state = { state: "stopped" };
  #at = performance.now();
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

  /** Plays a row or a list; `place` is the {list, index} where a row was seen. */
  play(path, place = {}) {
    return this.send("play", { path, ...place });
  }

  toggle() {
    if (this.state.state === "playing") return this.send("pause");
    return this.send("resume");
  }

  #take(state) {
    // What was said before this page came is not news.
    if (state.note && this.state.volume !== undefined && state.note !== this.state.note) toast(state.note);
    this.state = state.title ? { ...state, title: withoutArtist(state.title, state.artist ?? "") } : state;
    this.#at = performance.now();
    this.awaitedSince = state.state === "resolving" ? (this.awaitedSince ?? this.#at) : null;
    if (!this.awaitedSince) lookForWaiting();
    this.dispatchEvent(new Event("changed"));
  }
}

export const playback = new Playback();
