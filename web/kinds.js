// Which kind of thing stands at a path, and where the page finds more of it. Nothing else looks into paths
// for that.

import { home, parsePath, withoutParameters, withParameter } from "./path.js";

const mine = `${home}/myMusic/req/favorites/users/`;
const featured = `${home}/req/featured/`;

/** Lists of the tree that the page itself leads to. */
export const places = {
  myAlbums: `${mine}albums`,
  myArtists: `${mine}artists`,
  myPlaylists: `${home}/myMusic/req/created/users/playlists`,
  lovedPlaylists: `${mine}playlists`,
  newAlbums: `${featured}new/albums`,
  recommendedAlbums: `${featured}recommended/albums`,
  recommendedPlaylists: `${featured}recommended/playlists`,
  moods: `${home}/playlists`,
};

/** "artist", "album" or "playlist"; empty for lists, menus and whatever else. */
export function kindOf(path) {
  const { base, parameters } = parsePath(path);
  if (!base.startsWith(`${home}/`)) return "";
  if (parameters.has("playlistId")) return "playlist";
  if (parameters.has("contentId")) return "album";
  return parameters.has("artistId") && !parameters.has("artistContent") ? "artist" : "";
}

/** How the rows of a path will be shown, as far as the path tells: as "tracks" of an album, "grid" or "rows". */
export function lookOf(path) {
  const kind = kindOf(path);
  if (kind) return kind === "album" ? "tracks" : "rows";
  const last = artistPart(path) || parsePath(path).base.split("/").pop();
  return /^(albums|artists|playlists|genres|similar|playlistscreatedby)$/.test(last) ? "grid" : "rows";
}

const idParameters = { album: "contentId", playlist: "playlistId", artist: "artistId" };

/** The service's id of the item at a path; empty for a list. */
export const idOf = (path) => parsePath(path).parameters.get(idParameters[kindOf(path)]) ?? "";

/** Where the menu of an item stands when no row is at hand that says it. */
export function menuOf(path) {
  const kind = kindOf(path);
  if (!kind) return "";
  const menu = `${home}/${kind === "artist" ? "basecontext" : "context"}`;
  return `${menu}?id=${idOf(path)}&type=${kind[0].toUpperCase()}${kind.slice(1)}s`;
}

/** What an entry of an artist's page leads to: "toptracks", "bio", "albums", "similar", "radio", ... */
export const artistPart = (path) => parsePath(path).parameters.get("artistContent") ?? "";

/** The list that an item was found in; empty where the path names the item alone. */
export function listAbove(path) {
  const kind = kindOf(path);
  const names = kind === "artist" ? ["artistId", "artistUrl"] : ["contentId", "playlistId", "ETag"];
  const above = withoutParameters(path, names).replace(/\/req\/artists\/(albums|playlists)\?/, "/req/artists?");
  return !kind || /\/req\/(albums|artists(\/\w+)?|playlists)$/.test(above) ? "" : above;
}

/** Where an artist's top tracks are listed. */
export const topTracksOf = (path) => withParameter(path, "artistContent", "toptracks");

/** The artists that a text finds. */
export const artistSearch = (text) => withParameter(`${home}/search/choose/req/artists`, "query", text);

/** The artist that an entry of an artist's page belongs to; empty for other paths. */
export const artistAt = (path) =>
  artistPart(path) ? withoutParameters(path, ["artistContent", "artistAlbumContent"]) : "";
