// The control panel: start, state, commands, lost connection, duration and file list.
import assert from 'node:assert/strict';
import { isDisabled, nextPoll, pageTest, shows, until } from './browser.js';
import { someFiles, someState } from './service_fake.js';

const lost = { complaints: true };
const inEnglish = { status: 503, type: 'text/plain; charset=utf-8',
  body: 'UI unavailable; command may be pending. Refresh state before retry.' };
const busyHint = '电脑正忙，操作可能稍后才生效。请先看画面和计时有没有变化，再决定是否重试。';
const unreachedHint = '没有连上电脑，操作可能没有执行。请检查两台设备是否在同一网络，显示“已连接”后再试。';

/** Records each text that `selector` shows from now on; returns a function that gives the list. */
async function watch(page, selector) {
  await page.$eval(selector, (element) => {
    globalThis.texts = [];
    new MutationObserver(() => globalThis.texts.push(element.textContent)).observe(element, { childList: true });
  });
  return () => page.evaluate(() => globalThis.texts);
}
const commandButtons = {
  toggle: '暂停', reset: '重置并停止', current: '从当前页放映', exit: '退出放映', previous: '上一页',
  next: '下一页', black: '黑屏', visibility: '隐藏计时', shine: '闪烁提醒', begin: '从头放映',
};

pageTest('the fragment leaves the address at once and never reaches the service',
  { path: '/#0123456789abcdef0123456789abcdef' }, async (page, service) => {
    assert.equal(page.url(), service.origin + '/');
    assert.equal(await page.evaluate(() => history.length), 2);  // the blank page and this one
    assert.ok(service.requests.every(({ path, query }) => !(path + query).includes('0123456789abcdef')));
  });

pageTest('the address of the service stands in the header', {}, async (page, service) => {
  await shows(page, '#address', new URL(service.origin).host);
});

pageTest('the page says what it waits for until the first answer',
  { waits: false, prepare: (service) => service.hold() },
  async (page) => {
    const expected = {
      '#connection': '连接中…', '#clock-mode': '倒计时', '#clock': '--:--', '#summary': '等待连接',
      '[data-cmd=toggle] .button-label': '开始 / 暂停', '#message': '',
      '#settings-feedback': '应用时长会重置计时；电脑有未完成的输入时不会覆盖。',
      '#advanced-status': '设置会自动保存并生效；正在编辑的输入不会被刷新覆盖。',
    };
    for (const [selector, text] of Object.entries(expected)) await shows(page, selector, text);
    assert.equal(await page.title(), 'Marlune 远程遥控');
    assert.equal(await page.inputValue('#minutes'), '8');
    assert.equal(await page.inputValue('#seconds'), '0');
    assert.equal(await page.evaluate(() => firstState), true);
    assert.equal(await isDisabled(page, '[data-cmd=next]'), true);
  });

pageTest('the page polls at once and then every second', {}, async (page, service) => {
  assert.equal(service.asked('state').length, 1);
  for (let poll = 2; poll < 5; poll++) {
    await nextPoll(page);
    assert.equal(service.asked('state').length, poll);
  }
});

for (const [title, changes, summary] of [
  ['a running clock', {}, '自动 · 计时中 · 倒计时 · 第 12 页'],
  ['a paused clock', { running: false, paused: true }, '自动 · 已暂停 · 倒计时 · 第 12 页'],
  ['automatic mode without a show', { running: false, showing: false, slide: 0 }, '自动 · 等待放映 · 倒计时'],
  ['automatic mode stopped within a show', { running: false, slide: 1 }, '自动 · 已停止 · 倒计时 · 第 1 页'],
  ['manual mode', { running: false, automatic: false, showing: false, slide: 0, down: false },
    '手动 · 已停止 · 正计时'],
]) {
  pageTest(`the summary tells of ${title}`,
    { prepare: (service) => { service.state = someState(changes); } },
    (page) => shows(page, '#summary', summary));
}

