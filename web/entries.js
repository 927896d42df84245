// What the page calls the entries of the tree's menus, and which of them it shows: the tree's own titles are
// short names for screens of every kind. Entries are known by where they stand.

import { idOf, kindOf, places } from "./kinds.js";
import { home, parsePath, withoutParameters, withParameter } from "./path.js";
import { plainValue } from "./rowtext.js";
import { t } from "./text.js";

const isOfPlaylist = ({ parameters }) => parameters.get("type") === "Playlists";

const isForSeveral = true;

const known = [
  [/\/favorites$/, () => ({ icon: "heart", isForSeveral })],
  [/\/addToPlaylists\//, () => ({ title: t("Add to playlist…"), icon: "plus", isForSeveral })],
  [/\/addToPlaylists$/, (at, row) => ({ done: t("Added to “%1”", row.Title), isForSeveral })],
  [/\/createPlaylist$/, () => ({ title: t("New playlist…"), icon: "plus" })],
  [/\/removeFromPlaylists$/, (at) => (isOfPlaylist(at) ? deletion() : removal())],
  [/\/updatePlaylists$/, (at) => ({
    title: isOfPlaylist(at) ? t("Edit details…") : t("Edit playlist details…"),
    icon: "pen",
    done: t("Saved"),
  })],
  [/\/moveTrack$/, () => ({ title: t("Move to position…"), icon: "move", isForSeveral })],
  [/\/moveTrack\/move$/, () => ({ title: t("Move") })],
  [/\/req\/artists$/, (at, row) => ({ title: t("Go to artist"), icon: "person", ...leading(row) })],
  [/\/req\/albums$/, (at, row) => ({ title: t("Go to album"), icon: "album", ...leading(row) })],
];

const leading = (row) => ({ detail: row.Title, leadsAway: true });
const deletion = () => ({ title: t("Delete playlist…"), icon: "trash", done: t("Deleted"), isLast: true });
const removal = () => ({
  title: t("Remove from this playlist"),
  icon: "trash",
  done: t("Removed from the playlist"),
  isLast: true,
  isForSeveral,
});

/**
 * What is said of an entry: {title, icon, detail, done}, `done` when it has been done. With `leadsAway` it is
 * a place to go to; what `isForSeveral` can be done with several rows.
 */
export function entryOf(row) {
  const at = parsePath(row.Path ?? "");
  const make = at.base.startsWith(home) && known.find(([pattern]) => pattern.test(at.base))?.[1];
  return { title: row.Title, ...(make && make(at, row)) };
}

/** The rows of a menu in the order of the page: what takes away stands last, without needless headers. */
export function inOrder(rows) {
  const isLink = (row) => row && entryOf(row).leadsAway;
  const shown = rows.filter((row, index) => row.Type !== "Header" || !isLink(rows[index + 1]));
  const isLast = (row) => Boolean(entryOf(row).isLast);
  return [...shown.filter((row) => !isLast(row)), ...shown.filter(isLast)];
}

const orderMenus = /\/(trackOrdering|ordering)context$/;
const mine = { ...places, myTracks: places.myAlbums.replace(/albums$/, "tracks") };
const { myAlbums, myArtists, myTracks, myPlaylists, lovedPlaylists } = mine;
const ordersOf = {
  [myAlbums]: ["Name", "Date", "Artist", "Release_Date"],
  [myArtists]: ["Name", "Date"],
  [myTracks]: ["Name", "Date", "Artist", "Album", "Length"],
  [myPlaylists]: ["Name", "Date"],
  [lovedPlaylists]: ["Name", "Date"],
};

/** The menu that orders the list at a path; empty where none does. `menu` is what the tree offers there. */
export function orderMenuOf(path, menu = "") {
  if (kindOf(path) === "playlist") return `${home}/trackOrderingcontext`;
  return orderMenus.test(menu) && !ordersOf[path] ? "" : menu;
}

/** Whether a row of a list does nothing, and is left out. */
export const isIdle = ({ Path = "" }) => Path.startsWith(`${myArtists}/www`);

/** The menu of a row; empty where it would do nothing for it. */
export function menuOfRow(row) {
  const menu = row.Context?.Path ?? "";
  const isOfArtist = parsePath(menu).base.endsWith("/basecontext") && !row.Id;
  return isOfArtist || orderMenus.test(menu) ? "" : menu;
}

/** Whether an entry of a menu does something at a path where the menu was opened. */
export function isUseful(row, path) {
  const { Path = "" } = row;
  if (parsePath(Path).base.endsWith("/orderingcontext/filter")) return path === myPlaylists;
  return !entryOf(row).leadsAway || kindOf(Path) !== kindOf(path) || idOf(Path) !== idOf(path);
}

const orderNames = () => ({
  Date: t("Date added"),
  Artist: t("Artist"),
  Album: t("Album"),
  Length: t("Length"),
  Index: t("Playlist order"),
  Release_Date: t("Release date"),
});

const qualityNames = () => [
  t("Low, AAC 96 kbit/s"),
  t("High, AAC 320 kbit/s"),
  t("Lossless, FLAC 16 bit 44.1 kHz"),
  t("Hi-Res, up to 24 bit 96 kHz"),
];

/** The choices that do something for the list at a path, in words; `row` is what they are choices of. */
export function choicesOf(row, choices, path = "") {
  const { base } = parsePath(row.Path);
  const isOrder = /\/(trackOrdering|ordering)context\/order$/.test(base);
  const orders = (base.endsWith("/orderingcontext/order") && ordersOf[path]) || null;
  const names = isOrder ? orderNames() : {};
  const wordsOf = (value) => names[value] ?? qualityNames()[value?.soundQuality];
  const useful = choices.filter(({ Value }) => !orders || orders.includes(plainValue(Value)));
  return useful.map((choice) => ({ ...choice, Title: wordsOf(plainValue(choice.Value)) ?? choice.Title }));
}

/**
 * Where an entry stands for each of several rows of a list, in the order in which to take them: what goes from
 * further down leaves the places above as they are, and what has moved to the top shifts them by one.
 */
export function entryForEach(path, rows) {
  const { base } = parsePath(path);
  const isMove = base.endsWith("/moveTrack");
  const inTurn = isMove || base.endsWith("/removeFromPlaylists") ? [...rows].reverse() : rows;
  return inTurn.map((row, moved) => {
    const { parameters } = parsePath(row.Context.Path);
    let own = withoutParameters(path, ["artists"]);
    for (const name of ["artists", "id", "rowNum", "type"]) {
      const value = parameters.get(name);
      if (value) own = withParameter(own, name, name === "rowNum" && isMove ? Number(value) + moved : value);
    }
    return own;
  });
}
