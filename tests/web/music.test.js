import assert from "node:assert/strict";
import { journey } from "./harness/journey.js";
import { both, shelf } from "./harness/streamer.js";
import { openWindow } from "./harness/window.js";

const newTracks = "/tidal/req/featured/new/tracks";
const mine = "/tidal/myMusic/req/created/users/playlists";

// A list that the service refuses is answered with 502, which the browser notes on its console.
journey("home: shelves of music", { allowed: [/status (of )?502/] }, async (person) => {
  const { page, view, player, streamer } = person;
  const asked = new Set();
  page.on("request", (request) => request.url().includes("/rows?") && asked.add(new URL(request.url()).searchParams.get("path")));
  // The first request makes the simulated service known.
  await streamer.rows("/tidal/req/featured/top/albums", 0);
  await streamer.fault("status status=500 path=/featured/recommended/albums");
  const shelf = (name) => person.list(name).getByRole("link");
  // What an earlier visit has kept can be anything.
  await page.addInitScript(() => localStorage.getItem("played") ?? localStorage.setItem("played", '[{"row":'));
  await person.visit();
  await shelf("Favorite albums").first().waitFor();
  const last = "/tidal/playlists";
  assert.ok(!asked.has(last), "what is out of sight is not asked for");

  const refused = view.getByRole("list", { name: "Recommended", exact: true });
  await refused.scrollIntoViewIfNeeded();
  await refused.getByRole("alert").waitFor();
  await person.list("Moods").scrollIntoViewIfNeeded();
  await shelf("Moods").first().waitFor();
  assert.ok(asked.has(last));
  await shelf("Recommended playlists").first().waitFor();

  const cover = shelf("Just in").first();
  const album = (await cover.getAttribute("aria-label")).split(",")[0];
  await cover.focus();
  await page.keyboard.press("ArrowRight");
  assert.notEqual((await person.focused()).split(",")[0], album, "arrows lead along a shelf");
  await person.list("Just in").getByRole("button", { name: `Play ${album}` }).first().click({ force: true });
  await player.getByRole("button", { name: "Pause" }).waitFor();
  const [title] = (await person.playing()).split(",");
  await person.list("Recently played").getByRole("link", { name: album }).waitFor();
  await player.getByRole("button", { name: "Next" }).click();
  await person.until(async () => !(await person.playing()).startsWith(title), "the next track plays");
  const [next] = (await person.playing()).split(",");
  await player.getByRole("button", { name: "Pause" }).click();
  await view.getByRole("button", { name: `${next} ` }).click();
  await player.getByRole("button", { name: "Pause" }).waitFor();

  await view.getByRole("link", { name: "All 64" }).click();
  await person.heading("Favorite albums");
  await page.goBack();
  await shelf("Recently played").first().click();
  await person.heading(album);
  await page.goBack();
  await person.until(async () => (await person.focused()).startsWith(album), "the focus is where it was");
});

const rowsOf = (path) => (url) => url.pathname.endsWith("/rows") && url.searchParams.get("path") === path;