pageTest('labels and modes follow the state', {}, async (page, service) => {
  await shows(page, '[data-cmd=toggle] .button-label', '暂停');
  await shows(page, '[data-cmd=visibility] .button-label', '隐藏计时');
  await shows(page, '#machine', '');
  service.state = someState({ running: false, visible: false, down: false, machineTime: '09:05:07' });
  await nextPoll(page);
  await shows(page, '[data-cmd=toggle] .button-label', '开始 / 继续');
  await shows(page, '[data-cmd=visibility] .button-label', '显示计时');
  await shows(page, '#clock-mode', '正计时');
  await shows(page, '#machine', '09:05:07');
});

for (const [time, isLong] of [['00:15', false], ['1:00:00', false], ['01:00:00', true], ['已超时 00:01', true]]) {
  pageTest(`the clock text ${time} is ${isLong ? '' : 'not '}set smaller`,
    { prepare: (service) => { service.state = someState({ time }); } }, async (page) => {
      await shows(page, '#clock', time);
      assert.equal(await page.$eval('#clock', (clock) => clock.classList.contains('long')), isLong);
    });
}

pageTest('the button for the black screen tells whether the screens are black', {}, async (page, service) => {
  const looks = () => page.$eval('[data-cmd=black]', (button) => [button.ariaPressed, button.classList.contains('on'),
    getComputedStyle(button).backgroundColor]);
  const [light, dark] = ['rgb(255, 255, 255)', 'rgb(16, 28, 56)'];
  assert.deepEqual(await looks(), ['false', false, light]);
  await page.click('[data-cmd=black]');
  await until(async () => assert.deepEqual(await looks(), ['true', true, dark]));
  await shows(page, '[data-cmd=black]', '黑屏');
  service.state.black = false;  // lifted at the computer
  await nextPoll(page);
  await until(async () => assert.deepEqual(await looks(), ['false', false, light]));
});

for (const [cmd, text] of Object.entries(commandButtons)) {
  pageTest(`the button ${text} sends ${cmd} and says that it is done`, {}, async (page, service) => {
    await page.getByRole('button', { name: text, exact: true }).click();
    await shows(page, '#message', '操作已完成');
    assert.deepEqual(service.commands(), [cmd]);
  });
}

pageTest('one command is in flight at a time, and polling waits for it', {}, async (page, service) => {
  const release = service.hold();
  await page.click('[data-cmd=next]');
  assert.equal(await page.evaluate(() => busy), true);
  for (const selector of ['[data-cmd=previous]', '[data-cmd=manual]', '#set-duration', '#files button']) {
    assert.equal(await isDisabled(page, selector), true, selector);
  }
  await page.evaluate(() => act('previous'));
  await page.clock.runFor(3500);
  release();
  await shows(page, '#message', '操作已完成');
  assert.deepEqual(service.commands(), ['next']);
  assert.equal(service.asked('state').length, 1);
  assert.equal(await isDisabled(page, '[data-cmd=previous]'), false);
});

pageTest('a refused command shows the words of the service and leaves the state', lost,
  async (page, service) => {
    service.refuse(409, '当前没有可控制的放映，黑屏不适用于已排除的文稿。');
    await page.click('[data-cmd=black]');
    await shows(page, '#message', '当前没有可控制的放映，黑屏不适用于已排除的文稿。');
    await shows(page, '#connection', '已连接');
    await shows(page, '#clock', '12:34');
  });

pageTest('a refusal in plain text is shown as it stands', lost, async (page, service) => {
  service.refusal = { status: 503, type: 'text/plain; charset=utf-8', body: 'UI unavailable' };
  await page.click('[data-cmd=next]');
  await shows(page, '#message', 'UI unavailable');
});

// Messages.

pageTest('what the service says in English is explained below, until a good state comes after it could be read', lost,
  async (page, service) => {
    service.refusal = inEnglish;
    await page.click('[data-cmd=next]');
    await shows(page, '#message', inEnglish.body);
    await shows(page, '#message-hint', busyHint);
    service.refusal = null;
    await nextPoll(page);
    await shows(page, '#message-hint', busyHint);
    await page.clock.runFor(1990);
    await nextPoll(page);
    await shows(page, '#message-hint', '');
    await shows(page, '#message', '');
    assert.equal(await page.isVisible('#message-close'), false);
  });

