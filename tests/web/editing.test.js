import assert from "node:assert/strict";
import { journey } from "./harness/journey.js";

const mine = "/tidal/myMusic/req/created/users/playlists";
const myTracks = "/tidal/myMusic/req/favorites/users/tracks";
const myAlbums = "/tidal/myMusic/req/favorites/users/albums";

journey("a favourite comes and goes", {}, async (person) => {
  await person.visit(myAlbums);
  await person.button("Order").waitFor();
  await person.view.getByRole("button", { name: "Menu of" }).first().click();
  const [title] = await person.titles("Albums");
  await person.choose("Remove from favorites");
  await person.noDialog();
  await person.row(title).waitFor({ state: "detached" });
  // The list of another place shows the way back.
  await person.visit("/tidal");
  await person.page.keyboard.press("/");
  await person.page.keyboard.type(title);
  await person.list("Albums").getByRole("button", { name: `Menu of ${title}` }).first().click();
  await person.choose("Add to favorites");
  await person.noDialog();
  await person.visit(myAlbums);
  await person.row(title).waitFor();
});

// A title that the service refuses is answered with 502, which the browser notes on its console.
journey("a playlist from a track to its end", { allowed: [/status (of )?502/] }, async (person) => {
  const { page, dialog } = person;
  await person.visit(myTracks);
  const tracks = [...new Set(await person.titles("Tracks"))];
  await person.menu(tracks[0]);
  await person.choose("Add to playlist…", "New playlist…");
  await person.submit({ Title: "" }, "Create");
  await dialog.getByRole("alert").waitFor();
  await person.submit({ Title: "Rainy evenings", Description: "For the window seat" }, "Create");
  await person.noDialog();
  for (const track of tracks.slice(1, 3)) {
    await person.menu(track);
    await person.choose("Add to playlist…", "Rainy evenings");
    await person.noDialog();
  }

  await person.visit(mine);
  await person.open("Rainy evenings");
  await person.heading("Rainy evenings");
  const list = () => person.titles("Rainy evenings");
  await person.until(async () => (await list()).join() === tracks.slice(0, 3).join(), "the three tracks are there");
  await person.menu(tracks[0]);
  await person.choose("Move to position…");
  assert.equal(await dialog.getByRole("spinbutton").inputValue(), "1", "the form starts where the row is");
  await person.submit({ Position: "3" }, "Move");
  await person.noDialog();
  await person.until(async () => (await list()).join() === [tracks[1], tracks[2], tracks[0]].join(), "the first is the last");
  await person.menu(tracks[0]);
  await person.choose("Move to top");
  await person.noDialog();
  await person.until(async () => (await list()).join() === tracks.slice(0, 3).join(), "it is the first again");
  await person.menu(tracks[0]);
  await person.choose("Move to position…");
  await person.submit({ Position: "3" }, "Move");
  await person.noDialog();
  await person.until(async () => (await list()).join() === [tracks[1], tracks[2], tracks[0]].join(), "and the last");
  await person.menu(tracks[2]);
  await person.choose("Remove from this playlist");
  await person.noDialog();
  await person.until(async () => (await list()).join() === [tracks[1], tracks[0]].join(), "the middle one is gone");

  // Another client's edit is followed, too.
  const menu = (await person.streamer.rows((await person.streamer.rows(await page.evaluate(() => location.hash.slice(1)))).rows[1].Context.Path)).rows;
  await person.streamer.call("set", { path: menu.find((row) => row.Title === "remove").Path, value: 1 });
  await person.until(async () => (await list()).join() === tracks[1], "what another client removed is gone");
  await person.menu(tracks[1]);
  await person.choose("Edit playlist details…");
  assert.equal(await dialog.getByLabel("Title").inputValue(), "Rainy evenings", "a track's menu knows its playlist");
  await page.keyboard.press("Escape");
  await page.keyboard.press("Escape");
  const address = await page.evaluate(() => location.hash.slice(1));
  await page.goBack();
  // By its address alone the page looks for its title.
  await person.visit(address);
  await person.heading("Rainy evenings");
  await person.menu(tracks[1]);
  await person.choose("Edit playlist details…");
  assert.equal(await dialog.getByLabel("Title").inputValue(), "Rainy evenings", "the list's title is not the playlist's");

  await person.visit(mine);
  await person.menu("Rainy evenings");
  await person.choose("Edit details…");
  assert.equal(await dialog.getByLabel("Title").inputValue(), "Rainy evenings", "the form starts from the present title");
  await person.submit({ Title: "Dry evenings" }, "Update");
  await person.noDialog();
  await person.row("Dry evenings").waitFor();
  await person.row("Rainy evenings").waitFor({ state: "detached" });

  await person.menu("Dry evenings");
  await person.choose("Delete playlist…");
  await page.getByRole("dialog", { name: "Delete the playlist?" }).getByRole("button", { name: "Cancel" }).click();
  await person.choose("Delete playlist…");
  await page.getByRole("dialog", { name: "Delete the playlist?" }).getByRole("button", { name: "Delete" }).click();
  await person.noDialog();
  await person.row("Dry evenings").waitFor({ state: "detached" });
});

