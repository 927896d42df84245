// Dialogs over the page: menus, forms, questions. The browser's own dialog element keeps the focus inside
// and gives it back.

import { callSince } from "./api.js";
import { button, buttonRow, el, icon, iconButton } from "./dom.js";
import { t } from "./text.js";
import { lookForWaiting, waitingLine } from "./waiting.js";

const edge = 8;

let lastId = 0;

/**
 * A dialog of which one page at a time is shown; the button in its head leads back to the page below.
 * With an anchor (a rectangle of the window) it stands beside it on wide screens.
 */
export class Dialog {
  #pages = [];
  #heading = el("h2", { tabindex: "-1" });
  #back = iconButton("back", t("Back"), () => this.back());
  #body = el("div", { class: "dialog-body" });

  constructor(anchor = null, kind = "") {
    const begin = performance.now();
    this.#heading.id = `dialog-title-${++lastId}`;
    this.element = el(
      "dialog",
      { class: `dialog ${kind}`, "aria-labelledby": this.#heading.id },
      el("header", {}, this.#back, this.#heading, iconButton("close", t("Close"), () => this.close())),
      this.#body,
      waitingLine(() => [{ awaitedSince: callSince(begin) }]),
    );
    this.element.addEventListener("close", () => this.#closed());
    // A press that began before the dialog came is not meant for it: a long press ends over what it opened.
    let pressed = null;
    this.element.addEventListener("pointerdown", (event) => (pressed = event.target));
    const withhold = (event) => event.detail > 0 && !pressed && event.stopPropagation();
    this.element.addEventListener("click", withhold, { capture: true });
    this.element.addEventListener("click", (event) => {
      if (event.target === this.element && pressed === this.element) this.close();
    });
    this.element.addEventListener("cancel", (event) => {
      if (this.#pages.length < 2) return;
      event.preventDefault();
      this.back();
    });
    document.body.append(this.element);
    this.anchor = anchor;
    this.finished = new Promise((resolve) => (this.resolve = resolve));
  }

  /** Shows a page: {title, element, close()}. */
  push(page) {
    this.#pages.push(page);
    this.#show();
  }

  back() {
    const page = this.#pages.pop();
    page?.close?.();
    if (this.#pages.length) this.#show();
    else this.close();
  }

  close(value) {
    this.result = value;
    this.element.close();
  }

  #show() {
    const page = this.#pages[this.#pages.length - 1];
    this.#heading.textContent = page.title;
    this.#back.hidden = this.#pages.length < 2;
    this.#body.replaceChildren(page.element);
    if (!this.element.open) this.element.showModal();
    this.place();
    page.shown?.();
    // While a page has nothing to put the focus on yet, it stays in the dialog.
    if (!this.element.contains(document.activeElement)) this.#heading.focus();
  }

  /**
   * Beside the anchor, inside the window; for a page that has got what it shows. At a point it stands to the
   * lower right, below a button in line with its end; where there is no room, on the other side.
   */
  place() {
    lookForWaiting();
    if (!this.anchor || innerWidth < 640) return;
    this.element.classList.add("anchored");
    const { width, height } = this.element.getBoundingClientRect();
    const { left, right, top, bottom, width: isBox } = this.anchor;
    const [endX, endY] = [innerWidth - width - edge, innerHeight - height - edge];
    const x = isBox || left > endX ? right - width : left;
    const y = bottom > endY ? top - height : bottom;
    this.element.style.left = `${Math.max(edge, Math.min(x, endX))}px`;
    this.element.style.top = `${Math.max(edge, Math.min(y, endY))}px`;
  }

  #closed() {
    for (const page of this.#pages) page.close?.();
    this.#pages = [];
    this.element.remove();
    this.resolve(this.result);
  }
}

/** Asks a question that can be answered with yes; true when it was. */
export function ask(title, text, yes) {
  const dialog = new Dialog(null, "question");
  const no = button(t("Cancel"), () => dialog.close(false));
  const confirm = button(yes, () => dialog.close(true), "danger");
  const element = el("div", { class: "form" }, el("p", {}, text), buttonRow(no, confirm));
  dialog.push({ title, element, shown: () => no.focus() });
  return dialog.finished.then(Boolean);
}

/** A longer text to read. */
export function textPage(title, text) {
  const element = el("div", { class: "reading", tabindex: "0" }, text);
  return { title, element, shown: () => element.focus() };
}

const spinner = () => el("span", { class: "spinner", "aria-hidden": "true" });
export const busy = (text) => el("p", { class: "busy", role: "status" }, spinner(), text);
export const problem = (text) => el("p", { class: "problem", role: "alert" }, icon("close"), text);