pageTest('an explanation stays as long as the connection is lost', lost, async (page, service) => {
  service.refusal = 'gone';
  await page.click('[data-cmd=next]');
  await shows(page, '#message-hint', unreachedHint);
  await page.clock.runFor(10_000);
  await shows(page, '#connection', '断线重连');
  await shows(page, '#message-hint', unreachedHint);
});

pageTest('a lost network is explained, a manual refresh without an answer too', lost, async (page, service) => {
  service.refusal = 'gone';
  await page.click('#refresh-status');
  await shows(page, '#message', 'Failed to fetch');
  await shows(page, '#message-hint', unreachedHint);
});

pageTest('another refusal in English asks for a new start of the page', lost, async (page, service) => {
  service.refusal = { status: 404, type: 'text/plain', body: 'Not found' };
  await page.click('[data-cmd=next]');
  await shows(page, '#message', 'Not found');
  await shows(page, '#message-hint', '电脑没有接受这次操作。请重新打开此页面后再试。');
});

pageTest('words in Chinese stand alone and stay over good polls', lost, async (page, service) => {
  service.refusal = inEnglish;
  await page.click('[data-cmd=next]');
  await shows(page, '#message-hint', busyHint);
  service.refuse(409, '没有正在放映的文稿。');
  await page.click('[data-cmd=next]');
  await shows(page, '#message', '没有正在放映的文稿。');
  await shows(page, '#message-hint', '');
  service.refusal = null;
  await page.clock.runFor(9000);
  await nextPoll(page);
  await shows(page, '#message', '没有正在放映的文稿。');
});

for (const reducedMotion of ['reduce', 'no-preference']) {
  pageTest(`what went well is gone after five seconds (motion: ${reducedMotion})`, { reducedMotion }, async (page) => {
    await page.click('[data-cmd=next]');
    await shows(page, '#message', '操作已完成');
    await page.clock.runFor(4900);
    await shows(page, '#message', '操作已完成');
    await page.clock.runFor(200);
    await shows(page, '#message', '');
  });
}

pageTest('a failure that follows a success is not taken away with it', {}, async (page) => {
  await page.click('[data-cmd=next]');
  await shows(page, '#message', '操作已完成');
  await page.fill('#minutes', '');
  await page.click('#set-duration');
  await page.clock.runFor(10_000);
  await shows(page, '#message', '分钟须为 0–999，秒须为 0–59');
});

for (const [what, fail] of [['a failure', true], ['what went well', false]]) {
  pageTest(`${what} can be tapped away, and does not press what lies below`, lost, async (page, service) => {
    if (fail) service.refuse(409, '没有正在放映的文稿。');
    await page.click('[data-cmd=next]');
    await shows(page, '#message', fail ? '没有正在放映的文稿。' : '操作已完成');
    const { x, y, width, height } = await (await page.$('#message')).boundingBox();
    await page.mouse.click(x + width / 2, y + height / 2);
    await shows(page, '#message', '');
    assert.deepEqual(service.commands(), ['next']);
    // Nothing remains there that would intercept the next tap.
    assert.equal(await page.evaluate(([left, top]) =>
      document.elementFromPoint(left, top).closest('.message'), [x + width / 2, y + height / 2]), null);
  });
}

pageTest('a failure goes when its panel is left', lost, async (page, service) => {
  service.refuse(409, '没有正在放映的文稿。');
  await page.click('[data-cmd=next]');
  await shows(page, '#message', '没有正在放映的文稿。');
  service.refusal = null;
  await page.click('#settings-tab');
  await shows(page, '#message', '');
  await page.evaluate(() => say('…'));
  await page.click('.connection');
  await shows(page, '#message', '');
  await page.evaluate(() => say('…'));
  await page.click('.connection');  // does nothing
  await shows(page, '#message', '…');
});

pageTest('success is still said on the panel to which it leads', {}, async (page) => {
  await page.click('#settings-tab');
  await page.evaluate(() => poll(true));
  await shows(page, '#message', '连接成功');
});

pageTest('markup in the words of the service stays text', lost, async (page, service) => {
  service.refuse(409, '<img src=x onerror=alert(1)>');
  await page.click('[data-cmd=next]');
  await shows(page, '#message', '<img src=x onerror=alert(1)>');
  assert.equal(await page.$$eval('#message img', (images) => images.length), 0);
});

