// Menus over the page: a row's context menu, the lists, choices and forms that it leads to.

import { activate, titleNow, understand } from "./actions.js";
import { getRows, setValue } from "./api.js";
import { busy, Dialog, problem, textPage } from "./dialog.js";
import { cover, el, fill, icon, madeFrom } from "./dom.js";
import { choicesOf, entryForEach, entryOf, inOrder, isUseful } from "./entries.js";
import { favorSeveral } from "./favorites.js";
import { formPage } from "./form.js";
import { live } from "./live.js";
import { currentPath, currentState, go } from "./nav.js";
import { baseOf, parsePath } from "./path.js";
import { playback } from "./playback.js";
import { RowSource } from "./rows.js";
import {
  albumOf,
  isChoice,
  isField,
  isPlayableItem,
  placeOf,
  plainValue,
  sameValue,
  titleOf,
} from "./rowtext.js";
import { t } from "./text.js";
import { toast, toastError } from "./toast.js";

const mostRows = 500;

/** Opens the context menu of a row, with what the page itself can do with it above. */
export function openMenu(row, anchor, select = null) {
  const dialog = new Dialog(anchor, "menu-dialog");
  const subject = titleOf(row);
  const own = [];
  const add = (at) => () => (dialog.close(), playback.add(row.Path, subject, at));
  const play = () => (dialog.close(), playback.play(row.Path));
  const visit = () => (dialog.close(), go(row.Path, placeOf(row)));
  if (isPlayableItem(row) && !row.Disabled)
    own.push(
      { title: t("Play next"), icon: "play-next", run: add("next") },
      { title: t("Add to queue"), icon: "queue", run: add("end") },
      { title: t("Play"), icon: "play", run: play },
    );
  if (row.Type === "Container" && row.Path) own.push({ title: t("Open"), icon: "list", run: visit });
  const pick = () => (dialog.close(), select());
  if (select && row.Id) own.push({ title: t("Select"), icon: "check", run: pick });
  const context = { dialog, subject, places: [placeOf(row), currentState().item], list: currentPath() };
  const menu = row.Context?.Path;
  const album = { Type: "Container", Path: row.AlbumPath, Title: albumOf(row), Icon: row.Icon };
  context.further = row.AlbumPath ? [album] : [];
  dialog.push(treePage(context, subject, menu ? new RowSource(menu) : null, own));
  return dialog.finished;
}

/** Opens what can be done with several rows of a list; true when it was done. */
export function openMenuOfSeveral(rows, anchor) {
  const dialog = new Dialog(anchor, "menu-dialog");
  const subject = t("%1 selected", rows.length);
  const context = { dialog, subject, several: rows, list: currentPath() };
  dialog.push(treePage(context, subject, new RowSource(rows[0].Context.Path)));
  return dialog.finished;
}

function openPage(makePage, row, anchor) {
  const dialog = new Dialog(anchor, "menu-dialog");
  dialog.push(makePage({ dialog, subject: titleOf(row) }, row));
  return dialog.finished;
}

/** Opens a menu or a form that stands at a path by itself. */
export const openContainer = (row, anchor) => openPage(containerPage, row, anchor);

/** Opens the choices, or the field, of a value. */
export const openValue = (row, anchor) => openPage(valuePage, row, anchor);

/** Activates a row; what the reply brings to read is shown. */
export async function runAction(row) {
  try {
    const text = await activate(row, titleOf(row));
    if (!text) return;
    const dialog = new Dialog(null, "reading-dialog");
    dialog.push(textPage(row.Title, text));
  } catch (error) {
    toastError(error);
  }
}

// A form right in a row's menu changes what it names: the row, or the item that the row is a part of and the
// view below shows. A form further down makes something new.
function changedBy(path, places) {
  if (!places) return null;
  const { parameters } = parsePath(path);
  const id = parameters.get("playlistId") ?? parameters.get("id");
  const place = places.find((one) => id && one?.id === id);
  return { title: place?.title ?? "", description: place?.summary ?? "" };
}

const valuePage = (context, row, above) =>
  isChoice(row) ? choicePage(context, row, above) : formPage(context, { title: row.Title, rows: [row] });

// What stands at a path decides: a form has something to accept or to fill in, a menu has rows, and what is
// neither is a place to go to.
function containerPage(context, row) {
  const source = new RowSource(row.Path, () => update());
  const body = el("div", { class: "menu" }, busy(t("Loading…")));
  const { title: words, done } = entryOf(row);
  const title = words.replace(/…$/, "");
  const page = { title, element: body, close: () => source.close() };
  let inner = null;
  const update = () => {
    if (!source.isLoaded || inner) return;
    if (source.error) return fill(body, problem(source.error.message));
    const { rows, roles } = source;
    if (roles.AcceptPath || rows.some(isField)) {
      const changes = changedBy(row.Path, context.places);
      inner = formPage(context, { title, done, path: row.Path, rows, accept: roles.AcceptPath, changes });
    } else if (roles.ContainerType !== "List" && row.ContainerType !== "List") {
      context.dialog.close();
      return go(row.Path, placeOf(row));
    } else {
      inner = treePage({ ...context, places: null, further: [] }, title, source);
    }
    fill(body, inner.element);
    context.dialog.place();
    inner.shown?.();
  };
  source.need(0, mostRows).then(update);
  page.shown = () => inner?.shown?.();
  return page;
}

