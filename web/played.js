// What plays, as a row with its links, and what was played before: the lists, the last one first, kept in
// this browser, which is to say for this streamer.

import { pageSize } from "./api.js";
import { idOf, kindOf, menuOf } from "./kinds.js";
import { live } from "./live.js";
import { isLookedUp, lookUp } from "./lookup.js";
import { home, topOf } from "./path.js";
import { playback } from "./playback.js";
import { pageAt } from "./recent.js";

const key = "played";
const most = 24;

function read() {
  try {
    const kept = JSON.parse(localStorage.getItem(key));
    return Array.isArray(kept) ? kept.filter((one) => one?.row?.Path && one.at?.path) : [];
  } catch {
    return [];
  }
}

// Whether the module of a list shows it: one without a login does, TIDAL when its login is known.
function isLoggedInFor(list) {
  const top = topOf(list);
  const login = live.logins.get(top.slice(1));
  return login ? login.loggedIn : top !== home;
}

const nameOf = (path) => (idOf(path) ? `${kindOf(path)} ${idOf(path)}` : path);

// What is known of a list that plays: an album by its track, else what the lists above say.
async function itemOf(path, { album, artist, icon, listTitle }, roles, row) {
  const artists = row?.ArtistPaths;
  if (kindOf(path) === "album") return { title: album, subtitle: artist, icon, artists, menu: menuOf(path) };
  if (isLookedUp(path)) {
    const found = await lookUp(path);
    return { ...found, icon: found.icon || icon };
  }
  return { title: listTitle || roles.Title || artist, icon };
}

/** Events: "changed" when what plays is known to have other links, or another list was played. */
class Played extends EventTarget {
  /** The row that plays; null while it is not known. */
  row = null;
  /** Its list: {path, item}; null while it is not known. */
  list = null;
  #seen = "";

  start() {
    playback.addEventListener("changed", () => this.#follow());
    live.addEventListener("login", () => this.#follow());
  }

  /** Lists as rows, with what played last in them: [{row, at: {path, list, index, title, artist, icon}}]. */
  get lists() {
    return read();
  }

  async #follow() {
    const { state } = playback;
    const { path, list, index = -1, title = "", artist = "", icon = "" } = state;
    const isOpen = isLoggedInFor(list ?? "");
    const seen = [path, list, index, isOpen].join("\n");
    if (seen === this.#seen) return;
    this.#seen = seen;
    this.row = null;
    if (this.list?.path !== list) this.list = null;
    this.#tell();
    if (!path || !list || index < 0 || !isOpen) return;
    const { rows = [], roles = {} } = await pageAt(list, Math.floor(index / pageSize)).catch(() => ({}));
    const row = rows.find((one) => one.Path === path) ?? null;
    const item = this.list?.item ?? (await itemOf(list, state, roles, row));
    if (seen !== this.#seen) return;
    this.row = row;
    this.list = { path: list, item };
    this.#keep({ path, list, index, title, artist, icon });
    this.#tell();
  }

  #keep(at) {
    const { title, subtitle = "", icon, menu = "", artists } = this.list.item;
    const row = { Type: "Container", Path: at.list, Title: title || at.title, Description: subtitle, Icon: icon };
    Object.assign(row, { Id: idOf(at.list), ArtistPaths: artists, ContainerPlayable: true, isPlayed: true });
    if (menu) row.Context = { Path: menu };
    const others = read().filter((one) => nameOf(one.row.Path) !== nameOf(at.list));
    try {
      localStorage.setItem(key, JSON.stringify([{ row, at }, ...others].slice(0, most)));
    } catch {
      // a browser that keeps nothing shows what plays all the same
    }
  }

  #tell() {
    this.dispatchEvent(new Event("changed"));
  }
}

export const played = new Played();
