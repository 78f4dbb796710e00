// Measurable looks of the page: sizes, widths, contrast, focus, motion, and the file itself.
import assert from 'node:assert/strict';
import { readFile } from 'node:fs/promises';
import { createRequire } from 'node:module';
import { test } from 'node:test';
import { fileURLToPath } from 'node:url';
import { FileSystemConfigLoader, HtmlValidate } from 'html-validate';
import { nextPoll, outputFolder, pageTest, shows, until } from './browser.js';
import { pagePath, someFiles, someState } from './service_fake.js';

const axe = await readFile(createRequire(import.meta.url).resolve('axe-core/axe.min.js'), 'utf8');
const tags = ['wcag2a', 'wcag2aa', 'wcag21a', 'wcag21aa', 'wcag22aa'];
const themes = ['light', 'dark'];
const longName = { id: 'f'.repeat(16), name: '2026QuarterlyReviewWithoutAnySpaceInItsName_final_final_v12.pptx', skip: true };

/** The visually different states of the page, by the name of their picture. */
const views = {
  control: async () => {},
  overtime: async (page, service) => {
    service.state = someState({ time: '已超时 01:02:03', files: [...someFiles(), longName] });
    await nextPoll(page);
    await shows(page, '#clock', '已超时 01:02:03');
    await page.check('#keyboard-toggle');
    await page.evaluate(() => say('电脑有尚未完成的输入，请先修正或完成输入。'));
  },
  paused: async (page, service) => {
    service.state = someState({ running: false, paused: true, files: [] });
    await nextPoll(page);
    await shows(page, '#files', '文件夹中暂无演示文稿');
  },
  offline: async (page, service) => {
    service.refusal = 'gone';
    await page.clock.runFor(1000);
    await shows(page, '#connection', '断线重连');
  },
  settings: async (page, service) => {
    service.state.machineTime = '14:05:09';
    await nextPoll(page);
    await page.click('#settings-tab');
    await shows(page, '#advanced-status', '已加载电脑当前参数。');
  },
  advanced: async (page, service) => {
    await views.settings(page, service);
    await page.click('#advanced summary');
    await page.fill('[name=opacity]', '5');
  },
  pair: (page) => page.click('.connection'),
  failure: async (page, service) => {
    service.state.black = true;
    await nextPoll(page);
    service.refusal = { status: 503, type: 'text/plain; charset=utf-8',
      body: 'UI unavailable; command may be pending. Refresh state before retry.' };
    await page.click('[data-cmd=next]');
    await shows(page, '#message', service.refusal.body);
  },
};

function viewTest(view, title, options, body) {
  pageTest(`${view} ${title}`, { complaints: ['offline', 'failure'].includes(view), ...options }, async (page, service) => {
    await views[view](page, service);
    await body(page, service);
  });
}

async function assertNoSidewaysScrolling(page) {
  const [content, window_] = await page.evaluate(() =>
    [document.documentElement.scrollWidth, document.documentElement.clientWidth]);
  assert.ok(content <= window_, `content ${content} px, window ${window_} px`);
  const outside = await page.$$eval('body *', (elements) => elements
    .filter((element) => element.getBoundingClientRect().right > innerWidth + 0.5)
    .map((element) => element.outerHTML.slice(0, 80)));
  assert.deepEqual(outside, []);
}

/** Text that does not fit into its box is cut off or overlaps its neighbour. */
async function assertNothingCutOff(page) {
  // Some fonts let the blank half of a closing bracket hang over the end of a line; that would count.
  await page.evaluate(() => { document.documentElement.style.textSpacingTrim = 'space-all'; });
  const cut = await page.$$eval('button, h1, h2, h3, p, small, label, .status, #clock, summary', (elements) =>
    elements.filter((element) => element.checkVisibility() && element.scrollWidth > element.clientWidth + 1 &&
      getComputedStyle(element).display !== 'inline')
      .map((element) => element.outerHTML.slice(0, 80)));
  assert.deepEqual(cut, []);
}