// A page with the menu items that `make` gives for the rows of a source, where there is one.
function listPage(context, title, source, make, own = []) {
  const list = el("div", { class: "menu", role: "menu", "aria-label": title, on: { keydown: moveInMenu } });
  const show = () => {
    const focused = itemsIn(list).indexOf(document.activeElement);
    fill(list, own.map(ownItem));
    if (source?.error) list.append(problem(source.error.message));
    else if (source && !source.isLoaded) list.append(busy(t("Loading…")));
    else if (source) list.append(...make(source.rows));
    context.dialog.place();
    if (!list.isConnected || list.contains(document.activeElement)) return;
    const items = itemsIn(list);
    const checked = items.findIndex((item) => item.getAttribute("aria-checked") === "true");
    items[Math.max(0, Math.min(focused < 0 ? checked : focused, items.length - 1))]?.focus();
  };
  source?.addEventListener("changed", show);
  source?.need(0, mostRows);
  show();
  return { title, element: list, close: () => source?.close(), shown: show };
}

const itemsIn = (list) => [...list.querySelectorAll("[role^=menuitem]")];

function treePage(context, title, source, own) {
  const isMeant = (row) => !context.several || entryOf(row).isForSeveral;
  const useful = (row) => isMeant(row) && isUseful(row, context.list);
  const shown = (rows) => inOrder([...rows, ...(context.further ?? [])].filter(useful));
  const itemsOf = (row) => treeItems(context, row, source).map((item) => madeFrom(item, row));
  const make = (rows) => inGroups(shown(rows), itemsOf);
  return listPage(context, title, source, make, own);
}

function menuItem(title, { picture, mark, role = "menuitem", disabled = false, detail = "" }, run) {
  const click = (event) => !disabled && run(event.currentTarget);
  const shared = { type: "button", class: "menu-item", role, tabindex: "-1", on: { click } };
  return el(
    "button",
    { ...shared, "aria-disabled": disabled ? "true" : null },
    picture ?? el("span", { class: "menu-mark" }),
    el("span", { class: "menu-title", text: title }),
    detail ? el("span", { class: "menu-detail", text: detail }) : null,
    mark,
  );
}

const signOf = (name) => name && el("span", { class: "menu-mark" }, icon(name));

const ownItem = ({ title, icon: name, run }) => menuItem(title, { picture: signOf(name) }, run);

// What stands below a header is a group with its name.
function inGroups(rows, make) {
  const elements = [];
  let group = null;
  for (const row of rows) {
    if (row.Type === "Header") {
      const header = el("div", { class: "menu-header", "aria-hidden": "true" }, row.Title);
      group = el("div", { class: "menu-group", role: "group", "aria-label": row.Title }, header);
      elements.push(group);
    } else if (group) group.append(...make(row));
    else elements.push(...make(row));
  }
  return elements;
}

function treeItems(context, row, source) {
  const { title, icon: sign, detail, done, leadsAway } = entryOf(row);
  const { dialog } = context;
  const isDisabled = row.Disabled === true;
  const isItem = row.Icon || (row.Type === "Action" && row.Id);
  const picture = signOf(sign) ?? (isItem ? cover(row.Icon, row.Title) : null);
  const shared = { picture, disabled: isDisabled };
  const visit = () => (dialog.close(), go(row.Path, placeOf(row)));
  if (leadsAway) return [menuItem(title, { ...shared, detail }, visit)];
  if (row.Type === "Container") {
    const open = () => dialog.push(containerPage(context, row));
    const top = topItem(context, row);
    if (top.length && context.several) return top;
    return [...top, menuItem(title, { ...shared, mark: icon("forward") }, open)];
  }
  if (context.several && saysWhatItDoes(row)) return [favorItem(context)];
  if (row.Type === "Action") {
    row.done = done;
    const item = menuItem(title, shared, (button) => act(context, row, button));
    nameAction(row, item.querySelector(".menu-title"));
    return [item];
  }
  if (isChoice(row) || isField(row)) {
    const value = String(plainValue(row.Value) ?? "");
    const open = () => dialog.push(valuePage(context, row, source));
    const item = menuItem(row.Title, { disabled: isDisabled, detail: value, mark: icon("forward") }, open);
    if (isChoice(row)) presentChoice(row, item.querySelector(".menu-detail"));
    return [item];
  }
  return [el("p", { class: "menu-text", text: row.Title })];
}

