// Paths of the tree in their text form: base?key=value&key=value, keys sorted, all percent-encoded.

/** The path of the tree's top. */
export const home = "/tidal";
/** Where settings stand. */
export const settingsPath = "/settings";
/** The login of the service. */
export const loginPath = "/oauth2/services/tidal";

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
