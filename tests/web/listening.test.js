import assert from "node:assert/strict";
import { journey } from "./harness/journey.js";
import { Person } from "./harness/person.js";
import { openWindow } from "./harness/window.js";

journey("from the first visit to sound", {}, async (person) => {
  const { page, player, view } = person;
  await page.goto("/");
  await person.heading("Home");
  // While nothing plays these keys ask for nothing.
  for (const key of ["n", "p", "."]) await page.keyboard.press(key);
  await page.getByRole("navigation", { name: "Music" }).getByRole("link", { name: "New" }).click();
  await person.open("Just In");
  const album = view.getByRole("list", { name: "Just In" }).getByRole("link").first();
  const name = await album.getAttribute("aria-label");
  await album.click();
  await person.heading(name.split(",")[0]);
  await view.getByRole("button", { name: "Play", exact: true }).click();
  await player.getByRole("button", { name: "Pause" }).waitFor();
  const position = player.getByRole("slider", { name: "Position" });
  await person.until(async () => Number(await position.inputValue()) > 0, "the position moves");

  const first = await person.playing();
  await player.getByRole("button", { name: "Next", exact: true }).click();
  await person.until(async () => (await person.playing()) !== first, "the next track plays");
  await view.getByRole("listitem").and(page.locator("[aria-current=true]")).filter({ hasText: (await person.playing()).split(",")[0] }).waitFor();

  await position.fill("90000");
  await person.until(async () => (await person.streamer.call("player")).positionMs >= 90000, "the streamer seeks");
  await player.getByRole("slider", { name: "Volume" }).fill("40");
  await person.until(async () => (await person.streamer.call("player")).volume === 40, "the streamer is less loud");
  await view.getByRole("button", { name: "Pause", exact: true }).click();
  await player.getByRole("button", { name: "Play", exact: true }).waitFor();
  const told = (name) => async () => (await person.streamer.call("player"))[name];
  for (const [key, name, value] of [[",", "positionMs", 80000], [".", "positionMs", 90000], ["-", "volume", 35], ["0", "volume", 0], ["0", "volume", 35]]) {
    const before = await told(name)();
    await page.keyboard.press(key);
    await person.until(async () => (await told(name)()) !== before, key);
    assert.ok(Math.abs((await told(name)()) - value) < 5000, `${key} makes ${name} ${value}`);
  }

  await player.getByRole("button", { name: "Now playing and queue" }).click();
  await view.getByRole("list", { name: "Queue" }).getByRole("button", { name: "Menu of" }).nth(1).waitFor();
});

journey("searches while typing, and finds an artist's album", {}, async (person) => {
  const { page, view } = person;
  await person.visit("/tidal/genres");
  await page.keyboard.press("/");
  await page.keyboard.type("harb");
  await person.list("Best hit").getByRole("link", { name: "Harbour & Tower" }).waitFor();
  assert.deepEqual(await view.getByRole("heading", { level: 2 }).allTextContents(), ["Artists", "Albums", "Tracks", "Playlists"]);
  await person.list("Artists").getByRole("link").nth(3).waitFor();

  await page.evaluate(() => {
    addEventListener("keydown", () => (globalThis.typed = performance.now()));
    new MutationObserver(() => document.querySelector(".best a")?.textContent.includes("Harbours") && (globalThis.found ??= performance.now())).observe(document, { subtree: true, childList: true });
  });
  await page.keyboard.type("ours");
  await person.list("Best hit").getByRole("link", { name: "Harbours" }).waitFor();
  const took = await page.evaluate(() => found - typed);
  // 0.2 s on a machine with nothing else to do.
  assert.ok(took < 1000, `what was found is there after ${took} ms`);
  await person.list("Artists").getByRole("link", { name: "The Northern Harbours" }).waitFor();
  await person.list("Albums").getByRole("link").first().waitFor();
  assert.equal(await person.focused(), "Search", "who types goes on typing");
  await page.keyboard.press("ArrowDown");
  assert.ok((await person.focused()).includes("Harbour"), "the arrow leads into what was found");
  await person.button("Albums").click();
  await person.list("Artists").waitFor({ state: "detached" });
  await person.list("Albums").getByRole("link").nth(20).waitFor();
  await person.button("All").click();
  await person.list("Artists").getByRole("link", { name: "The Northern Harbours" }).click();
  await person.heading("The Northern Harbours");
  await person.button("Read more").click();
  assert.ok((await page.getByRole("dialog", { name: "Bio" }).textContent()).length > 40, "the biography can be read");
  await page.keyboard.press("Escape");
  const title = (await person.titles("Albums"))[0];
  await person.list("Albums").getByRole("link", { name: title }).first().click();
  await person.heading(title);
  await view.getByRole("navigation", { name: "Where you are" }).getByRole("link", { name: "The Northern Harbours" }).click();
  await person.heading("The Northern Harbours");

  // An emptied field leads back to where the search began.
  await page.keyboard.press("/");
  await page.keyboard.type("x");
  await view.getByRole("heading", { name: "Search: x" }).waitFor({ state: "attached" });
  await page.keyboard.press("Backspace");
  await person.heading("The Northern Harbours");
  // What led to something is kept.
  await page.getByRole("search").getByRole("button", { name: "harbours" }).click();
  await person.list("Best hit").getByRole("link", { name: "Harbours" }).waitFor();
});

