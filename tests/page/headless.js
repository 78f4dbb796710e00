// Runs the headless program as a child process of the test.
import { spawn } from 'node:child_process';
import { once } from 'node:events';
import { createInterface } from 'node:readline';
import { fileURLToPath } from 'node:url';
import { pagePath } from './service_fake.js';

const program = fileURLToPath(new URL('../../build/native/marlune_headless', import.meta.url));

export class Headless {
  async start() {
    this.child = spawn(program, ['--page=' + fileURLToPath(pagePath)], { stdio: ['pipe', 'pipe', 'inherit'] });
    this.ended = once(this.child, 'exit');
    this.lines = createInterface({ input: this.child.stdout })[Symbol.asyncIterator]();
    this.origin = new URL(await this.#line()).origin;
    this.port = new URL(this.origin).port;
    return this;
  }

  /** Sends a command, such as "show NAME"; throws if the reply is not "ok". */
  async obey(line) {
    this.child.stdin.write(line + '\n');
    const answer = await this.#line();
    if (answer !== 'ok') throw new Error(`${line}: ${answer}`);
  }

  add(deck) {
    return this.obey('add ' + deck);
  }

  remove(deck) {
    return this.obey('remove ' + deck);
  }

  async close() {
    this.child.stdin.end();
    await this.ended;
  }

  async #line() {
    const { value, done } = await this.lines.next();
    if (done) throw new Error('marlune_headless ended; build it with: cmake --build --preset native');
    return value;
  }
}
