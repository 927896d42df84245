// Pictures of every screen for docs/screens.md: wide and narrow, light and dark.

import path from "node:path";
import { Streamer } from "../tests/web/harness/streamer.js";
import { closeBrowser, openWindow } from "../tests/web/harness/window.js";

const newAlbums = "/tidal/req/featured/new/albums";
const mine = "/tidal/myMusic/req/created/users/playlists";

const inMenu = (person, name) => person.dialog.getByRole("menuitem", { name }).waitFor();

const album = async (person) => {
  await person.visit(newAlbums);
  await person.open("Second Signal");
  await person.list("Second Signal").getByRole("button", { name: "Menu of" }).first().waitFor();
};

/** How each screen is reached. They follow each other in one window. */
const screens = {
  home: (person) => person.visit("/tidal").then(() => person.list("Favorite albums").getByRole("link").first().waitFor()),
  new: (person) => person.visit("/tidal/new").then(() => person.row("Most Played").first().waitFor()),
  albums: (person) => person.visit(newAlbums).then(() => person.row("Second Signal").waitFor()),
  album: async (person) => {
    await album(person);
    await person.list("Second Signal").getByRole("listitem").nth(1).getByRole("button").first().click();
    await person.player.getByRole("button", { name: "Pause" }).waitFor();
    await person.until(async () => (await person.streamer.call("player")).state === "playing", "it plays");
  },
  menu: async (person) => {
    await person.view.getByRole("button", { name: "Menu of" }).nth(2).click();
    await inMenu(person, "Add to playlist");
  },
  playlists: async (person) => {
    await person.choose("Add to playlist");
    await inMenu(person, "Create playlist");
  },
  form: async (person) => {
    await person.choose("Create playlist");
    await person.dialog.getByLabel("Title").fill("Rainy evenings");
    await person.dialog.getByLabel("Description").fill("For the window seat");
  },
  order: async (person) => {
    await person.page.reload();
    await person.visit("/tidal/myMusic/req/favorites/users/tracks");
    await person.button("Order").click();
    await person.dialog.getByRole("menuitem", { name: "Order Name" }).click();
    await person.dialog.getByRole("menuitemradio", { name: "Name", checked: true }).waitFor();
  },
  question: async (person) => {
    await person.page.reload();
    await person.visit(mine);
    await person.menu("Morning commute");
    await person.choose("remove");
    await person.page.getByRole("dialog", { name: "Delete the playlist?" }).waitFor();
  },
  search: async (person) => {
    await person.page.reload();
    await person.page.getByRole("searchbox").fill("harbour");
    for (const kind of ["Albums", "Tracks", "Artists", "Playlists"]) await person.list(kind).getByRole("button", { name: "Menu of" }).first().waitFor();
  },
  artist: async (person) => {
    await person.list("Artists").getByRole("link").nth(1).click();
    await person.list("Top tracks").getByRole("button").first().waitFor();
  },
  playing: async (person) => {
    await person.player.getByRole("link", { name: /^Now playing/ }).click();
    await person.list("Queue").getByRole("button").first().waitFor();
  },
  settings: (person) => person.visit("/settings").then(() => person.page.getByRole("button", { name: /^Sound quality/ }).waitFor()),
  drawer: async (person) => {
    await album(person);
    await person.page.getByRole("button", { name: "Developer’s drawer" }).click();
    await person.view.getByRole("button", { name: "Menu of" }).first().focus();
    await person.page.getByRole("tabpanel").getByRole("button", { name: "Read its data" }).waitFor();
  },
  requests: async (person) => {
    await person.page.getByRole("tab", { name: "Requests" }).click();
    await person.page.getByRole("list", { name: "Requests" }).getByRole("listitem").first().waitFor();
  },
  login: async (person) => {
    await person.page.getByRole("button", { name: "Developer’s drawer" }).click();
    await person.visit("/oauth2/services/tidal");
    await person.button("Log out").click();
    await person.button("Get a code").click();
    const picture = person.view.getByRole("img", { name: "QR code" });
    await person.until(() => picture.evaluate((image) => image.complete && image.naturalWidth > 50), "the QR code is drawn");
  },
};

// Pictures in sight are there, and nothing turns.
const settled = () => [...document.images].every((image) => image.complete || image.getBoundingClientRect().top > innerHeight || image.getBoundingClientRect().left > innerWidth) && !document.querySelector(".skeleton:not(.grid), .spinner") && document.getAnimations().every((one) => one.playState !== "running");

const windows = [
  ["wide-light", { width: 1280, height: 800, colorScheme: "light" }, Object.keys(screens)],
  ["narrow-dark", { width: 390, height: 844, isMobile: true, hasTouch: true, colorScheme: "dark" }, Object.keys(screens)],
  ["wide-dark", { width: 1280, height: 800, colorScheme: "dark" }, ["albums", "album", "search", "playing", "login"]],
  ["narrow-light", { width: 390, height: 844, isMobile: true, hasTouch: true, colorScheme: "light" }, ["albums", "album", "search", "playing", "login"]],
];

const folder = process.argv[2];
for (const [kind, options, wanted] of windows) {
  const streamer = await Streamer.start();
  const person = await openWindow(streamer, options);
  for (const [name, reach] of Object.entries(screens)) {
    await reach(person);
    if (!wanted.includes(name)) continue;
    await person.until(() => person.page.evaluate(settled), `${name} is quiet`);
    await person.page.mouse.move(0, 0);
    await person.page.screenshot({ path: path.join(folder, `${name}-${kind}.png`) });
  }
  await person.leave();
  await streamer.stop();
}
await closeBrowser();
