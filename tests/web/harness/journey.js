// A journey: one person in front of one browser window, with a streamer of their own.

import { mkdir } from "node:fs/promises";
import path from "node:path";
import { after, test } from "node:test";
import { Streamer } from "./streamer.js";
import { closeBrowser, openWindow } from "./window.js";

const failures = process.env.KELO_WEB_FAILURES || "/tmp/kelo-web-failures";

/**
 * Runs the steps of a journey. Afterwards nothing may have gone wrong on the way: no error on the console, no
 * failed request, no request to elsewhere, except what `allowed` (patterns) names.
 */
export function journey(name, options, steps) {
  test(name, { timeout: 60000 }, async () => {
    const streamer = await Streamer.start(options.words);
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
    } catch (error) {
      console.error(streamer.log.slice(-2000));
      throw error;
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
