// What failed, in words: what is wrong, whose fault it is, and what happens next.

import { getRequests } from "./api.js";
import { button, buttonRow, el } from "./dom.js";
import { live } from "./live.js";
import { homeLogin, linkTo, serviceAt, topOf } from "./path.js";
import { pageAt } from "./recent.js";
import { t } from "./text.js";

const retryAfter = 10;
const recent = 5;

// The login that the module of a path wants is a row of its top node.
async function loginFor(path = "") {
  const top = topOf(path);
  const { rows } = top && top !== path ? await pageAt(top, 0).catch(() => ({ rows: [] })) : { rows: [] };
  return rows.find((row) => serviceAt(row.Path))?.Path;
}

/** What stands in place of a title where nothing could be read. */
export const failureTitle = ({ status }) => (status === 404 ? t("Not found") : t("This did not work"));

/** What a person can make of an error: {text, mayPass}. The service's own answer tells the most. */
export async function explain({ status, name, message }) {
  if (status === 404) return { text: t("There is nothing at this address.") };
  if (status === 504) return { text: t("The music service did not answer in time."), mayPass: true };
  const isLoggedOut = live.logins.get(homeLogin)?.loggedIn === false;
  if (status !== 502 || name !== "TIDAL" || isLoggedOut) return { text: message, mayPass: !status };
  const { requests } = await getRequests(0).catch(() => ({ requests: [] }));
  const failed = requests.slice(-recent).findLast((request) => !request.status || request.status >= 400);
  if (!failed) return { text: message, mayPass: true };
  const unreached = t("The music service cannot be reached. Check the network of the streamer.");
  if (!failed.status) return { text: unreached, mayPass: true };
  const problem = t("The music service has a problem (%1).", failed.status);
  if (failed.status >= 500) return { text: problem, mayPass: true };
  return { text: failed.status === 404 ? t("The music service does not have this.") : message };
}

/** Says why rows could not be read; what may pass by itself is tried again after a while. */
export function failure(source) {
  const next = el("p", { class: "hint" });
  const words = el("p", { role: "alert" }, source.error.message);
  const buttons = buttonRow(button(t("Try again"), () => source.reload()));
  const element = el("div", { class: "empty" }, words, next, buttons);
  let left = retryAfter;
  const wait = () => {
    if (!element.isConnected) return null;
    if (!left) return source.reload();
    next.textContent = t("Trying again in %1 s", left--);
    return setTimeout(wait, 1000);
  };
  const login = loginFor(source.path);
  login.then((path) => path && buttons.append(el("a", { class: "button", href: linkTo(path) }, t("Log in"))));
  explain(source.error).then(async ({ text, mayPass }) => {
    words.textContent = text;
    if (mayPass && !(await login)) wait();
  });
  // Also of a streamer that has come back, and finds its login a moment later.
  const onLogin = ({ detail: { loggedIn } }) => {
    if (element.isConnected && !loggedIn) return;
    live.removeEventListener("login", onLogin);
    if (element.isConnected) source.reload();
  };
  live.addEventListener("login", onLogin);
  return element;
}
