// The one event stream that all tabs of a browser share: a browser has few connections to one host. Runs as a
// shared worker; where a browser has none, each page runs it for itself. It tells every tab that takes part
// what the stream tells, and "state" with a boolean: connected or not.

const retryAfter = 2000;
const mostPathText = 2000;
const mostPaths = 256;

// By port what the tab wants: {paths, requests, language, base}; which has asked last stands last.
const tabs = new Map();
// What was told last and when, for tabs that come later: {kind, detail, at} by kind, of logins by service, too.
const present = new Map();
let source = null;
let stream = "";
let query = ""; // of the stream, but for its paths
let opened = "";
let sending = "";
let timer = 0;
let session = null;
let isRefused = false;

/** Takes in a tab, which says what it wants by messages: {paths, ...}, or nothing when it leaves or rests. */
export function join(port) {
  port.onmessage = ({ data }) => take(port, data);
  // Some browsers tell of a tab that went without a word.
  port.onclose = () => take(port, {});
}

function take(port, wants) {
  const isNew = !tabs.has(port);
  tabs.delete(port);
  if (wants.paths) tabs.set(port, wants);
  if (!tabs.size) return close();
  if (isNew) for (const told of present.values()) port.postMessage({ kind: told.kind, detail: untilNow(told) });
  return !source || queryOf() !== query ? connect() : send();
}

// What was told, as it would be told now: time runs on.
function untilNow({ detail, at }) {
  const elapsed = performance.now() - at;
  if (detail.state === "playing") return { ...detail, positionMs: (detail.positionMs ?? 0) + elapsed };
  return detail.seconds ? { ...detail, seconds: detail.seconds + Math.round(elapsed / 1000) } : detail;
}

const newest = () => [...tabs.values()].at(-1);

function wanted() {
  const all = [...tabs.values()].reverse().flatMap(({ paths }) => paths);
  return [...new Set(all)].slice(0, mostPaths).sort();
}

function queryOf() {
  const parameters = new URLSearchParams({ logins: 1 });
  if ([...tabs.values()].some(({ requests }) => requests)) parameters.append("requests", "1");
  if (newest().language) parameters.append("language", newest().language);
  return parameters.toString();
}

function tell(kind, detail) {
  if (kind === "state" && detail === present.get(kind)?.detail) return;
  const key = kind === "login" ? `login ${detail.service}` : kind;
  if (!["rows", "acted", "request"].includes(kind)) present.set(key, { kind, detail, at: performance.now() });
  for (const [port, { requests }] of tabs)
    if (kind !== "request" || requests) port.postMessage({ kind, detail });
}

/** Opens a stream, with what is wanted open from its beginning. The one before it goes on until then. */
function connect() {
  clearTimeout(timer);
  query = queryOf();
  const parameters = new URLSearchParams(query);
  const paths = wanted();
  const isShort = !isRefused && paths.join("").length < mostPathText;
  if (isShort) for (const path of paths) parameters.append("path", path);
  const [before, own] = [source, new EventSource(new URL(`api/v1/events?${parameters}`, newest().base))];
  source = own;
  stream = "";
  own.addEventListener("stream", (event) => {
    before?.close();
    if (own !== source) return;
    stream = JSON.parse(event.data).id;
    opened = isShort ? paths.join("\n") : "";
    isRefused = false;
    tell("state", true);
    send();
  });
  for (const kind of ["rows", "acted", "player", "login", "request", "waiting"])
    own.addEventListener(kind, (event) => tell(kind, JSON.parse(event.data)));
  own.addEventListener("error", () => {
    before?.close();
    own.close();
    if (own !== source) return;
    session = null;
    // A path that nobody serves is refused with the whole stream; the next try says the paths later.
    isRefused = !stream && isShort && paths.length > 0 && !isRefused;
    if (isRefused) return connect();
    tell("state", false);
    return retry();
  });
}

function drop() {
  clearTimeout(timer);
  source?.close();
  source = null;
  stream = "";
  // Another stream tells anew what is waited for.
  tell("waiting", {});
}

function close() {
  drop();
  present.clear();
}

function retry() {
  drop();
  timer = setTimeout(connect, retryAfter);
}

// One call at a time for a stream, with what is wanted then: of two under way the earlier could arrive last.
async function send() {
  const id = stream;
  if (!id || id === sending) return;
  sending = id;
  // What one view leaves and the next one takes up at once is one change.
  await null;
  while (id === stream && tabs.size && (await sendOnce(id)));
  if (id === sending) sending = "";
}

/** Whether there was something to send, and the call is over. */
async function sendOnce(id) {
  const paths = wanted();
  const key = paths.join("\n");
  if (key === opened) return false;
  opened = key;
  const status = await post(JSON.stringify({ stream: id, paths }));
  // The stream is not known any more, or the streamer is gone: another one is to be had.
  if (id === stream && status !== 200 && status !== 400) retry();
  return true;
}

// The token is made anew when the streamer starts.
async function post(body, isAgain = false) {
  const { base } = newest();
  try {
    session ??= fetch(new URL("api/v1/session", base), { cache: "no-store" }).then((answer) => answer.json());
    const { header, token } = await session;
    const headers = { "Content-Type": "application/json", [header]: token };
    const { status } = await fetch(new URL("api/v1/events/paths", base), { method: "POST", headers, body });
    if (status !== 403 || isAgain) return status;
  } catch {
    session = null;
    return 0;
  }
  session = null;
  return tabs.size ? post(body, true) : 0;
}

if ("SharedWorkerGlobalScope" in self) self.addEventListener("connect", (event) => join(event.ports[0]));
