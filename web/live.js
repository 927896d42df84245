// The one event stream of the page. It keeps the paths that views have open, and heals by itself.
// Events: "rows", "acted", "player", "login", "request", "waiting" with the data as `detail`; "state" with a
// boolean: connected or not.

import { forgetSession, openPaths } from "./api.js";
import { chosenLanguage } from "./text.js";

const retryAfter = 2000;
const restAfter = 60000;
const mostPathText = 2000;

class Live extends EventTarget {
  isConnected = true;
  isResting = false;
  #owners = new Map();
  #source = null;
  #stream = "";
  #wantsRequests = false;
  #opened = "";
  #sending = "";
  #timer = 0;
  #isRefused = false;

  /** Opens a stream, with what is followed open from its beginning. */
  connect() {
    this.disconnect();
    this.isResting = false;
    const query = new URLSearchParams();
    if (this.#wantsRequests) query.append("requests", "1");
    if (chosenLanguage) query.append("language", chosenLanguage);
    const wanted = this.#wanted();
    const isShort = !this.#isRefused && wanted.join("").length < mostPathText;
    if (isShort) for (const path of wanted) query.append("path", path);
    const text = query.toString();
    const source = new EventSource(`api/v1/events${text ? `?${text}` : ""}`);
    this.#source = source;
    source.addEventListener("stream", (event) => {
      this.#stream = JSON.parse(event.data).id;
      this.#opened = isShort ? wanted.join("\n") : "";
      this.#isRefused = false;
      this.#setConnected(true);
      this.#send();
    });
    for (const kind of ["rows", "acted", "player", "login", "request", "waiting"])
      source.addEventListener(kind, (event) => this.#tell(kind, JSON.parse(event.data)));
    source.addEventListener("error", () => {
      if (source !== this.#source) return;
      forgetSession();
      // A path that nobody serves is refused with the whole stream; the next try says the paths later.
      const isPathRefused = !this.#stream && isShort && wanted.length > 0 && !this.#isRefused;
      this.#isRefused = isPathRefused;
      if (isPathRefused) return this.connect();
      this.#setConnected(false);
      return this.#retry();
    });
  }

  disconnect() {
    clearTimeout(this.#timer);
    this.#source?.close();
    this.#source = null;
    this.#stream = "";
    // Another stream tells anew what is waited for.
    this.#tell("waiting", {});
  }

  /** Ends the stream until the next connect(); what was missed is read again then. */
  rest() {
    this.disconnect();
    this.isResting = true;
    this.isConnected = false;
  }

  /** The paths that an owner follows, in place of those that it followed before. */
  follow(owner, paths) {
    if (paths.length) this.#owners.set(owner, paths);
    else this.#owners.delete(owner);
    this.#send();
  }

  /** Whether the module's own requests are wanted, too. */
  setWantsRequests(wanted) {
    if (wanted === this.#wantsRequests) return;
    this.#wantsRequests = wanted;
    this.connect();
  }

  #wanted() {
    return [...new Set([...this.#owners.values()].flat())].slice(0, 64).sort();
  }

  // One call at a time for a stream, with what is wanted then: of two under way the earlier could arrive
  // last.
  async #send() {
    const stream = this.#stream;
    if (!stream || stream === this.#sending) return;
    this.#sending = stream;
    // What one view leaves and the next one takes up at once is one change.
    await null;
    while (stream === this.#stream && (await this.#sendOnce(stream)));
    if (stream === this.#sending) this.#sending = "";
  }

  /** Whether there was something to send, and the call is over. */
  async #sendOnce(stream) {
    const paths = this.#wanted();
    const key = paths.join("\n");
    if (key === this.#opened) return false;
    this.#opened = key;
    try {
      await openPaths(stream, paths);
    } catch (error) {
      // The stream is not known any more, or the streamer is gone: another one is to be had.
      if (stream === this.#stream && error.status !== 400) this.#retry();
    }
    return true;
  }

  #retry() {
    this.disconnect();
    this.#timer = setTimeout(() => this.connect(), retryAfter);
  }

  #setConnected(isConnected) {
    if (isConnected === this.isConnected) return;
    this.isConnected = isConnected;
    this.#tell("state", isConnected);
  }

  #tell(kind, detail) {
    this.dispatchEvent(new CustomEvent(kind, { detail }));
  }
}

export const live = new Live();
// A browser has few connections to one host: a page that nobody looks at gives its own free after a while.
let hiddenTimer = 0;
document.addEventListener("visibilitychange", () => {
  clearTimeout(hiddenTimer);
  if (document.hidden) hiddenTimer = setTimeout(() => live.rest(), restAfter);
  else if (live.isResting) live.connect();
});
// A page that is kept for the back button gives its stream free, and takes one again.
addEventListener("pagehide", () => live.rest());
addEventListener("pageshow", () => live.isResting && live.connect());
