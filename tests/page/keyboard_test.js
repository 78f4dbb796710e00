// Keyboard shortcuts, theme, and navigation between the panels.
import assert from 'node:assert/strict';
import { nextPoll, pageTest, shows, until } from './browser.js';

const hint = '请选择不与翻页冲突的单个按键';
const stored = (page, key) => page.evaluate((name) => localStorage.getItem(name), key);
const theme = (page) => page.evaluate(() => document.documentElement.dataset.theme);

async function turnOn(page) {
  await page.check('#keyboard-toggle');
  await page.evaluate(() => document.activeElement.blur());
}

async function press(page, key, service, cmd) {
  const before = service.commands().length;
  await page.keyboard.press(key);
  await until(async () => {
    assert.equal(service.commands().length, before + 1, key);
    assert.equal(await page.evaluate(() => busy), false);
  });
  assert.equal(service.commands().at(-1), cmd, key);
}

/** Expects that the keys send nothing: a request would arrive before the command that follows. */
async function pressInVain(page, keys, service) {
  for (const key of keys) await page.keyboard.press(key);
  await page.evaluate(() => new Promise((resolve) => { fetch('/api/state').then(resolve); }));
  assert.deepEqual(service.commands(), []);
}

const everyKey = ['ArrowLeft', 'ArrowRight', 'ArrowUp', 'ArrowDown', 'PageUp', 'PageDown', 'Space', 'Enter',
  'Escape', 'F5'];

pageTest('each key has its command while the shortcuts are on', {}, async (page, service) => {
  await turnOn(page);
  for (const [key, cmd] of Object.entries({
    ArrowLeft: 'previous', ArrowUp: 'previous', PageUp: 'previous', ArrowRight: 'next', ArrowDown: 'next',
    PageDown: 'next', Space: 'next', Enter: 'next', Escape: 'exit', F5: 'current',
  })) {
    await press(page, key, service, cmd);
  }
});

pageTest('the shortcuts work right after a tap on their switch, and nothing moves', { height: 700 }, async (page, service) => {
  await page.$eval('#keyboard-toggle', (toggle) => toggle.scrollIntoView({ block: 'end' }));
  const top = await page.evaluate(() => scrollY);
  await page.click('#keyboard-toggle');
  assert.deepEqual(await page.evaluate(() => [document.activeElement.tagName, scrollY]), ['BODY', top]);
  await press(page, 'ArrowRight', service, 'next');
});

for (const selector of ['[data-cmd=previous]', '#theme-toggle', '#keyboard-record', '.file-play']) {
  pageTest(`the shortcuts work right after a tap on ${selector}`, {}, async (page, service) => {
    await page.click('#keyboard-toggle');
    await page.click(selector);
    if (selector === '#keyboard-record') await page.keyboard.press('Escape');
    await until(async () => assert.equal(await page.evaluate(() => busy), false));
    await press(page, 'ArrowRight', service, 'next');
  });
}

pageTest('the shortcuts work right after a tap on the way back', {}, async (page, service) => {
  await page.click('#keyboard-toggle');
  await page.click('#settings-tab');
  await page.click('#back-control');
  await press(page, 'ArrowRight', service, 'next');
});

pageTest('a box that one taps to type keeps its keys', {}, async (page, service) => {
  await page.click('#keyboard-toggle');
  await page.click('#minutes');
  await pressInVain(page, ['ArrowLeft', 'Escape'], service);
});

pageTest('a button that was reached by keyboard keeps the focus and its keys', {}, async (page, service) => {
  await page.click('#keyboard-toggle');
  await page.focus('[data-cmd=previous]');
  await press(page, 'Enter', service, 'previous');
  await until(async () => assert.equal(await page.evaluate(() => document.activeElement.dataset.cmd), 'previous'));
  await page.keyboard.press('ArrowRight');
  await page.evaluate(() => fetch('/api/state').then(() => {}));
  assert.deepEqual(service.commands(), ['previous']);
});

pageTest('switched on by keyboard, the shortcuts work and their help has the focus', {}, async (page, service) => {
  await page.focus('#keyboard-toggle');
  await page.keyboard.press('Space');
  assert.equal(await page.evaluate(() => document.activeElement.id), 'keyboard-options');
  await press(page, 'ArrowRight', service, 'next');
  await page.keyboard.press('Shift+Tab');
  assert.equal(await page.evaluate(() => document.activeElement.id), 'keyboard-toggle');
  await page.keyboard.press('Space');
  assert.equal(await page.evaluate(() => document.activeElement.id), 'keyboard-toggle');
});

pageTest('a key that is a command does nothing else', {}, async (page, service) => {
  await turnOn(page);
  await press(page, 'PageDown', service, 'next');
  assert.equal(await page.evaluate(() => scrollY), 0);
});

pageTest('no key does anything before the shortcuts are turned on', {},
  (page, service) => pressInVain(page, everyKey.filter((key) => key !== 'F5'), service));

