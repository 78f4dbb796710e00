// Checks the bytes on the wire, with raw sockets: a browser would correct or refuse most of these
// requests.
import assert from 'node:assert/strict';
import { once } from 'node:events';
import { connect } from 'node:net';
import { stateOf, testsOn } from './any_service.js';

/** Sends `parts` one after another; returns everything received until the connection is closed. */
async function exchange(service, parts) {
  const socket = connect(service.port, '127.0.0.1');
  await once(socket, 'connect');
  const chunks = [];
  socket.on('data', (chunk) => chunks.push(chunk));
  socket.on('error', () => {});  // unread bytes make the other side reset the connection
  const closed = new Promise((resolve) => socket.on('close', resolve));
  for (const part of parts) {
    socket.write(part);
    await new Promise((resolve) => setImmediate(resolve));
  }
  await closed;
  const answer = Buffer.concat(chunks).toString('utf8');
  if (statusOf(answer) === 503) service.wasBusy = true;
  return answer;
}

const statusOf = (answer) => Number(answer.split(' ')[1]);
const bodyOf = (answer) => answer.slice(answer.indexOf('\r\n\r\n') + 4);

const head = (status, type, length) => `HTTP/1.1 ${status} Response\r\nContent-Type: ${type}\r\n` +
  `Content-Length: ${length}\r\nCache-Control: no-store\r\nX-Content-Type-Options: nosniff\r\n` +
  "Content-Security-Policy: default-src 'self'; script-src 'unsafe-inline'; style-src 'unsafe-inline'; " +
  "connect-src 'self'; frame-ancestors 'none'\r\nReferrer-Policy: no-referrer\r\nConnection: close\r\n\r\n";

const texts = { 400: 'Bad request', 403: 'Invalid request origin', 404: 'Not found', 405: 'Method not allowed' };
const unknown = '未知操作。';
const noFile = '文件列表已变化或文件不在当前文件夹，请刷新。';
const badDuration = '时长须为 0–59999 秒。';

/** PORT is replaced by the service's port. */
const hosts = [
  [200, '127.0.0.1'], [200, '127.0.0.1:PORT'], [200, 'localhost'], [200, 'localhost:PORT'],
  [200, '127.0.0.1:PORT', 'http://127.0.0.1:PORT'], [200, 'localhost', 'http://localhost'],
  [200, ' \t127.0.0.1:PORT \t'],
  [403, ''], [403, 'LOCALHOST'], [403, '127.0.0.1:1'], [403, 'localhost:'], [403, '127.0.0.2'], [403, '127.1'],
  [403, '[::1]'], [403, 'localhost.'], [403, 'rebound.example'], [403, '127.0.0.1:PORT, 127.0.0.1:PORT'],
  [403, '127.0.0.1:PORT', 'null'], [403, '127.0.0.1:PORT', 'https://127.0.0.1:PORT'],
  [403, '127.0.0.1:PORT', 'HTTP://127.0.0.1:PORT'], [403, '127.0.0.1:PORT', 'http://127.0.0.1:PORT/'],
  [403, '127.0.0.1:PORT', 'http://127.0.0.1'], [403, 'localhost', 'http://127.0.0.1'],
  [403, '127.0.0.1:PORT', 'http://site.example'],
];

