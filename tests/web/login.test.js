import { journey } from "./harness/journey.js";

// The rows of an open view are gone with the login, which the streamer says with 502.
const allowed = [/status of 502|status 502/];

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
  await page.getByRole("banner").getByRole("link", { name: "kelo" }).click();
  await view.getByRole("link", { name: "Log in to Tidal" }).click();

  const answerWith = async (name) => {
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
  };
  await person.button("Get a code").click();
  await answerWith(/Refuse/);
  await view.getByRole("alert").filter({ hasText: "The login was refused." }).waitFor();
  await view.getByText("Try again, and confirm the login").waitFor();
  await person.button("Get a new code").click();
  await answerWith(/Confirm/);
  await person.heading("You are logged in");
  await page.keyboard.press("Enter");
  await person.list("Favorite albums").getByRole("link").first().waitFor();
  await page.getByRole("navigation", { name: "Music" }).getByRole("link", { name: "New" }).click();
  await person.row("Most Played").first().waitFor();
});