pageTest('no key does anything on another panel', {}, async (page, service) => {
  await turnOn(page);
  await page.click('#settings-tab');
  await page.evaluate(() => document.activeElement.blur());
  await pressInVain(page, ['ArrowLeft', 'PageDown', 'Escape'], service);
});

pageTest('no key does anything without a connection', { complaints: true }, async (page, service) => {
  await turnOn(page);
  service.refusal = 'gone';
  await page.clock.runFor(1000);
  await shows(page, '#connection', '断线重连');
  service.refusal = null;
  await pressInVain(page, ['ArrowLeft', 'PageDown', 'Escape'], service);
  assert.equal(await page.evaluate(() => document.body.dispatchEvent(
    new KeyboardEvent('keydown', { key: 'PageDown', bubbles: true, cancelable: true }))), true);  // still scrolls
});

pageTest('a key with a modifier does nothing', {}, async (page, service) => {
  await turnOn(page);
  const keys = ['Control', 'Alt', 'Meta', 'Shift'].map((modifier) => `${modifier}+ArrowDown`);
  await pressInVain(page, keys, service);
});

pageTest('a key that is held down counts once', {}, async (page, service) => {
  await turnOn(page);
  await press(page, 'ArrowRight', service, 'next');
  await page.evaluate(() => document.body.dispatchEvent(
    new KeyboardEvent('keydown', { key: 'ArrowRight', repeat: true, bubbles: true })));
  await page.evaluate(() => fetch('/api/state').then(() => {}));
  assert.deepEqual(service.commands(), ['next']);
});

for (const markup of ['<input>', '<textarea></textarea>', '<select><option>1</select>',
  '<button type="button">1</button>', '<p contenteditable>1</p>', '<p contenteditable="true">1</p>']) {
  pageTest(`keys pressed within ${markup} are no shortcuts`, {}, async (page, service) => {
    await turnOn(page);
    await page.$eval('#panel-control', (panel, html) => panel.insertAdjacentHTML('beforeend', html), markup);
    await page.focus('#panel-control > :last-child');
    await pressInVain(page, ['ArrowRight', 'Escape', 'Space'], service);
  });
}

pageTest('what is marked as not editable takes shortcuts', {}, async (page, service) => {
  await turnOn(page);
  await page.$eval('#panel-control', (panel) =>
    panel.insertAdjacentHTML('beforeend', '<p contenteditable="false" tabindex="0">1</p>'));
  await page.focus('#panel-control > :last-child');
  await press(page, 'ArrowRight', service, 'next');
});

pageTest('another key can be recorded, is stored, and matches in any case', {}, async (page, service) => {
  await page.check('#keyboard-toggle');
  await shows(page, '#keyboard-record', 'F5');
  await page.click('#keyboard-record');
  await shows(page, '#keyboard-record', '请按快捷键');
  await page.keyboard.press('Enter');
  await shows(page, '#message', hint);
  await page.keyboard.press('b');
  await shows(page, '#keyboard-record', 'b');
  await shows(page, '#message', '');
  assert.equal(await stored(page, 'marlune-keyboard-key'), 'b');
  await page.evaluate(() => document.activeElement.blur());
  await press(page, 'b', service, 'current');
  await press(page, 'B', service, 'current');
});

pageTest('the stored key is there again at the next visit',
  { before: () => localStorage.setItem('marlune-keyboard-key', 'q') }, async (page, service) => {
    assert.equal(await page.isChecked('#keyboard-toggle'), false);  // on or off is not stored
    assert.equal(await page.isVisible('#keyboard-options'), false);
    await turnOn(page);
    await shows(page, '#keyboard-record', 'q');
    await press(page, 'q', service, 'current');
  });

pageTest('a stored key beats the fixed meaning of that key',
  { before: () => localStorage.setItem('marlune-keyboard-key', 'PageDown') }, async (page, service) => {
    await turnOn(page);
    await press(page, 'PageDown', service, 'current');
  });

pageTest('keys that turn pages and keys with a modifier are refused, and recording goes on', {}, async (page) => {
  await page.check('#keyboard-toggle');
  await page.click('#keyboard-record');
  for (const key of ['Tab', 'Enter', 'Space', 'ArrowLeft', 'ArrowRight', 'ArrowUp', 'ArrowDown', 'PageUp',
    'PageDown', 'Control+b', 'Alt+b', 'Shift+b']) {
    await page.$eval('#message', (line) => line.replaceChildren());
    await page.keyboard.press(key);
    await shows(page, '#message', hint);
    await shows(page, '#keyboard-record', '请按快捷键');
  }
  assert.equal(await stored(page, 'marlune-keyboard-key'), null);
});

pageTest('Escape ends recording and changes nothing', {}, async (page, service) => {
  await page.check('#keyboard-toggle');
  await page.click('#keyboard-record');
  await page.keyboard.press('Escape');
  await shows(page, '#keyboard-record', 'F5');
  assert.equal(await stored(page, 'marlune-keyboard-key'), null);
  assert.deepEqual(service.commands(), []);
});

