// A form: its fields are values of the tree, sent one after the other, then what accepts them is activated.

import { understand } from "./actions.js";
import { getData, setValue } from "./api.js";
import { problem, textPage } from "./dialog.js";
import { el } from "./dom.js";
import { currentPath } from "./nav.js";
import { parsePath } from "./path.js";
import { isChoice, isField, plainValue } from "./rowtext.js";
import { t } from "./text.js";

let lastId = 0;

function fieldOf(row, value) {
  const id = `field${++lastId}`;
  const present = plainValue(row.Value);
  const kind = { boolean: "checkbox", number: "number", string: "text" }[typeof present];
  const input = el("input", { id, type: kind, autocomplete: "off", step: kind === "number" ? "1" : null });
  if (kind === "checkbox") input.checked = present;
  else input.value = value ?? present;
  const read = () => (kind === "checkbox" ? input.checked : kind === "number" ? Number(input.value) : input.value);
  return { row, input, read, element: el("div", { class: `field ${kind}` }, el("label", { for: id, text: row.Title }), input) };
}

// A form that changes something starts from what is there, as far as the page knows it.
function startValue(context, path, row) {
  const present = plainValue(row.Value);
  const { base, parameters } = parsePath(path);
  const field = parsePath(row.Path).base;
  if (typeof present === "string" && base.endsWith("/updatePlaylists") && parameters.get("type") === "Playlists") {
    if (field.endsWith("/title")) return context.row.Title ?? "";
    if (field.endsWith("/description")) return context.row.Description ?? "";
  }
  // From a track of a playlist: the playlist is the view below.
  if (base.endsWith("/updatePlaylists") && field.endsWith("/title") && parameters.get("playlistId") === parsePath(currentPath()).parameters.get("playlistId")) return document.querySelector("main h1")?.textContent ?? "";
  if (typeof present === "number" && parameters.has("rowNum") && base.endsWith("/moveTrack")) return parameters.get("rowNum");
  // What another client has left in the fields of a new playlist is not this reader's.
  if (typeof present === "string" && base.endsWith("/createPlaylist")) return "";
  return present;
}

/**
 * A page of a dialog with a form. `accept` is the path that accepts it; without one the action rows of the
 * form do, and without those the fields are stored as they are.
 */
export function formPage(context, { path, title, rows, accept }) {
  const fields = rows.filter(isField).map((row) => fieldOf(row, startValue(context, path, row)));
  const actions = rows.filter((row) => row.Type === "Action");
  const others = rows.filter((row) => !isField(row) && !isChoice(row) && row.Type === "Text");
  const buttons = el("div", { class: "buttons" });
  const message = el("div");
  let isBusy = false;

  const submit = async (target) => {
    if (isBusy) return;
    isBusy = true;
    message.replaceChildren();
    form.setAttribute("aria-busy", "true");
    try {
      let answer = null;
      for (const field of fields) answer = await setValue(field.row.Path, field.read());
      if (target) answer = await setValue(target, 1);
      const text = understand(answer, title);
      if (text) context.dialog.push(textPage(title, text));
      else context.dialog.close(true);
    } catch (error) {
      message.replaceChildren(problem(error.message));
    }
    isBusy = false;
    form.removeAttribute("aria-busy");
  };

  const targets = accept ? [{ Path: accept, Title: t("Save") }] : actions.length ? actions : [{ Path: null, Title: t("Save") }];
  for (const target of targets) {
    const isFirst = target === targets[0];
    const button = el("button", { type: isFirst ? "submit" : "button", class: "button primary", text: target.Title });
    if (!isFirst) button.addEventListener("click", () => submit(target.Path));
    buttons.append(button);
    if (accept) nameButton(accept, button, target);
  }
  const hint = hintFor(parsePath(path).base);
  const form = el(
    "form",
    { class: "form", on: { submit: (event) => (event.preventDefault(), submit(targets[0].Path)) } },
    others.map((row) => el("p", { text: row.Title })),
    fields.map((field) => field.element),
    hint ? el("p", { class: "hint" }, hint) : null,
    message,
    buttons,
  );
  return { title, element: form, shown: () => fields[0]?.input.select?.() ?? fields[0]?.input.focus() };
}

// What the tree does not say of its forms.
function hintFor(base) {
  if (base.endsWith("/moveTrack")) return t("The first row has the number 0.");
  if (base.endsWith("/updatePlaylists")) return t("What is left empty stays as it is.");
  return "";
}

async function nameButton(path, button, target) {
  try {
    const { data } = await getData(path);
    if (data.Title) button.textContent = target.Title = data.Title;
  } catch {
    return;
  }
}
