// A journey: one person in front of one browser window, with a streamer of their own.

import { mkdir } from "node:fs/promises";
import path from "node:path";
import { after, test } from "node:test";
import { chromium } from "playwright-core";
import { Person } from "./person.js";
import { Streamer } from "./streamer.js";

const patience = 15000;
const failures = process.env.KELO_WEB_FAILURES || "/tmp/kelo-web-failures";

let browser = null;

/** The browser that the journeys of one file share; each has a fresh profile in it. */
export async function openBrowser() {
  browser ??= await chromium.launch({
    executablePath: "/usr/bin/chromium",
    args: ["--disable-gpu", "--disable-quic", "--no-first-run", "--disable-background-networking", "--disable-component-update", "--disable-sync"],
  });
  return browser;
}

export const closeBrowser = () => browser?.close();

/** Opens a window; `options` are those of a browser context. */
export async function openWindow(streamer, { width = 1280, height = 800, allowed = [], ...options } = {}) {
  const context = await (await openBrowser()).newContext({ baseURL: streamer.address, viewport: { width, height }, reducedMotion: "reduce", ...options });
  context.setDefaultTimeout(patience);
  return new Person(await context.newPage(), streamer, allowed);
}

/**
 * Runs the steps of a journey. Afterwards nothing may have gone wrong on the way: no error on the console, no
 * failed request, no request to elsewhere, except what `allowed` (patterns) names.
 */
export function journey(name, options, steps) {
  test(name, { timeout: 60000 }, async () => {
    const streamer = await Streamer.start();
    try {
      const person = await openWindow(streamer, options);
      try {
        await steps(person);
        person.assertNothingWentWrong();
      } catch (error) {
        await keepPicture(person, name);
        throw error;
      } finally {
        await person.leave();
      }
    } finally {
      await streamer.stop();
    }
  });
}

async function keepPicture(person, name) {
  await mkdir(failures, { recursive: true });
  const file = path.join(failures, `${name.replace(/\W+/g, "-")}.png`);
  await person.page.screenshot({ path: file }).then(() => console.error(`see ${file}`), () => {});
}

after(closeBrowser);
