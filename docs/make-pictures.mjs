// The pictures of docs/screens.md: each from a streamer and a window of its own.

import path from "node:path";
import { Streamer } from "../tests/web/harness/streamer.js";
import { closeBrowser, openWindow } from "../tests/web/harness/window.js";

const newAlbums = "/tidal/req/featured/new/albums";
const newTracks = "/tidal/req/featured/new/tracks";
const myPlaylists = "/tidal/myMusic/req/created/users/playlists";

/** Opens a list and plays one of its tracks. */
async function playIn(person, above, title, track = 1) {
  await person.visit(above);
  await person.open(title);
  await person.list(title).getByRole("button", { name: "Menu of" }).first().waitFor();
  await person.list(title).getByRole("listitem").nth(track).getByRole("button").first().click();
  await person.player.getByRole("button", { name: "Pause" }).waitFor();
  await person.until(async () => (await person.streamer.call("player")).state === "playing", "it plays");
  await person.streamer.call("player/seek", { positionMs: 50000 });
  await person.player.getByText("0:5").first().waitFor({ state: "attached" });
}

const album = (person) => playIn(person, newAlbums, "Second Signal", 3);

async function home(person) {
  for (const title of ["Neon Carousel", "Under the Tide"]) await playIn(person, newAlbums, title);
  await playIn(person, myPlaylists, "Morning commute");
  await album(person);
  await person.visit("/tidal");
  await person.list("Favorite albums").getByRole("link").first().waitFor();
}

async function queue(person) {
  await playIn(person, myPlaylists, "Morning commute");
  const { rows } = await person.streamer.rows(newTracks, 4);
  await person.streamer.call("player/queue", { action: "add", paths: [rows[0].Path, rows[4].Path], at: "next" });
  await person.page.goto("/#!queue");
  await person.list("Queue").getByRole("button", { name: "Clear" }).waitFor();
}

/** Each by its name: how wide and high, which scheme of colours, and what is done there. */
const pictures = {
  home: [1280, 800, "light", home],
  "home-phone": [390, 844, "dark", home],
  search: [1280, 800, "light", async (person) => {
    await person.visit("/tidal");
    await person.page.getByRole("searchbox").fill("harbour");
    for (const kind of ["Albums", "Tracks", "Artists"]) await person.list(kind).getByRole("button", { name: "Menu of" }).first().waitFor();
  }],
  artist: [1920, 1080, "dark", async (person) => {
    await person.visit("/tidal/req/artists?artistId=900391");
    for (const name of ["Top tracks", "Albums"]) await person.list(name).getByRole("button", { name: "Menu of" }).first().waitFor();
  }],
  album: [1280, 800, "light", album],
  "menu-phone": [390, 844, "light", async (person) => {
    await album(person);
    await person.view.getByRole("button", { name: "Menu of" }).nth(2).click();
    await person.dialog.getByRole("menuitem", { name: "Add to playlist…" }).waitFor();
  }],
  "playing-phone": [390, 844, "dark", async (person) => {
    await album(person);
    await person.page.goto("/#!playing");
    await person.button("Stop").waitFor();
  }],
  queue: [1280, 800, "dark", queue],
  settings: [768, 1024, "light", async (person) => {
    await person.visit("/settings");
    await person.page.getByRole("button", { name: /^Sound quality/ }).waitFor();
  }],
  drawer: [1280, 800, "light", async (person) => {
    await album(person);
    await person.page.getByRole("button", { name: "Developer’s drawer" }).click();
    await person.page.getByRole("tab", { name: "Requests" }).click();
    await person.page.getByRole("list", { name: "Requests" }).getByRole("listitem").first().waitFor();
  }],
};

// Pictures in sight are there, and nothing turns.
const settled = () => [...document.images].every((image) => image.complete || image.getBoundingClientRect().top > innerHeight || image.getBoundingClientRect().left > innerWidth) && !document.querySelector(".skeleton:not(.grid), .spinner") && document.getAnimations().every((one) => one.playState !== "running");

const folder = process.argv[2];
for (const [name, [width, height, colorScheme, reach]] of Object.entries(pictures)) {
  const streamer = await Streamer.start();
  const hand = width < 1000 && { isMobile: true, hasTouch: true };
  const person = await openWindow(streamer, { width, height, colorScheme, ...hand });
  await reach(person);
  await person.until(() => person.page.evaluate(settled), `${name} is quiet`);
  await person.page.mouse.move(0, 0);
  await person.page.screenshot({ path: path.join(folder, `${name}.png`) });
  await person.leave();
  await streamer.stop();
}
await closeBrowser();
