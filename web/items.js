// One row of a list as an element: what it shows, and what a click, a key or a long press on it does.

import { openContainer, openMenu, openValue, runAction } from "./menu.js";
import { boxOf, cover, el, icon, iconButton, twoLines } from "./dom.js";
import { go, onPlainClick } from "./nav.js";
import { linkTo, loginPath } from "./path.js";
import { playback } from "./playback.js";
import {
  isChoice,
  isDialog,
  isField,
  isPlayableItem,
  placeOf,
  plainValue,
  subtitleOf,
  titleOf,
} from "./rowtext.js";
import { t } from "./text.js";
import { toast } from "./toast.js";

const longPress = 500;

/** A row that is not read yet. */
export function skeleton(kind) {
  const words = el("span", { class: "words" }, el("span"), el("span"));
  const properties = { class: `item ${kind} skeleton`, "aria-hidden": "true" };
  return el("li", properties, el("span", { class: "cover" }), words);
}

/** What a click on the row does; `place` is the {list, index} that it stands at. */
export function open(row, anchor = null, place = {}) {
  if (row.Disabled) return toast(t("“%1” is not available.", titleOf(row)));
  if (row.Path === loginPath) return go(loginPath);
  if (isDialog(row)) return openContainer(row, anchor);
  if (row.Type === "Container") return go(row.Path, placeOf(row));
  if (row.Type === "Audio") return playback.play(row.Path, place);
  if (row.Type === "Action") return runAction(row);
  return isChoice(row) || isField(row) ? openValue(row, anchor) : null;
}

const hasMenu = (row) => Boolean(row.Context?.Path) || (isPlayableItem(row) && row.Type !== "Audio");

function mainOf(row, place) {
  const missing = row.Disabled ? t("not available") : "";
  const label = [titleOf(row), subtitleOf(row), missing].filter(Boolean).join(", ");
  const shared = { class: "main", "aria-label": label, "aria-disabled": row.Disabled ? "true" : null };
  if (row.Type === "Container" && !isDialog(row) && row.Path) {
    const link = el("a", { href: linkTo(row.Path), draggable: "false", ...shared });
    onPlainClick(link, () => open(row));
    return link;
  }
  const isDone = ["Container", "Audio", "Action"].includes(row.Type) || isChoice(row) || isField(row);
  if (!row.Path || !isDone) return el("span", { class: "main", tabindex: "-1" });
  const click = (event) => open(row, boxOf(event), place);
  return el("button", { type: "button", ...shared, on: { click } });
}

/** The element of a row, which has this number in its list; `showsAlbum`: the line below its title does. */
export function item(row, kind, list, index, showsAlbum = true) {
  if (row.Type === "Header") {
    const heading = { class: "main", tabindex: "-1", role: "heading", "aria-level": "2", text: row.Title };
    return el("li", { class: "item header" }, el("span", heading));
  }
  const isPlaying = row.Type === "Audio" && playback.state.path === row.Path;
  const main = mainOf(row, { list, index });
  const value = isChoice(row) || isField(row) || row.Type === "Text" ? valueText(row) : "";
  const subtitle = subtitleOf(row, showsAlbum) || value;
  const isItem = row.Type === "Audio" || Boolean(row.Id && row.Type === "Container");
  const hasCover = kind === "grid" || row.Icon || isItem;
  const glyph = { Container: isDialog(row) ? "plus" : "list", Action: "text" }[row.Type];
  const sign = glyph ? el("span", { class: "glyph" }, icon(glyph)) : null;
  const picture = hasCover ? cover(row.Icon, titleOf(row)) : sign;
  if (picture) main.append(picture);
  main.append(twoLines(titleOf(row), subtitle));
  const moving = playback.isPlaying ? "moving" : "";
  if (isPlaying) picture.append(el("span", { class: `playing ${moving}` }, el("i"), el("i"), el("i")));
  const current = isPlaying ? "true" : null;
  const data = { type: row.Type ?? "" };
  const element = el("li", { class: `item ${kind}`, "aria-current": current, data }, main);
  if (row.Disabled) element.classList.add("disabled");
  if (kind === "grid" && isPlayableItem(row) && !row.Disabled) {
    const properties = { class: "icon-button cover-play", tabindex: "-1" };
    const play = () => playback.play(row.Path);
    element.append(iconButton("play", t("Play %1", titleOf(row)), play, properties));
  }
  if (hasMenu(row)) {
    const show = (rectangle) => openMenu(row, rectangle);
    const properties = { class: "icon-button more", "aria-haspopup": "dialog" };
    const more = t("Menu of %1", titleOf(row));
    element.append(iconButton("more", more, (event) => show(boxOf(event)), properties));
    listenForMenu(element, show);
  }
  return element;
}

/** A plain value in words; empty where there is none. */
export function valueText(row) {
  const value = plainValue(row.Value);
  if (typeof value === "boolean") return value ? t("On") : t("Off");
  return value === undefined || value === null || typeof value === "object" ? "" : String(value);
}

// Right click, the menu key and Shift+F10 come as "contextmenu"; a long press does not everywhere.
function listenForMenu(element, show) {
  let timer = 0;
  let wasLong = false;
  const end = () => clearTimeout(timer);
  const at = (x, y) => new DOMRect(x, y, 0, 0);
  element.addEventListener("contextmenu", (event) => {
    event.preventDefault();
    end();
    if (wasLong) return;
    wasLong = event.pointerType === "touch";
    const isKey = event.clientX === 0 && event.clientY === 0;
    show(isKey ? element.getBoundingClientRect() : at(event.clientX, event.clientY));
  });
  element.addEventListener("pointerdown", (event) => {
    end();
    wasLong = false;
    if (event.pointerType !== "touch") return;
    const { clientX, clientY } = event;
    timer = setTimeout(() => {
      wasLong = true;
      show(at(clientX, clientY));
    }, longPress);
  });
  for (const type of ["pointerup", "pointercancel", "pointerleave"]) element.addEventListener(type, end);
  element.addEventListener("pointermove", (event) => {
    if (Math.hypot(event.movementX, event.movementY) > 6) end();
  });
  // The click that ends a long press is none.
  const swallow = (event) => {
    if (!wasLong) return;
    wasLong = false;
    event.preventDefault();
    event.stopPropagation();
  };
  element.addEventListener("click", swallow, { capture: true });
}
