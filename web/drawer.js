// The developer's drawer: what the tree says behind the rows. Paths, roles, raw replies with their times, the
// notices as they arrive, and the requests that the module makes to the service.

import { getData, getRequests, watchCalls } from "./api.js";
import { el, fill, iconButton } from "./dom.js";
import { live } from "./live.js";
import { t } from "./text.js";
import { toast } from "./toast.js";

const mostLines = 200;

const timeText = (date) => date.toTimeString().slice(0, 8) + "." + String(date.getMilliseconds()).padStart(3, "0");
const milliseconds = (time) => (time < 1 ? "< 1 ms" : `${Math.round(time)} ms`);

// The clipboard is there for secure pages alone; elsewhere the path is marked for the reader to copy.
async function copy(text) {
  try {
    await navigator.clipboard.writeText(text);
    toast(t("Copied: %1", text));
  } catch {
    prompt(t("Copy its path"), text);
  }
}

/** A log of lines, newest first, of which a bounded number is kept. */
class Log {
  element = el("ol", { class: "log", tabindex: "0" });

  constructor(label, empty) {
    this.element.setAttribute("aria-label", label);
    this.element.dataset.empty = empty;
  }

  add(...children) {
    this.element.prepend(el("li", {}, children));
    if (this.element.childElementCount > mostLines) this.element.lastChild.remove();
  }
}

export class Drawer {
  #tab = "node";
  #panels = {};
  #tabs = {};
  #row = null;
  #lastRequest = 0;
  #notices = new Log(t("Notices"), t("No notice yet. Change something, or let another client do it."));
  #requests = new Log(t("Requests"), t("The module has made no request yet."));
  #calls = new Log(t("Calls"), t("No call yet."));
  #reply = el("pre", { tabindex: "0", "aria-label": t("Raw reply") });
  #replyTime = el("p", { class: "hint" });
  #node = el("div", { class: "node" });