journey("a second module stands beside the service, and is searched for itself", { words: both }, async (person) => {
  const { page, view } = person;
  const field = page.getByRole("searchbox", { name: "Search", exact: true });
  const chip = (name) => view.getByRole("group", { name: "Where to search" }).getByRole("button", { name, exact: true });
  const kinds = view.getByRole("group", { name: "Kinds" });
  const asks = (name) => page.getByPlaceholder(`Search ${name}`, { exact: true }).waitFor({ state: "attached" });
  const isPressed = (name) => chip(name).and(page.locator("[aria-pressed=true]")).waitFor();
  await person.visit();
  await asks("TIDAL");
  await page.getByRole("navigation", { name: "Music" }).getByRole("link", { name: "Shelf" }).click();
  await person.open("Tones");
  await person.heading("Tones");
  await person.row("Tone 3").waitFor();
  await person.visit("/#/shelf/tones");
  await person.heading("Tones");
  await page.getByRole("navigation", { name: "Where you are" }).getByRole("link", { name: "Shelf" }).click();
  await person.heading("Shelf");

  await asks("Shelf");
  await field.fill("harb");
  await person.row("Tone 3").waitFor();
  await isPressed("Shelf");
  assert.equal(await kinds.count(), 0, "tones are no kinds");
  await chip("TIDAL").click();
  await person.list("Best hit").getByRole("link", { name: "Harbour & Tower" }).waitFor();
  await kinds.getByRole("button", { name: "Albums" }).waitFor();
  assert.equal(await field.inputValue(), "harb");
  assert.equal(await person.focused(), "TIDAL");
  await chip("Shelf").click();
  await person.row("Tone 3").waitFor();

  // Its address leads there again: as a link, by the way back, and after what is no search.
  await page.reload();
  await person.row("Tone 3").waitFor();
  await isPressed("Shelf");
  await page.goto("/#/shelf/tones?id=Tone%203");
  await person.heading("Tones");
  await page.reload();
  await person.heading("Tones");
  assert.equal(await field.inputValue(), "");
  await page.goBack();
  await isPressed("Shelf");
  assert.equal(await field.inputValue(), "harb");

  // What was found stands in a list, whatever the paths are like.
  const answer = (rows) => ({ json: { path: "", from: 0, rowsCount: rows.length, rowsVersion: 0, roles: {}, rows } });
  const album = { Type: "Container", Path: "/shelf/albums?id=1", Id: "1", Title: "Blue", Icon: "" };
  await page.route(rowsOf("/shelf/tones?text=blue"), (route) => route.fulfill(answer([album])));
  await page.route(rowsOf("/shelf/tones?text=red"), (route) => route.fulfill(answer([])));
  await field.fill("blue");
  await person.row("Blue").getByRole("link").waitFor();
  assert.equal(await kinds.count(), 0, "an album is no kind");
  await field.fill("red");
  await view.getByText("Nothing was found for “red”.").waitFor();

  // While the service that the page begins with is not there to be searched, another one is.
  await person.visit("/oauth2/services/tidal");
  await asks("TIDAL");
  await person.button("Log out").click();
  await person.button("Get a code").waitFor();
  await field.fill("tone");
  await view.getByText("Only Shelf can be searched now.").waitFor();
  await person.row("Tone 3").waitFor();
});

journey("a page of another module alone", { words: shelf }, async (person) => {
  const { page } = person;
  await page.route(rowsOf("/"), async (route) => {
    const answer = await (await route.fetch()).json();
    for (const row of answer.rows) delete row.SearchPath;
    await route.fulfill({ json: answer });
  });
  await person.visit();
  await page.getByPlaceholder("Search", { exact: true }).fill("tone");
  await page.getByRole("alert").getByText("There is nothing to search here.").waitFor();
  await page.unrouteAll();
  await page.getByPlaceholder("Search", { exact: true }).fill("tones");
  await person.row("Tone 3").waitFor();
  await page.goBack();
  await person.open("Tones");
  await person.row("Tone 3").waitFor();
});

