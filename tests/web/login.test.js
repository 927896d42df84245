import assert from "node:assert/strict";
import { journey } from "./harness/journey.js";
import { both, shelf } from "./harness/streamer.js";

// The rows of an open view are gone with the login, which the streamer says with 502.
const allowed = [/status of 502|status 502/];

// Answers the login whose code is shown on the service's own page.
async function answerWith(person, name) {
  const { page, view } = person;
  const code = view.locator(".code");
  await code.waitFor();
  await view.getByText(/The code is good for (5:00|4:5\d)/).waitFor();
  const picture = view.getByRole("img", { name: "QR code" });
  await person.until(() => picture.evaluate((image) => image.complete && image.naturalWidth > 50), "the QR code is drawn");
  const [service] = await Promise.all([page.waitForEvent("popup"), view.getByRole("link", { name: /link/ }).click()]);
  await service.getByText(await code.textContent(), { exact: true }).waitFor();
  await service.getByRole("button", { name }).click();
  await service.waitForLoadState();
  await service.close();
}

journey("logging out, being refused, and logging in again", { allowed }, async (person) => {
  const { page, view } = person;
  await person.visit("/settings");
  await view.getByText("Logged in as x@example.invalid · HiFi").waitFor();
  await person.open("Account");
  await view.getByText("Logged in as x@example.invalid · HiFi").waitFor();
  await person.button("Log out").click();
  await person.button("Get a code").waitFor();
  await person.visit("/tidal/new");
  await view.getByRole("link", { name: "Log in", exact: true }).waitFor();
  const waiting = await page.context().newPage();
  await waiting.goto(page.url());
  await waiting.getByRole("link", { name: "Log in", exact: true }).waitFor();
  await page.getByRole("banner").getByRole("link", { name: "kelo" }).click();
  await view.getByRole("link", { name: "Log in to Tidal" }).click();

  await person.button("Get a code").click();
  await answerWith(person, /Refuse/);
  await view.getByRole("alert").filter({ hasText: "The login was refused." }).waitFor();
  await view.getByText("Try again, and confirm the login").waitFor();
  await person.button("Get a new code").click();
  await answerWith(person, /Confirm/);
  await person.heading("You are logged in");
  await waiting.getByText("Most Played").first().waitFor();
  await waiting.close();
  await page.keyboard.press("Enter");
  await person.list("Favorite albums").getByRole("link").first().waitFor();
  await page.getByRole("navigation", { name: "Music" }).getByRole("link", { name: "New" }).click();
  await person.row("Most Played").first().waitFor();
});

const register = (streamer) => streamer.call("set", { path: "/shelf/register", value: 1 });

journey("two logins, each on its own", { words: both, allowed }, async (person) => {
  const { page, view, streamer } = person;
  const account = (words) => view.getByRole("link", { name: words });
  // A search whose last answer comes when there is another login has found what it has found.
  let release;
  const held = new Promise((resolve) => (release = resolve));
  await page.route(/rows.*playlists/, (route) => held.then(() => route.continue()));
  await person.visit("/tidal/search/choose?query=harb");
  await person.list("Albums").getByRole("link").first().waitFor();
  await register(streamer);
  await page.evaluate(() => fetch("api/v1/logins"));
  release();
  await view.getByRole("list", { name: "Best hit" }).getByRole("link").first().waitFor();
  await person.visit("/settings");
  await account("Account: Tidal Logged in as x@example.invalid").waitFor();
  await account("Account: Shelf Not logged in").waitFor();
  await page.getByRole("navigation", { name: "Music" }).getByRole("link", { name: "Shelf" }).click();
  await person.button("Log in to Shelf").waitFor();
  await page.goto("/#/shelf/tones");
  await view.getByText("The shelf is locked").waitFor();
  await view.getByRole("link", { name: "Log in", exact: true }).click();
  await person.heading("Log in to Shelf");
  await person.button("Get a code").click();
  const code = await view.locator(".code").elementHandle();
  // What becomes of the other one changes nothing here.
  const gone = page.waitForResponse((answer) => answer.url().includes("/rows?path=%2Ftidal&"));
  await fetch(`${streamer.address}/api/v1/login`, { method: "DELETE" });
  await gone;
  assert.ok(await code.evaluate((element) => element.isConnected));
  await answerWith(person, /Confirm/);
  await person.heading("You are logged in");
  await person.button("To the music").click();
  await person.open("Tones");
  await person.row("Tone 3").waitFor();
  await person.visit("/settings");
  await account("Account: Tidal Not logged in").waitFor();
  await account("Account: Shelf Logged in as x@example.invalid").click();
  await person.button("Log out").click();
  await person.button("Get a code").waitFor();
});

journey("a login where the service is not", { words: shelf }, async (person) => {
  const { view, streamer } = person;
  await person.visit("/settings");
  await view.getByText("Sound quality").waitFor();
  assert.equal(await view.getByText("Account").count(), 0);
  await register(streamer);
  await person.open("Account");
  await person.button("Get a code").waitFor();
});
