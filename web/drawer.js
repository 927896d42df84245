// The developer's drawer: what the tree says behind the rows. Paths, roles, raw replies with their times,
// the notices as they arrive, and the requests that the module makes to the service.

import { getData, getRequests, watchCalls } from "./api.js";
import { button, buttonRow, el, fill, iconButton, rowAt } from "./dom.js";
import { live } from "./live.js";
import { loginPath } from "./path.js";
import { t } from "./text.js";
import { toast } from "./toast.js";

const mostLines = 200;
const mostText = 20000;
const rest = 150;

function indented(text) {
  try {
    return JSON.stringify(JSON.parse(text), null, 1);
  } catch {
    return text;
  }
}

function timeOf(date) {
  const thousandths = String(date.getMilliseconds()).padStart(3, "0");
  return el("time", {}, `${date.toTimeString().slice(0, 8)}.${thousandths}`);
}

const milliseconds = (time) => (time < 1 ? "< 1 ms" : `${Math.round(time)} ms`);

// A call or a request, as the cells of a line.
const exchangeLine = (date, method, address, status, outcome, time) => [
  timeOf(date),
  el("b", {}, method),
  el("code", {}, address),
  el("span", { class: status >= 400 || !status ? "bad" : "" }, outcome),
  el("span", {}, milliseconds(time)),
];

// The clipboard is there for secure pages alone; elsewhere the path is marked for the reader to copy.
async function copy(text) {
  try {
    await navigator.clipboard.writeText(text);
    toast(t("Copied: %1", text));
  } catch {
    prompt(t("Copy its path"), text);
  }
}

/** A log of lines, newest first, of which a bounded number is kept; those are shown that have a text. */
class Log {
  #list = el("ol", { class: "log", tabindex: "0" });
  #wanted = "";

