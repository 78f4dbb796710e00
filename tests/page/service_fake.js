// A fake of the remote service: has a state and a form, records requests, and can be made slow,
// refusing or unreachable. Runs in the test's own process.
import { readFile } from 'node:fs/promises';
import { createServer } from 'node:http';

export const pagePath = new URL('../../src/remote/page.html', import.meta.url);

const contentSecurityPolicy =
  "default-src 'self'; script-src 'unsafe-inline'; style-src 'unsafe-inline'; connect-src 'self'; " +
  "frame-ancestors 'none'";

export function someState(changes = {}) {
  return {
    time: '12:34', running: true, paused: false, automatic: true, down: true, duration: 900,
    visible: true, black: false, showing: true, slide: 12, provider: 'PowerPoint', machineTime: '',
    files: someFiles(), ...changes,
  };
}

export function someFiles() {
  return [
    { id: '0123456789abcdef', name: '2026 年度产品发布会.pptx', skip: false },
    { id: '1123456789abcdef', name: '第二季度经营分析与下一阶段工作计划（终稿）.pptx', skip: true },
    { id: '2123456789abcdef', name: '附录.ppt', skip: false },
  ];
}

export function someValues(changes = {}) {
  const prompt = (stage, advance) => ({
    [`prompt${stage}.enabled`]: stage === 1, [`prompt${stage}.advance`]: advance,
    [`prompt${stage}.blinkWindow`]: true, [`prompt${stage}.blinkBackground`]: false,
    [`prompt${stage}.sound`]: false, [`prompt${stage}.blinkSeconds`]: 3,
    [`prompt${stage}.soundSeconds`]: 0,
  });
  return {
    duration: 900, down: true, perSlide: false, hideNoDocument: false, hideZero: false,
    hideExcluded: true, resetDelay: 5, exitShow: false, black: false, blink: true, blinkSeconds: 0,
    sound: false, soundSeconds: 0, switchPpt: false, foreground: 0xffffff, background: 0x0000ff,
    alert: 0xff5155, opacity: 80, transparent: false, shape: 1, fontWeight: 700, blinkOn: 500,
    blinkOff: 500, machineTime: false, ...prompt(1, 180), ...prompt(2, 60), ...changes,
  };
}

export class ServiceFake {
  state = someState();
  values = someValues();
  revision = 1;
  /** All requests of the page: {method, path, query, body, headers}. */
  requests = [];
  /** Answers to `/api/` are sent once this resolves: see hold(). */
  gate = Promise.resolve();
  /** While set, each request to `/api/` gets this {status, type, body}, or no answer if 'gone'. */
  refusal = null;

  async start() {
    this.page = await readFile(pagePath);
    this.server = createServer((request, response) => this.#serve(request, response));
    await new Promise((resolve) => this.server.listen(0, '127.0.0.1', resolve));
    this.origin = `http://127.0.0.1:${this.server.address().port}`;
    return this;
  }

  async close() {
    this.server.closeAllConnections();
    await new Promise((resolve) => this.server.close(resolve));
  }

  /** Holds back every answer until the returned function is called. */
  hold() {
    let release;
    this.gate = new Promise((resolve) => { release = resolve; });
    return release;
  }

  refuse(status, error) {
    this.refusal = { status, type: 'application/json; charset=utf-8', body: JSON.stringify({ error }) };
  }

  /** The requests to one command. */
  asked(command) {
    return this.requests.filter(({ path }) => path === '/api/' + command);
  }

  commands() {
    return this.requests.filter(({ method }) => method === 'POST')
      .map(({ path, query }) => path.slice(5) + query);
  }

  snapshot() {
    return { revision: this.revision.toString(16).padStart(16, '0'), values: this.values };
  }

  async #serve(request, response) {
    const url = new URL(request.url, this.origin);
    if (url.pathname === '/favicon.ico') return response.writeHead(404).end();  // from the browser itself
    let body = '';
    for await (const chunk of request) body += chunk;
    this.requests.push({
      method: request.method, path: url.pathname, query: url.search, body, headers: request.headers,
    });
    if (url.pathname !== '/') await this.gate;
    if (this.refusal === 'gone' && url.pathname !== '/') return request.socket.destroy();
    const { status, type, body: answer } = this.#answer(request.method, url, body);
    response.writeHead(status, {
      'Content-Type': type,
      'Cache-Control': 'no-store',
      'X-Content-Type-Options': 'nosniff',
      'Content-Security-Policy': contentSecurityPolicy,
      'Referrer-Policy': 'no-referrer',
      'Connection': 'close',
    });
    response.end(answer);
  }

  #answer(method, url, body) {
    const json = (value, status = 200) =>
      ({ status, type: 'application/json; charset=utf-8', body: JSON.stringify(value) });
    if (url.pathname === '/') return { status: 200, type: 'text/html; charset=utf-8', body: this.page };
    if (!url.pathname.startsWith('/api/')) return { status: 404, type: 'text/plain', body: 'Not found' };
    if (this.refusal) return this.refusal;
    const command = url.pathname.slice(5);
    if (command === 'controls') {
      if (method === 'GET') return json(this.snapshot());
      const error = this.#save(new URLSearchParams(body));
      return error ? json({ error }, 409) : json(this.snapshot());
    }
    if (method === 'POST') this.#command(command, url.searchParams);
    return json(this.state);
  }

  #save(form) {
    if (form.get('revision') !== this.snapshot().revision) {
      return '电脑设置已更新。遥控端草稿已保留，请重新加载后确认。';
    }
    for (const [name, value] of Object.entries(this.values)) {
      this.values[name] = typeof value === 'boolean' ? form.get(name) === '1' : Number(form.get(name));
    }
    this.revision++;
    return '';
  }

  #command(command, query) {
    const { state } = this;
    if (command === 'toggle') state.running = !state.running;
    if (command === 'black') state.black = !state.black;
    if (command === 'duration') state.duration = Number(query.get('seconds'));
    if (command === 'visibility') state.visible = !state.visible;
    if (command === 'automatic' || command === 'manual') state.automatic = command === 'automatic';
    if (command === 'countdown' || command === 'countup') state.down = command === 'countdown';
    if (command === 'clock-on') state.machineTime = '14:05:09';
    if (command === 'clock-off') state.machineTime = '';
    if (command === 'skip') {
      state.files = state.files.map((file) =>
        (file.id === query.get('id') ? { ...file, skip: !file.skip } : file));
    }
    this.#follow(command);
  }

  /** Some commands also change values of the form, and with them the revision. */
  #follow(command) {
    const { duration, down, machineTime } = this.state;
    const changes = {
      duration: { duration }, countdown: { down }, countup: { down },
      'clock-on': { machineTime: Boolean(machineTime) }, 'clock-off': { machineTime: Boolean(machineTime) },
    }[command] ?? {};
    if (Object.entries(changes).some(([name, value]) => this.values[name] !== value)) this.revision++;
    Object.assign(this.values, changes);
  }
}
