// Settings: what the tree offers, and how this page looks in this browser.

import { getHealth } from "./api.js";
import { el, fill } from "./dom.js";
import { openValue } from "./menu.js";
import { linkTo, loginPath, settingsPath } from "./path.js";
import { RowSource } from "./rows.js";
import { isChoice, isField, plainValue } from "./rowtext.js";
import { chooseLanguage, chosenLanguage, t } from "./text.js";
import { View } from "./view.js";

const languages = { "": () => t("As the browser"), en: () => "English", de: () => "Deutsch", fr: () => "Français", nb: () => "Norsk", ja: () => "日本語" };
const themes = { "": () => t("As the system"), light: () => t("Light"), dark: () => t("Dark") };

/** Puts the chosen colours into force. */
export function applyTheme() {
  const theme = localStorage.getItem("theme") || "";
  document.documentElement.dataset.theme = theme;
}

function chooser(label, options, present, choose) {
  const select = el("select", { on: { change: () => choose(select.value) } }, Object.entries(options).map(([value, name]) => el("option", { value, selected: value === present }, name())));
  return el("label", { class: "setting" }, el("span", {}, label), select);
}

export class SettingsView extends View {
  #source = new RowSource(settingsPath);
  #rows = el("div", { class: "settings-rows" });
  #about = el("p", { class: "hint" });

  constructor() {
    super();
    this.path = settingsPath;
    this.heading.textContent = t("Settings");
    this.element = el(
      "section",
      { class: "view settings" },
      this.heading,
      el("h2", {}, t("This page")),
      el(
        "div",
        { class: "settings-rows" },
        chooser(t("Language"), languages, chosenLanguage(), (language) => (chooseLanguage(language), location.reload())),
        chooser(t("Colours"), themes, localStorage.getItem("theme") || "", (theme) => (theme ? localStorage.setItem("theme", theme) : localStorage.removeItem("theme"), applyTheme())),
      ),
      el("h2", {}, t("The streamer")),
      el("div", { class: "settings-rows" }, el("a", { class: "setting", href: linkTo(loginPath) }, el("span", {}, t("Account")), el("span", { class: "value" }, t("Log in or out")))),
      this.#rows,
      this.#about,
    );
    this.#source.addEventListener("changed", () => this.#show());
    this.#source.addEventListener("call", (event) => this.dispatchEvent(new CustomEvent("call", { detail: event.detail })));
    this.#source.need(0, 100);
    getHealth().then((health) => (this.#about.textContent = health.version ? t("kelo %1", health.version) : ""), () => {});
  }

  close() {
    this.#source.close();
  }

  get source() {
    return this.#source;
  }

  #show() {
    if (this.#source.error) return fill(this.#rows, el("p", { class: "problem", role: "alert" }, this.#source.error.message));
    const rows = this.#source.rows.filter((row) => isChoice(row) || !["object", "undefined"].includes(typeof plainValue(row.Value)));
    const canChange = (row) => !row.ReadOnly && (isChoice(row) || isField(row));
    const fixed = rows.filter((row) => !canChange(row)).map((row) => this.#row(row));
    fill(this.#rows, rows.filter(canChange).map((row) => this.#row(row)), fixed.length ? el("details", {}, el("summary", {}, t("Set in the settings file")), fixed) : null);
  }

  #row(row) {
    const value = el("span", { class: "value" }, valueText(row));
    const inside = [el("span", {}, row.Title), value];
    if (isChoice(row)) this.#nameChoice(row, value);
    const tell = () => this.dispatchEvent(new CustomEvent("current", { detail: { row } }));
    if (row.ReadOnly || !(isChoice(row) || isField(row))) return el("div", { class: "setting fixed" }, inside);
    const open = (event) => openValue(row, event.currentTarget.getBoundingClientRect()).then(() => this.#source.reload());
    return el("button", { type: "button", class: "setting", on: { click: open, focus: tell } }, inside);
  }

  async #nameChoice(row, place) {
    const choices = new RowSource(row.Edit.enumPath);
    await choices.need(0, 50);
    const wanted = JSON.stringify(plainValue(row.Value) ?? null);
    const present = choices.rows.find((choice) => JSON.stringify(plainValue(choice.Value) ?? null) === wanted);
    if (present) place.textContent = present.Title;
    choices.close();
  }
}

function valueText(row) {
  const value = plainValue(row.Value);
  if (typeof value === "boolean") return value ? t("On") : t("Off");
  return value === undefined || value === null || typeof value === "object" ? "" : String(value) || t("(empty)");
}
