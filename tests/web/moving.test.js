import assert from "node:assert/strict";
import { readFile } from "node:fs/promises";
import { journey } from "./harness/journey.js";
import { openWindow } from "./harness/window.js";

const newAlbums = "/tidal/req/featured/new/albums";
const myTracks = "/tidal/myMusic/req/favorites/users/tracks";

const scrollOf = (person) => person.view.evaluate((main) => main.scrollTop);

journey("back, forward, and an address given to somebody else", {}, async (person) => {
  const { page, view } = person;
  await person.visit(newAlbums);
  await person.list("Just In").getByRole("link").first().waitFor();
  const [, , title] = await person.titles("Just In");
  await view.evaluate((main) => main.scrollTo(0, 900));
  await person.until(async () => (await person.titles("Just In"))[2] !== title, "other rows are in sight");
  const deep = (await person.titles("Just In"))[14];
  await person.list("Just In").getByRole("link", { name: deep }).first().click();
  await person.heading(deep);
  await person.button("Play").waitFor();
  const address = page.url();
  const asked = [];
  // Which tracks are favourites is asked beside the rows.
  page.on("request", (request) => /rows\?(?!.*roles=Id$)/.test(request.url()) && asked.push(request.url()));
  await page.goBack();
  await person.heading("Just In");
  await person.until(async () => Math.abs((await scrollOf(person)) - 900) < 300 && (await person.focused()).startsWith(deep), "the place and the focus are back");
  await page.goForward();
  await person.heading(deep);
  await person.button("Play").waitFor();
  assert.deepEqual(asked, [], "what was on the screen a moment ago is not asked for again");

  // Unless it has changed meanwhile.
  await person.visit(myTracks);
  const [loved] = (await person.streamer.rows(myTracks, 0)).rows;
  await person.row(loved.Title.split(" - ")[0]).first().waitFor();
  await page.keyboard.press("q");
  await person.view.getByRole("heading", { name: "Queue" }).waitFor();
  const [favorite] = (await person.streamer.rows(loved.Context.Path)).rows;
  const { length } = asked;
  await person.streamer.call("set", { path: favorite.Path, value: 1 });
  await page.goBack();
  await person.heading("Tracks");
  await person.until(() => asked.length > length, "the list is read again");
  // Also while the browser kept the page for the back button.
  await page.evaluate(() => dispatchEvent(new PageTransitionEvent("pagehide", { persisted: true })));
  const before = asked.length;
  await person.streamer.call("set", { path: favorite.Path, value: 1 });
  await page.evaluate(() => dispatchEvent(new PageTransitionEvent("pageshow", { persisted: true })));
  await person.until(() => asked.length > before, "the list is read again");

  const other = await openWindow(person.streamer, {});
  await other.page.goto(address);
  await other.heading(deep);
  await other.button("Play").waitFor();
  await other.view.getByRole("link", { name: "Just In" }).click();
  await other.row(title).waitFor();
  other.assertNothingWentWrong();
  await other.leave();
});

