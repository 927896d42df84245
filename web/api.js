// Calls of the streamer's HTTP API. Reading needs nothing; what changes something carries the session token.

import { chosenLanguage, t } from "./text.js";

/** What a call was refused with: `status` 0 means that the streamer was not reached. */
class ApiError extends Error {
  constructor(status, name, message) {
    super(message);
    this.status = status;
    this.name = name;
  }
}

let watch = () => {};
const underWay = new Set(); // oldest first
let session = null;

/** Has a function told of every call: {method, target, body, status, text, milliseconds}. */
export function watchCalls(watcher) {
  watch = watcher;
}

/** When the oldest of the calls under way began that are not older than this; null when there is none. */
export function callSince(begin) {
  for (const call of underWay) if (call.begin >= begin) return call.begin;
  return null;
}

async function send(method, target, options) {
  const call = { begin: performance.now() };
  underWay.add(call);
  const { body } = options ?? {};
  const report = (status, text = "") =>
    watch({ method, target, body, status, text, milliseconds: performance.now() - call.begin });
  try {
    const answer = await fetch(target, { method, cache: "no-store", ...options });
    const text = await answer.text();
    report(answer.status, target.endsWith("/session") ? "" : text);
    return understood(answer, text);
  } catch (error) {
    if (error.name === "AbortError" || error instanceof ApiError) throw error;
    report(0);
    throw new ApiError(0, "Offline", t("The streamer cannot be reached."));
  } finally {
    underWay.delete(call);
  }
}

function understood({ ok, status }, text) {
  let json = null;
  try {
    json = JSON.parse(text);
  } catch {
    // what is said instead needs no JSON
  }
  if (ok && json !== null) return json;
  const said = json?.detail || json?.title || t("The streamer answered with the status %1.", status);
  throw new ApiError(status, json?.name || "", said);
}

function address(name, parameters = {}) {
  const query = new URLSearchParams();
  for (const [key, value] of Object.entries(parameters)) query.append(key, value);
  if (chosenLanguage) query.append("language", chosenLanguage);
  const text = query.toString();
  return `api/v1/${name}${text ? `?${text}` : ""}`;
}

/** Has the session's token asked for again: the streamer may be another one than before. */
export function forgetSession() {
  session = null;
}

async function change(method, name, body, parameters) {
  for (let attempt = 1; ; ++attempt) {
    session ??= send("GET", "api/v1/session");
    try {
      const { header, token } = await session;
      const headers = { "Content-Type": "application/json", [header]: token };
      return await send(method, address(name, parameters), { headers, body: JSON.stringify(body) });
    } catch (error) {
      // The token is made anew when the streamer starts.
      if (error.status === 403 || !error.status) forgetSession();
      if (error.status !== 403 || attempt > 1) throw error;
    }
  }
}

/** Rows of one page: no more are to be had in one call of the service. */
export const pageSize = 50;

const listRoles =
  "Path,Type,Title,Disabled,MediaData,Icon,Id,AudioType,Context,Description,ContainerType," +
  "ContainerPlayable,Value,Edit,ReadOnly,SearchPath,AcceptPath,Query,QueryPath,BusyText," +
  "TrackNumber,Duration,ReleaseYear,AlbumPath,ArtistPaths,Summary";

export const getRows = (path, from, to, signal) =>
  send("GET", address("rows", { path, from, to, roles: listRoles }), { signal });
export const getIds = (path, from, to) => send("GET", address("rows", { path, from, to, roles: "Id" }));
export const getData = (path) => send("GET", address("data", { path }));
export const setValue = (path, value = 1) => change("POST", "set", { path, value });
export const setFavorite = (path, value) => change("POST", "set", { path, role: "Favorite", value });
export const getQueue = (from, to, signal) => send("GET", address("player/queue", { from, to }), { signal });
export const player = (command, body = {}) => change("POST", `player/${command}`, body);
export const getLogins = () => send("GET", address("logins"));
export const getLogin = (service) => send("GET", address("login", { service }));
export const startLogin = (service) => change("POST", "login", {}, { service });
export const logOut = (service) => change("DELETE", "login", undefined, { service });
export const getRequests = (after) => send("GET", address("requests", { after }));
export const getHealth = () => send("GET", "healthz");
