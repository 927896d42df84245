// Where the reader is. The address bar holds the path; the history's entries hold how one came there.

import { home, linkTo } from "./path.js";

/**
 * What is known of a place from the row that led there: title, subtitle, icon, menu (context path), row.
 * `trail` holds the places above it.
 */
export const nav = new EventTarget();

history.scrollRestoration = "manual";

export function currentPath() {
  const text = location.hash.slice(1);
  return text || home;
}

export function currentState() {
  return history.state ?? {};
}

let keepPlace = () => ({});

/** The function that says, before leaving, where in the view the reader is. */
export function setPlaceKeeper(keeper) {
  keepPlace = keeper;
}

function rememberPlace() {
  history.replaceState({ ...history.state, place: keepPlace() }, "");
}

/** Goes to a path. With `isTop` it begins a new trail. */
export function go(path, item = null, isTop = false) {
  rememberPlace();
  const title = document.querySelector("main h1")?.textContent ?? "";
  const here = { path: currentPath(), title, item: history.state?.item };
  const trail = isTop || here.path.startsWith("!") ? [] : [...(history.state?.trail ?? []), here];
  history.pushState({ item, trail: trail.slice(-12) }, "", linkTo(path));
  nav.dispatchEvent(new Event("moved"));
}

/** Goes back along the trail to a place on it; `trail` is what stands before that. */
export function goUp({ path, item = null }, trail) {
  rememberPlace();
  history.pushState({ item, trail }, "", linkTo(path));
  nav.dispatchEvent(new Event("moved"));
}

addEventListener("popstate", () => nav.dispatchEvent(new Event("moved")));
addEventListener("pagehide", rememberPlace);

/** Whether a click is to be followed here; others (new tab, new window) are the browser's. */
export const isPlainClick = ({ button, metaKey, ctrlKey, shiftKey, altKey }) =>
  button === 0 && !metaKey && !ctrlKey && !shiftKey && !altKey;

/** Goes to a path in place of the present one, for addresses that change while one types. */
export function replace(path) {
  history.replaceState({ ...history.state, place: null }, "", linkTo(path));
  nav.dispatchEvent(new Event("moved"));
}
