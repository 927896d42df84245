// The page's texts in the reader's language. The English text is the key; what has no translation stays
// English.

let texts = {};

/** The text in the reader's language, with arguments at %1 and %2. */
export function t(source, ...parts) {
  const text = texts[source] || source;
  return parts.length ? text.replace(/%([1-9])/g, (place, number) => parts[number - 1] ?? place) : text;
}

/** The language that the reader has chosen; empty when it follows the browser. */
export const chosenLanguage = localStorage.getItem("language") || "";

/** Fetches the texts and puts them into the document. Without an answer everything stays English. */
export async function loadTexts() {
  try {
    const query = chosenLanguage ? `?language=${encodeURIComponent(chosenLanguage)}` : "";
    const answer = await fetch(`api/v1/texts${query}`);
    if (!answer.ok) return;
    const body = await answer.json();
    texts = body.texts || {};
    document.documentElement.lang = body.language || "en";
  } catch {
    return;
  }
  const places = { t: null, tLabel: "aria-label", tPlaceholder: "placeholder", tTitle: "title" };
  for (const [key, attribute] of Object.entries(places)) {
    const selector = `[data-${key.replace(/[A-Z]/g, (letter) => `-${letter.toLowerCase()}`)}]`;
    for (const element of document.querySelectorAll(selector)) {
      if (attribute) element.setAttribute(attribute, t(element.getAttribute(attribute)));
      else element.textContent = t(element.textContent);
    }
  }
}

/** Minutes and seconds, with hours where there are some. */
export function clock(milliseconds) {
  const seconds = Math.max(0, Math.floor(milliseconds / 1000));
  const two = (number) => String(number).padStart(2, "0");
  const hours = Math.floor(seconds / 3600);
  const minutes = Math.floor(seconds / 60) % 60;
  return hours ? `${hours}:${two(minutes)}:${two(seconds % 60)}` : `${minutes}:${two(seconds % 60)}`;
}

/** A length in hours and minutes, in words; empty when it is not known. */
export function lengthText(milliseconds) {
  const minutes = Math.round(milliseconds / 60000);
  if (!milliseconds) return "";
  return minutes < 60 ? t("%1 min", minutes || 1) : t("%1 h %2 min", Math.floor(minutes / 60), minutes % 60);
}
