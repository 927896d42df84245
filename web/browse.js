// The view of a list: rows, covers, or the tracks of an album or playlist.

import { qualityText } from "./bar.js";
import { el, fill } from "./dom.js";
import { orderMenuOf } from "./entries.js";
import { RowFilter } from "./filter.js";
import { item, skeleton } from "./items.js";
import { kindOf, lookOf } from "./kinds.js";
import { VirtualList } from "./list.js";
import { openMenu } from "./menu.js";
import { pictureButton, PlaceView } from "./place.js";
import { playback } from "./playback.js";
import { albumOf, artistOf, subtitleOf } from "./rowtext.js";
import { Selection } from "./select.js";
import { lengthText, t } from "./text.js";

const pictureShare = 0.5;

// How many there are of what a list holds.
function countText(rows, count) {
  const [row] = rows;
  if (row?.Type === "Audio") return count === 1 ? t("1 track") : t("%1 tracks", count);
  const kind = count > 1 ? kindOf(row?.Path ?? "") : "";
  if (kind === "album") return t("%1 albums", count);
  if (kind === "artist") return t("%1 artists", count);
  return kind ? t("%1 playlists", count) : "";
}

export class BrowseView extends PlaceView {
  #list;
  #filter;
  #selection;
  #place;
  #kind = "rows";
  #playingPath = playback.state.path;
  #wasPlaying = playback.isPlaying;

  constructor(path, state, scroller) {
    super(path, state, scroller);
    this.#place = state.place;
    const { source } = this;
    this.#filter = new RowFilter(source, () => this.#showList());
    this.#list = new VirtualList(
      scroller,
      this.item.title || t("Rows"),
      (index, kind) => this.#make(index, kind),
      (index) => [this.#row(index), this.item.subtitle, this.#filter.at(index)],
      (from, to) => this.#filter.need(from, to),
    );
    const { element } = this.#list;
    element.addEventListener("current", (event) => this.tellRow(this.#row(event.detail)));
    const numberOf = (index) => this.#filter.at(index);
    this.#selection = new Selection(element, (index) => this.#row(index), numberOf);
    this.body.before(this.#filter.element);
    playback.addEventListener("changed", () => this.#markPlaying(), { signal: this.ended });
    const kind = lookOf(path);
    const unread = Array.from({ length: 12 }, () => skeleton(kind));
    fill(this.body, el("ul", { class: `list loading ${kind}`, "aria-hidden": "true" }, unread));
    this.begin((this.#place?.to ?? 0) + 1);
  }

  close() {
    super.close();
    this.#filter.close();
    this.#list.close();
    this.#selection.close();
  }

  /** Leads to the field that looks for rows. */
  filter() {
    this.#filter.focus();
  }

  #row(index) {
    return this.#filter.row(index);
  }

  get place() {
    const { element, current } = this.#list;
    const hadFocus = element.contains(document.activeElement);
    return { scroll: this.scroller.scrollTop, current, hadFocus, to: current };
  }

  showRows() {
    const { source } = this;
    if (!source.count) {
      fill(this.body, el("div", { class: "empty" }, el("p", {}, t("Nothing is here."))));
      return;
    }
    const { rows } = source;
    const pictures = rows.filter((row) => row.Type === "Container" && row.Icon).length;
    const isAlbum = this.kind === "album" && rows.every((row) => row.Type === "Audio");
    this.#kind = isAlbum ? "tracks" : pictures > rows.length * pictureShare ? "grid" : "rows";
    if (!this.#list.element.isConnected) fill(this.body, this.#list.element);
    this.#filter.update();
    this.#showList();
    this.#restorePlace();
    this.dispatchEvent(new Event("loaded"));
  }

  #showList() {
    this.#selection.update((number) => this.#filter.rowOf(number));
    this.#list.update(this.#kind, this.#filter.count, this.source.rows.some(subtitleOf));
  }

  #restorePlace() {
    const place = this.#place;
    if (!place) return;
    this.#place = null;
    this.scroller.scrollTop = place.scroll;
    if (place.hadFocus && place.current < this.source.count) this.#list.focus(place.current);
  }

  #make(index, kind) {
    const row = this.#row(index);
    if (!row) return skeleton(kind);
    return this.#selection.mark(item(row, kind, this.path, this.#filter.at(index), this.#names()), index);
  }

  // What the head of an album names, from the row that led here or else from its tracks.
  #names() {
    const { title, subtitle, icon: picture, artists, year } = this.item;
    if (this.kind !== "album") return { title, artist: subtitle, picture, artists };
    const tracks = this.source.rows.filter((row) => row.Type === "Audio");
    const track = tracks[0] ?? {};
    const common = (of) => (tracks.every((row) => of(row) === of(track)) ? of(track) : "");
    const artist = subtitle || common(artistOf);
    return {
      title: title || common(albumOf),
      artist,
      picture: picture || track.Icon,
      artists: artists ?? (artist === artistOf(track) ? track.ArtistPaths : null),
      year: year ?? track.ReleaseYear,
    };
  }

  headParts() {
    const { source, item: known } = this;
    const { count, rows, roles } = source;
    const { artist: subtitle, picture, artists, year, ...names } = this.#names();
    // The rows of an item are titled by the list that it was found in.
    const title = names.title || (this.kind ? "" : roles.Title);
    const isTracks = count > 0 && rows.every((row) => row.Type === "Audio");
    this.#list?.element.setAttribute("aria-label", title || t("Rows"));
    const own = orderMenuOf(this.path, roles.Context?.Path);
    const canPlay = isTracks && rows.some((row) => !row.Disabled);
    const buttons = [];
    const isHere = playback.state.list === this.path && playback.isActive;
    const isPlaying = isHere && playback.isPlaying;
    const [sign, label] = isPlaying ? ["pause", t("Pause")] : ["play", t("Play")];
    const play = () => (isHere ? playback.toggle() : playback.play(this.path));
    if (canPlay) buttons.push(pictureButton(sign, label, play, "primary"));
    buttons.push(...this.itemButtons());
    if (own && own !== known.menu)
      buttons.push(pictureButton("sort", t("Order"), (box) => this.#openOrder(own, box)));
    const facts = isTracks ? [year, countText(rows, count), this.#length()] : [countText(rows, count)];
    if (playback.state.list === this.path) facts.push(qualityText(playback.state));
    return { title, picture, artists, subtitle, facts, buttons, key: [canPlay, isHere, isPlaying, own, known.menu] };
  }

  // How long all of it is; empty while that is not known.
  #length() {
    const { rows, count } = this.source;
    const whole = rows.length === count ? rows.reduce((sum, row) => sum + (row.Duration ?? 0), 0) : 0;
    return lengthText(this.item.length || whole);
  }

  #openOrder(path, box) {
    const list = { ...this.source.roles, Type: "", Path: "", Context: { Path: path } };
    openMenu(list, box);
  }

  #markPlaying() {
    const { path } = playback.state;
    if (this.source.isLoaded) this.showHead();
    if (path === this.#playingPath && playback.isPlaying === this.#wasPlaying) return;
    const touched = new Set([path, this.#playingPath]);
    this.#playingPath = path;
    this.#wasPlaying = playback.isPlaying;
    for (const element of this.#list.element.querySelectorAll("li[data-index]")) {
      const index = Number(element.dataset.index);
      if (touched.has(this.#row(index)?.Path)) this.#list.refresh(index);
    }
  }
}
