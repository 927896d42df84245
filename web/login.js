// Logging in with a code: the address and the code to enter there, a picture for the phone, the time left,
// and what to do when it does not work.

import * as api from "./api.js";
import { busy, problem } from "./dialog.js";
import { button, buttonRow, el, fill } from "./dom.js";
import { live } from "./live.js";
import { go } from "./nav.js";
import { startPath } from "./path.js";
import { clock, t } from "./text.js";
import { View } from "./view.js";

// What to do, for each reason that the streamer gives.
const advice = () => ({
  expired: [t("The code has expired."), t("Take a new code and enter it within the time shown.")],
  denied: [t("The login was refused."), t("Try again, and confirm the login on the service’s page.")],
  client: [
    t("The service does not accept this streamer."),
    t("Check client_id and client_secret in the section [tidal.oauth2] of the settings."),
  ],
  clock: [
    t("The clock of the streamer is wrong."),
    t("Set its date and time, for example with “timedatectl set-ntp true”, then try again."),
  ],
  network: [
    t("The service cannot be reached."),
    t("Check the network cable or the wireless network of the streamer, then try again."),
  ],
  ended: [t("The service has ended the login."), t("Log in again.")],
  service: [t("The service did not answer as it should."), t("Try again in a few minutes.")],
});

/**
 * Tells `take` the state of the login now and whenever it is another one, until the signal. Returns a function
 * that reads it again; an answer that news have overtaken is dropped.
 */
export function followLogin(take, fail, signal) {
  let news = 0;
  const read = () => {
    const seen = news;
    const unlessOld = (call) => (result) => seen === news && call(result);
    return api.getLogin().then(unlessOld(take), unlessOld(fail));
  };
  live.addEventListener("login", ({ detail }) => (++news, take(detail)), { signal });
  live.addEventListener("state", ({ detail }) => detail && read(), { signal });
  read();
  return read;
}

/** Who is logged in, as far as it is known. */
export function accountText({ loggedIn, user, subscription }) {
  if (!loggedIn) return t("Not logged in");
  return [user ? t("Logged in as %1", user) : t("Logged in"), subscription].filter(Boolean).join(" · ");
}

export class LoginView extends View {
  #body = el("div", { class: "login" });
  #state = null;
  #timer = 0;
  #time = el("strong");
  #who = el("p");
  #code = "";
  #isAsking = false;
  #read;

  constructor() {
    super();
    this.heading.textContent = t("Log in");
    this.element = el("section", { class: "view" }, this.heading, this.#body);
    fill(this.#body, busy(t("Loading…")));
    const [take, fail] = [(state) => this.#take(state), (error) => this.#showError(error)];
    this.#read = followLogin(take, fail, this.ended);
  }

  close() {
    super.close();
    clearInterval(this.#timer);
  }

  async #ask(call) {
    if (this.#isAsking) return;
    this.#isAsking = true;
    fill(this.#body, busy(t("Asking the service…")));
    try {
      const state = await call();
      this.#isAsking = false;
      this.#take(state);
    } catch (error) {
      this.#isAsking = false;
      // The reason stands in the state; where there is none, the refusal itself is shown.
      const state = await api.getLogin().catch(() => null);
      if (state?.problem) this.#take(state);
      else this.#showError(error);
    }
  }

  #take(state) {
    if (this.#isAsking) return;
    const { pending: wasPending, loggedIn: wasLoggedIn } = this.#state ?? {};
    this.#state = state;
    clearInterval(this.#timer);
    if (state.loggedIn) {
      this.#who.textContent = accountText(state);
      if (wasLoggedIn && this.#who.isConnected) return;
      this.heading.textContent = wasPending ? t("You are logged in") : t("Account");
      const music = button(t("To the music"), () => go(startPath(), null, true), "primary");
      const out = button(t("Log out"), () => this.#ask(api.logOut));
      fill(this.#body, this.#who, buttonRow(music, out));
      if (wasPending) music.focus();
      return;
    }
    this.heading.textContent = t("Log in");
    if (state.pending) return this.#showCode(state.pending);
    if (state.problem) return this.#showProblem(state);
    const get = button(t("Get a code"), () => this.#ask(api.startLogin), "primary");
    fill(this.#body, el("p", {}, t("To play music, connect the streamer to your account.")), buttonRow(get));
  }

  #showCode({ userCode, verificationUri, verificationUriComplete, expiresIn }) {
    const endsAt = performance.now() + expiresIn * 1000;
    this.#code = userCode;
    const address = verificationUriComplete || verificationUri;
    const shown = verificationUri.replace(/^https?:\/\//, "");
    const target = { href: safeAddress(address), target: "_blank", rel: "noopener noreferrer" };
    const link = el("a", target, shown);
    const code = el("div", { class: "code", "aria-label": [...userCode].join(" ") }, userCode);
    const source = `api/v1/login/qr?code=${encodeURIComponent(userCode)}`;
    const open = el("li", {}, t("On your phone or computer, open"), " ", link);
    const enter = el("li", {}, t("Enter this code:"), code);
    const confirm = el("li", {}, t("Confirm. This page goes on by itself."));
    const steps = el("ol", { class: "steps" }, open, enter, confirm);
    const picture = el("img", { src: source, alt: t("QR code of the address") });
    const caption = el("figcaption", {}, t("Or scan this with your phone."));
    const ways = el("div", { class: "login-code" }, steps, el("figure", { class: "qr" }, picture, caption));
    const countdown = el("p", { class: "countdown" }, t("The code is good for"), " ", this.#time);
    fill(this.#body, ways, countdown);
    const tick = () => (this.#time.textContent = clock(endsAt - performance.now()));
    tick();
    this.#timer = setInterval(tick, 1000);
  }

  #showProblem(state) {
    // Who still looks at the page when a code ends gets the next one.
    if (state.reason === "expired" && this.#code && !document.hidden) {
      this.#code = "";
      return this.#ask(api.startLogin);
    }
    const [what, todo] = advice()[state.reason] ?? [state.problem, t("Try again.")];
    fill(
      this.#body,
      problem(what),
      el("p", {}, todo),
      what === state.problem ? null : el("p", { class: "hint" }, state.problem),
      buttonRow(button(t("Get a new code"), () => this.#ask(api.startLogin), "primary")),
    );
  }

  #showError(error) {
    const again = button(t("Try again"), () => this.#read(), "primary");
    fill(this.#body, problem(error.message), buttonRow(again));
  }
}

// An address from the service becomes a link only when it leads to a web page.
const safeAddress = (address) => (/^https?:\/\//i.test(address) ? address : null);
