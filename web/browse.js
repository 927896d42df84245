// The view of one path: what stands there, its rows, and what can be done with the whole of it.

import { boxOf, button, buttonRow, cover, el, fill, icon } from "./dom.js";
import { item, skeleton } from "./items.js";
import { VirtualList } from "./list.js";
import { openMenu } from "./menu.js";
import { goUp } from "./nav.js";
import { home, linkTo, loginPath, parsePath } from "./path.js";
import { playback } from "./playback.js";
import { PlaceRows } from "./recent.js";
import { albumOf } from "./rowtext.js";
import { t } from "./text.js";
import { View } from "./view.js";
import { waitingLine } from "./waiting.js";

const pictureShare = 0.5;

export class BrowseView extends View {
  #source;
  #list;
  #item;
  #trail;
  #place;
  #kind = "rows";
  #shownHead = "";
  #head = el("div", { class: "hero" });
  #body = el("div", { class: "view-body" });
  #playingPath = playback.state.path;
  #wasPlaying = playback.isPlaying;

  constructor(path, { item: known = null, trail = null, place = null }, scroller) {
    super();
    this.path = path;
    this.#item = known;
    this.#trail = trail;
    this.#place = place;
    this.#source = new PlaceRows(path, () => this.#update());
    const waiting = waitingLine(() => [this.#source]);
    this.element = el("section", { class: "view" }, this.#head, waiting, this.#body);
    this.#list = new VirtualList(
      scroller,
      known?.title || t("Rows"),
      (index, kind) => this.#make(index, kind),
      (index) => this.#source.row(index),
      (from, to) => this.#source.need(from, to),
    );
    this.#list.element.addEventListener("current", (event) => this.tellRow(this.#source.row(event.detail)));
    this.scroller = scroller;
    this.#source.addEventListener("call", (event) => this.tell("call", event.detail));
    playback.addEventListener("changed", () => this.#markPlaying(), { signal: this.ended });
    this.#showHead();
    const unread = Array.from({ length: 8 }, () => skeleton("rows"));
    fill(this.#body, el("ul", { class: "list loading", "aria-hidden": "true" }, unread));
    this.#source.need(0, (place?.to ?? 0) + 1);
  }

  close() {
    super.close();
    this.#source.close();
    this.#list.close();
  }

  get place() {
    const { element, current } = this.#list;
    const hadFocus = element.contains(document.activeElement);
    return { scroll: this.scroller.scrollTop, current, hadFocus, to: current };
  }

  #update() {
    const source = this.#source;
    if (!source.isLoaded) return;
    this.#showHead();
    if (source.error && !source.count) {
      const isLoggedOut = document.body.classList.contains("logged-out");
      const login = isLoggedOut ? el("a", { class: "button", href: linkTo(loginPath) }, t("Log in")) : null;
      const again = button(t("Try again"), () => source.reload());
      const text = el("p", {}, source.error.message);
      fill(this.#body, el("div", { class: "empty", role: "alert" }, text, buttonRow(again, login)));
      return;
    }
    if (!source.count) {
      fill(this.#body, el("div", { class: "empty" }, el("p", {}, t("Nothing is here."))));
      return;
    }
    const rows = source.rows;
    const pictures = rows.filter((row) => row.Type === "Container" && row.Icon).length;
    this.#kind = pictures > rows.length * pictureShare ? "grid" : "rows";
    if (!this.#list.element.isConnected) fill(this.#body, this.#list.element);
    this.#list.update(this.#kind, source.count);
    this.#restorePlace();
    this.dispatchEvent(new Event("loaded"));
  }

  #restorePlace() {
    const place = this.#place;
    if (!place) return;
    this.#place = null;
    this.scroller.scrollTop = place.scroll;
    if (place.hadFocus && place.current < this.#source.count) this.#list.focus(place.current);
  }

  #make(index, kind) {
    const row = this.#source.row(index);
    if (!row) return skeleton(kind);
    const showsAlbum = albumOf(row) !== this.title;
    return item(row, kind, this.path, index, showsAlbum);
  }

  // The title of an item is known from the row that led here; else an album's from its tracks.
  #titleText() {
    if (this.#item?.title) return this.#item.title;
    const { roles, rows } = this.#source;
    const albums = new Set(rows.filter((row) => row.Type === "Audio").map(albumOf));
    const { parameters } = parsePath(this.path);
    const isAlbum = parameters.has("contentId") && !parameters.has("playlistId");
    if (isAlbum && albums.size === 1 && rows.every((row) => row.Type === "Audio")) return [...albums][0];
    return roles.Title || (parameters.has("artistId") ? t("Artist") : "");
  }

  // Made anew only when it says another thing, and then with the focus where it was.
  #showHead() {
    const source = this.#source;
    const title = this.#titleText();
    const picture = this.#item?.icon || null;
    const words = title || (source.isLoaded ? this.path : " ");
    if (this.heading.textContent !== words) this.heading.textContent = words;
    this.#list.element.setAttribute("aria-label", title || t("Rows"));
    const canPlay = source.count > 0 && source.rows.some((row) => row.Type === "Audio" && !row.Disabled);
    const own = source.roles.Context?.Path;
    const key = JSON.stringify([title, picture, canPlay, own, source.roles.Title]);
    if (key === this.#shownHead) return;
    this.#shownHead = key;
    const focused = this.#head.contains(document.activeElement) ? document.activeElement : null;
    const buttons = [];
    if (canPlay) buttons.push(this.#button("play", t("Play"), () => playback.play(this.path), "primary"));
    if (this.#item?.menu) buttons.push(this.#button("more", t("More"), (box) => this.#openItemMenu(box)));
    if (own && own !== this.#item?.menu)
      buttons.push(this.#button("sort", t("Order"), (box) => this.#openOrder(own, box)));
    const { subtitle } = this.#item ?? {};
    const line = subtitle ? el("p", { class: "subtitle", text: subtitle }) : null;
    const actions = buttons.length ? buttonRow(...buttons) : null;
    const about = el("div", { class: "hero-words" }, this.heading, line, actions);
    const row = el("div", { class: "hero-row" }, picture ? cover(picture, title) : null, about);
    fill(this.#head, this.#crumbs(title), row);
    if (!focused) return;
    const before = focused.textContent;
    const same = [...this.#head.querySelectorAll("a, button")].find((one) => one.textContent === before);
    (same ?? this.heading).focus({ preventScroll: true });
  }

  #button(picture, label, run, kind = "") {
    return button([icon(picture), label], (event) => run(boxOf(event)), kind);
  }

  #openOrder(path, box) {
    const { roles } = this.#source;
    const list = { ...roles, Type: "", Path: "", Context: { Path: path } };
    openMenu(list, box);
  }

  #openItemMenu(box) {
    const { title, subtitle, icon: picture, menu, playable, id } = this.#item;
    const row = { Title: title, Description: subtitle, Icon: picture, Id: id, Path: this.path };
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
    if (this.path === home || !this.path.startsWith(`${home}/`)) return [];
    const { base, parameters } = parsePath(this.path);
    const above = [{ path: home, title: t("Home") }];
    if (parameters.has("contentId"))
      above.push({ path: base, title: this.#source.roles.Title || t("List") });
    return above;
  }

  #markPlaying() {
    const { path } = playback.state;
    if (path === this.#playingPath && playback.isPlaying === this.#wasPlaying) return;
    const touched = new Set([path, this.#playingPath]);
    this.#playingPath = path;
    this.#wasPlaying = playback.isPlaying;
    for (const element of this.#list.element.querySelectorAll("li[data-index]")) {
      const index = Number(element.dataset.index);
      if (touched.has(this.#source.row(index)?.Path)) this.#list.refresh(index);
    }
  }
}
