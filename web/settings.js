// Settings: what the tree offers, and how this page looks in this browser.

import { getHealth } from "./api.js";
import { boxOf, el, fill, madeFrom } from "./dom.js";
import { valueText } from "./items.js";
import { accountText, followLogins } from "./login.js";
import { openValue, presentChoice } from "./menu.js";
import { linkTo, loginPath, settingsPath } from "./path.js";
import { RowSource } from "./rows.js";
import { isChoice, isField, plainValue } from "./rowtext.js";
import { t } from "./text.js";
import { View } from "./view.js";

const languages = {
  "": () => t("As the browser"),
  en: () => "English",
  de: () => "Deutsch",
  fr: () => "Français",
  nb: () => "Norsk",
  ja: () => "日本語",
};
const wholeTracks = `${settingsPath}/tidal/usePostPaywall`;
const themes = { "": () => t("As the system"), light: () => t("Light"), dark: () => t("Dark") };

/** Puts the chosen colours into force. */
export function applyTheme() {
  document.documentElement.dataset.theme = localStorage.getItem("theme") || "";
}

// The choice stays in this browser, under the key; the first option is not to choose.
function chooser(label, options, key, take) {
  const present = localStorage.getItem(key) || "";
  const choose = () => {
    if (select.value) localStorage.setItem(key, select.value);
    else localStorage.removeItem(key);
    take();
  };
  const choices = Object.entries(options).map(([value, name]) =>
    el("option", { value, selected: value === present }, name()),
  );
  const select = el("select", { on: { change: choose } }, choices);
  return el("label", { class: "setting" }, el("span", {}, label), select);
}

function account(login, hasName) {
  const name = hasName ? t("Account: %1", login.displayName) : t("Account");
  const who = el("span", { class: "value" }, accountText(login));
  return el("a", { class: "setting", href: linkTo(loginPath(login.service)) }, el("span", {}, name), who);
}

export class SettingsView extends View {
  #source = new RowSource(settingsPath, () => this.#show());
  #rows = el("div", { class: "settings-rows" });
  #about = el("p", { class: "hint" });

  constructor() {
    super();
    this.path = settingsPath;
    this.heading.textContent = t("Settings");
    const accounts = el("div", { class: "settings-rows" });
    const showLogins = (logins) => fill(accounts, [...logins.values()].map((login) => account(login, logins.size > 1)));
    followLogins(showLogins, () => {}, this.ended);
    const language = chooser(t("Language"), languages, "language", () => location.reload());
    const colours = chooser(t("Colours"), themes, "theme", applyTheme);
    const page = el("div", { class: "settings-rows" }, language, colours);
    const streamer = [accounts, this.#rows, this.#about];
    const [ofPage, ofStreamer] = [el("h2", {}, t("This page")), el("h2", {}, t("The streamer"))];
    const parts = [this.heading, ofPage, page, ofStreamer, streamer];
    this.element = el("section", { class: "view settings" }, parts);
    this.#source.addEventListener("call", (event) => this.tell("call", event.detail));
    this.#source.need(0, 100);
    const about = ({ version }) => (this.#about.textContent = version ? t("kelo %1", version) : "");
    getHealth().then(about, () => {});
  }

  close() {
    super.close();
    this.#source.close();
  }

  #show() {
    const { error } = this.#source;
    if (error) return fill(this.#rows, el("p", { class: "problem", role: "alert" }, error.message));
    const hasValue = (row) => !["object", "undefined"].includes(typeof plainValue(row.Value));
    const rows = this.#source.rows.filter((row) => isChoice(row) || hasValue(row));
    const fixed = rows.filter((row) => !canChange(row)).map((row) => this.#row(row));
    fill(
      this.#rows,
      rows.filter(canChange).map((row) => this.#row(row)),
      fixed.length ? el("details", {}, el("summary", {}, t("Set in the settings file")), fixed) : null,
    );
  }

  #row(row) {
    const text = plainValue(row.Value) === "" ? t("(empty)") : valueText(row);
    const value = el("span", { class: "value" }, text);
    const title = row.Path === wholeTracks ? t("Whole tracks, not previews") : row.Title;
    const inside = [el("span", {}, title), value];
    if (isChoice(row)) presentChoice(row, value);
    const tell = () => this.tellRow(row);
    if (!canChange(row)) return madeFrom(el("div", { class: "setting fixed" }, inside), row);
    const open = (event) => openValue(row, boxOf(event)).then(() => this.#source.reload());
    const shared = { type: "button", class: "setting", on: { click: open, focus: tell } };
    return madeFrom(el("button", shared, inside), row);
  }
}

const canChange = (row) => !row.ReadOnly && (isChoice(row) || isField(row));
