import assert from "node:assert/strict";
import { readFile } from "node:fs/promises";
import { createRequire } from "node:module";
import { journey } from "./harness/journey.js";
import { both } from "./harness/streamer.js";

const axe = await readFile(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf8");

const myTracks = "/tidal/myMusic/req/favorites/users/tracks";

const ready = (person) => person.view.getByRole("button", { name: "Menu of" }).first().waitFor();

// How each view is reached; what is opened in one is closed with Escape.
const views = {
  top: (person) => person.visit("/tidal").then(() => person.list("Favorite albums").getByRole("link").first().waitFor()),
  "lists below headers": (person) => person.visit("/tidal/new").then(() => person.row("Most Played").first().waitFor()),
  covers: (person) => person.visit("/tidal/req/featured/new/albums").then(() => ready(person)),
  album: async (person) => {
    await person.open((await person.titles("Just In"))[2]);
    await person.button("More").waitFor();
    await ready(person);
  },
  artist: async (person) => {
    await person.visit("/tidal/req/artists?artistId=900391");
    await person.list("Albums").getByRole("link").first().waitFor();
  },
  menu: async (person) => {
    await person.view.getByRole("button", { name: "Menu of" }).first().click();
    await person.dialog.getByRole("menuitem", { name: "Add to playlist…" }).waitFor();
  },
  choices: async (person) => {
    await person.page.keyboard.press("Escape");
    await person.visit(myTracks);
    await person.button("Order").click();
    await person.dialog.getByRole("menuitem", { name: "Order Name" }).click();
    await person.dialog.getByRole("menuitemradio", { name: "Name", checked: true }).waitFor();
  },
  form: async (person) => {
    for (const key of ["Escape", "Escape"]) await person.page.keyboard.press(key);
    await person.visit("/tidal/myMusic");
    await person.row("Create new playlist").getByRole("button").click();
    await person.dialog.getByLabel("Title").waitFor();
  },
  question: async (person) => {
    await person.page.keyboard.press("Escape");
    await person.visit("/tidal/myMusic/req/created/users/playlists");
    await person.menu("Empty one");
    await person.choose("Delete playlist…");
    await person.page.getByRole("dialog", { name: "Delete the playlist?" }).waitFor();
  },
  "an empty list": async (person) => {
    for (const key of ["Escape", "Escape"]) await person.page.keyboard.press(key);
    await person.open("Empty one");
    await person.heading("Empty one");
  },
  search: async (person) => {
    await person.visit("/tidal/search/choose?query=harb");
    for (const kind of ["Albums", "Tracks", "Artists", "Playlists"]) await person.list(kind).getByRole("button", { name: "Menu of" }).first().waitFor();
  },
  "search in another module": async (person) => {
    await person.button("Shelf").click();
    await person.row("Tone 3").waitFor();
  },
  playing: async (person) => {
    await person.button("TIDAL").click();
    await person.list("Tracks").getByRole("button").first().click();
    await person.player.getByRole("button", { name: "Pause" }).waitFor();
    await person.player.getByRole("link", { name: /^Now playing/ }).click();
    await person.button("Stop").waitFor();
  },
  queue: async (person) => {
    await person.page.goto("/#!queue");
    await person.list("Queue").getByRole("button").first().waitFor();
  },
  settings: (person) => person.visit("/settings").then(() => person.page.getByRole("button", { name: /^Sound quality/ }).waitFor()),
  account: (person) => person.visit("/oauth2/services/tidal").then(() => person.button("Log out").waitFor()),
  "a path that leads nowhere": (person) => person.visit("/tidal/nowhere"),
  drawer: async (person) => {
    await person.visit(myTracks);
    await ready(person);
    await person.page.getByRole("button", { name: "Developer’s drawer" }).click();
    await person.view.getByRole("button", { name: "Menu of" }).first().focus();
    await person.page.getByRole("tabpanel").getByRole("button", { name: "Read its data" }).waitFor();
  },
  requests: async (person) => {
    await person.page.getByRole("tab", { name: "Requests" }).click();
    await person.page.getByRole("list", { name: "Requests" }).getByRole("listitem").first().waitFor();
  },
  keys: async (person) => {
    await person.view.getByRole("button", { name: "Menu of" }).first().focus();
    await person.page.keyboard.press("?");
    await person.page.getByRole("dialog", { name: "Keys" }).waitFor();
  },
};

async function examine(person, options) {
  await person.page.addInitScript(axe);
  const faults = [];
  for (const [name, reach] of Object.entries(views)) {
    await reach(person);
    const { violations } = await person.page.evaluate((rules) => globalThis.axe.run(document, rules), options);
    for (const { id, impact, nodes } of violations) if (["serious", "critical"].includes(impact)) faults.push(`${name}: ${id}: ${nodes.map((node) => `${node.target} ${node.any[0]?.message ?? ""}`).slice(0, 3)}`);
  }
  assert.deepEqual(faults, []);
}

const allowed = [/nowhere|status of 404/];

journey("nothing hinders who cannot see or point", { words: both, colorScheme: "light", allowed }, (person) => examine(person, {}));
journey("dark, it can be read as well", { words: both, colorScheme: "dark", allowed }, (person) => examine(person, { runOnly: ["color-contrast"] }));

journey("a phone has room for every view", { words: both, width: 390, height: 844, hasTouch: true, isMobile: true, allowed }, async (person) => {
  const wide = [];
  for (const [name, reach] of Object.entries(views)) {
    await reach(person);
    const width = await person.page.evaluate(() => Math.max(document.documentElement.scrollWidth, ...[...document.querySelectorAll("main, dialog, .panel, .dialog-body")].map((one) => (one.scrollWidth > one.clientWidth + 1 ? 10000 + one.scrollWidth : 0))));
    if (width > 390) wide.push(`${name}: ${width}`);
  }
  assert.deepEqual(wide, []);
});

journey("a phone has the main places at its foot, and what plays over all", { width: 390, height: 844, hasTouch: true, isMobile: true, deviceScaleFactor: 3 }, async (person) => {
  const { page, player, view } = person;
  const places = page.getByRole("navigation", { name: "Main" });
  await person.visit("/tidal");
  await places.getByRole("link", { name: "My Music" }).tap();
  await person.heading("My Music");
  assert.equal(await player.isVisible(), false, "nothing plays");
  await places.getByRole("button", { name: "Search" }).tap();
  assert.equal(await person.focused(), "Search");
  await person.visit("/tidal/req/featured/new/tracks");
  await person.list("Just In").getByRole("button").first().tap();
  await player.getByRole("button", { name: "Pause" }).waitFor();
  const foot = await places.boundingBox();
  assert.ok(foot.width === 390 && foot.y + foot.height === 844, "they stand at the foot");
  await page.setViewportSize({ width: 768, height: 1024 });
  await person.until(async () => (await places.boundingBox()).width < 100, "on a tablet they stand at the side");

  await places.getByRole("link", { name: "Playing" }).tap();
  for (const [width, height] of [[390, 844], [844, 390], [768, 1024], [320, 568]]) {
    await page.setViewportSize({ width, height });
    for (const name of ["Close", "Queue", "Pause", "Next", "Stop", "Mute"]) {
      const { x, y, width: wide, height: high } = await person.button(name).boundingBox();
      assert.ok(x >= 0 && y >= 0 && x + wide <= width && y + high <= height, `${name} is in sight at ${width}x${height}`);
    }
    assert.deepEqual([await player.isVisible(), await places.isVisible()], [false, false], "nothing stands behind it");
  }
  await page.setViewportSize({ width: 390, height: 844 });
  const cover = () => page.evaluate(() => decodeURIComponent(document.querySelector(".playing-cover img").currentSrc));
  await person.until(async () => (await cover()).endsWith("/1280x1280.jpg"), cover);
  await person.button("Queue").tap();
  await person.list("Queue").getByRole("button").first().waitFor();
  assert.equal(await person.button("Stop").isVisible(), false, "the queue is a page of its own");
  await person.button("Close").tap();
  await person.heading("Just In");

  const inspector = await page.context().newCDPSession(page);
  const { errors, data, url } = await inspector.send("Page.getAppManifest");
  assert.deepEqual(errors, []);
  const { icons, shortcuts } = JSON.parse(data);
  for (const { src } of icons) assert.ok((await page.request.get(new URL(src, url).href)).ok(), src);
  assert.ok(icons.some(({ purpose }) => purpose === "maskable") && shortcuts.length > 0);
});

journey("who wants no motion gets none", { reducedMotion: "reduce" }, async (person) => {
  await person.visit(myTracks);
  await ready(person);
  await person.list("Tracks").getByRole("button").first().click();
  await person.player.getByRole("button", { name: "Pause" }).waitFor();
  const moving = () => person.page.evaluate(() => document.getAnimations().filter((one) => one.playState === "running").map((one) => one.animationName ?? one.transitionProperty));
  await person.until(async () => (await moving()).length === 0, "nothing moves");
  await person.page.emulateMedia({ reducedMotion: "no-preference" });
  await person.until(async () => (await moving()).includes("level"), "else the mark of what plays moves");
});