journey("a list of five thousand rows", {}, async (person) => {
  const { page, view } = person;
  const count = 5000;
  // The streamer's answer, prolonged: its first rows again and again.
  await page.route(/api\/v1\/rows\?path=%2Ftidal%2FmyMusic%2Freq%2Ffavorites%2Fusers%2Ftracks/, async (route) => {
    const query = new URL(route.request().url()).searchParams;
    const from = Number(query.get("from"));
    const rows = (await person.streamer.rows(myTracks)).rows;
    const answer = { path: myTracks, from, rowsCount: count, rowsVersion: 1, roles: { Title: "Tracks" } };
    answer.rows = rows.map((row, index) => ({ ...row, Title: `Row ${from + index}`, Description: "" })).slice(0, count - from);
    await route.fulfill({ json: answer });
  });
  await person.visit(myTracks);
  await person.row("Row 0").first().waitFor();
  let most = 0;
  for (let step = 0; step <= 20; ++step) {
    const share = step / 20;
    await view.evaluate((main, at) => main.scrollTo(0, at * (main.scrollHeight - main.clientHeight)), share);
    const index = Math.min(count - 1, Math.round(share * (count - 10)) + 3);
    await person.list("Tracks").getByRole("button", { name: new RegExp(`^Row ${index},`) }).waitFor();
    most = Math.max(most, await page.locator("li").count());
  }
  await person.row(`Row ${count - 1}`).waitFor();
  assert.ok(most < 100, `${most} list items in the document`);
  await person.list("Tracks").getByRole("button", { name: `Row ${count - 1},` }).focus();
  await page.keyboard.press("Home");
  await person.until(async () => (await person.focused()).startsWith("Row 0,"), "Home leads to the first row");
  await page.keyboard.press("End");
  await person.until(async () => (await person.focused()).startsWith(`Row ${count - 1},`), "End leads to the last row");

  // The filter looks through all of it, and knows the rows by their numbers.
  await page.keyboard.press("f");
  await page.keyboard.type("row 432");
  await view.getByRole("status").filter({ hasText: "11 of 5,000" }).waitFor();
  const found = person.list("Tracks").getByRole("button", { name: "Row 4321," });
  const [play] = await Promise.all([page.waitForRequest(/player\/play$/), found.click()]);
  assert.equal(play.postDataJSON().index, 4321);
});

journey("the keyboard alone", {}, async (person) => {
  const { page, player } = person;
  const { keyboard } = page;
  const press = async (...keys) => {
    for (const key of keys) {
      await keyboard.press(key);
      assert.notEqual(await person.focused(), "nothing", `the focus is somewhere after ${key}`);
    }
  };
  let heard = "";
  const reaches = (name) => person.until(async () => (heard = await person.focused()).startsWith(name), () => `the focus is at ${name}, not ${heard}`);
  const pressTo = async (name, key) => {
    for (let presses = 0; !(await person.focused()).startsWith(name); ++presses) {
      assert.ok(presses < 40, `${key} reaches ${name}`);
      await press(key);
    }
  };
  const tabTo = (name) => pressTo(name, "Tab");
  await page.goto("/");
  await person.list("Favorite albums").getByRole("link").first().waitFor();
  await keyboard.press("Tab");
  await reaches("Skip to the rows");
  await press("Enter", "Tab");
  await tabTo((await person.titles("Favorite albums"))[0]);
  await page.reload();
  await person.list("Favorite albums").getByRole("link").first().waitFor();
  await tabTo("New");
  await press("Enter");
  await person.heading("New");
  await person.row("Just In").first().waitFor();
  await tabTo("Playlists");
  await press("End", "Enter");
  await person.heading("Most Played");
  await person.list("Most Played").getByRole("button").first().waitFor();
  await person.list("Most Played").getByRole("button", { name: "Menu of" }).first().waitFor();
  const [title] = await person.titles("Most Played");
  await tabTo("Play");
  await press("Tab");
  await tabTo(title);
  await press("ArrowDown", "ArrowUp", "Enter");
  await player.getByRole("button", { name: "Pause" }).waitFor();
  await reaches(title);
  await press("ContextMenu");
  await person.dialog.getByRole("menuitem", { name: "Add to favorites" }).waitFor();
  await pressTo("Add to favorites", "ArrowDown");
  await press("Enter");
  await person.noDialog();
  await reaches(title);
  await press("m");
  await person.dialog.getByRole("menuitem", { name: "Add to playlist…" }).waitFor();
  await pressTo("Add to playlist…", "ArrowDown");
  await press("Enter");
  await reaches("New playlist…");
  await press("Enter");
  await person.until(() => page.evaluate(() => document.activeElement.matches("input")), "the title can be typed");
  await keyboard.type("By keys");
  await press("Enter");
  await person.noDialog();
  await reaches(title);
  await press("q");
  await person.view.getByRole("heading", { name: "Queue" }).waitFor();
  await press("Backspace");
  await person.heading("Most Played");
  await reaches(title);
  await press("?");
  await page.getByRole("dialog", { name: "Keys" }).waitFor();
  await press("Escape");
  await reaches(title);
  await press("/");
  await keyboard.type("by keys");
  await person.list("Playlists").waitFor();
  await press("Escape");
});