journey("what cannot be played says so and is passed over", {}, async (person) => {
  const { page, streamer } = person;
  await person.visit("/tidal/req/featured/new/albums");
  await person.open("Second Signal");
  await person.list("Second Signal").getByRole("button", { name: /^Tower, .*not available$/ }).first().click({ force: true });
  await page.getByRole("status").filter({ hasText: "“Tower” is not available." }).waitFor();
  await person.menu("Tower");
  assert.deepEqual((await person.dialog.getByRole("menuitem").allTextContents()).filter((text) => text === "Play"), []);
  await page.keyboard.press("Escape");
  await person.button("Play").click();
  await person.player.getByRole("button", { name: "Pause" }).waitFor();
  assert.notEqual((await streamer.call("player")).title, "Tower");
  await page.getByRole("status").filter({ hasText: "“Tower” is not available." }).waitFor({ state: "detached" });
});

journey("what plays next is put in order", {}, async (person) => {
  const { page, player, view, streamer } = person;
  const list = "/tidal/req/featured/new/tracks";
  const { rows } = await streamer.rows(list);
  await person.visit(list);
  const playable = (await person.titles("Just In")).filter((_, index) => !rows[index].Disabled);
  const [first, one, two, three] = playable;
  await person.list("Just In").getByRole("button", { name: first }).first().click();
  await player.getByRole("button", { name: "Pause" }).waitFor();
  for (const [title, entry] of [[one, "Add to queue"], [two, "Add to queue"], [three, "Play next"]]) {
    await person.menu(title);
    const entries = await person.dialog.getByRole("menuitem").allTextContents();
    assert.deepEqual(entries.slice(0, 2), ["Play next", "Add to queue"]);
    await person.choose(entry);
    await person.noDialog();
  }
  await page.keyboard.press("q");
  await view.getByRole("heading", { name: "Next in the queue" }).waitFor();
  await view.getByRole("heading", { name: "Next from Just In" }).getByRole("link", { name: "Just In" }).waitFor();
  let said = [];
  const begins = (...titles) =>
    person.until(
      async () => (said = (await person.titles("Queue")).slice(0, titles.length)).join() === titles.join(),
      () => `${titles}; it is ${said}`,
    );
  await begins(three, one, two);

  const row = (title) => person.list("Queue").getByRole("button", { name: title }).first();
  await row(three).focus();
  await page.keyboard.press("Alt+ArrowDown");
  await begins(one, three, two);
  await person.until(async () => (await person.focused()).startsWith(three), "the row keeps the focus");
  await page.keyboard.press("Delete");
  await begins(one, two);
  // What another client does is seen.
  await streamer.call("player/queue", { action: "add", path: rows.find((each) => each.Title.startsWith(three)).Path, at: "next" });
  await begins(three, one, two);
  const handle = await person.row(two).first().locator(".handle").boundingBox();
  const target = await person.row(three).first().boundingBox();
  await page.mouse.move(handle.x + 8, handle.y + 8);
  await page.mouse.down();
  await page.mouse.move(handle.x + 8, target.y + 20, { steps: 4 });
  await page.locator(".dragged").waitFor();
  await person.until(async () => (await page.locator(".drop-line").boundingBox()).y < target.y + 8, "the line is above");
  await page.mouse.up();
  await begins(two, three, one);
  await person.row(three).getByRole("button", { name: `Remove ${three}` }).first().click();
  await begins(two, one);

  await row(two).click();
  await person.until(async () => (await person.playing()).startsWith(two), "a click goes there");
  await begins(one);
  await view.getByRole("button", { name: "Clear" }).click();
  await view.getByRole("heading", { name: "Next in the queue" }).waitFor({ state: "detached" });
  const told = async (name) => (await streamer.call("player"))[name];
  await page.keyboard.press("s");
  await view.getByRole("button", { name: "Shuffle", pressed: true }).waitFor();
  assert.equal(await told("shuffle"), true);
  for (const [label, mode] of [["all", "all"], ["this track", "one"], ["off", "off"]]) {
    await page.keyboard.press("r");
    await view.getByRole("button", { name: `Repeat: ${label}` }).waitFor();
    assert.equal(await told("repeat"), mode);
  }
});