journey("from a track to its artist, its album, and on", {}, async (person) => {
  const { page, view, player } = person;
  const [track] = (await person.streamer.call(`rows?path=${newTracks}&from=0&to=0&roles=Title,Description,MediaData,ArtistPaths`)).rows;
  const [artist] = track.ArtistPaths;
  await person.visit(newTracks);
  await person.row(track.MediaData.metaData.album).first().getByRole("link", { name: artist.Title }).click();
  await person.heading(artist.Title);
  await person.list("Top tracks").getByRole("button", { name: /^Menu of/ }).nth(4).waitFor();
  assert.equal(await person.list("Top tracks").getByRole("listitem").count(), 5);
  await person.until(async () => !(await person.list("Top tracks").textContent()).includes(artist.Title), "whose tracks they are is said once");
  await view.locator(".hero-row img.loaded").waitFor();
  await person.button("Read more").click();
  assert.ok((await person.dialog.textContent()).length > 100, "the biography can be read");
  await page.keyboard.press("Escape");
  await person.button("Radio").waitFor();
  await person.list("Similar artists").scrollIntoViewIfNeeded();
  await person.list("Similar artists").getByRole("link").first().waitFor();
  await person.list("Albums").scrollIntoViewIfNeeded();
  const cover = person.list("Albums").getByRole("link", { name: artist.Title }).first();
  const album = (await cover.getAttribute("aria-label")).split(",")[0];
  await cover.click();
  await person.heading(album);

  const tracks = person.list(album).getByRole("listitem");
  await tracks.nth(1).waitFor();
  assert.match(await tracks.nth(1).textContent(), /^2.*\d:\d\d$/s, "a number and a time");
  assert.equal(await person.list(album).locator(".cover").count(), 0, "one cover is enough");
  assert.match(await view.locator(".hero-words").textContent(), /\d{4} · \d+ tracks · \d+ min/);
  await tracks.first().getByRole("button").first().focus();
  await page.keyboard.press("l");
  await tracks.first().getByRole("button", { name: /^Remove from favorites/ }).waitFor();
  await page.getByRole("button", { name: "Undo" }).click();
  await tracks.first().getByRole("button", { name: /^Add to favorites/ }).waitFor({ state: "attached" });
  await view.locator(".hero").getByRole("button", { name: `Add to favorites: ${album}` }).waitFor();
  await tracks.nth(1).getByRole("button").first().click();
  await player.getByRole("button", { name: "Pause" }).waitFor();
  const [second] = (await person.playing()).split(",");

  // The bar leads to the artist and the album, and back to what plays in its list.
  await player.getByRole("link", { name: artist.Title, exact: true }).click();
  await person.heading(artist.Title);
  await player.getByRole("link", { name: album, exact: true }).click();
  await person.heading(album);
  await view.getByRole("link", { name: artist.Title, exact: true }).first().waitFor();
  await page.keyboard.press("q");
  await view.getByRole("heading", { level: 1 }).getByRole("link", { name: second, exact: true }).click();
  await person.heading(album);
  await person.until(async () => (await person.focused()).startsWith(second), "the track that plays has the focus");
});

journey("a link given to somebody else", {}, async (person) => {
  const { page, view, streamer } = person;
  const playlist = (await streamer.rows(mine)).rows.find((row) => row.Title === "Morning commute");
  await person.visit(playlist.Path);
  await person.heading("Morning commute");
  assert.equal(await page.title(), "Morning commute – kelo");
  await view.locator(".hero-row img.loaded").waitFor();
  await view.getByText(/^\d+ tracks · \d+ (min|h)/).waitFor();
  await person.button("More").click();
  await person.dialog.getByRole("menuitem", { name: "Edit details…" }).waitFor();

  // Nothing above names it: an artist by the number alone.
  const other = await openWindow(streamer, { colorScheme: "dark", width: 390, height: 844 });
  await other.visit("/tidal/req/artists?artistId=900391");
  await other.heading("Clara Marlowe");
  await other.view.locator(".hero-row img.loaded").waitFor();
  await other.until(async () => (await other.page.title()) === "Clara Marlowe – kelo", "the window is named");
  await other.visit("/tidal/req/artists?artistContent=similar&artistId=900391");
  await other.heading("Similar artists");
  await other.view.getByRole("link", { name: "Clara Marlowe", exact: true }).click();
  await other.heading("Clara Marlowe");
  await other.view.getByRole("list", { name: "Albums" }).getByRole("link").first().click();
  const album = await other.view.getByRole("heading", { level: 1 }).textContent();
  await other.page.reload();
  await other.heading(album);
  other.assertNothingWentWrong();
  await other.leave();
});
