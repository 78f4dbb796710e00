// The page for users of assistive technology, by the browser's accessibility tree, and for users
// with only a keyboard.
import assert from 'node:assert/strict';
import { nextPoll, pageTest, shows, until } from './browser.js';
import { someFiles } from './service_fake.js';

/** What assistive technology sees of all elements that match `selector`. */
async function spoken(page, selector) {
  const devtools = await page.context().newCDPSession(page);
  const { root } = await devtools.send('DOM.getDocument');
  const { nodeIds } = await devtools.send('DOM.querySelectorAll', { nodeId: root.nodeId, selector });
  return Promise.all(nodeIds.map(async (nodeId) => {
    const { nodes: [node] } = await devtools.send('Accessibility.getPartialAXTree', { nodeId, fetchRelatives: false });
    const properties = Object.fromEntries((node.properties ?? []).map(({ name, value }) => [name, value.value]));
    return { role: node.role?.value, name: node.name?.value, description: node.description?.value, ...properties };
  }));
}

const rolesAndNames = async (page, selector) =>
  (await spoken(page, selector)).map(({ role, name }) => [role, name]);

async function openForm(page) {
  await page.click('#settings-tab');
  await shows(page, '#advanced-status', '已加载电脑当前参数。');
  await page.click('#advanced summary');
}

pageTest('the groups of the form have a role and a name', {}, async (page) => {
  await openForm(page);
  assert.deepEqual(await rolesAndNames(page, '.control-group'),
    ['计时与动作', '外观', '阶段 1 提醒', '阶段 2 提醒'].map((name) => ['group', name]));
  const fields = await rolesAndNames(page, '[name="prompt1.advance"], [name=opacity], [name=shape], [name=sound]');
  assert.deepEqual(fields, [['checkbox', '到期提示音'], ['spinbutton', '背景不透明度（%）'], ['combobox', '窗口形状'],
    ['spinbutton', '提前（秒）']]);
});

pageTest('buttons that belong together are a group with a name', {}, async (page) => {
  assert.deepEqual(await rolesAndNames(page, '.duration'), [['group', '快捷设置时长']]);
  await page.click('#settings-tab');
  assert.deepEqual(await rolesAndNames(page, '.pair'),
    ['控制模式', '计时方向', '系统时钟'].map((name) => ['group', name]));
});

pageTest('each button of a deck names its deck', {}, async (page) => {
  const decks = someFiles().map(({ name }) => name);
  assert.deepEqual(await rolesAndNames(page, '#files article'), decks.map((name) => ['article', name]));
  const buttons = await spoken(page, '#files button');
  assert.deepEqual(buttons.map(({ description }) => description), decks.flatMap((name) => Array(4).fill(name)));
  assert.deepEqual(buttons.slice(0, 4).map(({ name }) => name), ['打开', '放映', '关闭', '跳过计时']);
});

pageTest('what is on or chosen is told', {}, async (page) => {
  const pressed = async (selector) => (await spoken(page, selector)).map((button) => button.pressed);
  assert.deepEqual(await pressed('[data-cmd=black]'), ['false']);
  await page.click('[data-cmd=black]');
  await until(async () => assert.deepEqual(await pressed('[data-cmd=black]'), ['true']));
  await page.click('#settings-tab');
  assert.deepEqual(await pressed('.pair button'), ['true', 'false', 'true', 'false', 'false', 'true']);
});

pageTest('an invalid number is told with what is wrong with it', {}, async (page) => {
  await openForm(page);
  await page.fill('[name=opacity]', '5e1');
  const [{ invalid, description }] = await spoken(page, '[name=opacity]');
  assert.deepEqual([invalid, description], ['true', '请修正：外观 · 背景不透明度（%）（10–100 的整数）']);
});

pageTest('the chip tells the connection by name', {}, async (page) => {
  assert.deepEqual(await rolesAndNames(page, '.connection'), [['button', '连接状态 已连接']]);
});

pageTest('the switch of the shortcuts has a name and tells what it is for', {}, async (page) => {
  const [{ role, name, description }] = await spoken(page, '#keyboard-toggle');
  assert.deepEqual([role, name, description], ['switch', '快捷键控制', '允许使用键盘控制播放']);
});

// Keyboard only.

const focused = (page, selector) => page.evaluate((wanted) => document.activeElement.matches(wanted), selector);

/** Presses Tab, or Shift+Tab to go back, until `selector` has the focus. */
async function tabTo(page, selector, key = 'Tab') {
  for (let step = 0; step < 80; step++) {
    await page.keyboard.press(key);
    if (await focused(page, selector)) return;
  }
  assert.fail(`no way to ${selector}`);
}