for (const body of ['{}', 'null', '{"error":""}', '[]']) {
  pageTest(`a refusal of ${body} has no words of its own and is shown as it stands`, lost, async (page, service) => {
    service.refusal = { status: 409, type: 'application/json; charset=utf-8', body };
    await page.click('[data-cmd=next]');
    await shows(page, '#message', body);
  });
}

pageTest('a 403 asks for a new scan', lost, async (page, service) => {
  service.refusal = { status: 403, type: 'text/plain; charset=utf-8', body: 'Invalid request origin' };
  await page.click('[data-cmd=next]');
  await shows(page, '#message', '连接已失效，请重新扫码或使用新的连接地址');
});

pageTest('a poll answered with 403 says so without being asked, and once', lost, async (page, service) => {
  service.refusal = { status: 403, type: 'text/plain; charset=utf-8', body: 'Invalid request origin' };
  await page.clock.runFor(1000);
  await shows(page, '#message', '连接已失效，请重新扫码或使用新的连接地址');
  await shows(page, '#connection', '断线重连');
  await page.evaluate(() => {
    globalThis.changes = 0;
    new MutationObserver(() => { globalThis.changes++; }).observe(byId('message'), { childList: true, subtree: true });
  });
  await nextPoll(page);
  assert.equal(await page.evaluate(() => globalThis.changes), 0);
});

pageTest('a 403 after a good poll is said again', lost, async (page, service) => {
  for (let time = 0; time < 2; time++) {
    service.refusal = { status: 403, type: 'text/plain; charset=utf-8', body: 'Invalid request origin' };
    await nextPoll(page);
    await shows(page, '#message', '连接已失效，请重新扫码或使用新的连接地址');
    await page.click('#message');
    service.refusal = null;
    await nextPoll(page);
    await shows(page, '#connection', '已连接');
  }
});

pageTest('a lost connection disables the controls, and the first good poll restores them', lost,
  async (page, service) => {
    service.refusal = 'gone';
    await page.clock.runFor(1000);
    await shows(page, '#connection', '断线重连');
    assert.equal(await page.$eval('.connection', (chip) => chip.classList.contains('offline')), true);
    for (const selector of ['[data-cmd=next]', '#set-duration', '#files button', '[data-cmd=manual]']) {
      assert.equal(await isDisabled(page, selector), true, selector);
    }
    await shows(page, '#message', '');  // polling continues silently
    await shows(page, '#clock', '12:34');

    service.refusal = null;
    await nextPoll(page);
    await shows(page, '#connection', '已连接');
    assert.equal(await page.$eval('.connection', (chip) => chip.classList.contains('offline')), false);
    assert.equal(await isDisabled(page, '[data-cmd=next]'), false);
  });

pageTest('a service that does not answer for four seconds counts as lost', lost, async (page, service) => {
  service.hold();
  await page.clock.runFor(1000);
  await page.clock.runFor(3990);
  await shows(page, '#connection', '已连接');
  await page.clock.runFor(20);
  await shows(page, '#connection', '断线重连');
});

pageTest('loss and return of the connection are announced once each', lost, async (page, service) => {
  assert.deepEqual(await page.$eval('#connection-news', (news) => [news.textContent, news.getAttribute('role'), news.ariaLive]),
    ['', 'status', 'polite']);
  const announced = await watch(page, '#connection-news');
  service.refusal = 'gone';
  for (let poll = 0; poll < 3; poll++) await page.clock.runFor(1000);
  await shows(page, '#connection-news', '与电脑的连接已断开，正在重连。');
  service.refusal = null;
  for (let poll = 0; poll < 3; poll++) await nextPoll(page);
  await shows(page, '#connection-news', '与电脑的连接已恢复。');
  assert.deepEqual(await announced(), ['与电脑的连接已断开，正在重连。', '与电脑的连接已恢复。']);
});

