// Links to artists, albums and lists, wherever they are named.

import { el } from "./dom.js";
import { go, onPlainClick } from "./nav.js";
import { linkTo } from "./path.js";
import { albumOf, artistOf } from "./rowtext.js";

/** A link to a path; `item` is what is known of what stands there, `place` where in it. */
export function placeLink(path, text, item = { title: text }, properties = {}, place = null) {
  const link = el("a", { href: linkTo(path), draggable: "false", ...properties }, text);
  onPlainClick(link, () => go(path, item, false, place));
  return link;
}

/** The names of artists ({Title, Path}) as links; the text where there are none. */
export const artistLinks = (artists, text = "") =>
  artists?.length
    ? artists.flatMap(({ Title, Path }, index) => [index ? ", " : "", placeLink(Path, Title)])
    : [text];

/** The name of a row's album, as a link where it is known to stand somewhere. */
export function albumLink(row) {
  const title = albumOf(row);
  return row.AlbumPath && title
    ? placeLink(row.AlbumPath, title, { title, icon: row.Icon ?? "" })
    : title;
}

/** The line below a track's title: its artists and, unless it is shown already, its album. */
export function trackLinks(row, showsAlbum = true) {
  const album = showsAlbum && albumOf(row);
  const artists = artistLinks(row.ArtistPaths, artistOf(row));
  return [...artists, album && artistOf(row) ? " · " : "", album ? albumLink(row) : ""];
}