async function doubleText(page) {
  const devtools = await page.context().newCDPSession(page);
  await devtools.send('Page.enable');
  await devtools.send('Page.setFontSizes', { fontSizes: { standard: 32, fixed: 26 } });
  assert.equal(await page.evaluate(() => getComputedStyle(document.documentElement).fontSize), '32px');
}

for (const view of Object.keys(views)) {
  viewTest(view, 'fits windows of 320 to 1280 px', {}, async (page) => {
    for (const width of [320, 360, 768, 900, 1280]) {
      await page.setViewportSize({ width, height: 844 });
      await assertNoSidewaysScrolling(page);
      await assertNothingCutOff(page);
    }
  });

  viewTest(view, 'fits with text at 200 %', {}, async (page) => {
    for (const width of [360, 768, 1280]) {
      await page.setViewportSize({ width, height: 2400 });
      await doubleText(page);
      await assertNoSidewaysScrolling(page);
      await assertNothingCutOff(page);
      await page.screenshot({ path: `${outputFolder}${view}-${width}-text200.png`, animations: 'disabled' });
    }
  });

  viewTest(view, 'has targets of at least 44 px', { width: 360 }, async (page) => {
    const targets = await page.$$eval('button, input, select, summary, a', (elements) => elements
      .filter((element) => element.checkVisibility())
      .map((element) => [element.getBoundingClientRect(), element.outerHTML.slice(0, 60)])
      .map(([{ width, height }, html]) => ({ width, height, html })));
    assert.ok(targets.length >= 3);
    assert.deepEqual(targets.filter(({ width, height }) => height < 44 || width < 44), []);
  });

  for (const theme of themes) {
    viewTest(view, `has no accessibility violation in the ${theme} theme, and its picture is taken`,
      { theme, reducedMotion: 'reduce', deviceScaleFactor: 2 }, async (page) => {
        await page.mouse.move(0, 0);
        await page.screenshot({ path: `${outputFolder}${view}-${theme}.png`,
          fullPage: ['advanced', 'control'].includes(view) });
        await page.clock.resume();  // axe needs running timers
        await page.evaluate(axe);
        const { violations, passes } = await page.evaluate((values) =>
          axe.run(document, { runOnly: { type: 'tag', values } }), tags);
        assert.deepEqual(violations.map(({ id, nodes }) =>
          [id, ...nodes.map((node) => node.failureSummary + node.html)]), []);
        const ran = passes.map(({ id }) => id);
        assert.ok(ran.includes('color-contrast') && ran.includes('target-size'), String(ran));
      });
  }
}

for (const theme of themes) {
  for (const view of ['control', 'settings', 'advanced']) {
    viewTest(view, `has its picture taken on a desktop in the ${theme} theme`, { theme, width: 1280, height: 860 },
      (page) => page.screenshot({ animations: 'disabled', path: `${outputFolder}${view}-desktop-${theme}.png` }));
  }

  pageTest(`every target shows a ring of enough contrast when it has the focus, in the ${theme} theme`, { theme },
    async (page) => {
      await page.check('#keyboard-toggle');
      for (const tab of ['control', 'timer', 'pair']) {
        await page.evaluate((name) => openTab(name), tab);
        if (tab === 'timer') {
          await until(async () => assert.ok(await page.$('.control-field')));
          await page.evaluate(() => { byId('advanced').open = true; });
        }
        await page.evaluate(() => { document.activeElement.blur(); scrollTo(0, 0); });
        const expected = await page.$$eval('button, input, select, summary', (elements) =>
          elements.filter((element) => element.checkVisibility() && !element.disabled).length);
        const seen = new Set();
        for (let step = 0; step < 2 * expected + 5; step++) {  // Tab starts from the last click
          await page.keyboard.press('Tab');
          const ring = await page.evaluate(() => {
            const element = document.activeElement;
            if (element === document.body) return null;
            element.dataset.step ??= String(Math.random());
            const { outlineStyle, outlineWidth, outlineColor } = getComputedStyle(element);
            const { top, bottom } = element.getBoundingClientRect();
            return { step: element.dataset.step, outlineStyle, outlineWidth, outlineColor,
              inSight: bottom > 0 && top < innerHeight };
          });
          if (!ring) continue;
          seen.add(ring.step);
          assert.deepEqual([ring.outlineStyle, ring.outlineWidth, ring.inSight], ['solid', '3px', true]);
          assert.equal(ring.outlineColor, theme === 'light' ? 'rgb(52, 124, 244)' : 'rgb(118, 170, 255)');
        }
        assert.equal(seen.size, expected, tab);
      }
    });
}

