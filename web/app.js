// The page: puts the parts together and shows the view that the address names.

import { ArtistView } from "./artist.js";
import { startBar } from "./bar.js";
import { BrowseView } from "./browse.js";
import { Dialog } from "./dialog.js";
import { Drawer } from "./drawer.js";
import { el, fill, icon } from "./dom.js";
import { HomeView } from "./home.js";
import { kindOf } from "./kinds.js";
import { live } from "./live.js";
import { LoginView } from "./login.js";
import { currentPath, currentState, go, leave, onPlainClick, nav, replace, setPlaceKeeper } from "./nav.js";
import {
  home,
  linkTo,
  modules,
  otherModules,
  serviceAt,
  setModules,
  settingsPath,
  startPath,
} from "./path.js";
import { playback } from "./playback.js";
import { played } from "./played.js";
import { PlayingView } from "./playing.js";
import { forgetPlaces, pageAt, PlaceRows, readAhead } from "./recent.js";
import {
  askedAt,
  findSearches,
  forgetSearches,
  learnSearch,
  recentList,
  rememberSearch,
  searchedText,
  searchPath,
  SearchView,
} from "./search.js";
import { applyTheme, SettingsView } from "./settings.js";
import { loadTexts, t } from "./text.js";
import { clearToasts, toastError } from "./toast.js";

const typingPause = 120;
const seekStep = 10000;
const volumeStep = 5;

const part = (id) => document.getElementById(id);
let view = null;
let shown = "";
let drawer = null;
let isFirst = true;

const isPlaying = (path) => path === "!playing" || path === "!queue";

// What the links that lead to a whole view are compared with.
const presentPath = () => (isPlaying(currentPath()) ? "!playing" : currentPath());

function makeView(path) {
  const state = currentState();
  if (isPlaying(path)) return new PlayingView(path, part("view"));
  if (serviceAt(path)) return new LoginView(serviceAt(path));
  if (path === settingsPath) return new SettingsView();
  const text = searchedText(path);
  if (text !== null) return new SearchView(path, text, part("view"));
  if (path === home) return new HomeView(state, part("view"));
  const PlaceView = kindOf(path) === "artist" ? ArtistView : BrowseView;
  return new PlaceView(path, state, part("view"));
}

function show() {
  const path = currentPath();
  if (path === shown && view && !history.state?.place) return;
  shown = path;
  const text = searchedText(path);
  const isTyping = document.activeElement === part("search");
  nameField();
  if (!isTyping || text === null) part("search").value = text ?? "";
  if (text !== null && view instanceof SearchView) {
    view.look(path, text);
    return nameDocument();
  }
  // A menu belongs to the view that it was opened in.
  for (const dialog of document.querySelectorAll("dialog[open]")) dialog.close();
  view?.close();
  view = makeView(path);
  part("view").scrollTop = 0;
  fill(part("view"), view.element);
  view.addEventListener("current", ({ detail }) => drawer.isOpen && drawer.showRow(detail.row));
  view.addEventListener("call", ({ detail }) => drawer.showReply(detail));
  view.addEventListener("loaded", nameDocument);
  view.addEventListener("search", ({ detail }) => searchFor(...detail));
  if (!isTyping && !isFirst) view.focus();
  isFirst = false;
  const present = linkTo(presentPath());
  for (const link of document.querySelectorAll(".sidebar a, .tabs a")) {
    if (link.getAttribute("href") === present) link.setAttribute("aria-current", "page");
    else link.removeAttribute("aria-current");
  }
  nameDocument();
}

// A search that a module has to be asked about is shown when that is known.
function route() {
  const asked = currentState().item ? null : learnSearch(currentPath());
  return asked ? asked.then(show) : show();
}

// The field says whose search it is, where there are several modules.
function nameField() {
  const title = modules.size > 1 && modules.get(askedAt(currentPath()));
  part("search").placeholder = title ? t("Search %1", title) : t("Search");
}

function nameDocument() {
  const title = view?.title?.trim();
  const playing = playback.isPlaying && playback.state.title;
  document.title = playing ? `▶ ${playing} – kelo` : title ? `${title} – kelo` : "kelo";
}

let searchFor = () => {};

