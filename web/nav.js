// Where the reader is. The address bar holds the path; the history's entries hold how one came there.

import { linkTo, startPath } from "./path.js";

/**
 * What is known of a place from the row that led there: title, subtitle, icon, menu (context path), row.
 * `trail` holds the places above it.
 */
export const nav = new EventTarget();

history.scrollRestoration = "manual";

export const currentPath = () => location.hash.slice(1) || startPath();

export const currentState = () => history.state ?? {};

let keepPlace = () => ({});

/** The function that says, before leaving, where in the view the reader is. */
export function setPlaceKeeper(keeper) {
  keepPlace = keeper;
}

function rememberPlace() {
  history.replaceState({ ...history.state, place: keepPlace() }, "");
}

function move(path, state) {
  rememberPlace();
  history.pushState(state, "", linkTo(path));
  nav.dispatchEvent(new Event("moved"));
}

/** Notes what is found to stand here, for whoever comes back. */
export function nameHere(item) {
  history.replaceState({ ...history.state, item }, "");
}

/** Goes to a path, to a `place` in it. With `isTop` it begins a new trail. */
export function go(path, item = null, isTop = false, place = null) {
  const title = document.querySelector("main h1")?.textContent ?? "";
  const here = { path: currentPath(), title, item: history.state?.item };
  const trail = isTop || here.path.startsWith("!") ? [] : [...(history.state?.trail ?? []), here];
  move(path, { item, trail: trail.slice(-12), place });
}

/** Goes back along the trail to a place on it; `trail` is what stands before that. */
export const goUp = ({ path, item = null }, trail) => move(path, { item, trail });

/** Goes back to where one came from; who came by the address goes to the top. */
export const leave = () => (history.state?.trail ? history.back() : go(startPath(), null, true));

addEventListener("popstate", () => nav.dispatchEvent(new Event("moved")));
addEventListener("pagehide", rememberPlace);

/** Has a plain click on a link followed here; others (new tab, new window) are the browser's. */
export function onPlainClick(link, run) {
  link.addEventListener("click", (event) => {
    const { button, metaKey, ctrlKey, shiftKey, altKey } = event;
    if (button !== 0 || metaKey || ctrlKey || shiftKey || altKey) return;
    event.preventDefault();
    run();
  });
}

/** Goes to a path in place of the present one, for addresses that change while one types. */
export function replace(path) {
  history.replaceState({ ...history.state, place: null }, "", linkTo(path));
  nav.dispatchEvent(new Event("moved"));
}
