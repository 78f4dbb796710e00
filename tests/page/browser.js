// Chromium as the tests use it, and the test that opens the page in it beside a model of the service.
import assert from 'node:assert/strict';
import { mkdir } from 'node:fs/promises';
import { after, test } from 'node:test';
import { fileURLToPath } from 'node:url';
import { chromium } from 'playwright-core';
import { ServiceFake } from './service_fake.js';

export const outputFolder = fileURLToPath(new URL('../../build/page/', import.meta.url));

/** `names` maps host names to addresses, as a name server would. */
export async function launch(names = '') {
  await mkdir(outputFolder, { recursive: true });
  return chromium.launch({
    executablePath: '/usr/bin/chromium',
    args: ['--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run',
      '--disable-background-networking', '--disable-component-update', '--disable-sync',
      ...(names ? [`--host-resolver-rules=${names}`] : [])],
  });
}

// Browsers look for an icon by themselves where a page names none.
const isIcon = (url) => url.endsWith('/favicon.ico');

/**
 * A visit in a context of its own. `page.said` grows with the console, `page.asked` with the requests.
 * With `frozen` the page's clock stands still, so that polls come only where a test lets it run.
 */
export async function visit(browser, origin, {
  path = '/', theme, width = 390, height = 844, frozen = true, before, ...options
} = {}) {
  const context = await browser.newContext({
    viewport: { width, height }, locale: 'zh-CN', baseURL: origin, ...options,
  });
  const page = await context.newPage();
  page.setDefaultTimeout(15_000);
  page.said = [];
  page.asked = [];
  page.on('console', (message) => {
    if (!isIcon(message.location().url)) page.said.push(message.text());
  });
  page.on('pageerror', (error) => page.said.push(String(error)));
  page.on('request', (request) => page.asked.push(request.url()));
  if (frozen) {
    await page.clock.install({ time: 1e12 });
    await page.clock.pauseAt(1e12 + 1000);
  }
  if (theme) await page.addInitScript((name) => localStorage.setItem('marlune-theme', name), theme);
  if (before) await page.addInitScript(before);
  await page.goto(path);
  return page;
}

let shared;

/** One browser for all tests of a file; it goes with the last of them. */
export function sharedBrowser() {
  shared ??= launch();
  return shared;
}

after(async () => (await shared)?.close());

/**
 * A test on the connected page. `prepare` gets the service before the visit, `complaints` allows for
 * what the browser itself writes to the console about requests that failed; the rest goes to `visit`.
 */
export function pageTest(name, { prepare, complaints = false, waits = true, ...options }, body) {
  test(name, { timeout: 30_000 }, async () => {
    const service = await new ServiceFake().start();
    prepare?.(service);
    const page = await visit(await sharedBrowser(), service.origin, options);
    try {
      if (waits) await shows(page, '#connection', '已连接');
      await body(page, service);
      if (!complaints) assert.deepEqual(page.said, []);
    } finally {
      await page.context().close();
      await service.close();
    }
  });
}

/** Waits until `selector` has exactly this text. */
export async function shows(page, selector, text) {
  await until(async () => assert.equal(await page.textContent(selector), text));
}

/** Repeats `attempt` until it no longer throws; after its time its last error stands. */
export async function until(attempt, limitMs = 10_000) {
  const end = Date.now() + limitMs;
  for (;;) {
    try {
      return await attempt();
    } catch (error) {
      if (Date.now() > end) throw error;
      await new Promise((resolve) => setTimeout(resolve, 20));
    }
  }
}

/** Lets the page's clock run to the next poll, and waits until its answer is there. */
export async function nextPoll(page) {
  const answer = page.waitForEvent('requestfinished', (request) => request.url().endsWith('/api/state'));
  await page.clock.runFor(1000);
  await answer;
}

export const isDisabled = (page, selector) => page.$eval(selector, (element) => element.disabled);
