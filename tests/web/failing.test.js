import assert from "node:assert/strict";
import { journey } from "./harness/journey.js";

// What is refused here, the browser notes on its console.
const allowed = [/status of (404|502)|status (404|502)/];

journey("errors say what is wrong, and go by themselves", { allowed }, async (person) => {
  const { page, view, streamer } = person;
  await person.visit("/tidal/nowhere");
  await person.heading("Not found");
  await view.getByRole("alert").filter({ hasText: "There is nothing at this address." }).waitFor();
  await page.clock.install();
  await person.visit("/tidal/req/featured/new/albums");
  await person.titles("Just In");
  await streamer.fault("status status=500 count=1 path=/featured/top");
  await person.visit("/tidal/req/featured/top/albums");
  await view.getByRole("alert").filter({ hasText: "The music service has a problem (500)." }).waitFor();
  await view.getByText("Trying again in 10 s").waitFor();
  await page.clock.runFor(11000);
  await person.row("Songs from the Wooden Whisper").first().waitFor();
  await person.visit("/tidal/req/albums?contentId=1");
  await view.getByRole("alert").filter({ hasText: "The music service does not have this." }).waitFor();
  assert.equal(await view.getByText("Trying again").count(), 0);
});