journey("the streamer goes and comes back", { allowed: [/ERR_CONNECTION_REFUSED|ERR_INCOMPLETE_CHUNKED|ERR_EMPTY_RESPONSE|ERR_CONNECTION_RESET/] }, async (person) => {
  const { page, player, streamer } = person;
  const banner = page.getByRole("alert").filter({ hasText: "does not answer" });
  await person.visit(newAlbums);
  await person.list("Just In").getByRole("link").first().waitFor();
  await person.open((await person.titles("Just In"))[1]);
  await person.button("Play").click();
  await player.getByRole("button", { name: "Pause" }).waitFor();
  const playing = await person.playing();
  const address = page.url();
  await streamer.halt();
  await banner.waitFor();
  await page.goBack();
  await page.getByRole("alert").filter({ hasText: "cannot be reached" }).first().waitFor();
  await streamer.resume();
  await banner.waitFor({ state: "hidden" });
  await person.list("Just In").getByRole("link").first().waitFor();
  await page.goForward();
  assert.equal(page.url(), address);
  await person.button("Play").waitFor();
  assert.equal(await person.playing(), playing, "the bar still names the track");
  // The session's token is another one now.
  await player.getByRole("button", { name: "Play", exact: true }).click();
  await player.getByRole("button", { name: "Pause" }).waitFor();
});

journey("what a developer sees", { permissions: ["clipboard-read", "clipboard-write"] }, async (person) => {
  const { page, streamer } = person;
  const drawer = page.getByRole("complementary", { name: "Developer’s drawer" });
  const tab = (name) => drawer.getByRole("tab", { name, exact: true }).click();
  await person.visit(myTracks);
  const [title] = await person.titles("Tracks");
  await page.getByRole("button", { name: "Developer’s drawer" }).click();
  await person.list("Tracks").getByRole("button", { name: title }).first().focus();
  await drawer.getByRole("definition").filter({ hasText: /^Audio$/ }).waitFor();
  await drawer.getByRole("button", { name: "Read its data" }).click();
  await drawer.getByText(/^Answered in/).waitFor();
  // The pointer tells the row, too, also that of a menu.
  await person.menu(title);
  await person.dialog.getByRole("menuitem", { name: "Add to playlist…" }).hover();
  await page.getByText("/tidal/context/addToPlaylists/").first().waitFor();
  await page.keyboard.press("Escape");
  assert.equal((await person.list("Tracks").boundingBox()).width > 900, true, "the list is as wide as before");
  await tab("Notices");
  const [row] = (await streamer.rows(myTracks, 0)).rows;
  const [favorite] = (await streamer.rows(row.Context.Path)).rows;
  await streamer.call("set", { path: favorite.Path, value: 1 });
  await drawer.getByRole("list", { name: "Notices" }).getByRole("listitem").filter({ hasText: myTracks }).first().waitFor();
  await tab("Requests");
  const requests = drawer.getByRole("list", { name: "Requests" });
  await requests.getByRole("listitem").filter({ hasText: "POST" }).filter({ hasText: "/favorites/tracks?" }).first().waitFor();
  const { accessToken, refreshToken } = JSON.parse(await readFile(streamer.tokens, "utf8"));
  const shown = await page.content();
  assert.ok(accessToken && !shown.includes(accessToken) && !shown.includes(refreshToken), "no token is shown");
  await tab("Calls");
  const calls = drawer.getByRole("list", { name: "Calls" }).getByRole("listitem");
  await calls.filter({ hasText: "data?path=" }).first().waitFor();
  await drawer.getByRole("searchbox", { name: "Filter" }).last().fill("rows?path=/tidal/mymusic");
  assert.equal(await calls.filter({ hasText: "data?path=", visible: true }).count(), 0);
  const call = calls.filter({ hasText: `rows?path=${myTracks}`, visible: true }).first();
  await call.locator("summary").click();
  await call.getByText('"rowsCount"').waitFor();
  for (const [name, text] of [["Copy as kelo", `kelo --server ${streamer.address} rows '${myTracks}' --from 0 --to 49`], ["Copy as curl", "curl 'http"]]) {
    await call.getByRole("button", { name }).click();
    await person.until(async () => (await page.evaluate(() => navigator.clipboard.readText())).startsWith(text), `${name}: ${text}`);
  }
  const api = await drawer.getByRole("link", { name: "API" }).getAttribute("href");
  assert.ok((await (await fetch(new URL(api, streamer.address))).text()).startsWith("openapi: 3"));
  await drawer.getByRole("button", { name: "Clear" }).last().click();
  await calls.first().waitFor({ state: "detached" });
});