pageTest('a connection that comes back after a gap comes back once', lost, async (page) => {
  const texts = await watch(page, '#connection');
  let unanswered = 0;
  await page.route('**/api/state', () => { unanswered++; }, { times: 4 });
  for (let poll = 1; poll <= 4; poll++) {
    await page.clock.runFor(1000);
    await until(() => assert.equal(unanswered, poll));
  }
  for (let poll = 0; poll < 5; poll++) await nextPoll(page);  // the four time out meanwhile
  await shows(page, '#connection', '已连接');
  assert.deepEqual([...new Set(await texts())], ['断线重连', '已连接']);
  assert.equal((await texts()).lastIndexOf('断线重连'), 0);
});

pageTest('an answer from before a command does not bring the old state back', {}, async (page, service) => {
  let release;
  const old = structuredClone(service.state);
  await page.route('**/api/state', async (route) => {
    await new Promise((resolve) => { release = resolve; });
    await route.fulfill({ json: old });
  });
  await page.clock.runFor(1000);
  await until(() => assert.ok(release));
  await page.click('[data-cmd=toggle]');
  await shows(page, '[data-cmd=toggle] .button-label', '开始 / 继续');
  const answered = page.waitForEvent('requestfinished', (request) => request.url().endsWith('/api/state'));
  release();
  await answered;
  await page.evaluate(() => new Promise((resolve) => { fetch('/api/controls').then(resolve); }));
  await shows(page, '[data-cmd=toggle] .button-label', '开始 / 继续');
});

pageTest('a browser without time-outs of its own gives up after four seconds too',
  { ...lost, before: () => { delete AbortSignal.timeout; } }, async (page, service) => {
    service.hold();
    await page.clock.runFor(1000);
    await page.clock.runFor(3990);
    await shows(page, '#connection', '已连接');
    await page.clock.runFor(20);
    await shows(page, '#connection', '断线重连');
  });

pageTest('refreshing by hand opens the control panel, wherever one has gone meanwhile', {}, async (page, service) => {
  const release = service.hold();
  await page.click('#refresh-status');
  await page.click('.connection');
  release();
  await shows(page, '#message', '连接成功');
  assert.equal(await page.isVisible('#panel-control'), true);
});

pageTest('nothing is sent while the connection is lost', lost, async (page, service) => {
  service.refusal = 'gone';
  await page.clock.runFor(1000);
  await shows(page, '#connection', '断线重连');
  await page.evaluate(() => act('next'));
  assert.deepEqual(service.commands(), []);
});

pageTest('refreshing by hand says whether it worked', lost, async (page, service) => {
  await page.click('#refresh-status');
  await shows(page, '#message', '连接成功');
  service.refuse(503, '暂时不可用');
  await page.click('#refresh-status');
  await shows(page, '#message', '暂时不可用');
});

pageTest('the message line is a polite live region and the clock is none', {}, async (page) => {
  const message = await page.$eval('#message', (line) => [line.getAttribute('role'), line.ariaLive]);
  assert.deepEqual(message, ['status', 'polite']);
  const live = '[aria-live], [role=status], [role=alert], [role=timer], [role=log], output';
  assert.equal(await page.$eval('#clock', (clock, selector) => Boolean(clock.closest(selector)), live), false);
});

pageTest('a button keeps the focus over its command', {}, async (page) => {
  await page.focus('[data-cmd=next]');
  await page.keyboard.press('Enter');
  await shows(page, '#message', '操作已完成');
  await until(async () => assert.equal(await page.evaluate(() => document.activeElement.dataset.cmd), 'next'));
});

pageTest('a button gets the focus back after the connection was lost', lost, async (page, service) => {
  await page.focus('[data-cmd=next]');
  service.refusal = 'gone';
  await page.clock.runFor(1000);
  await shows(page, '#connection', '断线重连');
  await page.waitForFunction(() => document.activeElement === document.body);
  service.refusal = null;
  await nextPoll(page);
  await until(async () => assert.equal(await page.evaluate(() => document.activeElement.dataset.cmd), 'next'));
});

// Duration.

pageTest('minutes and seconds show the duration of the computer',
  { prepare: (service) => { service.state = someState({ duration: 59999 }); } }, async (page) => {
    assert.equal(await page.inputValue('#minutes'), '999');
    assert.equal(await page.inputValue('#seconds'), '59');
    assert.equal(await page.evaluate(() => firstState), false);
  });

