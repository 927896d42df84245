// What a person does with the page, by the roles and names that a screen reader tells.

import assert from "node:assert/strict";

const patience = 15000;

export class Person {
  #troubles = [];

  constructor(page, streamer, allowed) {
    this.page = page;
    this.streamer = streamer;
    const note = (text) => allowed.some((pattern) => pattern.test(text)) || this.#troubles.push(text);
    page.on("console", (message) => ["error", "warning"].includes(message.type()) && note(`console: ${message.text()} (${message.location().url})`));
    page.on("pageerror", (error) => note(`uncaught: ${error.stack}`));
    page.on("dialog", (dialog) => (note(`dialog: ${dialog.message()}`), dialog.dismiss()));
    // A request that the page itself gives up, because one went elsewhere, has not failed.
    page.on("requestfailed", (request) => request.failure().errorText !== "net::ERR_ABORTED" && note(`failed: ${request.url()} ${request.failure().errorText}`));
    page.on("response", (response) => response.status() >= 400 && note(`status ${response.status()}: ${response.url()}`));
    page.on("request", (request) => !request.url().startsWith(streamer.address) && !request.url().startsWith("data:") && note(`elsewhere: ${request.url()}`));
  }

  assertNothingWentWrong() {
    assert.deepEqual(this.#troubles, []);
  }

  leave() {
    return this.page.context().close();
  }

  get view() {
    return this.page.getByRole("main");
  }

  get player() {
    return this.page.getByRole("contentinfo", { name: "Player" });
  }

  /** The topmost dialog. */
  get dialog() {
    return this.page.getByRole("dialog").last();
  }

  async visit(path = "/") {
    await this.page.goto(path.startsWith("/tidal") || path.startsWith("/settings") || path.startsWith("/oauth2") ? `/#${path}` : path);
    return this.heading();
  }

  heading(name) {
    return this.view.getByRole("heading", { level: 1, name, exact: true }).waitFor();
  }

  /** The rows of the view whose text has the words in it. */
  row(words) {
    return this.view.getByRole("listitem").filter({ hasText: words });
  }

  list(name) {
    return this.view.getByRole("list", { name, exact: true });
  }

  /** A button of the view by its whole name. */
  button(name) {
    return this.view.getByRole("button", { name, exact: true });
  }

  async open(words) {
    await this.view.getByRole("link", { name: words }).first().click();
  }

  /** Opens the menu of a row. */
  async menu(words) {
    await this.row(words).first().getByRole("button", { name: "Menu of" }).click();
    await this.dialog.getByRole("menu").waitFor();
  }

  /** What the bar says that it plays: title and artist. */
  async playing() {
    const label = await this.player.getByRole("link", { name: /^(Now playing: |Nothing plays)/ }).getAttribute("aria-label");
    return label.replace(/^Now playing: /, "");
  }

  /** Looks again with every frame until the condition holds. */
  async until(condition, what) {
    const end = Date.now() + patience;
    while (!(await condition())) {
      assert.ok(Date.now() < end, `waited in vain: ${what instanceof Function ? what() : what}`);
      await this.page.evaluate(() => new Promise(requestAnimationFrame));
    }
  }

  /** Takes entries of the open menu, one leading to the next. */
  async choose(...names) {
    for (const name of names) await this.dialog.getByRole("menuitem", { name, exact: true }).or(this.dialog.getByRole("menuitemradio", { name, exact: true })).click();
  }

  /** Fills the fields of the open form and sends it. */
  async submit(fields, button) {
    for (const [name, value] of Object.entries(fields)) await this.dialog.getByLabel(name, { exact: true }).fill(value);
    await this.dialog.getByRole("button", { name: button, exact: true }).click();
  }

  /** Waits until no dialog is open. */
  async noDialog() {
    await this.page.getByRole("dialog").waitFor({ state: "detached" });
  }

  /** The titles of a list's rows, in order. */
  titles(name) {
    return this.list(name).getByRole("button", { name: "Menu of" }).evaluateAll((all) => all.map((one) => one.getAttribute("aria-label").replace("Menu of ", "")));
  }

  /** What has the focus, as its name or text; "nothing" when it was lost. */
  focused() {
    return this.page.evaluate(() => (document.activeElement === document.body ? "nothing" : (document.activeElement.getAttribute("aria-label") ?? document.activeElement.textContent)));
  }
}
