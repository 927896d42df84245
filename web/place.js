// What the views of a place in the tree have in common: its head, the way there, and its rows.

import { boxOf, button, buttonRow, cover, el, fill, icon, iconButton } from "./dom.js";
import { failure, failureTitle } from "./failure.js";
import { heart } from "./favorites.js";
import { idOf, kindOf } from "./kinds.js";
import { artistLinks } from "./links.js";
import { isLookedUp, lookUp } from "./lookup.js";
import { openMenu } from "./menu.js";
import { goUp, nameHere } from "./nav.js";
import { linkTo, modules, parsePath, startPath, topOf } from "./path.js";
import { PlaceRows } from "./recent.js";
import { t } from "./text.js";
import { View } from "./view.js";
import { waitingLine } from "./waiting.js";

export const kindNames = () => ({ album: t("Album"), artist: t("Artist"), playlist: t("Playlist") });

/** A button with a picture, which is told where it stands. */
export const pictureButton = (picture, label, run, kind = "") =>
  button([icon(picture), label], (event) => run(boxOf(event)), kind);

/**
 * A place of the tree with `item`, what is known of it: {title, subtitle, icon, menu, artists, ...}. Of an
 * item that nobody came to by its row it is looked up. Subclasses say what the head holds (headParts) and
 * show the rows (showRows).
 */
export class PlaceView extends View {
  source;
  item;
  body = el("div", { class: "view-body" });
  #trail;
  #shownHead = "";
  #head = el("div", { class: "hero" });

  constructor(path, { item = null, trail = null }, scroller) {
    super();
    this.path = path;
    this.kind = kindOf(path);
    this.item = item ?? {};
    this.scroller = scroller;
    this.#trail = trail;
    this.source = new PlaceRows(path, () => this.#update());
    this.source.addEventListener("call", (event) => this.tell("call", event.detail));
    const waiting = waitingLine(() => this.awaited);
    this.element = el("section", { class: "view", data: { kind: this.kind } }, this.#head, waiting, this.body);
    if (isLookedUp(path) && !(this.kind ? this.item.menu : this.item.title)) this.#lookUp();
  }

  close() {
    super.close();
    this.source.close();
  }

  /** What the view waits for, as waitingLine() takes it. */
  get awaited() {
    return [this.source];
  }

  /** Shows the head and asks for the first rows; for the constructors of subclasses, at their end. */
  begin(to = 0) {
    this.showHead();
    this.source.need(0, to);
  }

  async #lookUp() {
    const found = await lookUp(this.path);
    if (this.ended.aborted) return;
    const known = Object.entries(this.item).filter(([, value]) => value);
    this.item = { ...found, ...Object.fromEntries(known) };
    nameHere(this.item);
    this.showHead();
    this.#update();
    this.dispatchEvent(new Event("loaded"));
  }

  #update() {
    const { source } = this;
    if (!source.isLoaded) return;
    this.showHead();
    if (source.error && !source.count) fill(this.body, failure(source));
    else this.showRows();
  }

  /** Made anew only when it says another thing, and then with the focus where it was. */
  showHead() {
    const { title, picture, artists, subtitle, facts = [], buttons, key } = this.headParts();
    const words = title || (this.source.isLoaded ? kindNames()[this.kind] || this.#untitled() : " ");
    if (this.heading.textContent !== words) this.heading.textContent = words;
    const all = JSON.stringify([title, picture, artists, subtitle, facts, this.source.roles.Title, key]);
    if (all === this.#shownHead) return;
    this.#shownHead = all;
    const focused = this.#head.contains(document.activeElement) ? document.activeElement : null;
    const kind = el("p", { class: "hint", text: kindNames()[this.kind] });
    const line = subtitle || artists ? el("p", { class: "facts" }, artistLinks(artists, subtitle)) : null;
    const said = facts.filter(Boolean).join(" · ");
    const about = el("div", { class: "hero-words" }, this.kind ? kind : null, this.heading, line);
    about.append(said ? el("p", { class: "hint" }, said) : "", buttons.length ? buttonRow(...buttons) : "");
    const row = el("div", { class: "hero-row" }, picture || this.kind ? cover(picture, words, this.kind) : null, about);
    const place = [...this.#head.querySelectorAll("a, button")].indexOf(focused);
    fill(this.#head, this.#crumbs(title), row);
    if (!focused) return;
    const nameOf = (one) => one.title || one.textContent;
    const now = [...this.#head.querySelectorAll("a, button")];
    const same = now.find((one) => nameOf(one) === nameOf(focused)) ?? now[place];
    (same ?? this.heading).focus({ preventScroll: true });
  }

  #untitled() {
    const { error } = this.source;
    return error ? failureTitle(error) : t("Rows");
  }

  /** The heart of the item and the button of its menu, as far as it has them. */
  itemButtons() {
    const { title, menu } = this.item;
    const loved = menu && this.kind ? heart({ Title: title, Context: { Path: menu } }) : null;
    const open = (event) => this.#openItemMenu(boxOf(event));
    const more = menu ? iconButton("more", t("More"), open, { "aria-haspopup": "dialog" }) : null;
    return [loved, more].filter(Boolean);
  }

  #openItemMenu(box) {
    const { title, subtitle, icon: picture, menu, playable } = this.item;
    const row = { Title: title, Description: subtitle, Icon: picture, Id: idOf(this.path), Path: this.path };
    // A list's own menu (its order) needs no entry that opens the list.
    openMenu({ ...row, Type: playable ? "Item" : "", Context: { Path: menu } }, box);
  }

  #crumbs(title) {
    const trail = this.#trail ?? this.#trailFromPath();
    const links = trail.map((step, index) => {
      const link = el("a", { href: linkTo(step.path) }, step.title || step.path);
      link.addEventListener("click", (event) => (event.preventDefault(), goUp(step, trail.slice(0, index))));
      return el("li", {}, link);
    });
    if (!links.length) return null;
    links.push(el("li", { "aria-current": "page" }, title || "…"));
    return el("nav", { class: "crumbs", "aria-label": t("Where you are") }, el("ol", {}, links));
  }

  // Whoever comes by an address from elsewhere gets the list above, as far as the path tells.
  #trailFromPath() {
    const top = topOf(this.path);
    if (!top || this.path === top) return [];
    const { base, parameters } = parsePath(this.path);
    const above = [{ path: top, title: top === startPath() ? t("Home") : modules.get(top) }];
    if (parameters.has("contentId") && this.source.roles.Title)
      above.push({ path: base, title: this.source.roles.Title });
    return above;
  }
}