journey("a list in another order, a setting with another value", {}, async (person) => {
  const { dialog, page } = person;
  const albums = "/tidal/myMusic/req/favorites/users/albums";
  await person.visit(albums);
  await person.titles("Albums");
  const asked = [];
  page.on("request", (request) => request.url().includes(encodeURIComponent(albums)) && asked.push(request.url()));
  await person.visit(myTracks);
  const before = await person.titles("Tracks");
  await person.button("Order").click();
  await dialog.getByRole("menuitem", { name: "Order direction Ascending" }).click();
  await dialog.getByRole("menuitemradio", { name: "Ascending", checked: true }).waitFor();
  await person.choose("Descending");
  await dialog.getByRole("menuitem", { name: "Order direction Descending" }).waitFor();
  await page.keyboard.press("Escape");
  await person.noDialog();
  await person.until(async () => (await person.titles("Tracks")).join() !== before.join(), "the list is in another order");
  // The order is that of other lists, too, which nobody is told of.
  await person.visit(albums);
  await person.titles("Albums");
  assert.equal(asked.length, 1);

  // What orders nothing there is not offered, and what does nothing is not shown.
  await person.visit("/tidal/myMusic/req/favorites/users/artists");
  await person.view.getByText("23 artists").waitFor();
  await person.button("Order").click();
  await dialog.getByRole("menuitem", { name: "Order Name" }).click();
  await dialog.getByRole("menuitemradio").first().waitFor();
  assert.deepEqual(await dialog.getByRole("menuitemradio").allTextContents(), ["Date added", "Name"]);

  await person.visit("/settings");
  await page.getByRole("button", { name: "Sound quality Lossless, FLAC 16 bit 44.1 kHz" }).click();
  await person.choose("High, AAC 320 kbit/s");
  await page.getByRole("button", { name: "Sound quality High, AAC 320 kbit/s" }).waitFor();
  await page.getByLabel("Colours").selectOption("Dark");
  await page.reload();
  await page.getByRole("button", { name: "Sound quality High, AAC 320 kbit/s" }).waitFor();
  assert.equal(await page.locator("html").evaluate((html) => getComputedStyle(html).colorScheme), "dark");
});

journey("several rows at once, and few of many", {}, async (person) => {
  const { page, view } = person;
  await person.visit(mine);
  await person.open("Morning commute");
  await person.heading("Morning commute");
  await person.list("Morning commute").getByRole("button", { name: "Menu of" }).nth(3).waitFor();
  const first = async () => (await person.titles("Morning commute")).slice(0, 4).join();
  const [a, b, c, d] = await person.titles("Morning commute");
  const pick = (index) => view.getByRole("listitem").locator(".main").nth(index).click({ modifiers: ["Shift"] });
  const bar = page.getByRole("toolbar", { name: "Selected rows" });
  await pick(1);
  await pick(2);
  await bar.getByText("2 selected").waitFor();
  await bar.getByRole("button", { name: "More" }).click();
  await person.choose("Move to top");
  await person.noDialog();
  await person.until(async () => (await first()) === [b, c, a, d].join(), "both are first, in their order");
  await pick(0);
  await page.keyboard.press("Shift+ArrowDown");
  await bar.getByRole("button", { name: "Add to queue" }).click();
  await bar.waitFor({ state: "hidden" });
  assert.equal((await person.streamer.call("player/queue?from=0&to=9")).queued, 2);
  await pick(0);
  await page.keyboard.press("Shift+ArrowDown");
  await bar.getByRole("button", { name: "More" }).click();
  await person.choose("Add to playlist…", "Empty one");
  await person.noDialog();
  await bar.waitFor({ state: "hidden" });
  await pick(1);
  await pick(0);
  await bar.getByRole("button", { name: "More" }).click();
  await person.choose("Remove from this playlist");
  await person.noDialog();
  await person.until(async () => (await first()).startsWith([a, d].join()), "both are gone");
  await person.visit(mine);
  await person.open("Empty one");
  await person.until(async () => (await person.titles("Empty one")).join() === [b, c].join(), "both are in the other playlist");

  await person.visit(myTracks);
  await person.titles("Tracks");
  await view.getByText(/^132 tracks/).waitFor();
  await page.keyboard.press("f");
  await page.keyboard.type("islánd");
  await view.getByRole("status").filter({ hasText: "15 of 132" }).waitFor();
  await person.titles("Tracks").then((titles) => assert.equal(titles.length <= 15, true));
  await page.keyboard.press("Escape");
});

journey("titles that want to be more than titles", {}, async (person) => {
  const { page, streamer } = person;
  const image = "<img src=x onerror=alert(1)>";
  const word = "W".repeat(10000);
  for (const title of [image, word]) {
    await streamer.call("set", { path: "/tidal/createPlaylist/title", value: title });
    await streamer.call("set", { path: "/tidal/createPlaylist/accept", value: 1 });
  }
  for (const size of [{ width: 1280, height: 800 }, { width: 390, height: 844 }]) {
    await page.setViewportSize(size);
    for (const title of [image, word]) {
      await person.visit(mine);
      await person.menu(title);
      await page.keyboard.press("Escape");
      await person.open(title);
      await person.heading(title);
      const [wide, inner] = await page.evaluate(() => [document.documentElement.scrollWidth, document.querySelector("main").scrollWidth - document.querySelector("main").clientWidth]);
      assert.ok(wide <= size.width && inner <= 0, `nothing is wider than the window of ${size.width}`);
    }
  }
  assert.equal(await page.locator("img[src=x]").count(), 0);
});
