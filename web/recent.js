// The rows of recent places, kept for those who go back. The places stay followed: a notice ends their rows.

import { getRows, pageSize } from "./api.js";
import { isTouched } from "./edits.js";
import { live } from "./live.js";
import { RowSource } from "./rows.js";

const mostPlaces = 24;
const mostPages = 20;
const freshFor = 60000;

const places = new Map(); // by path its pages, by number: {answer, at}; what was read last stands last

const follow = () => live.follow(places, [...places.keys()]);

function forget(path) {
  if (places.delete(path)) follow();
}

/** Forgets all places: what is there may be another one. */
export function forgetPlaces() {
  places.clear();
  follow();
}

live.addEventListener("rows", ({ detail }) => forget(detail.path));
live.addEventListener("acted", ({ detail }) => {
  for (const path of [...places.keys()]) if (isTouched(path, detail)) forget(path);
});
live.addEventListener("state", forgetPlaces);

function ask(path, page, signal) {
  const pages = places.get(path) ?? new Map();
  places.delete(path);
  places.set(path, pages);
  const answer = getRows(path, page * pageSize, (page + 1) * pageSize - 1, signal);
  pages.set(page, { answer, at: performance.now() });
  if (pages.size > mostPages) pages.delete(pages.keys().next().value);
  if (places.size > mostPlaces) places.delete(places.keys().next().value);
  follow();
  answer.catch(() => {
    if (pages.get(page)?.answer === answer) pages.delete(page);
    if (!pages.size && places.get(path) === pages) forget(path);
  });
  return answer;
}

/** The answer with a page of a place's rows, asked for unless it is kept. */
export const pageAt = (path, page) => places.get(path)?.get(page)?.answer ?? ask(path, page);

/** Asks for the first rows of a place before the view is there that wants them. */
export const readAhead = (path) => void ask(path, 0);

/** The rows of a place, which may be known from an earlier view or another one beside it. */
export class PlaceRows extends RowSource {
  async readPage(page, signal) {
    const known = places.get(this.path)?.get(page);
    if (!known) return ask(this.path, page, signal);
    if (performance.now() - known.at > freshFor) {
      places.get(this.path).delete(page);
      this.readAgainSoon();
    }
    try {
      return await known.answer;
    } catch (error) {
      // Whoever asked has left.
      if (error.name !== "AbortError" || signal.aborted) throw error;
      return ask(this.path, page, signal);
    }
  }

  reload() {
    forget(this.path);
    return super.reload();
  }
}
