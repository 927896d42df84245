// A form: its fields are values of the tree, sent one after the other, then what accepts them is activated.

import { titleNow, understand } from "./actions.js";
import { setValue } from "./api.js";
import { problem, textPage } from "./dialog.js";
import { el, madeFrom } from "./dom.js";
import { entryOf } from "./entries.js";
import { baseOf, parsePath } from "./path.js";
import { isChoice, isField, plainValue } from "./rowtext.js";
import { t } from "./text.js";

let lastId = 0;

// People count rows from 1, the tree from 0.
const isPlace = (row) => nameOf(row) === "rowNum";

function fieldOf(row, value) {
  const id = `field${++lastId}`;
  const kind = { boolean: "checkbox", number: "number", string: "text" }[typeof value];
  const [step, min] = [kind === "number" ? "1" : null, isPlace(row) ? "1" : null];
  const input = el("input", { id, type: kind, autocomplete: "off", step, min });
  const first = isPlace(row) ? 1 : 0;
  if (kind === "checkbox") input.checked = value;
  else input.value = kind === "number" ? value + first : value;
  const read = () => {
    if (kind === "checkbox") return input.checked;
    if (kind === "number") return Number(input.value) - first;
    // An empty text would leave what is there.
    return value && row.mayBeBlank ? input.value || " " : input.value;
  };
  const label = el("label", { for: id, text: first ? t("Position") : row.Title });
  const properties = { class: `field ${kind === "checkbox" ? kind : ""}` };
  return { row, input, read, element: madeFrom(el("div", properties, label, input), row) };
}

const nameOf = (row) => baseOf(row.Path).split("/").pop();

/**
 * A page of a dialog with a form. `accept` is the path that accepts it; without one the action rows of the
 * form do, and without those the fields are stored as they are. `path` is the form's own, whose parameters
 * may say where a number begins; `changes` are the texts of what the form changes, null when that is new;
 * `done` says that it has been done.
 */
export function formPage(context, { title, done, rows, accept = null, path = "", changes = null }) {
  const { parameters } = parsePath(path);
  const startValue = (row) => {
    const present = plainValue(row.Value);
    if (typeof present === "number") return Number(parameters.get(nameOf(row)) ?? present);
    // All clients share the fields; what another has left is not this reader's.
    return typeof present === "string" && accept ? (changes?.[nameOf(row)] ?? "").trim() : present;
  };
  const mayBeBlank = (row) => nameOf(row) === "description";
  const fieldRows = rows.filter(isField).map((row) => ({ ...row, mayBeBlank: mayBeBlank(row) }));
  const fields = fieldRows.map((row) => fieldOf(row, startValue(row)));
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
      const text = understand(answer, title, done);
      if (text) context.dialog.push(textPage(title, text));
      else context.dialog.close(true);
    } catch (error) {
      message.replaceChildren(problem(error.message));
    }
    isBusy = false;
    form.removeAttribute("aria-busy");
  };

  const save = { Path: accept, Title: t("Save") };
  const targets = accept || !actions.length ? [save] : actions;
  for (const target of targets) {
    const isFirst = target === targets[0];
    const text = entryOf(target).title;
    const properties = { type: isFirst ? "submit" : "button", class: "button primary", text };
    const button = el("button", properties);
    if (!isFirst) button.addEventListener("click", () => submit(target.Path));
    buttons.append(button);
    const name = (title) => (button.textContent = target.Title = title || target.Title);
    if (accept) titleNow(accept).then(name);
  }
  const form = el(
    "form",
    { class: "form", on: { submit: (event) => (event.preventDefault(), submit(targets[0].Path)) } },
    others.map((row) => el("p", { text: row.Title })),
    fields.map((field) => field.element),
    message,
    buttons,
  );
  return { title, element: form, shown: () => fields[0]?.input.select?.() ?? fields[0]?.input.focus() };
}
