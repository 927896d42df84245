// What an edit, told by the event "acted", has changed.

import { home, parsePath } from "./path.js";

/** What a favourite's path is about: {type, id}. */
export function subjectOf(path) {
  const { parameters } = parsePath(path);
  return { type: parameters.get("type") ?? "", id: parameters.get("id") ?? "" };
}

/** Whether the edit makes something a favourite, or none any more. */
export const isFavoring = (edit) => ["favorite", "unfavorite"].includes(edit?.action);

/** Whether the rows at a path may be other ones after an edit, without one after whatever there was. */
export function isTouched(path, edit) {
  const { base, parameters } = parsePath(path);
  if (!edit) return base === home || base.startsWith(`${home}/`);
  const isFavorites = (type) => base.includes(`/favorites/users/${type}`);
  if (isFavoring(edit)) return isFavorites(subjectOf(edit.path).type.toLowerCase());
  const playlist = parsePath(edit.item ?? "").parameters.get("contentId");
  if (parameters.has("contentId")) return parameters.get("contentId") === playlist;
  return base.includes("/created/users/playlists") || isFavorites("playlists");
}
