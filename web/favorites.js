// What is a favourite, and the hearts that show and change it.

import { getIds, setFavorite } from "./api.js";
import { el, fill, iconButton, setIconButton } from "./dom.js";
import { isFavoring, subjectOf } from "./edits.js";
import { live } from "./live.js";
import { home, homeLogin, parsePath } from "./path.js";
import { playback } from "./playback.js";
import { titleOf } from "./rowtext.js";
import { t } from "./text.js";
import { toast, toastError } from "./toast.js";

const pageSize = 500;
const mostPages = 20;
const readAfter = 200;
const patience = 3000;

/** By kind: the ids as far as they are known, and what has changed since they were asked for. */
const kinds = new Map(["Tracks", "Albums", "Artists", "Playlists"].map((type) => [type, unread()]));

function unread() {
  return { ids: new Set(), changes: new Map(), reading: null };
}

const isOn = ({ type, id }) => kinds.get(type).ids.has(id);

// Read once, when the first heart of a kind is shown, behind what the view itself needs.
function need(type) {
  const kind = kinds.get(type);
  kind.reading ??= new Promise((resolve) => setTimeout(resolve, readAfter))
    .then(() => readIds(type))
    .then((ids) => {
      if (kinds.get(type) !== kind) return;
      kind.ids = ids;
      for (const [id, isFavorite] of kind.changes) change(kind, id, isFavorite);
      paintAll();
    })
    .catch(() => (kind.reading = null));
  return kind.reading;
}

async function readIds(type) {
  const path = `${home}/myMusic/req/favorites/users/${type.toLowerCase()}`;
  const ids = new Set();
  for (let page = 0; page < mostPages; ++page) {
    const { rows, rowsCount } = await getIds(path, page * pageSize, (page + 1) * pageSize - 1);
    for (const { Id } of rows) if (Id) ids.add(Id);
    if ((page + 1) * pageSize >= rowsCount) break;
  }
  return ids;
}

function change(kind, id, isFavorite) {
  if (isFavorite) kind.ids.add(id);
  else kind.ids.delete(id);
}

function note({ type, id }, isFavorite) {
  const kind = kinds.get(type);
  if (!kind) return;
  kind.changes.set(id, isFavorite);
  change(kind, id, isFavorite);
  paintAll();
}

// Somebody else's favourites, or changes that nobody told of: those that are shown are asked for again.
function forget(keepsIds) {
  for (const [type, { ids }] of kinds) kinds.set(type, keepsIds ? { ...unread(), ids } : unread());
  paintAll();
  for (const { subject } of hearts()) need(subject.type);
}

const hearts = () => document.querySelectorAll(".heart");

function paint(button) {
  const { subject } = button;
  const isFavorite = isOn(subject);
  button.classList.toggle("on", isFavorite);
  const { title } = subject;
  const label = isFavorite ? t("Remove from favorites: %1", title) : t("Add to favorites: %1", title);
  setIconButton(button, isFavorite ? "heart-full" : "heart", label);
}

function paintAll() {
  for (const one of hearts()) paint(one);
}

/** What a row's heart is about; null for what is no favourite of anybody, and for one's own playlists. */
function aboutRow(row) {
  const menu = row.Context?.Path ?? "";
  const { base } = parsePath(menu);
  const { type, id } = subjectOf(menu);
  const isOwn = base.endsWith("/playlistcontext");
  const isItem = id && kinds.has(type) && (row.Id ?? id) === id && !isOwn;
  return isItem ? { type, id, title: titleOf(row), action: menu.replace(base, `${base}/favorites`) } : null;
}

/**
 * The heart of a row, or of anything with a Context.Path and a Title; null for what cannot be a favourite. It
 * follows what becomes a favourite anywhere. In a list, where L stands for it, it takes no part in the tab
 * order: `properties` are then {tabindex: "-1"}.
 */
export function heart(row, properties = {}) {
  const subject = aboutRow(row);
  if (!subject) return null;
  const own = { class: "icon-button heart", ...properties };
  const button = iconButton("heart", "", () => toggle(subject), own);
  button.subject = subject;
  need(subject.type);
  paint(button);
  return button;
}

/** The heart of what plays, which is another one with each track; it follows the player until the signal. */
export function heartOfPlaying(signal) {
  const place = el("span", { class: "playing-heart" });
  let shown = "";
  const show = () => {
    const { path = "", title = "" } = playback.state;
    const id = (/^\d+$/.test(path) ? path : parsePath(path).parameters.get("trackId")) ?? "";
    if (shown === id + title) return;
    shown = id + title;
    const menu = `${home}/context?id=${id}&type=Tracks`;
    fill(place, id ? heart({ Title: title, Context: { Path: menu } }) : null);
  };
  playback.addEventListener("changed", show, { signal });
  show();
  return place;
}

async function toggle(subject) {
  await need(subject.type);
  return favor([subject], !isOn(subject));
}

/** What can be done with several rows as one: {title, icon, run}; null where not all of them can be favourites. */
export async function favorSeveral(rows) {
  const subjects = rows.map(aboutRow);
  if (!subjects.every(Boolean)) return null;
  for (const { type } of subjects) await need(type);
  const others = subjects.filter((one) => !isOn(one));
  if (!others.length)
    return { title: t("Remove from favorites"), icon: "heart-full", run: () => favor(subjects, false) };
  return { title: t("Add to favorites"), icon: "heart", run: () => favor(others, true) };
}

function favoredText(count, isWanted) {
  if (count === 1) return isWanted ? t("Added to favorites") : t("Removed from favorites");
  return isWanted ? t("%1 added to favorites", count) : t("%1 removed from favorites", count);
}

async function favor(subjects, isWanted) {
  for (const subject of subjects) note(subject, isWanted);
  const done = [];
  let failed = null;
  for (const subject of subjects) {
    const confirmed = told(subject);
    try {
      if (!failed) await setFavorite(subject.action, isWanted);
    } catch (error) {
      failed = error;
    }
    if (failed) note(subject, !isWanted);
    else done.push([subject, confirmed]);
  }
  if (failed) toastError(failed);
  if (!done.length) return;
  const changed = done.map(([subject]) => subject);
  const undo = { title: t("Undo"), run: () => favor(changed, !isWanted) };
  toast(favoredText(changed.length, isWanted), undo);
  // The service's refusal is answered like a success: nothing is told then.
  let isRefused = false;
  for (const [subject, confirmed] of done) {
    if ((await confirmed) || !live.isConnected || isOn(subject) !== isWanted) continue;
    note(subject, !isWanted);
    isRefused = true;
  }
  if (isRefused) toastError(t("The service has refused this."));
}

/** Whether the stream tells of the edit, before long. */
function told({ type, id }) {
  return new Promise((resolve) => {
    const end = new AbortController();
    const finish = (isTold) => (end.abort(), resolve(isTold));
    const look = ({ detail }) => {
      const edited = isFavoring(detail) && subjectOf(detail.path);
      if (edited.type === type && edited.id === id) finish(true);
    };
    live.addEventListener("acted", look, { signal: end.signal });
    setTimeout(() => finish(false), patience);
  });
}

live.addEventListener("acted", ({ detail }) => {
  if (isFavoring(detail)) note(subjectOf(detail.path), detail.action === "favorite");
});
live.addEventListener("state", ({ detail }) => detail && forget(true));
live.addEventListener("login", ({ detail: { service, was, loggedIn } }) => {
  if (service === homeLogin && was === !loggedIn) forget(false);
});
