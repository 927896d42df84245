// The browser, and windows in it.

import { chromium } from "playwright-core";
import { Person } from "./person.js";

const patience = 15000;

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
