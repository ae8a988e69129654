// The staged programs, with a home folder of the test's own.

import { execFile, spawn } from "node:child_process";
import { mkdirSync, mkdtempSync, readFileSync, readdirSync, readlinkSync, realpathSync, rmSync }
  from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { fileURLToPath } from "node:url";
import { promisify } from "node:util";

const stage = process.env.STAGE || fileURLToPath(new URL("../../../stage", import.meta.url));
const run = promisify(execFile);
const LISTENING = "0A";
const LOOPBACK = "0100007F";
let lastMark = 0;

export class Home {
  constructor() {
    this.folder = realpathSync(mkdtempSync(join(tmpdir(), "panel-test-")));
    this.library = join(this.folder, "Fonts");
    mkdirSync(this.library);
    this.environment = {
      ...process.env,
      HOME: this.folder,
      XDG_DATA_HOME: join(this.folder, ".local/share"),
      XDG_CONFIG_HOME: join(this.folder, ".config"),
      XDG_CACHE_HOME: join(this.folder, ".cache"),
      XDG_STATE_HOME: join(this.folder, ".local/state"),
      CORVANTA_FONT_LIBRARY: this.library,
    };
  }

  run(program, ...words) {
    return run(program, words, { env: this.environment, maxBuffer: 64 << 20 });
  }

  vexcor(...words) {
    return this.run(join(stage, "bin/Vexcor"), ...words);
  }

  // Whether a program that nobody here wrote sees the font.
  async sees(postScriptName) {
    const { stdout } = await this.run("fc-list", "--format", "%{postscriptname}\n");
    return stdout.split("\n").includes(postScriptName);
  }

  get token() {
    return readFileSync(join(this.environment.XDG_STATE_HOME, "Corvanta/panel-token"), "utf8");
  }

  remove() {
    rmSync(this.folder, { recursive: true, force: true });
  }
}

// headless-host with the plug-in, performing the lines that a test sends.
export class Host {
  #process;
  output = "";

  static async start(home) {
    const host = new Host();
    await host.#start(home);
    return host;
  }

  async #start(home) {
    this.#process = spawn(join(stage, "bin/headless-host"),
      ["script", "--home", home.folder, "--library", home.library], { env: home.environment });
    for (const stream of [this.#process.stdout, this.#process.stderr]) {
      stream.on("data", (bytes) => (this.output += bytes));
    }
    this.ended = new Promise((resolve) => this.#process.on("exit", resolve));
    await this.perform("ask-port");
    this.port = await until(() => findPort(this.#process.pid), () => this.output);
  }

  // Performs the lines. Between lines the host has ticks.
  async perform(...lines) {
    const mark = `done ${++lastMark}`;
    this.#process.stdin.write(`${lines.join("\n")}\nexec echo ${mark}\n`);
    await until(() => this.output.includes(`${mark}\n`), () => this.output);
  }

  kill() {
    this.#process.kill("SIGKILL");
    return this.ended;
  }
}

async function until(look, describe) {
  const end = Date.now() + 60000;
  for (;;) {
    const found = look();
    if (found) return found;
    if (Date.now() > end) throw new Error(`the host does not answer:\n${describe()}`);
    await new Promise((resolve) => setTimeout(resolve, 20));
  }
}

// Returns the port that the process listens on.
function findPort(pid) {
  const links = readdirSync(`/proc/${pid}/fd`).map((name) => {
    try {
      return readlinkSync(`/proc/${pid}/fd/${name}`);
    } catch {
      return ""; // closed meanwhile
    }
  });
  for (const line of readFileSync("/proc/net/tcp", "utf8").split("\n").slice(1)) {
    const words = line.trim().split(/\s+/);
    const [address, port] = (words[1] ?? "").split(":");
    if (address !== LOOPBACK || words[3] !== LISTENING) continue;
    if (links.includes(`socket:[${words[9]}]`)) return parseInt(port, 16);
  }
  return 0;
}
