// Doing what a row stands for: sending its value and understanding the reply.

import { getData, setValue } from "./api.js";
import { ask } from "./dialog.js";
import { parsePath } from "./path.js";
import { plainText } from "./rowtext.js";
import { t } from "./text.js";
import { toast } from "./toast.js";

/** The title that an action has now; empty when it cannot be told. */
export const titleNow = (path) => getData(path).then(({ data }) => data.Title, () => "");

/** A playlist goes for good, so that is asked first. */
function needsQuestion(row) {
  const { base, parameters } = parsePath(row.Path);
  return base.endsWith("/removeFromPlaylists") && parameters.get("type") === "Playlists";
}

/**
 * Sends a value to a row; `begun` is told when nothing is asked any more. Resolves with the text that the
 * reply brought, an empty one when there is none, null when the reader thought better of it. Throws what the
 * call was refused with.
 */
export async function activate(row, subject, begun = () => {}) {
  if (needsQuestion(row)) {
    const question = t("“%1” will be deleted from the service. This cannot be undone.", subject);
    const yes = await ask(t("Delete the playlist?"), question, t("Delete"));
    if (!yes) return null;
  }
  begun();
  return understand(await setValue(row.Path), row.Title, row.done);
}

/** The text that a reply brought. */
export function understand({ reply }, title, done = "") {
  const text = reply?.result?.Description;
  if (text) return plainText(text);
  if (done || title) toast(done || t("Done: %1", title));
  return "";
}
