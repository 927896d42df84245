// What the streamer tells, by the event stream that all tabs of the browser share (tabs.js). It keeps which
// paths the views of this page have open.
// Events: "rows", "acted", "player", "login", "request", "waiting" with the data as `detail`; "state" with a
// boolean: connected or not. A login has `was`: whether somebody was logged in so far, where that is known.

import { forgetSession } from "./api.js";
import { chosenLanguage } from "./text.js";

const restAfter = 60000;
const shared = new URL("tabs.js", import.meta.url);

class Live extends EventTarget {
  isConnected = true;
  isResting = false;
  /** What was told last of each login, by its service. */
  logins = new Map();
  #owners = new Map();
  #port = null;
  #wantsRequests = false;
  #isSaying = false;
  #hasMissed = false; // what was told while the page rested

  /** Takes part in the stream, or has a lost one opened at once; while nobody sees the page, it rests. */
  connect() {
    if (document.hidden) return this.rest();
    this.isResting = false;
    this.#port ??= this.#join();
    this.#port.postMessage(this.#wants());
  }

  /** Takes no part until the next connect(); what was missed is read again then. */
  rest() {
    this.#port?.postMessage({});
    this.#port?.close();
    this.#port = null;
    this.isResting = this.#hasMissed = true;
    this.#tell("waiting", {});
  }

  /** The paths that an owner follows, in place of those that it followed before. */
  follow(owner, paths) {
    if (paths.length) this.#owners.set(owner, paths);
    else this.#owners.delete(owner);
    this.#say();
  }

  /** Whether the module's own requests are wanted, too. */
  setWantsRequests(wanted) {
    this.#wantsRequests = wanted;
    this.#say();
  }

  #join() {
    try {
      const worker = new SharedWorker(shared, { type: "module", name: chosenLanguage });
      worker.addEventListener("error", () => worker.port === this.#port && this.#joinAlone());
      return this.#listen(worker.port);
    } catch {
      return this.#joinAlone();
    }
  }

  // Some browsers have no such workers: the page has a stream for itself.
  #joinAlone() {
    const { port1, port2 } = new MessageChannel();
    import(shared).then(({ join }) => join(port2));
    this.#port = this.#listen(port1);
    this.#say();
    return this.#port;
  }

  #listen(port) {
    port.onmessage = ({ data: { kind, detail } }) => {
      if (this.isResting || port !== this.#port) return;
      if (kind === "state") this.#setConnected(detail);
      else if (kind === "login") this.#takeLogin(detail);
      else this.#tell(kind, detail);
    };
    return port;
  }

  #wants() {
    const paths = [...new Set([...this.#owners.values()].flat())];
    const requests = this.#wantsRequests;
    return { paths, requests, language: chosenLanguage, base: document.baseURI };
  }

  // What one view leaves and the next one takes up at once is one message.
  async #say() {
    if (this.#isSaying) return;
    this.#isSaying = true;
    await null;
    this.#isSaying = false;
    if (this.#port && !this.isResting) this.#port.postMessage(this.#wants());
  }

  #setConnected(isConnected) {
    if (!isConnected) forgetSession();
    if (isConnected === this.isConnected && !this.#hasMissed) return;
    this.isConnected = isConnected;
    this.#hasMissed = false;
    this.#tell("state", isConnected);
  }

  #takeLogin(login) {
    const was = this.logins.get(login.service)?.loggedIn;
    this.logins.set(login.service, login);
    this.#tell("login", { ...login, was });
  }

  #tell(kind, detail) {
    this.dispatchEvent(new CustomEvent(kind, { detail }));
  }
}

export const live = new Live();
// A page that nobody looks at rests after a while: nothing is read for it.
let hiddenTimer = 0;
document.addEventListener("visibilitychange", () => {
  clearTimeout(hiddenTimer);
  if (document.hidden) hiddenTimer = setTimeout(() => live.rest(), restAfter);
  else if (live.isResting) live.connect();
});
// A page that is kept for the back button gives its part free, and takes it again.
addEventListener("pagehide", () => live.rest());
addEventListener("pageshow", () => live.isResting && live.connect());