  constructor(label, empty) {
    this.#list.setAttribute("aria-label", label);
    this.#list.dataset.empty = empty;
    const filter = (event) => {
      this.#wanted = event.target.value.toLowerCase();
      for (const line of this.#list.children) this.#look(line);
    };
    const properties = { type: "search", "aria-label": t("Filter"), placeholder: t("Filter") };
    const input = el("input", { ...properties, on: { input: filter } });
    const clear = button(t("Clear"), () => fill(this.#list), "small");
    this.element = [el("div", { class: "log-tools" }, input, clear), this.#list];
  }

  add(...children) {
    const line = el("li", {}, children);
    this.#look(line);
    this.#list.prepend(line);
    if (this.#list.childElementCount > mostLines) this.#list.lastChild.remove();
  }

  #look(line) {
    line.hidden = !line.textContent.toLowerCase().includes(this.#wanted);
  }
}

const quoted = (text) => `'${text.replaceAll("'", "'\\''")}'`;

// What does the same in a shell.
function asCurl({ method, target, body }) {
  const address = quoted(new URL(target, document.baseURI).href);
  const sent = body ? ` -H 'Content-Type: application/json' -d ${quoted(body)}` : "";
  return `curl ${method === "GET" ? "" : `-X ${method} `}${address}${sent}`;
}

// The same as a command; empty for calls that no command makes.
function asCommand({ method, target, body }) {
  const { pathname, searchParams: query } = new URL(target, document.baseURI);
  const name = pathname.split("/api/v1/")[1] ?? "";
  const { path, value } = JSON.parse(body ?? "{}");
  const rows = () => `${quoted(query.get("path"))} --from ${query.get("from")} --to ${query.get("to")}`;
  const words = {
    rows: () => `rows ${rows()}`,
    data: () => `data ${quoted(query.get("path"))}`,
    set: () => `set ${quoted(path)} ${quoted(JSON.stringify(value))}`,
    "player/play": () => `play ${quoted(path)}`,
    login: () => `${{ GET: "login --status", POST: "login", DELETE: "logout" }[method]} ${query.get("service")}`,
    logins: () => "login --status",
  }[name]?.();
  const simple = /^player\/(pause|resume|stop|next|previous)$/.exec(name)?.[1];
  return words || simple ? `kelo --server ${location.origin} ${words || simple}` : "";
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
    const tabs = {
      node: [t("Row"), this.#node],
      reply: [t("Reply"), [this.#replyTime, this.#reply]],
      notices: [t("Notices"), this.#notices.element],
      requests: [t("Requests"), this.#requests.element],
      calls: [t("Calls"), this.#calls.element],
    };
    for (const [key, [name, content]] of Object.entries(tabs)) {
      const [tab, panel] = [`tab-${key}`, `panel-${key}`];
      const choose = { click: () => this.#choose(key) };
      const properties = { type: "button", role: "tab", id: tab, "aria-controls": panel, on: choose };
      this.#tabs[key] = el("button", properties, name);
      const shown = { role: "tabpanel", id: panel, "aria-labelledby": tab, class: "panel" };
      this.#panels[key] = el("div", shown, content);
    }
    const move = { keydown: (event) => this.#moveTab(event) };
    const list = { role: "tablist", "aria-label": t("Developer’s drawer"), on: move };
    const close = iconButton("close", t("Close the drawer"), () => this.toggle(false));
    const shared = { class: "link", target: "_blank", href: "openapi.yaml" };
    const api = el("a", { ...shared, title: t("The description of the HTTP API") }, t("API"));
    const header = el("header", {}, el("div", list, Object.values(this.#tabs)), api, close);
    fill(element, header, Object.values(this.#panels));
    this.#choose("node");
    this.showRow(null);
    live.addEventListener("rows", ({ detail: { path, change, count } }) =>
      this.#notice("rows", path, JSON.stringify(change), count),
    );
    live.addEventListener("login", ({ detail: { service, loggedIn, problem } }) =>
      this.#notice("login", loginPath(service), loggedIn ? "loggedIn" : (problem ?? "loggedOut"), -1),
    );
    live.addEventListener("request", ({ detail }) => this.#request(detail));
    live.addEventListener("state", ({ detail }) => {
      this.#notice("stream", "", detail ? "connected" : "lost", -1);
      if (detail && this.isOpen) this.#readRequests();
    });
    watchCalls((call) => this.#call(call));
    // The row under the pointer, as soon as that rests, and the one that has the focus.
    let timer = 0;
    const look = ({ target }) => this.isOpen && this.showRow(rowAt(target) ?? this.#row);
    addEventListener("focusin", look);
    addEventListener("pointerover", (event) => {
      clearTimeout(timer);
      timer = setTimeout(look, rest, event);
    });
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
    if (row && row === this.#row) return;
    this.#row = row;
    if (!row) {
      const hint = t("Move to a row: its path, roles and data stand here.");
      fill(this.#node, el("p", { class: "hint" }, hint));
      return;
    }
    const data = el("div", { class: "data" });
    const ask = button(t("Read its data"), () => this.#askData(row, data), "small");
    const take = button(t("Copy its path"), () => copy(row.Path), "small");
    const roles = Object.entries(row).map(([name, value]) => [
      el("dt", {}, name),
      el("dd", {}, typeof value === "string" ? value : JSON.stringify(value, null, 1)),
    ]);
    fill(
      this.#node,
      buttonRow(row.Path ? [ask, take] : null),
      data,
      el("dl", { "aria-label": t("Roles") }, roles),
    );
  }

  /** Shows the answer that a list was made from. */
  showReply({ answer, milliseconds: time }) {
    const { path, from, rowsCount, rowsVersion } = answer;
    this.#replyTime.textContent = t(
      "%1, rows from %2, %3 in all, version %4, answered in %5",
      ...[path, from, rowsCount, rowsVersion, milliseconds(time)],
    );
    this.#reply.textContent = JSON.stringify(answer, null, 1);
  }

  async #askData(row, place) {
    const begin = performance.now();
    try {
      const answer = await getData(row.Path);
      const time = t("Answered in %1", milliseconds(performance.now() - begin));
      const text = JSON.stringify(answer.data, null, 1);
      if (row !== this.#row) return;
      fill(place, el("p", { class: "hint" }, time), el("pre", { tabindex: "0" }, text));
    } catch (error) {
      fill(place, el("p", { class: "problem" }, `${error.status} ${error.name}: ${error.message}`));
    }
  }

  #notice(kind, path, change, count) {
    this.#notices.add(
      timeOf(new Date()),
      el("b", {}, kind),
      el("code", {}, path),
      el("span", {}, count >= 0 ? `${change} · ${count}` : change),
    );
  }

  #call(call) {
    const { method, target, body, status, text, milliseconds: time } = call;
    const address = decodeURIComponent(target.replace(/^api\/v1\//, "").replace(/&roles=[^&]*/, ""));
    const line = exchangeLine(new Date(), method, address, status, status || t("failed"), time);
    const details = el("details", {}, el("summary", {}, line));
    // Made when somebody looks.
    const show = () => {
      const command = asCommand(call);
      const copies = [button(t("Copy as curl"), () => copy(asCurl(call)), "small")];
      if (command) copies.unshift(button(t("Copy as kelo"), () => copy(command), "small"));
      const texts = [body, text.slice(0, mostText)].filter(Boolean);
      details.append(buttonRow(copies), ...texts.map((one) => el("pre", { tabindex: "0" }, indented(one))));
    };
    details.addEventListener("toggle", show, { once: true });
    this.#calls.add(details);
  }

  #request({ id, time, method, address, status, error, durationMs }) {
    if (id <= this.#lastRequest) return;
    this.#lastRequest = id;
    const outcome = status || error || t("failed");
    this.#requests.add(...exchangeLine(new Date(time), method, address, status, outcome, durationMs));
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