// Stands there as soon as it is known what it does for all of them.
function favorItem({ dialog, several }) {
  const place = el("div", { role: "presentation", hidden: true });
  favorSeveral(several).then((entry) => {
    if (!entry) return;
    const run = () => (dialog.close(true), entry.run());
    fill(place, ownItem({ ...entry, run }));
    place.hidden = false;
    dialog.place();
  });
  return place;
}

// The form that moves a track, filled in for the place that is wanted most.
function topItem(context, row) {
  const { base, parameters } = parsePath(row.Path);
  const { several } = context;
  if (!base.endsWith("/moveTrack") || (!several && parameters.get("rowNum") === "0")) return [];
  const run = async (button) => {
    button.setAttribute("aria-busy", "true");
    try {
      for (const path of several ? entryForEach(row.Path, several) : [row.Path]) {
        const { rows } = await getRows(path, 0, 9);
        await setValue(rows.find(isField).Path, 0);
        await setValue(rows.find(({ Type }) => Type === "Action").Path);
      }
      toast(t("Moved to the top"));
      context.dialog.close(true);
    } catch (error) {
      button.removeAttribute("aria-busy");
      button.after(problem(error.message));
    }
  };
  return [menuItem(t("Move to top"), { picture: signOf("top") }, run)];
}

// Such an action says in its own data what it would do now: "Add to favorites" or "Remove from favorites".
// What it does is what it said last, to whomever, so it is asked once more right before.
const saysWhatItDoes = (row) => baseOf(row.Path).endsWith("/favorites");

async function nameAction(row, place) {
  const title = saysWhatItDoes(row) && (await titleNow(row.Path));
  if (title) place.textContent = row.Title = row.said = title;
}

async function act(context, row, button) {
  const detail = button.querySelector(".menu-detail");
  const place = detail ?? button.appendChild(el("span", { class: "menu-detail" }));
  if (button.getAttribute("aria-busy") === "true") return;
  button.setAttribute("aria-busy", "true");
  if (button.nextElementSibling?.matches(".problem")) button.nextElementSibling.remove();
  const wanted = row.said;
  await nameAction(row, button.querySelector(".menu-title"));
  if (wanted && row.said !== wanted) {
    // Another client has done it meanwhile.
    toast(t("Done: %1", wanted));
    return context.dialog.close(true);
  }
  try {
    const begun = () => (place.textContent = row.BusyText || t("Working…"));
    const text = context.several ? await actOnAll(context, row) : await activate(row, context.subject, begun);
    if (text) context.dialog.push(textPage(row.Title, text));
    else if (text === "") context.dialog.close(true);
    place.textContent = "";
  } catch (error) {
    place.textContent = "";
    button.after(problem(error.message));
  }
  button.removeAttribute("aria-busy");
  return undefined;
}

async function actOnAll({ several }, row) {
  for (const path of entryForEach(row.Path, several)) await setValue(path);
  toast(row.done);
  return "";
}

/** Says in a place the title of the choice that is made. */
export async function presentChoice(row, place) {
  if (!place) return;
  const source = new RowSource(row.Edit.enumPath);
  await source.need(0, mostRows);
  const present = choicesOf(row, source.rows).find((choice) => sameValue(choice.Value, row.Value));
  if (present) place.textContent = present.Title;
  source.close();
}

function choicePage(context, row, above = null) {
  const choose = async (choice, button) => {
    button.setAttribute("aria-busy", "true");
    try {
      understand(await setValue(row.Path, choice.Value));
      row.Value = choice.Value;
      // No notice tells of another order, which other lists may have, too.
      live.dispatchEvent(new Event("acted"));
      if (above) await above.reload();
      context.dialog.back();
    } catch (error) {
      button.removeAttribute("aria-busy");
      button.after(problem(error.message));
    }
  };
  const choiceItem = (choice) => {
    const isPresent = sameValue(choice.Value, row.Value);
    const picture = el("span", { class: "menu-mark" }, isPresent ? icon("check") : null);
    const run = (button) => choose(choice, button);
    const item = menuItem(choice.Title, { role: "menuitemradio", picture }, run);
    item.setAttribute("aria-checked", String(isPresent));
    return item;
  };
  const make = (rows) =>
    choicesOf(row, rows, context.list).map((choice) => madeFrom(choiceItem(choice), choice));
  return listPage(context, row.Title, new RowSource(row.Edit.enumPath), make);
}

function moveInMenu(event) {
  const items = itemsIn(event.currentTarget);
  const at = items.indexOf(document.activeElement);
  const target = { ArrowDown: at + 1, ArrowUp: at - 1, Home: 0, End: items.length - 1 }[event.key];
  if (target !== undefined && items.length) {
    event.preventDefault();
    items[(target + items.length) % items.length].focus();
  } else if (event.key.length === 1 && event.key !== " " && !event.ctrlKey && !event.metaKey) {
    const letter = event.key.toLowerCase();
    const isNext = (item) => item.textContent.trim().toLowerCase().startsWith(letter);
    [...items.slice(at + 1), ...items].find(isNext)?.focus();
  }
}
