// Making elements. Texts become text nodes, never markup, so a title that looks like HTML stays a title.

/**
 * An element with properties: `class`, `text`, `on` (listeners), `data`, or any attribute; null and false
 * leave one out.
 */
export function el(tag, properties = {}, ...children) {
  const element = document.createElement(tag);
  for (const [name, value] of Object.entries(properties)) {
    if ((value ?? false) === false) continue;
    if (name === "class") element.className = value;
    else if (name === "text") element.textContent = value;
    else if (name === "on") listen(element, value);
    else if (name === "data") Object.assign(element.dataset, value);
    else element.setAttribute(name, value === true ? "" : String(value));
  }
  append(element, children);
  return element;
}

function listen(element, listeners) {
  for (const [type, listener] of Object.entries(listeners)) element.addEventListener(type, listener);
}

function append(element, children) {
  element.append(...children.flat(Infinity).filter((child) => (child ?? false) !== false));
}

/** Puts other children in place of an element's own. */
export function fill(element, ...children) {
  element.replaceChildren();
  append(element, children);
  return element;
}

const svg = "http://www.w3.org/2000/svg";

/** A picture of the set in index.html; decoration, hidden from screen readers. */
export function icon(name) {
  const picture = document.createElementNS(svg, "svg");
  picture.setAttribute("class", "icon");
  picture.setAttribute("aria-hidden", "true");
  const use = document.createElementNS(svg, "use");
  use.setAttribute("href", `#icon-${name}`);
  picture.append(use);
  return picture;
}

/** A button with a label; `kind` is "primary", "danger" or "small". */
export const button = (label, onClick, kind = "") =>
  el("button", { type: "button", class: `button ${kind}`, on: { click: onClick } }, label);

/** Buttons side by side. */
export const buttonRow = (...buttons) => el("div", { class: "buttons" }, buttons);

/** Where in the window an event's element is, for what opens beside it. */
export const boxOf = (event) => event.currentTarget.getBoundingClientRect();

/** A title and the line below it. */
export function twoLines(title, subtitle) {
  const line = (name, text) => el("span", { class: name, text });
  return el("span", { class: "words" }, line("title", title), " ", line("subtitle", subtitle));
}

/** A button that shows a picture and says what it does. */
export function iconButton(name, label, onClick, properties = {}) {
  const shared = { type: "button", class: "icon-button", "aria-label": label, title: label };
  return el("button", { ...shared, on: { click: onClick }, ...properties }, icon(name));
}

/** Exchanges the picture and the label of such a button. */
export function setIconButton(button, name, label) {
  if (button.dataset.icon === name && button.title === label) return;
  button.dataset.icon = name;
  button.title = label;
  button.setAttribute("aria-label", label);
  fill(button, icon(name));
}

function hueOf(text) {
  let sum = 7;
  for (const character of text) sum = (sum * 31 + character.codePointAt(0)) % 360;
  return sum;
}

// The sizes that the service keeps of a kind's pictures.
const sizes = {
  album: ["80x80", "160x160", "320x320", "640x640", "1280x1280"],
  artist: ["160x160", "320x320", "480x480", "750x750"],
  playlist: ["160x107", "320x214", "480x320", "750x500", "1080x720"],
};
const pictureAt = (address) => `api/v1/image?url=${encodeURIComponent(address)}`;

// The browser takes the one that is as high as the place is wide, by the screen's resolution.
function sizesOf(address, kind) {
  const size = address.match(/[^/]+(?=\.jpg$)/)?.[0];
  const known = sizes[kind] ?? [];
  const other = (name) => pictureAt(address.replace(`${size}.jpg`, `${name}.jpg`));
  const one = (name) => `${other(name)} ${name.split("x")[1]}w`;
  return known.includes(size) ? { srcset: known.map(one).join(", "), sizes: "auto, 320px" } : {};
}

/**
 * A cover that loads when it is shown, over a stand-in drawn from the title. Of an "album", an "artist" or a
 * "playlist" it is as sharp as the screen.
 */
export function cover(address, title, kind = "") {
  const words = title.split(/[^\p{L}\p{N}]+/u).filter(Boolean);
  const initials = words.slice(0, 2).map((word) => [...word][0]).join("") || "♪";
  const standIn = el("span", { class: "initials", data: { initials: initials.toUpperCase() } });
  const box = el("span", { class: "cover", "aria-hidden": "true" }, standIn);
  box.style.setProperty("--hue", hueOf(title));
  if (address) {
    const shared = { alt: "", decoding: "async", loading: "lazy", draggable: "false" };
    const picture = el("img", { ...shared, ...sizesOf(address, kind) });
    picture.addEventListener("load", () => picture.classList.add("loaded"));
    // A size that is missing after all leaves the one of the row.
    const giveUp = () => (picture.srcset ? picture.removeAttribute("srcset") : picture.remove());
    picture.addEventListener("error", giveUp);
    picture.src = pictureAt(address);
    box.append(picture);
  }
  return box;
}

const rows = new WeakMap();

/** Keeps the row of the tree that an element was made from, for the developer's drawer. */
export const madeFrom = (element, row) => (rows.set(element, row), element);

/** The row that an element, or what it stands in, was made from. */
export function rowAt(element) {
  for (let at = element; at; at = at.parentElement) if (rows.has(at)) return rows.get(at);
  return null;
}