journey("an answer that is late", {}, async (person) => {
  const { page, view } = person;
  await page.addInitScript(() => {
    globalThis.said = [];
    const look = () => document.querySelectorAll(".waiting > .visually-hidden").forEach((one) => said.at(-1) !== one.textContent && said.push(one.textContent));
    new MutationObserver(look).observe(document, { subtree: true, childList: true, characterData: true });
  });
  const words = view.getByRole("status").getByText(/^Waiting for the music service, \d+ s$/);
  await person.visit(newAlbums);
  await person.titles("Just In");
  assert.deepEqual(await page.evaluate("said"), []);
  await person.streamer.fault("delay ms=5000 count=1 path=/featured/top");
  const visit = person.visit("/tidal/req/featured/top/albums");
  await words.first().waitFor();
  await visit;
  assert.equal(await words.count(), 0);
  // It counts on for the eyes; to be read out it is said once.
  assert.equal((await page.evaluate("said")).length, 1);
});

journey("in the language of the browser", { locale: "de-DE" }, async (person) => {
  const { page } = person;
  await person.visit("/settings");
  await person.heading("Einstellungen");
  assert.equal(await page.locator("html").getAttribute("lang"), "de");
  const address = await page.locator("link[rel=manifest]").evaluate((link) => link.href);
  const { shortcuts } = await (await page.request.get(address, { headers: { "Accept-Language": "de-DE" } })).json();
  assert.equal(shortcuts[0].name, "Suchen");
  await person.visit("/tidal/myMusic");
  const [own] = (await person.streamer.call("rows?path=/tidal/myMusic&from=1&to=1&language=de")).rows;
  assert.notEqual(own.Title, "My playlists");
  await person.open(own.Title);
  await person.heading(own.Title);
});

journey("two round trips, 200 kilobytes", {}, async (person) => {
  const { page } = person;
  // The depth of a call: how many answers of the API one after the other came before it was made.
  let arrived = 0;
  const depths = new Map();
  const sizes = [];
  const isCall = (request) => request.url().includes("/api/v1/");
  page.on("request", (request) => isCall(request) && depths.set(request, arrived + 1));
  page.on("response", (response) => isCall(response.request()) && (arrived = Math.max(arrived, depths.get(response.request()) ?? 0)));
  page.on("response", (response) => isCall(response.request()) || response.status() !== 200 || sizes.push(response.body().then((body) => body.length)));
  await person.visit(newAlbums);
  // The list's own name is another one until the service has told its.
  await page.getByRole("main").getByRole("link", { name: "Dreaming of the Meridian" }).waitFor();
  const depthOf = (words) => [...depths].find(([request]) => request.url().includes(words))[1];
  assert.ok(depthOf("/rows?") <= 2, "the first rows take two round trips");
  const size = (await Promise.all(sizes)).reduce((sum, one) => sum + one, 0);
  assert.ok(size > 50000 && size < 200000, `the page has ${size} bytes`);

  // The first shelf may take one more.
  depths.clear();
  arrived = 0;
  await person.visit();
  await person.list("Favorite albums").getByRole("link").first().waitFor();
  assert.ok(depthOf("users%2Falbums") <= 3, `the first shelf takes ${depthOf("users%2Falbums")} round trips`);
});