pageTest('turning the shortcuts off ends recording and hides the options', {}, async (page) => {
  await page.check('#keyboard-toggle');
  await page.click('#keyboard-record');
  await page.uncheck('#keyboard-toggle');
  assert.equal(await page.evaluate(() => recordingKey), false);
  assert.equal(await page.isVisible('#keyboard-options'), false);
});

pageTest('leaving the panel ends recording, so that typing elsewhere works', {}, async (page) => {
  await page.check('#keyboard-toggle');
  await page.click('#keyboard-record');
  await page.click('#settings-tab');
  assert.equal(await page.evaluate(() => recordingKey), false);
});

// Theme.

pageTest('the theme is light at first, and the switch says what it would do', {}, async (page) => {
  const attributes = () => page.$eval('#theme-toggle', (toggle) => [toggle.title, toggle.ariaLabel,
    toggle.ariaPressed, toggle.querySelector('use').getAttribute('href')]);
  assert.equal(await theme(page), 'light');
  assert.deepEqual(await attributes(), ['切换暗色模式', '切换暗色模式', 'false', '#i-moon']);
  await page.click('#theme-toggle');
  assert.equal(await theme(page), 'dark');
  assert.deepEqual(await attributes(), ['切换浅色模式', '切换浅色模式', 'true', '#i-sun']);
  assert.equal(await stored(page, 'marlune-theme'), 'dark');
  await page.click('#theme-toggle');
  assert.equal(await theme(page), 'light');
  assert.equal(await stored(page, 'marlune-theme'), 'light');
});

pageTest('the stored theme is there before anything is painted', { theme: 'dark' }, async (page) => {
  assert.equal(await theme(page), 'dark');
  assert.equal(await page.evaluate(() => document.head.querySelector('script') !== null), true);
  await page.reload();
  assert.equal(await theme(page), 'dark');
});

pageTest('a theme that is neither dark nor light counts as light', { theme: 'sepia' },
  async (page) => assert.equal(await theme(page), 'light'));

pageTest('a browser that refuses to write still changes the theme',
  { before: () => { Storage.prototype.setItem = () => { throw new Error('full'); }; } }, async (page) => {
    await page.click('#theme-toggle');
    assert.equal(await theme(page), 'dark');
  });

pageTest('a browser that refuses its storage altogether still drives the show',
  {
    complaints: true,
    before: () => Object.defineProperty(window, 'localStorage', { get() { throw new Error('denied'); } }),
  }, async (page, service) => {
    await page.click('#theme-toggle');
    assert.equal(await theme(page), 'dark');
    await page.click('[data-cmd=next]');
    await shows(page, '#message', '操作已完成');
    assert.deepEqual(service.commands(), ['next']);
    await nextPoll(page);
  });

// Panels.

pageTest('each tab shows its panel alone, with the way back', {}, async (page) => {
  const seen = async () => {
    const shown = [];
    for (const id of ['panel-control', 'panel-timer', 'panel-pair', 'settings-tab', 'back-control']) {
      if (await page.isVisible('#' + id)) shown.push(id);
    }
    return shown;
  };
  assert.deepEqual(await seen(), ['panel-control', 'settings-tab']);
  await page.click('#settings-tab');
  assert.deepEqual(await seen(), ['panel-timer', 'back-control']);
  await page.click('.connection');
  assert.deepEqual(await seen(), ['panel-pair', 'back-control']);
  await page.click('#back-control');
  assert.deepEqual(await seen(), ['panel-control', 'settings-tab']);
});

pageTest('the focus goes along when the button that had it goes away', {}, async (page) => {
  await page.focus('#settings-tab');
  await page.keyboard.press('Enter');
  assert.equal(await page.evaluate(() => document.activeElement.id), 'back-control');
  await page.keyboard.press('Enter');
  assert.equal(await page.evaluate(() => document.activeElement.id), 'settings-tab');
});

pageTest('another panel begins at its top', { height: 500 }, async (page) => {
  await page.evaluate(() => scrollTo(0, 900));
  await page.evaluate(() => openTab('pair'));
  assert.equal(await page.evaluate(() => scrollY), 0);
});

for (const [text, cmd] of Object.entries({
  自动模式: 'automatic', 手动模式: 'manual', 倒计时: 'countdown', 正计时: 'countup', 显示系统时钟: 'clock-on',
  隐藏系统时钟: 'clock-off',
})) {
  pageTest(`the settings button ${text} sends ${cmd} and is then the chosen one`, {}, async (page, service) => {
    await page.click('#settings-tab');
    const button = page.getByRole('button', { name: text, exact: true });
    await button.click();
    await shows(page, '#message', '操作已完成');
    assert.deepEqual(service.commands(), [cmd]);
    assert.equal(await button.getAttribute('aria-pressed'), 'true');
    assert.equal(await page.$$eval('[aria-pressed=true][data-cmd]', (chosen) => chosen.length), 3);
  });
}
