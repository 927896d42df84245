// Paths of the tree in their text form: base?key=value&key=value, keys sorted, all percent-encoded.

/** The top of the service whose lists the page knows by name. */
export const home = "/tidal";
/** The modules that serve: the titles of their top nodes, by path. */
export const modules = new Map([[home, ""]]);
/** Where those that offer search are asked how: their `SearchPath`, by path. */
export const searches = new Map();
/** Where the page begins: there, or at the top of another module where that is not served. */
export const startPath = () => (modules.has(home) ? home : [...modules.keys()][0]);
/** The rows of "/" say which modules there are. */
export function setModules(rows) {
  modules.clear();
  searches.clear();
  for (const { Path, Title, Disabled, SearchPath } of rows) {
    if (!Path || Disabled) continue;
    modules.set(Path, Title);
    if (SearchPath) searches.set(Path, SearchPath);
  }
  if (!modules.size) modules.set(home, "");
}
/** The modules that the page does not begin with, as rows. */
export const otherModules = () =>
  [...modules].filter(([path]) => path !== startPath()).map(([Path, Title]) => ({ Path, Title }));
/** The top node of the module that a path belongs to; empty for other paths. */
export function topOf(path) {
  const top = `/${baseOf(path).split("/")[1]}`;
  return modules.has(top) ? top : "";
}
/** Where settings stand. */
export const settingsPath = "/settings";
/** The login service that this page knows by name. */
export const homeLogin = "tidal";
/** Where the login of a service stands. */
export const loginPath = (service) => `/oauth2/services/${service}`;
/** The service that a path is the login of; empty for other paths. */
export const serviceAt = (path) => /^\/oauth2\/services\/([\w-]+)$/.exec(path)?.[1] ?? "";

export function parsePath(text) {
  const [base, query = ""] = text.split("?");
  const parameters = new Map();
  for (const pair of query.split("&").filter(Boolean)) {
    const [key, value = ""] = pair.split("=");
    parameters.set(decode(key), decode(value));
  }
  return { base, parameters };
}

function decode(text) {
  try {
    return decodeURIComponent(text);
  } catch {
    return text;
  }
}

function encode(text) {
  const escape = (sign) => `%${sign.charCodeAt(0).toString(16).toUpperCase()}`;
  return encodeURIComponent(text).replace(/[!'()*]/g, escape);
}

function made(base, parameters) {
  const pairs = [...parameters.keys()].sort().map((name) => `${encode(name)}=${encode(parameters.get(name))}`);
  return pairs.length ? `${base}?${pairs.join("&")}` : base;
}

export function withParameter(text, key, value) {
  const { base, parameters } = parsePath(text);
  return made(base, parameters.set(key, value));
}

export function withoutParameters(text, names) {
  const { base, parameters } = parsePath(text);
  for (const name of names) parameters.delete(name);
  return made(base, parameters);
}

export const baseOf = (text) => text.split("?")[0];

/** What the address bar shows for a path, or for a view of the page's own ("!queue"). */
export const linkTo = (text) => `#${text}`;
