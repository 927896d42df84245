// One row of a list as an element: what it shows, and what a click, a key or a long press on it does.

import { openContainer, openMenu, openValue, runAction } from "./menu.js";
import { cover, el, icon, iconButton } from "./dom.js";
import { go, isPlainClick } from "./nav.js";
import { linkTo, loginPath } from "./path.js";
import { playback } from "./playback.js";
import { isChoice, isDialog, isField, isPlayableItem, placeOf, plainValue, subtitleOf, titleOf } from "./rowtext.js";
import { t } from "./text.js";
import { toast } from "./toast.js";

const longPress = 500;

/** A row that is not read yet. */
export function skeleton(kind) {
  return el("li", { class: `item ${kind} skeleton`, "aria-hidden": "true" }, el("span", { class: "cover" }), el("span", { class: "words" }, el("span"), el("span")));
}

/** What a click on the row does. */
export function open(row, anchor = null) {
  if (row.Disabled) return toast(t("“%1” is not available.", titleOf(row)));
  if (row.Path === loginPath) return go(loginPath);
  if (isDialog(row)) return openContainer(row, anchor);
  if (row.Type === "Container") return go(row.Path, placeOf(row));
  if (row.Type === "Audio") return playback.play(row.Path);
  if (row.Type === "Action") return runAction(row);
  if (isChoice(row) || isField(row)) return openValue(row, anchor);
  return undefined;
}

const hasMenu = (row) => Boolean(row.Context?.Path) || (isPlayableItem(row) && row.Type !== "Audio");

function mainOf(row) {
  const label = [titleOf(row), subtitleOf(row), row.Disabled ? t("not available") : ""].filter(Boolean).join(", ");
  const shared = { class: "main", "aria-label": label, "aria-disabled": row.Disabled ? "true" : null };
  if (row.Type === "Container" && !isDialog(row) && row.Path) {
    const link = el("a", { href: linkTo(row.Path), draggable: "false", ...shared });
    link.addEventListener("click", (event) => {
      if (!isPlainClick(event)) return;
      event.preventDefault();
      open(row);
    });
    return link;
  }
  const opens = row.Path && (["Container", "Audio", "Action"].includes(row.Type) || isChoice(row) || isField(row));
  if (!opens) return el("span", { class: "main", tabindex: "-1" });
  return el("button", { type: "button", ...shared, on: { click: (event) => open(row, event.currentTarget.getBoundingClientRect()) } });
}

/** The element of a row. `showsAlbum` tells whether the line below the title names the album. */
export function item(row, kind, { showsAlbum = true } = {}) {
  if (row.Type === "Header") return el("li", { class: "item header" }, el("span", { class: "main", tabindex: "-1", role: "heading", "aria-level": "2", text: row.Title }));
  const isPlaying = row.Type === "Audio" && playback.state.path === row.Path;
  const main = mainOf(row);
  const value = isChoice(row) || isField(row) || row.Type === "Text" ? valueText(row) : "";
  const subtitle = subtitleOf(row, showsAlbum) || value;
  const hasCover = kind === "grid" || row.Icon || row.Type === "Audio" || Boolean(row.Id && row.Type === "Container");
  const glyph = { Container: isDialog(row) ? "plus" : "list", Action: "text" }[row.Type];
  const picture = hasCover ? cover(row.Icon, titleOf(row)) : glyph ? el("span", { class: "glyph" }, icon(glyph)) : null;
  main.append(
    ...[picture, el("span", { class: "words" }, el("span", { class: "title", text: titleOf(row) }), " ", el("span", { class: "subtitle", text: subtitle }))].filter(Boolean),
  );
  if (isPlaying) picture.append(el("span", { class: `playing ${playback.isPlaying ? "moving" : ""}` }, el("i"), el("i"), el("i")));
  const element = el("li", { class: `item ${kind}`, "aria-current": isPlaying ? "true" : null, data: { type: row.Type ?? "" } }, main);
  if (row.Disabled) element.classList.add("disabled");
  if (kind === "grid" && isPlayableItem(row) && !row.Disabled)
    element.append(iconButton("play", t("Play %1", titleOf(row)), () => playback.play(row.Path), { class: "icon-button cover-play", tabindex: "-1" }));
  if (hasMenu(row)) {
    const show = (rectangle) => openMenu(row, rectangle);
    element.append(iconButton("more", t("Menu of %1", titleOf(row)), (event) => show(event.currentTarget.getBoundingClientRect()), { class: "icon-button more", "aria-haspopup": "dialog" }));
    listenForMenu(element, show);
  }
  return element;
}

function valueText(row) {
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
  element.addEventListener("pointermove", (event) => Math.hypot(event.movementX, event.movementY) > 6 && end());
  // The click that ends a long press is none.
  element.addEventListener("click", (event) => wasLong && ((wasLong = false), event.preventDefault(), event.stopPropagation()), { capture: true });
}