pageTest('a poll leaves edited minutes and seconds alone', {}, async (page) => {
  await page.fill('#minutes', '20');
  await shows(page, '#settings-feedback', '时长尚未应用，连接状态刷新不会覆盖输入。');
  await nextPoll(page);
  assert.equal(await page.inputValue('#minutes'), '20');
  assert.equal(await page.evaluate(() => durationDirty), true);
});

pageTest('a poll leaves seconds alone that were edited by themselves', {}, async (page) => {
  await page.fill('#seconds', '45');
  await shows(page, '#settings-feedback', '时长尚未应用，连接状态刷新不会覆盖输入。');
  await nextPoll(page);
  assert.equal(await page.inputValue('#seconds'), '45');
});

pageTest('another command leaves edited minutes and seconds alone', {}, async (page) => {
  await page.fill('#minutes', '20');
  await page.click('[data-cmd=next]');
  await shows(page, '#message', '操作已完成');
  await nextPoll(page);
  assert.equal(await page.inputValue('#minutes'), '20');
  await shows(page, '#settings-feedback', '时长尚未应用，连接状态刷新不会覆盖输入。');
});

pageTest('applying a duration sends seconds and follows the computer again', {}, async (page, service) => {
  await page.fill('#minutes', '20');
  await page.fill('#seconds', '30');
  await page.click('#set-duration');
  await shows(page, '#settings-feedback', '应用时长会重置计时；电脑有未完成的输入时不会覆盖。');
  assert.deepEqual(service.commands(), ['duration?seconds=1230']);
  service.state.duration = 61;
  await nextPoll(page);
  await until(async () => assert.equal(await page.inputValue('#seconds'), '1'));
  assert.equal(await page.inputValue('#minutes'), '1');
});

pageTest('a refused duration stays in the inputs', lost, async (page, service) => {
  await page.fill('#minutes', '20');
  service.refuse(409, '电脑有尚未完成的输入，请先修正或完成输入。');
  await page.click('#set-duration');
  await shows(page, '#message', '电脑有尚未完成的输入，请先修正或完成输入。');
  service.refusal = null;
  await nextPoll(page);
  assert.equal(await page.inputValue('#minutes'), '20');
  await shows(page, '#settings-feedback', '时长尚未应用，连接状态刷新不会覆盖输入。');
});

for (const [minutes, seconds, sent] of [['0', '0', 0], ['999', '59', 59999]]) {
  pageTest(`the duration ${minutes}:${seconds} can be applied`, {}, async (page, service) => {
    await page.fill('#minutes', minutes);
    await page.fill('#seconds', seconds);
    await page.click('#set-duration');
    await shows(page, '#message', '操作已完成');
    assert.deepEqual(service.commands(), [`duration?seconds=${sent}`]);
  });
}

for (const [minutes, seconds] of [['1000', '0'], ['1', '60'], ['-1', '0'], ['1.5', '0'], ['', '0'], ['1', '']]) {
  pageTest(`the duration "${minutes}":"${seconds}" is not sent`, {}, async (page, service) => {
    await page.fill('#minutes', minutes);
    await page.fill('#seconds', seconds);
    await page.click('#set-duration');
    await shows(page, '#message', '分钟须为 0–999，秒须为 0–59');
    assert.deepEqual(service.commands(), []);
  });
}

// File list.

pageTest('an empty folder is said to be empty',
  { prepare: (service) => { service.state = someState({ files: [] }); } },
  async (page) => {
    await shows(page, '#files', '文件夹中暂无演示文稿');
    assert.equal(await page.$$eval('#files > p', (found) => found.length), 1);
  });

pageTest('each file has a name, a status and four buttons', {}, async (page) => {
  const cards = await page.$$eval('#files article', (articles) => articles.map((article) => [
    article.querySelector('h3').textContent,
    article.querySelector('.status').textContent,
    article.querySelector('.status').classList.contains('skipped'),
    ...[...article.querySelectorAll('button')].map((button) => button.className + ' ' + button.textContent),
  ]));
  const buttons = ['file-open 打开', 'file-play 放映', 'file-close 关闭'];
  assert.deepEqual(cards, someFiles().map(({ name, skip }) => [
    name, skip ? '跳过计时' : '正常计时', skip, ...buttons, skip ? 'file-resume 恢复计时' : 'file-skip 跳过计时',
  ]));
});

