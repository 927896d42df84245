// What is known of the item at a path when nobody came there by its row: an address from elsewhere, a link.

import { getRows, pageSize } from "./api.js";
import { artistAt, artistSearch, idOf, kindOf, listAbove, menuOf, places, topTracksOf } from "./kinds.js";
import { live } from "./live.js";
import { placeOf } from "./rowtext.js";

const mostPages = 4;
const mostKnown = 60;

const known = new Map(); // by path, what was looked up: promises of places

for (const kind of ["acted", "login", "state"]) live.addEventListener(kind, () => known.clear());

async function find(list, id) {
  for (let page = 0; page < mostPages; ++page) {
    const { rows, rowsCount } = await getRows(list, page * pageSize, (page + 1) * pageSize - 1);
    const row = rows.find((one) => one.Id === id);
    if (row || rowsCount <= (page + 1) * pageSize) return row && placeOf(row);
  }
  return null;
}

// An artist's name stands in the rows of its tracks, its picture where one searches for the name.
async function findArtist(path) {
  const id = idOf(path);
  const { rows } = await getRows(topTracksOf(path), 0, pageSize - 1);
  const artists = rows.flatMap((row) => row.ArtistPaths ?? []);
  const title = artists.find((artist) => idOf(artist.Path) === id)?.Title;
  return title && ((await find(artistSearch(title), id)) ?? { title });
}

// The entries of an artist's page are titled on it alone.
async function findPart(path, above) {
  const [{ rows }, artist] = await Promise.all([getRows(above, 0, pageSize - 1), lookUp(above)]);
  const { title: name, icon } = artist;
  const artists = name ? [{ Title: name, Path: above }] : [];
  return { title: rows.find((row) => row.Path === path)?.Title, subtitle: name, icon, artists };
}

async function search(path) {
  const above = artistAt(path);
  if (!kindOf(path) && above) return findPart(path, above).catch(() => ({}));
  const kind = kindOf(path);
  const lists = kind === "playlist" ? [places.myPlaylists, places.lovedPlaylists] : [];
  for (const list of new Set([listAbove(path), ...lists])) {
    const found = list && (await find(list, idOf(path)).catch(() => null));
    if (found) return found;
  }
  const found = kind === "artist" ? await findArtist(path).catch(() => null) : null;
  return { menu: menuOf(path), id: idOf(path), ...found };
}

/** Whether there is something to look up at a path. */
export const isLookedUp = (path) => Boolean(kindOf(path) || artistAt(path));

/**
 * Looks for an item in the list that it was found in, and else where its kind is listed: {title, subtitle,
 * icon, menu, ...}, of which parts may be missing. Never throws.
 */
export function lookUp(path) {
  if (!known.has(path)) known.set(path, search(path));
  if (known.size > mostKnown) known.delete(known.keys().next().value);
  return known.get(path);
}