pageTest('nothing moves for those who do not want it', { reducedMotion: 'reduce', complaints: true },
  async (page, service) => {
    await page.click('[data-cmd=next]');
    service.refusal = 'gone';
    await page.clock.runFor(1000);
    await shows(page, '#connection', '断线重连');
    const moving = await page.$$eval('*', (elements) => elements.flatMap((element) =>
      ['', '::before', '::after'].map((part) => getComputedStyle(element, part)).filter((style) =>
        style.animationName !== 'none' || parseFloat(style.transitionDuration) > 0 || style.scrollBehavior === 'smooth')
        .map(() => element.outerHTML.slice(0, 60))));
    assert.deepEqual(moving, []);
  });

pageTest('for all others what went well fades away', { reducedMotion: 'no-preference', frozen: false },
  async (page) => {
    await page.click('[data-cmd=next]');
    await shows(page, '#message', '操作已完成');
    assert.equal(await page.$eval('.bubble', (bubble) => getComputedStyle(bubble).animationName), 'pass');
  });

for (const [width, size, longSize] of [[360, 55, 30.6], [800, 56, 52], [1000, 70, 40], [1280, 88, 51.2], [1600, 88, 52]]) {
  pageTest(`the clock has its size at ${width} px`, { width }, async (page, service) => {
    const sizeNow = () => page.$eval('#clock', (clock) => parseFloat(getComputedStyle(clock).fontSize));
    assert.ok(Math.abs(await sizeNow() - size) < 0.1, String(await sizeNow()));
    assert.match(await page.$eval('#clock', (clock) => getComputedStyle(clock).fontVariantNumeric), /tabular-nums/);
    service.state.time = '已超时 00:01';
    await nextPoll(page);
    await shows(page, '#clock', '已超时 00:01');
    assert.ok(Math.abs(await sizeNow() - longSize) < 0.1, String(await sizeNow()));
  });
}

for (const [width, columns, height, fileColumns] of [[360, 1, 190, 2], [899, 1, 190, 4], [900, 2, 230, 4], [1400, 2, 230, 4]]) {
  pageTest(`the layout at ${width} px has its columns`, { width }, async (page) => {
    const count = (selector) => page.$eval(selector, (grid) =>
      getComputedStyle(grid).gridTemplateColumns.split(' ').length);
    assert.equal(await count('#panel-control'), columns);
    assert.equal(await count('.file-actions'), fileColumns);
    assert.ok(await page.$eval('.clock-block', (block) => block.offsetHeight) >= height);
    assert.ok(await page.$eval('main', (main) => main.offsetWidth) <= 1180);
    assert.equal(await page.$eval('#files', (files) => files.scrollHeight <= files.clientHeight), true);
  });
}

pageTest('on a wide window the columns have their widths and their gap', { width: 1400 }, async (page) => {
  const [main, left, right, gap] = await page.$eval('#panel-control', (panel) => [panel.closest('main').offsetWidth,
    ...getComputedStyle(panel).gridTemplateColumns.split(' ').map(parseFloat),
    getComputedStyle(panel).columnGap]);
  assert.equal(main, 1180);
  assert.equal(gap, '22px');
  assert.ok(Math.abs(left / right - 0.95 / 1.05) < 0.001, `${left} ${right}`);
});

pageTest('the fonts are those of the system', {}, async (page) => {
  assert.equal(await page.$eval('body', (body) => getComputedStyle(body).fontFamily),
    '"Microsoft YaHei", "Segoe UI", system-ui, sans-serif');
  assert.deepEqual(await page.$$eval('button, input', (elements) =>
    [...new Set(elements.map((element) => getComputedStyle(element).fontFamily))].length), 1);
});