  constructor(element, onChange) {
    this.element = element;
    this.onChange = onChange;
    const names = { node: t("Row"), reply: t("Reply"), notices: t("Notices"), requests: t("Requests"), calls: t("Calls") };
    const contents = { node: this.#node, reply: [this.#replyTime, this.#reply], notices: this.#notices.element, requests: this.#requests.element, calls: this.#calls.element };
    for (const [key, name] of Object.entries(names)) {
      this.#tabs[key] = el("button", { type: "button", role: "tab", id: `tab-${key}`, "aria-controls": `panel-${key}`, on: { click: () => this.#choose(key) } }, name);
      this.#panels[key] = el("div", { role: "tabpanel", id: `panel-${key}`, "aria-labelledby": `tab-${key}`, class: "panel" }, contents[key]);
    }
    const tabs = el("div", { role: "tablist", "aria-label": t("Developer’s drawer"), on: { keydown: (event) => this.#moveTab(event) } }, Object.values(this.#tabs));
    fill(element, el("header", {}, tabs, iconButton("close", t("Close the drawer"), () => this.toggle(false))), Object.values(this.#panels));
    this.#choose("node");
    this.showRow(null);
    live.addEventListener("rows", ({ detail }) => this.#notice("rows", detail.path, JSON.stringify(detail.change), detail.count));
    live.addEventListener("login", ({ detail }) => this.#notice("login", "", detail.loggedIn ? "loggedIn" : (detail.problem ?? "loggedOut"), -1));
    live.addEventListener("request", ({ detail }) => this.#request(detail));
    live.addEventListener("state", ({ detail }) => {
      this.#notice("stream", "", detail ? "connected" : "lost", -1);
      if (detail && this.isOpen) this.#readRequests();
    });
    watchCalls((call) => this.#call(call));
    if (localStorage.getItem("drawer") === "open") this.toggle(true);
  }

  get isOpen() {
    return !this.element.hidden;
  }

  toggle(isOpen = !this.isOpen) {
    this.element.hidden = !isOpen;
    localStorage.setItem("drawer", isOpen ? "open" : "closed");
    live.setWantsRequests(isOpen);
    if (isOpen) this.#readRequests();
    this.onChange(isOpen);
  }

  /** Shows what the tree says of a row. */
  showRow(row) {
    this.#row = row;
    if (!row) return fill(this.#node, el("p", { class: "hint" }, t("Move to a row: its path, roles and data stand here.")));
    const data = el("div", { class: "data" });
    const ask = el("button", { type: "button", class: "button small", on: { click: () => this.#askData(row, data) } }, t("Read its data"));
    const roles = Object.entries(row).map(([name, value]) => [el("dt", {}, name), el("dd", {}, typeof value === "string" ? value : JSON.stringify(value, null, 1))]);
    fill(
      this.#node,
      el("div", { class: "buttons" }, row.Path ? [ask, el("button", { type: "button", class: "button small", on: { click: () => copy(row.Path) } }, t("Copy its path"))] : null),
      data,
      el("dl", { "aria-label": t("Roles") }, roles),
    );
    return undefined;
  }

  /** Shows the answer that a list was made from. */
  showReply({ answer, milliseconds: time }) {
    this.#replyTime.textContent = t("%1, rows from %2, %3 in all, version %4, answered in %5", answer.path, answer.from, answer.rowsCount, answer.rowsVersion, milliseconds(time));
    this.#reply.textContent = JSON.stringify(answer, null, 1);
  }

  async #askData(row, place) {
    const begin = performance.now();
    try {
      const answer = await getData(row.Path);
      if (row === this.#row) fill(place, el("p", { class: "hint" }, t("Answered in %1", milliseconds(performance.now() - begin))), el("pre", { tabindex: "0" }, JSON.stringify(answer.data, null, 1)));
    } catch (error) {
      fill(place, el("p", { class: "problem" }, `${error.status} ${error.name}: ${error.message}`));
    }
  }

  #notice(kind, path, change, count) {
    this.#notices.add(el("time", {}, timeText(new Date())), el("b", {}, kind), el("code", {}, path), el("span", {}, count >= 0 ? `${change} · ${count}` : change));
  }

  #call({ method, target, status, milliseconds: time }) {
    this.#calls.add(el("time", {}, timeText(new Date())), el("b", {}, method), el("code", {}, decodeURI(target.replace(/^api\/v1\//, "").replace(/&roles=[^&]*/, ""))), el("span", { class: status >= 400 || !status ? "bad" : "" }, status || t("failed")), el("span", {}, milliseconds(time)));
  }

  #request({ id, time, method, address, status, error, durationMs }) {
    if (id <= this.#lastRequest) return;
    this.#lastRequest = id;
    const outcome = status || error || t("failed");
    this.#requests.add(el("time", {}, timeText(new Date(time))), el("b", {}, method), el("code", {}, address), el("span", { class: status >= 400 || !status ? "bad" : "" }, outcome), el("span", {}, milliseconds(durationMs)));
  }

  async #readRequests() {
    try {
      let { last, requests } = await getRequests(this.#lastRequest);
      if (last < this.#lastRequest) {
        // The streamer was started anew and counts from the beginning.
        this.#lastRequest = 0;
        ({ last, requests } = await getRequests(0));
      }
      for (const request of requests) this.#request(request);
    } catch {
      return;
    }
  }

  #choose(key) {
    this.#tab = key;
    for (const name of Object.keys(this.#tabs)) {
      this.#tabs[name].setAttribute("aria-selected", String(name === key));
      this.#tabs[name].tabIndex = name === key ? 0 : -1;
      this.#panels[name].hidden = name !== key;
    }
  }

  #moveTab(event) {
    const keys = Object.keys(this.#tabs);
    const step = { ArrowRight: 1, ArrowLeft: -1 }[event.key];
    if (!step) return;
    const next = keys[(keys.indexOf(this.#tab) + step + keys.length) % keys.length];
    this.#choose(next);
    this.#tabs[next].focus();
  }
}
