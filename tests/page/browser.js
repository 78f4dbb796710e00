// Launches Chromium for the tests, and runs tests on the page with the fake service.
import assert from 'node:assert/strict';
import { mkdir } from 'node:fs/promises';
import { after, test } from 'node:test';
import { fileURLToPath } from 'node:url';
import { chromium } from 'playwright-core';
import { ServiceFake } from './service_fake.js';

export const outputFolder = fileURLToPath(new URL('../../build/page/', import.meta.url));

/** `names` maps host names to addresses, like a DNS server. */
export async function launch(names = '') {
  await mkdir(outputFolder, { recursive: true });
  return chromium.launch({
    executablePath: '/usr/bin/chromium-headless-shell',
    args: ['--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run',
      '--disable-background-networking', '--disable-component-update', '--disable-sync',
      ...(names ? [`--host-resolver-rules=${names}`] : [])],
  });
}

// Browsers request an icon by themselves if the page names none.
const isIcon = (url) => url.endsWith('/favicon.ico');

/**
 * Opens the page in a context of its own. Collects console messages in `page.said` and requests in
 * `page.asked`. With `frozen` the page's time stops: it polls only when the test advances time.
 */
export async function visit(browser, origin, {
  path = '/', theme, width = 390, height = 844, frozen = true, before, ...options
} = {}) {
  const context = await browser.newContext({
    viewport: { width, height }, locale: 'zh-CN', baseURL: origin, ...options,
  });
  const page = await context.newPage();
  page.setDefaultTimeout(30_000);
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

/** One browser for all tests of a file; closed after the last one. */
export function sharedBrowser() {
  shared ??= launch();
  return shared;
}

after(async () => (await shared)?.close());

/**
 * A test on the connected page. `prepare` receives the service before the visit; `complaints`
 * permits the browser's own console messages about failed requests; the rest is passed to `visit`.
 */
export function pageTest(name, { prepare, complaints = false, waits = true, ...options }, body) {
  test(name, { timeout: 90_000 }, async () => {
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

/** Repeats `attempt` until it no longer throws; on time-out throws its last error. */
export async function until(attempt, limitMs = 30_000) {
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

/** Advances the page's time to the next poll and waits for its answer. */
export async function nextPoll(page) {
  const answer = page.waitForEvent('requestfinished', (request) => request.url().endsWith('/api/state'));
  await page.clock.runFor(1000);
  await answer;
}

export const isDisabled = (page, selector) => page.$eval(selector, (element) => element.disabled);
