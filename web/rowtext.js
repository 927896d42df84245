// What a row says of itself, in the words that are shown.

import { kindOf } from "./kinds.js";

/** The title; a track's without the artist that it ends with, which stands in the line below. */
export function titleOf(row) {
  const title = row.Title ?? "";
  return row.Type === "Audio" ? withoutArtist(title, row.Description || metaData(row).artist || "") : title;
}

/** A title without the " - artist" that it ends with: the first, or the first few, of those named. */
export function withoutArtist(title, artists) {
  const at = title.lastIndexOf(" - ");
  const ending = title.slice(at + 3);
  const isArtist = artists === ending || artists.startsWith(`${ending}, `);
  return at > 0 && ending && isArtist ? title.slice(0, at) : title;
}

const metaData = (row) => row.MediaData?.metaData ?? {};

export const artistOf = (row) => row.Description || metaData(row).artist || "";
export const albumOf = (row) => metaData(row).album || "";

/** The line below the title. */
export function subtitleOf(row, isAlbumShown = true) {
  // An action's description may be the address that it reads from.
  if (row.Type === "Action" && /^https?:/.test(row.Description ?? "")) return "";
  if (row.Type !== "Audio") return row.Description ?? "";
  return [artistOf(row), isAlbumShown ? albumOf(row) : ""].filter(Boolean).join(" · ");
}

/** What a view needs to know of a row that leads to it. */
export function placeOf(row) {
  return {
    title: titleOf(row),
    subtitle: row.Description ?? "",
    icon: row.Icon ?? "",
    menu: row.Context?.Path ?? "",
    playable: isPlayableItem(row),
    id: row.Id ?? "",
    artists: row.ArtistPaths,
    year: row.ReleaseYear,
    length: row.Duration,
    summary: row.Summary,
  };
}

/** A container that is an item of its own, whose rows are what is played: an album, a playlist. */
export const isPlayableItem = (row) =>
  row.Type === "Audio" ||
  (row.Type === "Container" &&
    Boolean(row.Id) &&
    row.ContainerPlayable === true &&
    ["album", "playlist"].includes(kindOf(row.Path)));

/** Whether a row leads to a menu or a form, which open over the list. */
export const isDialog = (row) => row.Type === "Container" && row.ContainerType === "List";

/** The plain value of a typed one, for example "x" of {"string_":"x","type":"string_"}. */
export function plainValue(value) {
  if (value === null || typeof value !== "object") return value;
  return value.type in value ? value[value.type] : undefined;
}

export const sameValue = (one, other) =>
  JSON.stringify(plainValue(one) ?? null) === JSON.stringify(plainValue(other) ?? null);

/** Whether the reader can type a value of this row. */
export const isField = (row) =>
  row.Type === "Text" &&
  row.ReadOnly !== true &&
  ["string", "number", "boolean"].includes(typeof plainValue(row.Value)) &&
  !row.Edit?.enumPath;
export const isChoice = (row) => Boolean(row.Edit?.enumPath);

/** Line breaks that came as markup, as line breaks; everything else stays the text that it is. */
export const plainText = (text) => text.replace(/<br\s*\/?>/gi, "\n");