/** Method, target, status; for 409 also the error. */
const routes = [
  ['GET', '/', 200], ['GET', '/api/state', 200], ['GET', '/api/controls', 200],
  ['POST', '/', 404], ['HEAD', '/', 404], ['get', '/', 404], ['GET', '/?x=1', 404], ['GET', '/index.html', 404],
  ['GET', '/api', 404], ['POST', '/api', 404], ['POST', '/api?x', 404], ['GET', '/API/state', 404],
  ['GET', '//api/state', 404], ['GET', '/../api/state', 404], ['GET', '/..%2f..%2fsettings.dat', 404],
  ['GET', '/%61pi/state', 404], ['GET', 'http://127.0.0.1/api/state', 404], ['OPTIONS', '*', 404],
  ['GET', '/api/toggle', 405], ['PUT', '/api/toggle', 405], ['OPTIONS', '/api/toggle', 405],
  ['POST', '/api/state', 405], ['POST', '/api/state?x=1', 405], ['PUT', '/api/controls', 405],
  ['GET', '/api/', 405], ['HEAD', '/api/state', 405],
  ['GET', '/api/state?x=1', 400], ['GET', '/api/state?', 400], ['POST', '/api/toggle?', 400],
  ['POST', '/api/duration?seconds=', 400], ['POST', '/api/duration?seconds=1234567', 400],
  ['POST', '/api/duration?seconds=+60', 400], ['POST', '/api/duration?seconds=-1', 400],
  ['POST', '/api/duration?seconds=6%30', 400], ['POST', '/api/duration?seconds=60&x=1', 400],
  ['POST', '/api/duration?Seconds=60', 400], ['POST', '/api/toggle?seconds=60', 400],
  ['POST', '/api/file?seconds=5', 400], ['POST', '/api/file?id=0123456789abcde', 400],
  ['POST', '/api/file?id=0123456789abcdeg', 400], ['POST', '/api/file?id=0123456789abcdef0', 400],
  ['POST', '/api/', 409, unknown], ['POST', '/api/nonsense', 409, unknown], ['POST', '/api/Toggle', 409, unknown],
  ['POST', '/api/state/', 409, unknown], ['POST', '/api/to%67gle', 409, unknown],
  ['POST', '/api/../toggle', 409, unknown],
  ['POST', '/api/duration', 409, badDuration], ['POST', '/api/duration?seconds=60000', 409, badDuration],
  ['POST', '/api/duration?seconds=600000', 409, badDuration],
  ['POST', '/api/duration?id=0123456789abcdef', 409, badDuration],
  ...['file', 'open-file', 'close-file', 'skip'].flatMap((word) => [
    ['POST', `/api/${word}`, 409, noFile], ['POST', `/api/${word}?id=ABCDEF0123456789`, 409, noFile]]),
  ['POST', '/api/black', 409, '当前没有可控制的放映，黑屏不适用于已排除的文稿。'],
];

const badHeads = [
  ['nothing but line ends', '\r\n\r\n'], ['no blank', 'GET\r\n\r\n'], ['one blank', 'GET /\r\nHost: 127.0.0.1\r\n\r\n'],
  ['bare line feeds', 'GET / HTTP/1.1\nHost: 127.0.0.1\n\n'], ['bytes of another protocol', '\x16\x03\x01\x02\x00\x01\x00'],
  ['8 KB without a line end', 'A'.repeat(8192)], ['a megabyte without a line end', 'A'.repeat(1 << 20)],
];

const lengths = ['', '0', '-2', '+10', '1e3', '8193', '9'.repeat(30), '10x', '1 0', '0x10', '10,10', '18446744073709551626'];