journey("a long press selects a row where it can, else opens its menu", { width: 390, height: 844, hasTouch: true, isMobile: true }, async (person) => {
  const { page, streamer, view } = person;
  const [tracks, favorites] = ["/tidal/req/featured/new/tracks", "/tidal/myMusic/req/favorites/users/tracks"];
  const { rows, rowsCount } = await streamer.rows(favorites, 999);
  const isFree = ({ Id, Disabled }) => !Disabled && rows.every((row) => row.Id !== Id);
  const free = (await streamer.rows(tracks)).rows.flatMap((row, index) => (isFree(row) ? [index] : []));
  await person.visit(tracks);
  await person.titles("Just In");
  const finger = await page.context().newCDPSession(page);
  const hold = async (item, seen) => {
    const { x, y } = await item.boundingBox();
    await finger.send("Input.dispatchTouchEvent", { type: "touchStart", touchPoints: [{ x: x + 80, y: y + 20 }] });
    await seen.waitFor();
    await finger.send("Input.dispatchTouchEvent", { type: "touchEnd", touchPoints: [] });
  };
  const item = (index) => view.locator(`li[data-index="${index}"]`);
  const bar = page.getByRole("toolbar", { name: "Selected rows" });
  await hold(item(free[0]), bar.getByText("1 selected"));
  await item(free[1]).tap();
  await bar.getByText("2 selected").waitFor();
  assert.equal((await streamer.call("player")).state, "stopped", "that plays nothing");
  const count = (number) => person.until(async () => (await streamer.rows(favorites, 0)).rowsCount === number, `${number} favorites`);
  await bar.getByRole("button", { name: "More" }).tap();
  await person.choose("Add to favorites");
  await bar.waitFor({ state: "hidden" });
  await count(rowsCount + 2);
  const said = page.getByRole("status").filter({ hasText: "2 added to favorites" });
  await said.getByRole("button", { name: "Undo" }).tap();
  await count(rowsCount);
  await item(free[0]).getByRole("button", { name: "Menu of" }).tap();
  await person.choose("Select");
  await bar.getByText("1 selected").waitFor();
  await bar.getByRole("button", { name: "Select nothing" }).tap();
  await item(free[0]).getByRole("button").first().tap();
  await person.player.getByRole("button", { name: "Pause" }).waitFor();

  await person.visit("/tidal");
  const cover = person.list("Favorite albums").getByRole("listitem").first();
  await cover.getByRole("link").first().waitFor();
  await hold(cover, person.dialog.getByRole("menuitem", { name: "Play next" }));
  await person.heading("Home");
});