pageTest('a talk is led by keyboard alone', {}, async (page, service) => {
  await tabTo(page, '[data-cmd=toggle]');
  await page.keyboard.press('Enter');
  await until(async () => assert.equal(await focused(page, '[data-cmd=toggle]:enabled'), true));
  await tabTo(page, '[data-cmd=next]');
  await page.keyboard.press('Space');
  await until(async () => assert.equal(await focused(page, '[data-cmd=next]:enabled'), true));
  await tabTo(page, '#minutes');
  await page.keyboard.type('12');  // replaces the text, which was selected
  await tabTo(page, '#set-duration');
  await page.keyboard.press('Enter');
  await tabTo(page, '#files article:nth-child(2) .file-play');
  await page.keyboard.press('Enter');
  await until(() => assert.deepEqual(service.commands(),
    ['toggle', 'next', 'duration?seconds=720', `file?id=${someFiles()[1].id}`]));
});

pageTest('the settings are changed by keyboard alone', {}, async (page, service) => {
  await tabTo(page, '#settings-tab');
  await page.keyboard.press('Enter');
  await shows(page, '#advanced-status', '已加载电脑当前参数。');
  assert.equal(await focused(page, '#back-control'), true);
  await tabTo(page, '[data-cmd=countup]');
  await page.keyboard.press('Enter');
  await until(async () => assert.equal(await focused(page, '[data-cmd=countup]:enabled'), true));
  await until(async () => assert.equal(await page.isChecked('[name=down]'), false));
  await tabTo(page, 'summary');
  await page.keyboard.press('Enter');
  await tabTo(page, '[name=sound]');
  await page.keyboard.press('Space');
  await page.clock.runFor(1);
  await shows(page, '#advanced-status', '设置已自动保存并生效。');
  assert.deepEqual([service.values.down, service.values.sound], [false, true]);
  await tabTo(page, '#back-control', 'Shift+Tab');
  await page.keyboard.press('Enter');
  assert.equal(await page.isVisible('#panel-control'), true);
  assert.equal(await focused(page, '#settings-tab'), true);
});

pageTest('a failure is taken away by keyboard, and its button is there as long as it is', { complaints: true },
  async (page, service) => {
    assert.equal(await page.isVisible('#message-close'), false);
    service.refuse(409, '没有正在放映的文稿。');
    await tabTo(page, '[data-cmd=next]');
    await page.keyboard.press('Enter');
    await shows(page, '#message', '没有正在放映的文稿。');
    assert.deepEqual(await rolesAndNames(page, '#message-close'), [['button', '关闭提示']]);
    await tabTo(page, '#message-close');
    await page.keyboard.press('Enter');
    await shows(page, '#message', '');
    assert.equal(await page.isVisible('#message-close'), false);
  });

/** Tabs through all targets towards the sticky `cover`; it must never cover the focused one. */
async function assertNothingCovered(page, cover, key) {
  let seen = 0;
  for (let step = 0; step < 70; step++) {
    await page.keyboard.press(key);
    const hidden = await page.evaluate((selector) => {
      const element = document.activeElement;
      const bar = document.querySelector(selector);
      if (element === document.body || bar.contains(element)) return null;
      const [a, b] = [element, bar].map((one) => one.getBoundingClientRect());
      return a.bottom > b.top && a.top < b.bottom && a.right > b.left && a.left < b.right ? element.outerHTML : '';
    }, cover);
    if (hidden !== null) seen++;
    assert.equal(hidden || '', '');
  }
  assert.ok(seen > 20, String(seen));
}

pageTest('a long message covers nothing that one works on by keyboard', { complaints: true, height: 640 },
  async (page, service) => {
    service.refusal = { status: 503, type: 'text/plain; charset=utf-8',
      body: 'UI unavailable; command may be pending. Refresh state before retry.' };
    await page.click('[data-cmd=toggle]');
    await until(async () => assert.notEqual(await page.textContent('#message-hint'), ''));
    await assertNothingCovered(page, '.bubble', 'Tab');
  });

pageTest('the line that names what is wrong covers nothing that one works on by keyboard', { height: 640 },
  async (page) => {
    await openForm(page);
    await page.fill('[name=opacity]', '');
    await nextPoll(page);
    await page.evaluate(() => { document.activeElement.blur(); scrollTo(0, 0); });
    await assertNothingCovered(page, '.form-status', 'Shift+Tab');
  });
