// A streamer of its own for a journey: the real program with the simulated service inside.

import { spawn } from "node:child_process";
import { once } from "node:events";
import { mkdtemp, rm } from "node:fs/promises";
import { tmpdir } from "node:os";
import path from "node:path";
import { createInterface } from "node:readline";
import { fileURLToPath } from "node:url";

const root = path.resolve(path.dirname(fileURLToPath(import.meta.url)), "../../..");
const patience = 20000;
export const program = process.env.KELO_PROGRAM || path.join(root, "build/dev/bin/kelo");

const besides = (file) => ["--module", path.join(path.dirname(program), "..", file)];
/** Words that have the module for tests served alone, and beside the service. */
export const shelf = besides("tests/streamer/modules/libshelf.so");
export const both = [...besides("lib/libkelo_cb_tidal.so"), ...shelf];

export class Streamer {
  #process = null;
  #ended = null;
  #folder = "";
  #log = "";
  #words = [];

  /** Starts one, with further words on its command line, and waits until it listens. */
  static async start(words = []) {
    const streamer = new Streamer();
    streamer.#words = words;
    streamer.#folder = await mkdtemp(path.join(tmpdir(), "kelo-web-"));
    await streamer.#launch(0);
    return streamer;
  }

  async #launch(port) {
    const words = ["serve", "--demo", "--listen", `127.0.0.1:${port}`, "--output", "null", "--state-dir", path.join(this.#folder, "state"), ...this.#words];
    // The files of the page as they are, in place of those that were built in.
    if (process.env.KELO_WEB_DIR) words.push("-o", `server.web_dir=${process.env.KELO_WEB_DIR}`);
    this.#process = spawn(program, words, { stdio: ["ignore", "pipe", "pipe"] });
    this.#ended = once(this.#process, "exit");
    this.#process.stderr.on("data", (text) => (this.#log += text));
    // The first line is the address; a program that ends before it says so by closing its output.
    for await (const line of createInterface({ input: this.#process.stdout, signal: AbortSignal.timeout(patience) })) {
      this.address = line.match(/^listening on (http:\/\/\S+)$/)?.[1];
      break;
    }
    if (!this.address) throw new Error(`the streamer did not start:\n${this.#log}`);
    this.#process.stdout.resume();
  }

  /** Ends the program, as if the power went. */
  async halt() {
    if (!this.#process) return;
    this.#process.kill("SIGKILL");
    this.#process = null;
    await this.#ended;
  }

  /** Starts the program again where it listened before. */
  resume() {
    return this.#launch(new URL(this.address).port);
  }

  async stop() {
    await this.halt();
    await rm(this.#folder, { recursive: true, force: true });
  }

  /** What another client would be answered; `body` makes it a POST. */
  async call(name, body) {
    const answer = await fetch(`${this.address}/api/v1/${name}`, body && { method: "POST", headers: { "Content-Type": "application/json" }, body: JSON.stringify(body) });
    if (!answer.ok) throw new Error(`${name}: ${answer.status} ${await answer.text()}`);
    return answer.json();
  }

  rows(path, to = 49) {
    return this.call(`rows?path=${encodeURIComponent(path)}&from=0&to=${to}`);
  }

  /** Has the simulated service fail or be late, by its lines for faults; it must have been asked before. */
  async fault(...lines) {
    const { requests } = await this.call("requests");
    const answer = await fetch(new URL("/sim/faults", requests[0].address), { method: "POST", body: lines.join("\n") });
    if (!answer.ok) throw new Error(`faults: ${answer.status} ${await answer.text()}`);
  }

  /** The file that the login is kept in. */
  get tokens() {
    return path.join(this.#folder, "state/demo/oauth2/tidal.json");
  }

  get log() {
    return this.#log;
  }
}