journey("a favourite is one in every window, until it is taken back", {}, async (person) => {
  const { page, player } = person;
  const tracks = "/tidal/myMusic/req/favorites/users/tracks";
  const { rows, rowsCount } = await person.streamer.rows(tracks, 999);
  const [track] = (await person.streamer.rows("/tidal/req/featured/new/tracks")).rows.filter(({ Id, Disabled }) => !Disabled && rows.every((row) => row.Id !== Id));
  const other = await openWindow(person.streamer, {});
  await other.visit(tracks);
  const lists = (count) => other.until(async () => (await other.list("Tracks").getByRole("listitem").first().getAttribute("aria-setsize")) === String(count), `${count} favorites`);
  await lists(rowsCount);
  await person.visit("/tidal/req/featured/new/tracks");
  await person.row(track.Title.split(" - ")[0]).first().getByRole("button").first().click();
  const [own, others] = [player, other.player].map((bar) => bar.getByRole("button", { name: /favorites: / }));
  const reads = (heart, words) => person.until(async () => (await heart.getAttribute("aria-label"))?.startsWith(words), () => words);
  await others.waitFor();
  await reads(others, "Add to");

  await page.keyboard.press("l");
  await reads(own, "Remove from");
  await reads(others, "Remove from");
  await lists(rowsCount + 1);
  const note = page.getByRole("status").filter({ hasText: "Added to favorites" });
  await note.getByRole("button", { name: "Undo" }).click();
  await reads(own, "Add to");
  await reads(others, "Add to");
  await lists(rowsCount);

  // A refusal is answered like a success.
  await person.streamer.fault("status status=500 path=/users/770011/favorites count=1");
  await own.click();
  await page.getByText("The service has refused this.").waitFor();
  await reads(own, "Add to");
  other.assertNothingWentWrong();
  await other.leave();
});

journey("eight tabs share one stream, and a tab that nobody sees rests", {}, async (person) => {
  const context = person.page.context();
  const path = "/tidal/myMusic";
  const { rows } = await person.streamer.rows("/tidal/req/featured/new/tracks");
  const track = rows.find((row) => !row.Disabled);
  await person.streamer.call("player/play", { path: track.Path });
  const favorite = { path: track.Context.Path.replace("?", "/favorites?"), role: "Favorite" };
  await person.streamer.call("set", { ...favorite, value: false });
  const tabs = [person];
  while (tabs.length < 8) tabs.push(new Person(await context.newPage(), person.streamer, []));
  const heartOf = ({ player }) => player.getByRole("button", { name: /favorites: / });
  await Promise.all(tabs.map((tab) => tab.visit(path)));
  for (const tab of tabs) await heartOf(tab).waitFor();
  const streams = async () => (await (await fetch(`${person.streamer.address}/metrics`)).text()).match(/^kelo_event_clients (\d+)$/m)[1];
  assert.equal(await streams(), "1");

  // By the clock of the machine, which all share.
  const note = (heart) => ({ change: new Promise((done) => new MutationObserver(() => done(Date.now())).observe(heart, { attributeFilter: ["class"] })) });
  const follows = async (some, value, time) => {
    const changes = await Promise.all(some.map((tab) => heartOf(tab).evaluateHandle(note)));
    const begin = Date.now();
    await person.streamer.call("set", { ...favorite, value });
    const ends = await Promise.all(changes.map((change) => change.evaluate((one) => one.change)));
    assert.ok(Math.max(...ends) - begin < time, `told within ${Math.max(...ends) - begin} ms`);
  };
  await follows(tabs, true, 1000);
  // Who opened the stream leaves.
  await tabs.shift().page.close();
  await follows(tabs, false, 1000);

  const hidden = new Person(await context.newPage(), person.streamer, []);
  const show = (isHidden) => (Object.defineProperty(document, "hidden", { value: isHidden, configurable: true }), document.dispatchEvent(new Event("visibilitychange")));
  await hidden.page.addInitScript(show, true);
  await hidden.visit(path);
  await hidden.row("Artists").waitFor();
  assert.equal(await heartOf(hidden).count(), 0, "it has not been told what plays");
  await hidden.page.evaluate(show, false);
  await heartOf(hidden).waitFor();
  const position = Number(await hidden.player.getByRole("slider", { name: "Position" }).inputValue());
  const { positionMs } = await person.streamer.call("player");
  assert.ok(Math.abs(positionMs - position) < 5000, `a late tab knows the time: ${position} of ${positionMs}`);
  assert.equal(await streams(), "1");

  // A browser without shared workers has a stream for each page.
  const alone = await openWindow(person.streamer, {});
  await alone.page.addInitScript(() => delete window.SharedWorker);
  await alone.visit(path);
  await heartOf(alone).waitFor();
  assert.equal(await streams(), "2");
  for (const tab of [...tabs, hidden, alone]) tab.assertNothingWentWrong();
  await alone.leave();
});
