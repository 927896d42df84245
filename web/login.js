// Logging in with a code: the address and the code to enter there, a picture for the phone, the time left,
// and what to do when it does not work.

import * as api from "./api.js";
import { busy, problem } from "./dialog.js";
import { button, buttonRow, el, fill } from "./dom.js";
import { live } from "./live.js";
import { go } from "./nav.js";
import { homeLogin, startPath, topOf } from "./path.js";
import { clock, t } from "./text.js";
import { View } from "./view.js";

// What to do, for each reason that the streamer gives.
const advice = (service) => ({
  expired: [t("The code has expired."), t("Take a new code and enter it within the time shown.")],
  denied: [t("The login was refused."), t("Try again, and confirm the login on the service’s page.")],
  client: [
    t("The service does not accept this streamer."),
    service === homeLogin
      ? t("Check client_id and client_secret in the section [tidal.oauth2] of the settings.")
      : t("Check client id and secret in the section [module.%1] of the settings.", service),
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
 * Tells `take` the states of all logins, by service, now and whenever one is another, until the signal: with
 * the service that alone is news, or without one. Returns a function that reads them again; of an answer, what
 * news have overtaken is dropped.
 */
export function followLogins(take, fail, signal) {
  let logins = new Map(live.logins);
  let reads = 0;
  const news = new Set(); // services that were told of since the last read began
  const read = async () => {
    const own = ++reads;
    news.clear();
    try {
      const answer = await api.getLogins();
      if (own !== reads) return;
      const told = [...news].map((service) => logins.get(service));
      logins = new Map([...answer.logins, ...told].map((login) => [login.service, login]));
      take(logins);
    } catch (error) {
      if (own === reads && !news.size) fail(error);
    }
  };
  const hear = ({ detail }) => {
    news.add(detail.service);
    logins.set(detail.service, detail);
    take(logins, detail.service);
  };
  live.addEventListener("login", hear, { signal });
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
  #service;
  #state = null;
  #timer = 0;
  #time = el("strong");
  #who = el("p");
  #code = "";
  #isAsking = false;
  #read;

  constructor(service) {
    super();
    this.#service = service;
    this.heading.textContent = t("Log in");
    this.element = el("section", { class: "view" }, this.heading, this.#body);
    fill(this.#body, busy(t("Loading…")));
    const take = (logins, news = service) => news === service && this.#take(logins.get(service));
    this.#read = followLogins(take, (error) => this.#showError(error), this.ended);
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
      const state = await call(this.#service);
      this.#isAsking = false;
      this.#take(state);
    } catch (error) {
      this.#isAsking = false;
      // The reason stands in the state; where there is none, the refusal itself is shown.
      const state = await api.getLogin(this.#service).catch(() => null);
      if (state?.problem) this.#take(state);
      else this.#showError(error);
    }
  }

  #take(state) {
    if (this.#isAsking) return;
    if (!state) return fill(this.#body, problem(t("There is nothing at this address.")));
    const { pending: wasPending, loggedIn: wasLoggedIn } = this.#state ?? {};
    this.#state = state;
    clearInterval(this.#timer);
    if (state.loggedIn) {
      this.#who.textContent = accountText(state);
      if (wasLoggedIn && this.#who.isConnected) return;
      this.heading.textContent = wasPending ? t("You are logged in") : t("Account: %1", state.displayName);
      const top = () => topOf(`/${this.#service}`) || startPath();
      const music = button(t("To the music"), () => go(top(), null, true), "primary");
      const out = button(t("Log out"), () => this.#ask(api.logOut));
      fill(this.#body, this.#who, buttonRow(music, out));
      if (wasPending) music.focus();
      return;
    }
    this.heading.textContent = t("Log in to %1", state.displayName);
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
    const source = `api/v1/login/qr?service=${this.#service}&code=${encodeURIComponent(userCode)}`;
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
    const [what, todo] = advice(this.#service)[state.reason] ?? [state.problem, t("Try again.")];
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