function startSearch() {
  const input = part("search");
  let timer = 0;
  const search = async (from = currentPath()) => {
    const text = input.value.trim();
    const isSearching = searchedText(currentPath()) !== null;
    if (!text) return isSearching && history.back();
    try {
      const path = await searchPath(text, from);
      const none = () => (modules.has(home) ? t("Log in to search.") : t("There is nothing to search here."));
      if (!path) return toastError(none());
      if (text !== input.value.trim() || path === currentPath()) return;
      return isSearching ? replace(path) : go(path, null, true);
    } catch (error) {
      return toastError(error);
    }
  };
  input.addEventListener("input", () => {
    clearTimeout(timer);
    timer = setTimeout(() => search(), typingPause);
  });
  const form = part("search-form");
  form.addEventListener("submit", (event) => {
    event.preventDefault();
    clearTimeout(timer);
    if (input.value.trim()) rememberSearch(input.value.trim());
    search();
  });
  // What was searched for before stands below the field while that is empty.
  let recent = null;
  const drop = () => {
    const old = recent;
    recent = null;
    old?.remove();
  };
  const offer = () => {
    drop();
    recent = input.value || searchedText(currentPath()) === "" ? null : recentList((text) => searchFor(text));
    if (recent) form.append(recent);
  };
  // What the first search needs to know is asked for while one types.
  const prepare = async () => {
    await findSearches();
    nameField();
    await searchPath("", currentPath());
  };
  input.addEventListener("focus", () => (offer(), prepare().catch(() => {})));
  input.addEventListener("input", offer);
  form.addEventListener("focusout", ({ relatedTarget }) => form.contains(relatedTarget) || drop());
  searchFor = (text, from) => {
    input.value = text;
    offer();
    search(from);
  };
  input.addEventListener("keydown", (event) => {
    if (event.key !== "ArrowDown") return;
    event.preventDefault();
    (recent?.querySelector("button") ?? part("view").querySelector(".main"))?.focus();
  });
}

// A plain click begins a new trail at the path.
const leadTo = (link, path) => onPlainClick(link, () => go(path, null, true));

/** The top of the tree beside the page, on wide screens. It follows logins by the notices of its rows. */
function startSidebar() {
  const list = part("sidebar").querySelector("ul");
  const fillIt = () => {
    const rows = top.rows.filter((row) => row.Type === "Container" && row.Path);
    const entries = [
      { Path: startPath(), Title: t("Home"), picture: "home" },
      ...rows,
      ...otherModules().map((row) => ({ ...row, picture: "album" })),
      { Path: "!playing", Title: t("Now playing"), picture: "queue" },
      { Path: settingsPath, Title: t("Settings"), picture: "settings" },
    ];
    fill(
      list,
      entries.map(({ Path, Title, picture = "list" }) => {
        const current = Path === presentPath() ? "page" : null;
        const link = el("a", { href: linkTo(Path), "aria-current": current }, icon(picture), Title);
        leadTo(link, Path);
        return el("li", {}, link);
      }),
    );
  };
  const top = new PlaceRows(startPath(), fillIt);
  const all = new PlaceRows("/", () => {
    if (all.rows.length) setModules(all.rows);
    fillIt();
  });
  top.need(0, 0);
  all.need(0, 0);
  fillIt();
}

const keys = () => [
  ["/", t("Search")],
  ["↑ ↓", t("Move through the rows")],
  [t("Enter"), t("Open or play")],
  ["M", t("Menu of the row")],
  ["L", t("Favorite: the row, or what plays")],
  [t("Space"), t("Play or pause")],
  ["N, P", t("Next, previous")],
  [", .", t("10 seconds back, on")],
  ["− +", t("Less loud, louder")],
  ["0", t("Mute")],
  ["S, R", t("Shuffle, repeat")],
  ["F", t("Filter the rows")],
  [t("Shift"), t("Select several rows")],
  ["Q", t("Now playing and queue")],
  [t("Backspace"), t("Back")],
  ["D", t("Developer’s drawer")],
  ["?", t("This help")],
];

