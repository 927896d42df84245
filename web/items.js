// One row of a list as an element: what it shows, and what a click, a key or a long press on it does.

import { openContainer, openMenu, openValue, runAction } from "./menu.js";
import { boxOf, cover, el, icon, iconButton, madeFrom } from "./dom.js";
import { heart } from "./favorites.js";
import { menuOfRow } from "./entries.js";
import { kindOf } from "./kinds.js";
import { albumLink, artistLinks, trackLinks } from "./links.js";
import { go, onPlainClick } from "./nav.js";
import { linkTo, serviceAt } from "./path.js";
import { playback } from "./playback.js";
import {
  artistOf,
  isChoice,
  isDialog,
  isField,
  isPlayableItem,
  placeOf,
  plainValue,
  subtitleOf,
  titleOf,
} from "./rowtext.js";
import { clock, t } from "./text.js";
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
  if (serviceAt(row.Path)) return go(row.Path);
  if (isDialog(row)) return openContainer(row, anchor);
  if (row.Type === "Container") return go(row.Path, placeOf(row));
  if (row.Type === "Audio")
    return playback.isAt(row.Path, place) ? playback.toggle() : playback.play(row.Path, place);
  if (row.Type === "Action") return runAction(row);
  return isChoice(row) || isField(row) ? openValue(row, anchor) : null;
}

const hasMenu = (row) => Boolean(menuOfRow(row)) || (isPlayableItem(row) && row.Type !== "Audio");

// What a click anywhere in the item does: a link, a button, or nothing.
function mainOf(row, place) {
  const title = el("span", { class: "title", text: titleOf(row) });
  const missing = row.Disabled ? t("not available") : "";
  const label = [titleOf(row), subtitleOf(row), missing].filter(Boolean).join(", ");
  const shared = { class: "main", "aria-label": label, "aria-disabled": row.Disabled ? "true" : null };
  if (row.Type === "Container" && !isDialog(row) && row.Path) {
    const link = el("a", { href: linkTo(row.Path), draggable: "false", ...shared }, title);
    onPlainClick(link, () => open(row));
    return link;
  }
  const isDone = ["Container", "Audio", "Action"].includes(row.Type) || isChoice(row) || isField(row);
  if (!row.Path || !isDone) return el("span", { class: "main", tabindex: "-1" }, title);
  const click = ({ currentTarget }) => open(row, currentTarget.closest("li").getBoundingClientRect(), place);
  return el("button", { type: "button", ...shared, on: { click } }, title);
}

function pictureOf(row, kind, index) {
  if (kind === "tracks")
    return el("span", { class: "number", "aria-hidden": "true" }, String(row.TrackNumber ?? index + 1), icon("play"));
  const isItem = row.Type === "Audio" || Boolean(row.Id && row.Type === "Container");
  const pictured = row.Type === "Audio" ? "album" : kindOf(row.Path ?? "");
  if (kind === "grid" || row.Icon || isItem) return cover(row.Icon, titleOf(row), pictured);
  const glyph = { Container: isDialog(row) ? "plus" : "list", Action: "text" }[row.Type];
  return glyph ? el("span", { class: "glyph" }, icon(glyph)) : null;
}

// The line below the title, with links to what it names; on the page of an album or an artist only what is not
// its own.
function lineOf(row, kind, { artist = "" }) {
  const isOwn = Boolean(artist) && `${artist}, `.startsWith(`${artistOf(row)}, `);
  if (isOwn && kind === "tracks") return [];
  if (isOwn && row.Type === "Audio" && kind === "rows") return [albumLink(row)];
  if (row.Type === "Audio") return trackLinks(row, kind !== "tracks");
  if (row.ArtistPaths?.length) return artistLinks(row.ArtistPaths);
  const value = isChoice(row) || isField(row) || row.Type === "Text" ? valueText(row) : "";
  return [subtitleOf(row) || value];
}

/**
 * The element of a row, which has this number in its list, as one of "rows", "tracks" (of an album) or "grid";
 * `page` holds what stands above all of them: {artist}.
 */