pageTest('buttons are at least 48 px high and the action buttons 56', {}, async (page) => {
  for (const tab of ['control', 'timer', 'pair']) {
    await page.evaluate((name) => { openTab(name); say('…'); }, tab);
    const small = await page.$$eval('button', (buttons) => buttons.filter((button) => button.checkVisibility() &&
      button.offsetHeight < (button.closest('.actions') ? 56 : 48)).map((button) => button.outerHTML));
    assert.deepEqual(small, [], tab);
  }
  assert.deepEqual(await page.$$eval('button', (buttons) =>
    [...new Set(buttons.map((button) => getComputedStyle(button).touchAction))]), ['manipulation']);
});

pageTest('the button for the duration has a row of its own on a small phone', { width: 380 }, async (page) => {
  const [button, row] = await page.$eval('#set-duration', (element) =>
    [element.offsetWidth, element.parentElement.clientWidth]);
  assert.equal(button, row);
});

const variables = {
  light: { ink: '#101c38', muted: '#71809a', blue: '#347cf4', green: '#2da865', red: '#ff5155', line: '#e1e8f2', surface: '#fff', page: '#f2f6fb' },
  dark: { ink: '#e6edf7', muted: '#a4b3c7', blue: '#76aaff', green: '#218866', red: '#b64f59', line: '#34445a', surface: '#182535', page: '#101a27' },
};
for (const theme of themes) {
  pageTest(`the ${theme} theme has its colours`, { theme }, async (page) => {
    const found = await page.evaluate((names) => Object.fromEntries(names.map((name) =>
      [name, getComputedStyle(document.documentElement).getPropertyValue('--' + name).trim()])),
    Object.keys(variables[theme]));
    assert.deepEqual(found, variables[theme]);
  });
}

pageTest('the page declares its icons and has no other', {}, async (page) => {
  assert.deepEqual(await page.$$eval('symbol', (symbols) => symbols.map(({ id }) => id)), ['i-clock', 'i-settings',
    'i-play', 'i-stop', 'i-left', 'i-right', 'i-moon', 'i-sun', 'i-eye', 'i-bolt']);
  assert.equal(await page.$$eval('use', (uses) =>
    uses.every((use) => document.querySelector(use.getAttribute('href')))), true);
});

pageTest('the page asks for nothing beyond its own origin', { frozen: false }, async (page, service) => {
  await page.click('#settings-tab');
  await shows(page, '#advanced-status', '已加载电脑当前参数。');
  assert.ok(page.asked.length >= 3);
  assert.deepEqual(page.asked.filter((url) => new URL(url).origin !== service.origin), []);
  assert.deepEqual([...new Set(service.requests.map(({ path }) => path))].sort(), ['/', '/api/controls', '/api/state']);
});

pageTest('a visit fetches the page once and nothing beside it', {}, async (page, service) => {
  await nextPoll(page);
  assert.equal(await page.$$eval('link', (links) => links.length), 0);
  assert.deepEqual(service.requests.map(({ path }) => path).filter((path) => path !== '/api/state'), ['/']);
});

test('the file is UTF-8 with a byte-order mark, small, and names no other place', async () => {
  const bytes = await readFile(pagePath);
  assert.deepEqual([...bytes.subarray(0, 3)], [0xef, 0xbb, 0xbf]);
  assert.ok(bytes.length <= 48 * 1024, `${bytes.length} bytes`);
  const text = new TextDecoder('utf-8', { fatal: true }).decode(bytes);
  assert.doesNotMatch(text, /https?:|url\(|@import|<img|<script src|<link rel="stylesheet/);
});

test('html-validate finds nothing', async () => {
  const folder = fileURLToPath(new URL('.', import.meta.url));
  const validator = new HtmlValidate(new FileSystemConfigLoader({ ...JSON.parse(await readFile(folder + '.htmlvalidate.json', 'utf8')) }));
  const report = await validator.validateFile(fileURLToPath(pagePath));
  assert.deepEqual(report.results.flatMap(({ messages }) => messages), []);
});