function showHelp() {
  const dialog = new Dialog(null, "reading-dialog");
  const rows = keys().map(([key, what]) =>
    el("tr", {}, el("th", { scope: "row" }, el("kbd", {}, key)), el("td", {}, what)),
  );
  const element = el("div", { class: "reading", tabindex: "0" }, el("table", { class: "keys" }, el("tbody", {}, rows)));
  dialog.push({ title: t("Keys"), element });
}

const heartIn = (element) => element?.querySelector(".heart");

function onKey(event) {
  if (event.defaultPrevented || event.ctrlKey || event.metaKey || event.altKey) return;
  if (document.querySelector("dialog[open]")) return;
  const target = event.target;
  const isField = target.matches("input:not([type=range]), select, textarea");
  if (isField) {
    if (event.key === "Escape") part("view").focus();
    return;
  }
  const isControl = target.matches("button, a, input, [tabindex='0']");
  const actions = {
    "/": () => part("search").focus(),
    " ": () => !isControl && playback.isActive && playback.toggle(),
    n: () => playback.isActive && playback.send("next"),
    p: () => playback.isActive && playback.send("previous"),
    q: () => (isPlaying(currentPath()) ? leave() : go("!queue", null, true)),
    s: () => playback.shuffle(),
    r: () => playback.repeat(),
    ",": () => playback.seekBy(-seekStep),
    ".": () => playback.seekBy(seekStep),
    "-": () => playback.setVolume(playback.volume - volumeStep),
    "+": () => playback.setVolume(playback.volume + volumeStep),
    0: () => playback.toggleMute(),
    f: () => view.filter?.() ?? true,
    d: () => drawer.toggle(),
    m: () => target.closest(".item")?.querySelector(".more")?.click(),
    l: () => (heartIn(target.closest(".item")) ?? heartIn(part("bar")))?.click(),
    "?": showHelp,
    Backspace: () => history.length > 1 && history.back(),
  };
  const action = actions[event.key.length === 1 ? event.key.toLowerCase() : event.key];
  if (!action || action() === false) return;
  event.preventDefault();
}

function watchLogin() {
  live.addEventListener("login", ({ detail: { was, loggedIn } }) => {
    if (loggedIn === was) return;
    if (was !== undefined || !loggedIn) forgetSearches();
    if (was !== undefined) forgetPlaces();
    if (was !== undefined) clearToasts();
  });
  live.addEventListener("state", ({ detail }) => (part("offline").hidden = detail));
}

async function start() {
  applyTheme();
  playback.start();
  played.start();
  watchLogin();
  const path = currentPath();
  // Where the page began the last time; another top might not be there.
  const top = localStorage.getItem("top");
  if (top) readAhead(top);
  const all = pageAt("/", 0).then(({ rows }) => {
    setModules(rows);
    localStorage.setItem("top", startPath());
  }).catch(() => {});
  if (path !== home && path.startsWith(home)) readAhead(path);
  live.connect();
  await Promise.all([loadTexts(), all]);
  drawer = new Drawer(part("drawer"), (isOpen) => {
    part("drawer-button").setAttribute("aria-expanded", String(isOpen));
    document.body.classList.toggle("with-drawer", isOpen);
  });
  startBar(part("bar"));
  startSearch();
  setPlaceKeeper(() => view?.place ?? {});
  nav.addEventListener("moved", route);
  playback.addEventListener("changed", nameDocument);
  addEventListener("keydown", onKey);
  const [homeTab, , ownTab] = part("tabs").children;
  part("brand").href = homeTab.href = linkTo(startPath());
  ownTab.hidden = !modules.has(home);
  leadTo(part("brand"), startPath());
  for (const link of part("tabs").querySelectorAll("a")) leadTo(link, link.hash.slice(1));
  part("search-tab").addEventListener("click", () => part("search").focus());
  // The address bar holds the path: a link into the page would be taken for one.
  document.querySelector(".skip").addEventListener("click", (event) => {
    event.preventDefault();
    part("view").focus();
  });
  part("drawer-button").addEventListener("click", () => drawer.toggle());
  part("help-button").addEventListener("click", showHelp);
  part("offline-retry").addEventListener("click", () => live.connect());
  route();
  if (location.search === "?search") part("search").focus();
  startSidebar();
}

start();
