// The page on a real service, attacks by pages of other origins (all refused), and the service's
// answers byte by byte. The same tests run on the headless program and on the real one.
import assert from 'node:assert/strict';
import { readFile } from 'node:fs/promises';
import { createServer } from 'node:http';
import { once } from 'node:events';
import { test } from 'node:test';
import { launch, sharedBrowser, shows, until, visit } from './browser.js';
import { pagePath, someState, someValues } from './service_fake.js';

const kBusy = 503;

/** Sends a request to the service directly, without a page. */
async function ask(service, path, method = 'GET') {
  const answer = await fetch(service.origin + path, { method });
  if (answer.status === kBusy) service.wasBusy = true;
  return answer;
}
export const stateOf = async (service) => (await ask(service, '/api/state')).json();
export const controlsOf = async (service) => (await ask(service, '/api/controls')).json();

/** Sets `wasBusy` if the computer did not answer in time: a 503, or a request the page aborted. */
function noteBusy(page, service) {
  page.on('response', (answer) => {
    if (answer.status() === kBusy) service.wasBusy = true;
  });
  page.on('requestfailed', (request) => {
    if (request.failure().errorText === 'net::ERR_ABORTED') service.wasBusy = true;
  });
}

/**
 * Functions that declare tests on a service; `start` starts a separate one for each test. A test
 * that fails after the service was busy, as on a loaded machine, is retried from its start.
 */
export function testsOn(start) {
  const serviceTest = (name, body) => test(name, { timeout: 180_000 }, async () => {
    for (let triesLeft = 2; ; --triesLeft) {
      const service = await start();
      try {
        return await body(service);
      } catch (error) {
        if (!service.wasBusy || triesLeft === 0) throw error;
      } finally {
        await service.close();
      }
    }
  });

  /** A test on the connected page, in real time unless `frozen`. */
  const remoteTest = (name, { complaints = false, path = '/', files = [], frozen = false }, body) =>
    serviceTest(name, async (service) => {
      for (const file of files) await service.add(file);
      const page = await visit(await sharedBrowser(), service.origin, { path, frozen });
      noteBusy(page, service);
      try {
        await shows(page, '#connection', '已连接');
        await body(page, service);
        if (!complaints) assert.deepEqual(page.said, []);
      } finally {
        await page.context().close();
      }
    });
  return { serviceTest, remoteTest };
}

// Pages of other origins.

/** Serves `html` from another origin. */
async function withForeignPage(html, body) {
  const server = createServer((request, response) => {
    response.setHeader('Content-Type', 'text/html; charset=utf-8');
    response.end(html);
  });
  server.listen(0, '127.0.0.1');
  await once(server, 'listening');
  try {
    await body(server.address().port);
  } finally {
    server.closeAllConnections();
    server.close();
  }
}

const attacks = {
  'a fetch that wants no answer': (page, target) => page.evaluate(
    (url) => fetch(url, { method: 'POST', mode: 'no-cors' }).then(() => 'sent'), target + '/api/toggle'),
  'a fetch that wants the answer': (page, target) => page.evaluate(
    (url) => fetch(url, { method: 'POST' }).then(() => 'read', () => 'blocked'), target + '/api/toggle'),
  'a beacon': (page, target) => page.evaluate(
    (url) => navigator.sendBeacon(url, 'revision=0'), target + '/api/controls'),
  'a form': async (page, target) => {
    await page.setContent(`<form method="post" action="${target}/api/toggle"></form>`);
    await submitForm(page.mainFrame());
  },
  'a form without an origin': async (page, target) => {
    await page.setContent(`<iframe sandbox="allow-scripts allow-forms" srcdoc='
      <form method="post" action="${target}/api/toggle"></form>'></iframe>`);
    await submitForm(page.frames()[1]);  // not by its own script: the frame must be watched first
  },
};

const submitForm = (frame) => frame.$eval('form', (form) => form.submit());

