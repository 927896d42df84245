import { journey } from "./harness/journey.js";

journey("from the first visit to sound", {}, async (person) => {
  const { page, player, view } = person;
  await page.goto("/");
  await person.heading("TIDAL");
  await person.open("New");
  await person.openBelow("Albums", "Just In");
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
  await player.getByRole("button", { name: "Pause" }).click();
  await player.getByRole("button", { name: "Play", exact: true }).waitFor();

  await player.getByRole("button", { name: "Now playing and queue" }).click();
  await view.getByRole("list", { name: "Queue" }).getByRole("button", { name: "Menu of" }).nth(1).waitFor();
});