for (const [className, cmd, index] of [
  ['file-open', 'open-file', 0], ['file-play', 'file', 0], ['file-close', 'close-file', 0],
  ['file-skip', 'skip', 0], ['file-resume', 'skip', 1],
]) {
  pageTest(`${className} sends ${cmd} with the id of its file`, {}, async (page, service) => {
    await page.click(`#files article:nth-child(${index + 1}) .${className}`);
    await shows(page, '#message', '操作已完成');
    assert.deepEqual(service.commands(), [`${cmd}?id=${someFiles()[index].id}`]);
  });
}

pageTest('the list is rebuilt only when it changed, so that the focus survives', {}, async (page, service) => {
  await page.focus('#files article:nth-child(3) .file-play');
  await page.$eval('#files article:nth-child(3)', (article) => { article.id = 'same'; });
  service.state.time = '12:33';
  await nextPoll(page);
  await shows(page, '#clock', '12:33');
  assert.equal(await page.evaluate(() => document.activeElement.closest('article').id), 'same');
  service.state.files = someFiles().slice(0, 1);
  await nextPoll(page);
  await until(async () => assert.equal(await page.$$eval('#files article', (found) => found.length), 1));
});

pageTest('the focus stays with its file when the list is rebuilt', {}, async (page) => {
  await page.focus('#files article:nth-child(3) .file-skip');
  await page.keyboard.press('Enter');
  await shows(page, '#message', '操作已完成');
  await until(async () => assert.equal(
    await page.evaluate(() => document.activeElement.closest('article')?.textContent),
    '附录.ppt跳过计时打开放映关闭恢复计时'));
});

pageTest('the focus stays with its file when the list changes at the computer', {}, async (page, service) => {
  await page.focus('#files article:nth-child(3) .file-close');
  service.state.files = someFiles().slice(1);
  await nextPoll(page);
  await until(async () => assert.equal(await page.$$eval('#files article', (found) => found.length), 2));
  assert.deepEqual(await page.evaluate(() => [document.activeElement.className,
    document.activeElement.closest('article')?.querySelector('h3').textContent]), ['file-close', '附录.ppt']);
});

pageTest('refreshing the list rebuilds it and opens the control panel', {}, async (page) => {
  await page.$eval('#files article', (article) => { article.id = 'old'; });
  await page.click('#refresh-files');
  await shows(page, '#message', '连接成功');
  assert.equal(await page.$('#old'), null);
  assert.equal(await page.isVisible('#panel-control'), true);
});

pageTest('the state is read, commands are posted, and ids are encoded',
  { prepare: (service) => { service.state.files = [{ id: 'a&b=ü', name: '一.pptx', skip: false }]; } },
  async (page, service) => {
    await page.click('.file-play');
    await shows(page, '#message', '操作已完成');
    assert.deepEqual([...new Set(service.requests.map(({ method, path, query }) => method + path + query))],
      ['GET/', 'GET/api/state', 'POST/api/file?id=a%26b%3D%C3%BC']);
  });

pageTest('the control panel opens with the list even if refreshing fails', lost, async (page, service) => {
  service.refuse(503, '暂时不可用');
  const release = service.hold();
  await page.click('#refresh-files');
  await page.click('.connection');
  release();
  await shows(page, '#message', '暂时不可用');
  assert.equal(await page.isVisible('#panel-control'), true);
});

pageTest('a lost connection is found again by hand too', lost, async (page, service) => {
  service.refusal = 'gone';
  await page.clock.runFor(1000);
  await shows(page, '#connection', '断线重连');
  service.refusal = null;
  await page.click('#refresh-status');
  await shows(page, '#message', '连接成功');
  await shows(page, '#connection', '已连接');
});

pageTest('markup in a file name stays text',
  { prepare: (service) => { service.state.files = [{ id: '0'.repeat(16), name: '<img src=x onerror=alert(1)>"&.pptx', skip: false }]; } },
  async (page) => {
    await shows(page, '#files h3', '<img src=x onerror=alert(1)>"&.pptx');
    assert.equal(await page.$$eval('#files img', (images) => images.length), 0);
  });