export function anyService(start) {
  const { serviceTest, remoteTest } = testsOn(start);

  for (const [name, attack] of Object.entries(attacks)) {
    serviceTest(`${name} from a page of another place is refused`, async (service) => {
      await withForeignPage('<body>', async (port) => {
        const before = await stateOf(service);
        const page = await visit(await sharedBrowser(), `http://127.0.0.1:${port}`, { frozen: false });
        // A response that the browser blocks has no status to check.
        const statuses = [];
        page.on('response', (response) => statuses.push(response.status()));
        const over = Promise.race(['response', 'requestfailed'].map((event) =>
          page.waitForEvent(event, (one) => one.url().startsWith(service.origin))));
        await attack(page, service.origin).catch(() => {});  // some navigate away
        await over;
        assert.deepEqual(statuses.filter((status) => status !== 403), []);
        assert.deepEqual({ ...await stateOf(service), time: '' }, { ...before, time: '' });
        await page.context().close();
      });
    });
  }

  serviceTest('a page of another place cannot read the state', async (service) => {
    await withForeignPage('<body>', async (port) => {
      const page = await visit(await sharedBrowser(), `http://127.0.0.1:${port}`, { frozen: false });
      const read = await page.evaluate((target) => fetch(target + '/api/state').then(() => 'read', () => 'blocked'),
        service.origin);
      assert.equal(read, 'blocked');
      await page.context().close();
    });
  });

  serviceTest('a page of another place cannot show the remote in a frame', async (service) => {
    await withForeignPage(`<iframe src="${service.origin}/"></iframe>`, async (port) => {
      const page = await visit(await sharedBrowser(), `http://127.0.0.1:${port}`, { frozen: false });
      await until(async () => assert.ok(page.said.some((text) => text.includes('frame-ancestors')), String(page.said)));
      assert.equal(await page.frames()[1]?.$('#panel-control') ?? null, null);
      await page.context().close();
    });
  });

  serviceTest('a name that was turned to the service gets no page and drives nothing', async (service) => {
    const browser = await launch('MAP rebound.example 127.0.0.1');
    try {
      const own = `http://rebound.example:${service.port}`;
      const page = await visit(browser, own, { frozen: false });
      assert.equal(await page.textContent('body'), 'Invalid request origin');
      // Simulates a script that was loaded before the name was rebound; it has this same origin.
      const statuses = await page.evaluate(() => Promise.all([
        fetch('/api/state'), fetch('/api/controls'), fetch('/api/toggle', { method: 'POST' }),
      ]).then((answers) => answers.map(({ status }) => status)));
      assert.deepEqual(statuses, [403, 403, 403]);
    } finally {
      await browser.close();
    }
  });

  // The page on its own origin.

  serviceTest('the page is served byte for byte', async (service) => {
    const answer = await fetch(service.origin + '/');
    assert.equal(answer.status, 200);
    assert.deepEqual(Buffer.from(await answer.arrayBuffer()), await readFile(pagePath));
  });

  serviceTest('the model of the service in these tests answers with the same keys', async (service) => {
    await service.add('one.pptx');
    const state = await stateOf(service);
    assert.deepEqual(Object.keys(state), Object.keys(someState()));
    assert.deepEqual(Object.keys(state.files[0]), Object.keys(someState().files[0]));
    const controls = await controlsOf(service);
    assert.deepEqual(Object.keys(controls), ['revision', 'values']);
    assert.deepEqual(Object.keys(controls.values).sort(), Object.keys(someValues()).sort());
  });

  remoteTest('a whole visit leaves the console empty and asks for nothing elsewhere',
    { path: '/#0123456789abcdef0123456789abcdef', files: ['一.pptx'] }, async (page, service) => {
      await page.click('[data-cmd=toggle]');
      await shows(page, '#message', '操作已完成');
      await page.click('#settings-tab');
      await shows(page, '#advanced-status', '已加载电脑当前参数。');
      await page.click('.connection');
      await page.click('#theme-toggle');
      await page.click('#back-control');
      await page.click('#refresh-status');
      await shows(page, '#message', '连接成功');
      assert.equal(page.url(), service.origin + '/');
      assert.deepEqual(page.asked.filter((url) => new URL(url).origin !== service.origin), []);
    });

  remoteTest('every command of the page is known to the service', { files: ['一.pptx'], complaints: true },
    async (page, service) => {
      const words = await page.$$eval('[data-cmd], [data-file]', (buttons) => [...new Set(buttons.map(({ dataset }) =>
        dataset.cmd ?? dataset.file.split(' ')[0]))]);
      assert.equal(words.length, 20);
      for (const word of words) {
        const answer = await ask(service, '/api/' + word, 'POST');
        assert.ok([200, 409].includes(answer.status), word);
        assert.notEqual((await answer.json()).error, '未知操作。', word);
      }
    });

  remoteTest('the timer is started and paused from the page', {}, async (page, service) => {
    await ask(service, '/api/manual', 'POST');  // there is no show to follow
    await page.click('[data-cmd=toggle]');
    await shows(page, '[data-cmd=toggle] .button-label', '暂停');
    assert.equal((await stateOf(service)).running, true);
    await page.click('[data-cmd=toggle]');
    await shows(page, '[data-cmd=toggle] .button-label', '开始 / 继续');
    assert.equal((await stateOf(service)).paused, true);
  });

  remoteTest('the longest duration is set from the page', {}, async (page, service) => {
    await page.fill('#minutes', '999');
    await page.fill('#seconds', '59');
    await page.click('#set-duration');
    await shows(page, '#message', '操作已完成');
    assert.equal((await stateOf(service)).duration, 59999);
  });

  remoteTest('files come and go in the list, and can be skipped', { files: ['一.pptx', '二 & "三".pptx'] },
    async (page, service) => {
      const names = () => page.$$eval('#files h3', (found) => found.map(({ textContent }) => textContent).sort());
      await until(async () => assert.deepEqual(await names(), ['一.pptx', '二 & "三".pptx'].sort()));
      await page.click('#files article:first-child .file-skip');
      await shows(page, '#files article:first-child .status', '跳过计时');
      assert.equal((await stateOf(service)).files[0].skip, true);
      await service.remove('一.pptx');
      await until(async () => assert.deepEqual(await names(), ['二 & "三".pptx']));
    });

  remoteTest('a command of the page leaves its form ready for the next edit', {}, async (page, service) => {
    const { values } = await controlsOf(service);
    await page.click('#settings-tab');
    await shows(page, '#advanced-status', '已加载电脑当前参数。');
    await page.click('#advanced summary');
    await page.click(values.down ? '[data-cmd=countup]' : '[data-cmd=countdown]');
    await until(async () => assert.equal(await page.isChecked('[name=down]'), !values.down));
    await page.setChecked('[name=perSlide]', !values.perSlide);
    await shows(page, '#advanced-status', '设置已自动保存并生效。');
    const { values: after } = await controlsOf(service);
    assert.deepEqual([after.down, after.perSlide], [!values.down, !values.perSlide]);
  });

  remoteTest('a number that only a browser understands does not keep others from being saved', {},
    async (page, service) => {
      const { values } = await controlsOf(service);
      await page.click('#settings-tab');
      await shows(page, '#advanced-status', '已加载电脑当前参数。');
      await page.click('#advanced summary');
      await page.fill('[name=opacity]', '5e1');
      await page.setChecked('[name=perSlide]', !values.perSlide);
      await shows(page, '#advanced-status', '有效设置已生效；请修正无效输入。');
      assert.equal((await controlsOf(service)).values.perSlide, !values.perSlide);
    });

  remoteTest('a setting is changed from the page, and a stale draft is refused and kept', { complaints: true },
    async (page, service) => {
      const { values } = await controlsOf(service);
      await page.click('#settings-tab');
      await shows(page, '#advanced-status', '已加载电脑当前参数。');
      await page.click('#advanced summary');
      await page.setChecked('[name=perSlide]', !values.perSlide);
      await shows(page, '#advanced-status', '设置已自动保存并生效。');
      assert.equal((await controlsOf(service)).values.perSlide, !values.perSlide);

      await page.fill('[name=opacity]', '55');
      await shows(page, '#advanced-status', '设置已自动保存并生效。');
      await ask(service, '/api/duration?seconds=77', 'POST');
      await page.setChecked('[name=hideZero]', !values.hideZero);
      await shows(page, '#advanced-status', '电脑设置已更新。遥控端草稿已保留，请重新加载后确认。 输入已保留。');
      assert.equal(await page.isChecked('[name=hideZero]'), !values.hideZero);
      assert.equal((await controlsOf(service)).values.hideZero, values.hideZero);
    });
}
