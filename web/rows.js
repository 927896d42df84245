// The rows of one path, read in pages of fifty as they are needed, and read again when they change.

import { getRows, pageSize } from "./api.js";
import { isTouched } from "./edits.js";
import { isIdle } from "./entries.js";
import { live } from "./live.js";
import { lookForWaiting } from "./waiting.js";

const mostPages = 60;
const settleTime = 80;

/** Events: "changed" (rows, count, roles or error are other ones) and "call" with the raw answer. */
export class RowSource extends EventTarget {
  count = 0;
  roles = {};
  error = null;
  isLoaded = false;
  #pages = new Map();
  #asked = new Map();
  #askedSince = 0;
  #generation = 0;
  #abort = new AbortController();
  #timer = 0;
  #last = [0, pageSize - 1];

  /** `onChanged` listens to "changed". */
  constructor(path, onChanged = null) {
    super();
    this.path = path;
    this.addEventListener("changed", onChanged);
    const { signal } = this.#abort;
    live.addEventListener("rows", ({ detail }) => detail.path === path && this.readAgainSoon(), { signal });
    const follow = ({ detail }) => isTouched(path, detail) && this.readAgainSoon();
    live.addEventListener("acted", follow, { signal });
    live.addEventListener("state", ({ detail }) => detail && this.#readAgain(), { signal });
    live.follow(this, [path]);
  }

  close() {
    live.follow(this, []);
    clearTimeout(this.#timer);
    ++this.#generation;
    this.#abort.abort();
  }

  /** The row; undefined while it is not read. */
  row(index) {
    return this.#pages.get(Math.floor(index / pageSize))?.[index % pageSize];
  }

  /** All rows that were read, in order. */
  get rows() {
    const pages = [...this.#pages.keys()].sort((one, other) => one - other);
    return pages.flatMap((page) => this.#pages.get(page));
  }

  /** Since when rows are awaited; null while none are. */
  get awaitedSince() {
    return this.#asked.size ? this.#askedSince : null;
  }

  /** Reads what is missing of a range. Resolves when nothing of it is under way any more. */
  async need(from, to) {
    this.#last = [from, to];
    const calls = [];
    const lastPage = this.isLoaded ? Math.max(0, Math.ceil(this.count / pageSize) - 1) : 0;
    const last = Math.min(lastPage, Math.floor(to / pageSize));
    for (let page = Math.floor(Math.max(0, from) / pageSize); page <= last; ++page)
      if (!this.#pages.has(page)) calls.push(this.#asked.get(page) ?? this.#ask(page));
    await Promise.all(calls);
  }

  /** Reads again what is shown; the old rows stay until the new ones are there. */
  reload() {
    return this.#readAgain();
  }

  #readAgain() {
    const [from, to] = this.#last;
    const first = Math.floor(Math.max(0, from) / pageSize);
    const last = Math.floor(to / pageSize);
    const generation = ++this.#generation;
    this.#asked.clear();
    const calls = [];
    for (let page = first; page <= last; ++page)
      if (page === first || page * pageSize < this.count) calls.push(this.#ask(page));
    return Promise.all(calls).then(() => {
      if (generation !== this.#generation) return;
      for (const page of [...this.#pages.keys()]) if (page < first || page > last) this.#pages.delete(page);
      this.#tell();
    });
  }

  #ask(page) {
    if (!this.#asked.size) this.#askedSince = performance.now();
    const call = this.#read(page, this.#generation).finally(() => {
      if (this.#asked.get(page) === call) this.#asked.delete(page);
      if (!this.#asked.size) lookForWaiting();
    });
    this.#asked.set(page, call);
    return call;
  }

  /** Asks for the rows of a page. */
  readPage(page, signal) {
    return getRows(this.path, page * pageSize, (page + 1) * pageSize - 1, signal);
  }

  async #read(page, generation) {
    const begin = performance.now();
    try {
      const answer = await this.readPage(page, this.#abort.signal);
      if (generation !== this.#generation) return;
      const rows = answer.rows.filter((row) => !isIdle(row));
      this.count = answer.rowsCount - answer.rows.length + rows.length;
      this.roles = answer.roles;
      this.error = null;
      this.#keep(page, rows);
      const detail = { answer, milliseconds: performance.now() - begin };
      this.dispatchEvent(new CustomEvent("call", { detail }));
    } catch (error) {
      if (error.name === "AbortError" || generation !== this.#generation) return;
      this.error = error;
      if (error.status) this.#forget();
    }
    this.isLoaded = true;
    this.#tell();
  }

  #forget() {
    this.count = 0;
    this.#pages.clear();
  }

  #keep(page, rows) {
    this.#pages.set(page, rows);
    // A page that is not full where more was promised: the list ends there.
    const end = page * pageSize + rows.length;
    if (rows.length < pageSize && end < this.count) this.count = end;
    if (this.#pages.size <= mostPages) return;
    const away = (one) => Math.abs(one - page);
    const farthest = [...this.#pages.keys()].reduce((far, one) => (away(one) > away(far) ? one : far), page);
    this.#pages.delete(farthest);
  }

  #tell() {
    this.dispatchEvent(new Event("changed"));
  }

  /** Notices come in swarms; one reading answers them all. */
  readAgainSoon() {
    clearTimeout(this.#timer);
    this.#timer = setTimeout(() => this.#readAgain(), settleTime);
  }
}