export function item(row, kind, list, index, page = {}) {
  if (row.Type === "Header") {
    const heading = { class: "main", tabindex: "-1", role: "heading", "aria-level": "2", text: row.Title };
    return el("li", { class: "item header" }, el("span", heading));
  }
  const isPlaying = row.Type === "Audio" && playback.state.path === row.Path;
  const picture = pictureOf(row, kind, index);
  const line = el("span", { class: "subtitle" }, lineOf(row, kind, page));
  const words = el("span", { class: "words" }, mainOf(row, { list, index }), " ", line);
  const moving = playback.isPlaying ? "moving" : "";
  if (isPlaying) picture.append(el("span", { class: `playing ${moving}` }, el("i"), el("i"), el("i")));
  const current = isPlaying ? "true" : null;
  const data = { type: row.Type ?? "", kind: kindOf(row.Path ?? "") };
  const element = el("li", { class: `item ${kind}`, "aria-current": current, data }, picture, words);
  if (row.Disabled) element.classList.add("disabled");
  const loved = kind === "grid" ? null : heart(row, { tabindex: "-1" });
  if (loved) element.append(loved);
  if (row.Type === "Audio" && row.Duration && kind !== "grid")
    element.append(el("span", { class: "length" }, clock(row.Duration)));
  if (kind === "grid" && (isPlayableItem(row) || row.isPlayed) && !row.Disabled) {
    const properties = { class: "icon-button cover-play", tabindex: "-1" };
    const play = () => playback.play(row.Path);
    element.append(iconButton("play", t("Play %1", titleOf(row)), play, properties));
  }
  if (hasMenu(row)) {
    const pick = () => element.dispatchEvent(new Event("pick", { bubbles: true }));
    const canPick = () => Boolean(row.Id && row.Context?.Path && element.closest("[data-selectable]"));
    const show = (rectangle) => openMenu(row, rectangle, canPick() && pick);
    const hold = (rectangle) => (canPick() ? pick() : show(rectangle));
    const properties = { class: "icon-button more", "aria-haspopup": "dialog" };
    const more = t("Menu of %1", titleOf(row));
    element.append(iconButton("more", more, (event) => show(boxOf(event)), properties));
    listenForMenu(element, show, hold);
  }
  return madeFrom(element, row);
}

/** A plain value in words; empty where there is none. */
export function valueText(row) {
  const value = plainValue(row.Value);
  if (typeof value === "boolean") return value ? t("On") : t("Off");
  return value === undefined || value === null || typeof value === "object" ? "" : String(value);
}

// Right click, the menu key and Shift+F10 come as "contextmenu", and so does a long press, but not everywhere.
function listenForMenu(element, show, hold) {
  let timer = 0;
  const end = () => clearTimeout(timer);
  const at = (x, y) => new DOMRect(x, y, 0, 0);
  const holdAt = (x, y) => {
    element.isHeld = true;
    hold(at(x, y));
  };
  element.addEventListener("contextmenu", (event) => {
    event.preventDefault();
    end();
    if (element.isHeld) return undefined;
    const { clientX, clientY } = event;
    if (event.pointerType === "touch") return holdAt(clientX, clientY);
    const isKey = clientX === 0 && clientY === 0;
    return show(isKey ? element.getBoundingClientRect() : at(clientX, clientY));
  });
  element.addEventListener("pointerdown", (event) => {
    end();
    element.isHeld = false;
    if (event.pointerType === "touch") timer = setTimeout(holdAt, longPress, event.clientX, event.clientY);
  });
  for (const type of ["pointerup", "pointercancel", "pointerleave"]) element.addEventListener(type, end);
  element.addEventListener("pointermove", (event) => {
    if (Math.hypot(event.movementX, event.movementY) > 6) end();
  });
  // The click that ends a long press is none.
  const swallow = (event) => {
    if (!element.isHeld) return;
    element.isHeld = false;
    event.preventDefault();
    event.stopPropagation();
  };
  element.addEventListener("click", swallow, { capture: true });
}