export function wireTests(start) {
  const { serviceTest } = testsOn(start);
  const text = (service, words) => words.replaceAll('PORT', service.port);
  const ask = (service, method, target, { host = 'localhost', more = '', body = '' } = {}) => exchange(service,
    [text(service, `${method} ${target} HTTP/1.1\r\n${host && `Host: ${host}\r\n`}${more}\r\n${body}`)]);
  /** Asserts that the requests in `body` change nothing. */
  const untouched = async (service, body) => {
    const before = await stateOf(service);
    await body();
    assert.deepEqual(await stateOf(service), before);
  };

  serviceTest('the head of every answer, byte for byte', async (service) => {
    const page = await ask(service, 'GET', '/');
    assert.ok(page.startsWith(head(200, 'text/html; charset=utf-8', Buffer.byteLength(bodyOf(page)))));
    const state = await ask(service, 'GET', '/api/state');
    assert.ok(state.startsWith(head(200, 'application/json; charset=utf-8', Buffer.byteLength(bodyOf(state)))));
    assert.equal(await ask(service, 'GET', '/nothing'), head(404, 'text/plain; charset=utf-8', 9) + 'Not found');
    const refusal = JSON.stringify({ error: unknown });
    assert.equal(await ask(service, 'POST', '/api/nothing'),
      head(409, 'application/json; charset=utf-8', Buffer.byteLength(refusal)) + refusal);
  });

  serviceTest('only the address on which a request came may be named, and only its own pages may ask', async (service) => {
    for (const target of ['/', '/api/state', '/nothing']) {
      for (const [status, host, origin] of hosts) {
        const answer = await ask(service, 'GET', target, { host, more: origin ? `Origin: ${origin}\r\n` : '' });
        const expected = status === 200 && target === '/nothing' ? 404 : status;
        assert.equal(statusOf(answer), expected, `${target} ${host} ${origin}`);
        if (expected in texts) assert.equal(bodyOf(answer), texts[expected]);
      }
    }
  });

  serviceTest('every route and every refusal', (service) => untouched(service, async () => {
    for (const [method, target, status, error] of routes) {
      const answer = await ask(service, method, target);
      assert.equal(statusOf(answer), status, `${method} ${target}`);
      if (status in texts) assert.equal(bodyOf(answer), texts[status], `${method} ${target}`);
      if (error) assert.equal(JSON.parse(bodyOf(answer)).error, error, `${method} ${target}`);
    }
  }));

  serviceTest('a head that is none is refused', (service) => untouched(service, async () => {
    for (const [name, bytes] of badHeads) {
      const answer = await exchange(service, [bytes]);
      // Unread bytes of a long request reset the connection, which may lose the answer.
      if (answer !== '' || bytes.length < 8192) assert.equal(statusOf(answer), 400, name);
    }
  }));

  serviceTest('a body of no proper length is refused', (service) => untouched(service, async () => {
    for (const length of lengths) {
      const more = length === '' ? '' : `Content-Length: ${length}\r\n`;
      const answer = await ask(service, 'POST', '/api/controls', { more, body: 'revision=0' });
      assert.equal(statusOf(answer), 400, length);
    }
    const chunked = await ask(service, 'POST', '/api/controls',
      { more: 'Transfer-Encoding: chunked\r\n', body: 'a\r\nrevision=0\r\n0\r\n\r\n' });
    assert.equal(statusOf(chunked), 400);
    const twice = await ask(service, 'POST', '/api/controls',
      { more: 'Content-Length: 0\r\nContent-Length: 10\r\n', body: 'revision=0' });
    assert.equal(statusOf(twice), 400, 'the first of two lengths counts');
  }));

  serviceTest('a form whose body ends too early is refused', (service) => untouched(service, async () => {
    const answer = await ask(service, 'POST', '/api/controls', { more: 'Content-Length: 11\r\n', body: 'revision=0' });
    assert.equal(statusOf(answer), 400);
  }));

  serviceTest('of two requests in one write the first is answered and the second not even run', async (service) => {
    await ask(service, 'POST', '/api/manual');
    const request = `POST /api/toggle HTTP/1.1\r\nHost: localhost\r\n\r\n`;
    const answer = await exchange(service, [request + request]);
    assert.equal(answer.match(/HTTP\/1\.1 /g).length, 1);
    assert.equal((await stateOf(service)).running, true);
  });

  serviceTest('a request may come byte by byte', async (service) => {
    const answer = await exchange(service, [...'GET /api/state HTTP/1.1\r\nhost: localhost\r\n\r\n']);
    assert.equal(statusOf(answer), 200);
  });

  serviceTest('a header cannot be smuggled in by a target', async (service) => {
    const answer = await ask(service, 'GET', '/%0d%0aSet-Cookie:%20a=b');
    assert.equal(answer, head(404, 'text/plain; charset=utf-8', 9) + 'Not found');
  });

  serviceTest('a peer that says nothing is answered, and the next one served', async (service) => {
    assert.equal(statusOf(await exchange(service, [])), 400);
    assert.equal(statusOf(await ask(service, 'GET', '/api/state')), 200);
  });

  serviceTest('the settings of the remote, each at once in the next state', async (service) => {
    for (const [word, key, value] of [['countup', 'down', false], ['countdown', 'down', true],
      ['duration?seconds=59999', 'duration', 59999], ['duration?seconds=0', 'duration', 0],
      ['manual', 'automatic', false], ['automatic', 'automatic', true], ['CtrlHalfHand', 'automatic', false],
      ['hide', 'visible', false], ['show', 'visible', true], ['SH', 'visible', false], ['visibility', 'visible', true]]) {
      const answer = await ask(service, 'POST', `/api/${word}`);
      assert.equal(statusOf(answer), 200, word);
      assert.equal(JSON.parse(bodyOf(answer))[key], value, word);
    }
    assert.match(JSON.parse(bodyOf(await ask(service, 'POST', '/api/clock-on'))).machineTime, /^\d\d:\d\d:\d\d$/);
    assert.equal(JSON.parse(bodyOf(await ask(service, 'POST', '/api/clock-off'))).machineTime, '');
  });

  serviceTest('the words that move the count', async (service) => {
    await ask(service, 'POST', '/api/manual');
    for (const [word, running, paused] of [['toggle', true, false], ['toggle', false, true], ['StartPause', true, false],
      ['pause', false, true], ['PR', true, false], ['reset', false, false], ['start-stop', true, false],
      ['StartStop', false, false], ['Reset', false, false]]) {
      const state = JSON.parse(bodyOf(await ask(service, 'POST', `/api/${word}`)));
      assert.deepEqual([state.running, state.paused], [running, paused], word);
    }
  });
}
