// The bar at the page's foot: what plays, and the controls that one needs all the time.

import { cover, el, fill, icon, iconButton, setIconButton } from "./dom.js";
import { heartOfPlaying } from "./favorites.js";
import { albumLink, artistLinks, placeLink } from "./links.js";
import { go, onPlainClick } from "./nav.js";
import { linkTo } from "./path.js";
import { playback } from "./playback.js";
import { played } from "./played.js";
import { clock, t } from "./text.js";
import { waitingLine } from "./waiting.js";

const slider = (properties) => el("input", { type: "range", min: "0", ...properties });

// Shows the player's state, now and whenever it is another one, until the signal.
function follow(show, signal) {
  playback.addEventListener("changed", show, { signal });
  show();
}

// A track's length is what the service says of it, whole seconds, unless what came is another one.
function lengthOf(durationMs) {
  const said = played.row?.Duration;
  return Math.abs(said - durationMs) < 1500 ? said : Math.round(durationMs / 1000) * 1000;
}

/** A slider for the place in the item; it follows the player until the signal. */
export function seekBar(signal) {
  const input = slider({ max: "1", step: "1000", value: "0", class: "seek", "aria-label": t("Position") });
  const now = el("span", { class: "time" });
  const whole = el("span", { class: "time" });
  let isHeld = false;
  const show = () => {
    const { durationMs = 0 } = playback.state;
    const position = isHeld ? Number(input.value) : playback.position;
    input.disabled = !durationMs;
    input.max = String(durationMs || 1);
    if (!isHeld) input.value = String(position);
    input.style.setProperty("--share", `${durationMs ? (100 * position) / durationMs : 0}%`);
    now.textContent = playback.isActive ? clock(position) : "";
    whole.textContent = durationMs ? clock(lengthOf(durationMs)) : "";
    input.setAttribute("aria-valuetext", t("%1 of %2", clock(position), clock(lengthOf(durationMs))));
  };
  input.addEventListener("input", () => ((isHeld = true), show()));
  input.addEventListener("change", async () => {
    await playback.send("seek", { positionMs: Math.round(Number(input.value)) });
    isHeld = false;
    show();
  });
  const timer = setInterval(() => playback.isPlaying && !document.hidden && show(), 500);
  signal?.addEventListener("abort", () => clearInterval(timer));
  follow(show, signal);
  return el("div", { class: "seek-bar" }, now, input, whole);
}

/** A slider for the volume, and a button that takes it to nothing and back. */
export function volumeBar(signal) {
  const input = slider({ max: "100", class: "volume", "aria-label": t("Volume") });
  const mute = iconButton("volume", t("Mute"), () => playback.toggleMute());
  const show = () => {
    const { volume } = playback;
    input.value = String(volume);
    input.style.setProperty("--share", `${volume}%`);
    input.setAttribute("aria-valuetext", `${volume} %`);
    setIconButton(mute, volume ? "volume" : "muted", volume ? t("Mute") : t("Unmute"));
  };
  input.addEventListener("input", () => playback.setVolume(Number(input.value)));
  follow(show, signal);
  return el("div", { class: "volume-bar" }, mute, input);
}

/** The buttons for shuffling and repeating. */
export function orderButtons(signal) {
  const properties = { class: "icon-button order" };
  const shuffle = iconButton("shuffle", t("Shuffle"), () => playback.shuffle(), properties);
  const repeat = iconButton("repeat", "", () => playback.repeat(), properties);
  const show = () => {
    const { shuffle: isShuffled = false, repeat: mode = "off" } = playback.state;
    shuffle.setAttribute("aria-pressed", isShuffled);
    const label = { off: t("Repeat: off"), all: t("Repeat: all"), one: t("Repeat: this track") }[mode];
    setIconButton(repeat, mode === "one" ? "one" : "repeat", label);
    repeat.classList.toggle("on", mode !== "off");
  };
  follow(show, signal);
  return [shuffle, repeat];
}

export function playButton(signal) {
  const properties = { class: "icon-button play-button" };
  const button = iconButton("play", t("Play"), () => playback.toggle(), properties);
  const show = () => {
    const isPlaying = playback.isPlaying;
    setIconButton(button, isPlaying ? "pause" : "play", isPlaying ? t("Pause") : t("Play"));
    button.classList.toggle("resolving", playback.state.state === "resolving");
    button.disabled = !playback.isActive;
  };
  follow(show, signal);
  return button;
}

const qualities = { LOW: "Low", HIGH: "High", LOSSLESS: "Lossless", HI_RES: "Hi-Res" };

/** What was asked for and what came, in words; empty when unknown. */
export function qualityText({ quality } = {}) {
  const asked = qualities[quality?.asked] ?? quality?.asked;
  const delivered = qualities[quality?.delivered] ?? quality?.delivered;
  if (!asked && !delivered) return "";
  if (!delivered) return t("asked for %1", asked);
  return asked && asked !== delivered ? t("%1, asked for %2", delivered, asked) : delivered;
}

/** What plays, as links: its title leads to its row in the list that plays. */
export function playingLinks() {
  const { title = "", artist = "", album = "", list, index = -1 } = playback.state;
  const { row } = played;
  const place = { current: index, to: index, hadFocus: true, scroll: 0 };
  const hasList = title && list && index >= 0;
  return {
    title: hasList ? placeLink(list, title, played.list?.item ?? null, {}, place) : title,
    artist: artistLinks(row?.ArtistPaths, artist),
    album: row?.AlbumPath ? albumLink(row) : album,
  };
}

/** Fills the bar's element. */
export function startBar(bar) {
  const [title, line] = ["title", "subtitle"].map((name) => el("span", { class: name }));
  const link = el("a", { href: linkTo("!playing") });
  onPlainClick(link, () => go("!playing", null, true));
  const item = el("div", { class: "bar-item" }, link, el("span", { class: "words" }, title, line));
  const previous = iconButton("previous", t("Previous"), () => playback.send("previous"));
  const next = iconButton("next", t("Next"), () => playback.send("next"));
  const properties = { class: "icon-button queue-button" };
  const queue = iconButton("queue", t("Now playing and queue"), () => go("!queue", null, true), properties);
  const [shuffle, repeat] = orderButtons();
  const buttons = el("div", { class: "bar-buttons" }, shuffle, previous, playButton(), next, repeat);
  const side = el("div", { class: "bar-side" }, volumeBar(), queue);
  const now = el("div", { class: "bar-now" }, item, heartOfPlaying());
  const row = el("div", { class: "bar-row" }, now, buttons, side);
  fill(bar, waitingLine(() => [playback]), seekBar(), row);
  let shown = "";
  const show = () => {
    const { path = "", title: name = "", artist = "", album = "", list = "", index } = playback.state;
    const { icon: picture = "" } = playback.state;
    bar.classList.toggle("idle", !playback.isActive);
    previous.disabled = next.disabled = !playback.isActive;
    const key = JSON.stringify([path, name, artist, album, picture, list, index, played.row, played.list]);
    if (key === shown) return;
    shown = key;
    const links = playingLinks();
    fill(title, links.title || t("Nothing plays"));
    fill(line, links.artist, artist && album ? " · " : "", links.album);
    fill(link, cover(picture, name || "♪", "album"));
    const said = [name, artist, album].filter(Boolean).join(", ");
    link.setAttribute("aria-label", name ? t("Now playing: %1", said) : t("Nothing plays"));
  };
  played.addEventListener("changed", show);
  follow(show);
}
