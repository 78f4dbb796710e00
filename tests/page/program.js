// Runs the real program under Wine as a child process of the test, in its own folder. Wine prefix
// and display come from the environment.
import { spawn } from 'node:child_process';
import { once } from 'node:events';
import { access, mkdir, mkdtemp, rm, writeFile } from 'node:fs/promises';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { until } from './browser.js';

const program = fileURLToPath(new URL('../../build/windows/marlune.exe', import.meta.url));
const windowsPath = (path) => 'Z:' + path.replaceAll('/', '\\');

/** A settings file as the program writes it, with this folder of decks and this port. */
const settings = (folder, port) => `MarluneNative2
900 1 1 0
300 10 183 82
1 0 1 0 0
"${windowsPath(folder).replaceAll('\\', '\\\\')}"
""
0
0 0 0 0 0
0 0 900 100
16448767 33023 12597547 80 1 700
"Arial"
""
0 ${port} 1
0 1 1 0 300 10 0 ""
0 1 1 0 30 0 0 ""
`;

export class Program {
  async start() {
    this.folder = await mkdtemp(join(tmpdir(), 'marlune-'));
    this.decks = join(this.folder, 'decks');
    await mkdir(this.decks);
    this.port = String(20_000 + Math.floor(Math.random() * 12_000));  // below the ephemeral ports
    this.origin = `http://127.0.0.1:${this.port}`;
    await writeFile(join(this.folder, 'settings.dat'), settings(this.decks, this.port));
    this.child = spawn('wine', [program, '--test-root=' + windowsPath(this.folder)], { stdio: 'ignore' });
    this.ended = once(this.child, 'exit');
    await until(() => Promise.all(['ready.txt', 'remote.txt'].map((name) => access(join(this.folder, name)))), 30_000);
    await until(() => this.#answers(), 30_000);
    return this;
  }

  // Its first scan of the desktop may take longer than a request waits.
  async #answers() {
    const { status } = await fetch(this.origin + '/api/state');
    if (status !== 200) throw new Error(`${this.origin} answers with ${status}`);
  }

  add(deck) {
    return writeFile(join(this.decks, deck), 'deck');
  }

  remove(deck) {
    return rm(join(this.decks, deck));
  }

  async close() {
    this.child.kill('SIGKILL');
    await this.ended;
    await rm(this.folder, { recursive: true, force: true });
  }
}
