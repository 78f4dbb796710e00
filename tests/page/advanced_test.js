// The advanced settings form: its fields, and how a draft is kept, saved and refused.
import assert from 'node:assert/strict';
import { nextPoll, pageTest, shows, until } from './browser.js';
import { someValues } from './service_fake.js';

const stale = '电脑设置已更新。遥控端草稿已保留，请重新加载后确认。';
const field = (name) => `#control-form [name="${name}"]`;
const forms = (service) => service.asked('controls').filter(({ method }) => method === 'POST')
  .map(({ body }) => Object.fromEntries(new URLSearchParams(body)));
const draft = (page) => page.evaluate(() => ({
  dirty: controlDirty, saving: controlSaving, pending: Object.fromEntries(controlPending),
  invalid: [...controlInvalid],
}));
const clean = { dirty: false, saving: false, pending: {}, invalid: [] };

async function openForm(page) {
  await page.click('#settings-tab');
  await shows(page, '#advanced-status', '已加载电脑当前参数。');
  await page.click('#advanced summary');
}

function formTest(name, options, body) {
  pageTest(name, options, async (page, service) => {
    await openForm(page);
    await body(page, service);
  });
}

/** Sets a box and verifies it: the drawn switch moves, so a plain click could miss it. */
const set = (page, name, on) => page.setChecked(field(name), on);

const saved = (page) => shows(page, '#advanced-status', '设置已自动保存并生效。');

const number = (minimum, maximum) => `number ${minimum} ${maximum}`;
const stage = (number_) => Object.fromEntries(Object.entries({
  enabled: ['启用提醒', 'checkbox'], advance: ['提前（秒）', number(0, 59999)],
  blinkWindow: ['悬浮窗闪烁', 'checkbox'], blinkBackground: ['悬浮窗背景颜色闪烁', 'checkbox'],
  sound: ['播放电脑已选提示音', 'checkbox'], blinkSeconds: ['闪烁时长（秒）', number(0, 3600)],
  soundSeconds: ['音频时长（秒）', number(0, 3600)],
}).map(([name, row]) => [`prompt${number_}.${name}`, row]));
const expectedGroups = {
  计时与动作: {
    duration: ['基础时长（秒）', number(0, 59999)], down: ['倒计时', 'checkbox'],
    perSlide: ['单页独立计时', 'checkbox'], hideNoDocument: ['无文档时隐藏', 'checkbox'],
    hideZero: ['归零后隐藏', 'checkbox'], hideExcluded: ['排除文件时隐藏', 'checkbox'],
    resetDelay: ['关闭文稿后延迟重置（秒）', number(0, 3600)], exitShow: ['到期退出放映', 'checkbox'],
    black: ['到期黑屏并保留超时', 'checkbox'], blink: ['到期闪烁', 'checkbox'],
    blinkSeconds: ['闪烁时长（0 为持续）', number(0, 3600)], sound: ['到期提示音', 'checkbox'],
    soundSeconds: ['音频时长（0 为完整）', number(0, 3600)], switchPpt: ['到期切换电脑指定文稿', 'checkbox'],
  },
  外观: {
    foreground: ['数字颜色', 'color'], background: ['背景颜色', 'color'], alert: ['警告闪烁颜色', 'color'],
    opacity: ['背景不透明度（%）', number(10, 100)], transparent: ['纯文字模式', 'checkbox'],
    shape: ['窗口形状', 'select-one 0 直角矩形,1 圆角矩形,2 极简椭圆'],
    fontWeight: ['字体粗细', 'select-one 300 细,400 常规,700 粗,900 极粗'],
    blinkOn: ['闪烁亮间隔（毫秒）', number(50, 10000)], blinkOff: ['闪烁暗间隔（毫秒）', number(50, 10000)],
    machineTime: ['显示系统时钟', 'checkbox'],
  },
  '阶段 1 提醒': stage(1),
  '阶段 2 提醒': stage(2),
};

formTest('the form has all 38 fields with their labels, kinds and ranges', {}, async (page) => {
  const groups = await page.$$eval('.control-group', (all_) => Object.fromEntries(all_.map((group) => [
    group.querySelector('h3').textContent,
    Object.fromEntries([...group.querySelectorAll('label.control-field')].map((label_) => {
      const input = label_.querySelector('input, select');
      let kind = input.type;
      if (input.required) kind += ` ${input.min} ${input.max}`;
      if (input.options) kind += ' ' + [...input.options].map((option) => `${option.value} ${option.text}`);
      return [input.name, [label_.querySelector('span').textContent, kind]];
    })),
  ])));
  assert.deepEqual(groups, expectedGroups);
  const names = Object.values(groups).flatMap(Object.keys);
  assert.equal(names.length, 38);
  assert.deepEqual([...names].sort(), Object.keys(someValues()).sort());
});

formTest('the form shows the values of the computer',
  { prepare: (service) => { service.values = someValues({ background: 0x0a0b0c, opacity: 35, shape: 2, sound: true }); } },
  async (page) => {
    assert.equal(await page.inputValue(field('background')), '#0a0b0c');
    assert.equal(await page.inputValue(field('opacity')), '35');
    assert.equal(await page.inputValue(field('shape')), '2');
    assert.equal(await page.isChecked(field('sound')), true);
    assert.equal(await page.isChecked(field('black')), false);
    assert.deepEqual(await draft(page), clean);
  });

pageTest('the settings are loaded at the first visit only, and a draft is kept', {}, async (page, service) => {
  await openForm(page);
  await page.$eval(field('opacity'), (input) => { input.id = 'same'; });
  await page.click('#back-control');
  await page.click('#settings-tab');
  await nextPoll(page);  // earlier requests have arrived by then
  assert.equal(service.asked('controls').length, 1);
  assert.equal(await page.isVisible('#same'), true);

  page.on('dialog', () => assert.fail('asked whether to give up the draft'));
  await page.fill(field('opacity'), '5');
  await page.click('#back-control');
  await page.click('#settings-tab');
  assert.equal(await page.inputValue(field('opacity')), '5');
});

pageTest('without a connection the settings are not asked for', { complaints: true }, async (page, service) => {
  service.refusal = 'gone';
  await page.clock.runFor(1000);
  await shows(page, '#connection', '断线重连');
  await page.click('#settings-tab');
  assert.equal(service.asked('controls').length, 0);
});

pageTest('a failed load says why and is tried again at the next visit', { complaints: true },
  async (page, service) => {
    service.refuse(503, '暂时不可用');
    await page.click('#settings-tab');
    await shows(page, '#advanced-status', '暂时不可用');
    service.refusal = null;
    await page.click('#back-control');
    await page.click('#settings-tab');
    await shows(page, '#advanced-status', '已加载电脑当前参数。');
  });

formTest('a poll never touches the form', {}, async (page, service) => {
  await page.fill(field('opacity'), '');
  service.values.opacity = 50;
  service.state.duration = 1;
  await page.clock.runFor(3000);
  assert.equal(await page.inputValue(field('opacity')), '');
  assert.equal(service.asked('controls').length, 1);
});

formTest('a box is saved at once, with the complete form', {}, async (page, service) => {
  await set(page, 'sound', true);
  await shows(page, '#advanced-status', '正在应用…');
  await page.clock.runFor(1);
  await saved(page);
  const expected = Object.fromEntries(
    Object.entries(someValues({ sound: true })).map(([name, value]) => [name, String(Number(value))]));
  assert.deepEqual(forms(service), [{ revision: '0000000000000001', ...expected }]);
  assert.equal(service.asked('controls').at(-1).headers['content-type'], 'application/x-www-form-urlencoded');
  assert.deepEqual(await draft(page), clean);
});

formTest('a choice is saved at once', {}, async (page, service) => {
  await page.selectOption(field('fontWeight'), '900');
  await page.clock.runFor(1);
  await saved(page);
  assert.equal(forms(service)[0].fontWeight, '900');
});

formTest('a number waits for 700 milliseconds without another key', {}, async (page, service) => {
  await page.fill(field('opacity'), '4');
  await page.fill(field('opacity'), '45');
  await page.clock.runFor(690);
  assert.equal(forms(service).length, 0);
  await page.fill(field('opacity'), '46');
  await page.clock.runFor(690);
  assert.equal(forms(service).length, 0);
  await page.clock.runFor(20);
  await saved(page);
  assert.deepEqual(forms(service).map(({ opacity }) => opacity), ['46']);
});

formTest('a colour is sent as a decimal number after the same wait', {}, async (page, service) => {
  await page.fill(field('foreground'), '#0102ff');
  await page.clock.runFor(690);
  assert.equal(forms(service).length, 0);
  await page.clock.runFor(20);
  await saved(page);
  assert.equal(forms(service)[0].foreground, String(0x0102ff));
});

formTest('a number and then a box go out together and at once', {}, async (page, service) => {
  await page.fill(field('opacity'), '45');
  await page.clock.runFor(300);
  await set(page, 'sound', true);
  await page.clock.runFor(1);
  await saved(page);
  await page.clock.runFor(1000);
  assert.deepEqual(forms(service).map(({ opacity, sound }) => [opacity, sound]), [['45', '1']]);
});

formTest('each save goes on from the revision of the one before', {}, async (page, service) => {
  await set(page, 'sound', true);
  await page.clock.runFor(1);
  await saved(page);
  await set(page, 'sound', false);
  await page.clock.runFor(1);
  await until(async () => assert.equal(forms(service).length, 2));
  await saved(page);
  assert.deepEqual(forms(service).map(({ revision }) => revision), ['0000000000000001', '0000000000000002']);
});

for (const value of ['9', '101', '', '10.5', '5e1', '50.0', '9e9']) {
  formTest(`an opacity of "${value}" is not sent and does not block the others`, {}, async (page, service) => {
    await page.fill(field('opacity'), value);
    await shows(page, '#advanced-status', '输入无效，其他设置可继续使用。');
    await page.clock.runFor(1000);
    assert.equal(forms(service).length, 0);
    assert.deepEqual(await draft(page), { ...clean, dirty: true, invalid: ['opacity'] });
    await set(page, 'sound', true);
    await page.clock.runFor(1);
    await shows(page, '#advanced-status', '有效设置已生效；请修正无效输入。');
    assert.deepEqual(forms(service).map(({ opacity, sound }) => [opacity, sound]), [['80', '1']]);
    assert.equal(await page.inputValue(field('opacity')), value);

    await page.fill(field('opacity'), '60');
    await page.clock.runFor(700);
    await saved(page);
    assert.deepEqual(await draft(page), clean);
  });
}

const hint = (page, text) => shows(page, '#advanced-hint', text);

for (const value of ['5e1', '50.0', '101']) {
  formTest(`an opacity of "${value}" is marked and named at once, until it is mended`, {}, async (page) => {
    const look = () => page.$eval(field('opacity'), (input) => [input.ariaInvalid, input.getAttribute('aria-describedby'),
      getComputedStyle(input).borderColor === 'rgb(255, 81, 85)', input.matches(':invalid')]);
    assert.deepEqual(await look(), [null, null, false, false]);
    await page.fill(field('opacity'), value);
    assert.deepEqual(await look(), ['true', 'advanced-hint', true, true]);
    await hint(page, '请修正：外观 · 背景不透明度（%）（10–100 的整数）');
    await page.fill(field('opacity'), '50');
    assert.deepEqual(await look(), [null, null, false, false]);
    await hint(page, '');
  });
}

formTest('every invalid number is named, and stays named while others are saved', {}, async (page) => {
  await page.fill(field('prompt1.advance'), '');
  await page.fill(field('prompt2.advance'), '60000');
  const both = '请修正：阶段 1 提醒 · 提前（秒）（0–59999 的整数）；阶段 2 提醒 · 提前（秒）（0–59999 的整数）';
  await hint(page, both);
  await set(page, 'sound', true);
  await page.clock.runFor(1);
  await shows(page, '#advanced-status', '有效设置已生效；请修正无效输入。');
  await hint(page, both);
});

for (const value of ['007', '100']) {
  formTest(`an opacity of "${value}" is what the computer takes`, {}, async (page, service) => {
    await page.fill(field('opacity'), value);
    await page.fill(field('blinkSeconds'), value);
    await page.clock.runFor(700);
    await until(async () => assert.equal(forms(service).at(-1)?.blinkSeconds, value));
  });
}

formTest('a number out of range that the computer itself holds is named from the start',
  { prepare: (service) => { service.values = someValues({ duration: 70_000 }); } }, async (page) => {
    await shows(page, '#advanced-status', '已加载电脑当前参数。');
    await hint(page, '请修正：计时与动作 · 基础时长（秒）（0–59999 的整数）');
    assert.equal(await page.getAttribute(field('duration'), 'aria-invalid'), 'true');
    assert.deepEqual(await draft(page), clean);  // not an edit: a reload does not ask
  });

formTest('a save that nobody answers is explained in Chinese', { complaints: true }, async (page, service) => {
  service.refusal = 'gone';
  await set(page, 'sound', true);
  await page.clock.runFor(1);
  await shows(page, '#advanced-status', 'Failed to fetch 输入已保留。');
  await hint(page, '没有连上电脑，操作可能没有执行。请检查两台设备是否在同一网络，显示“已连接”后再试。');
  service.refusal = null;
  await set(page, 'sound', false);
  await page.clock.runFor(1);
  await saved(page);
  await hint(page, '');
});

pageTest('a load that is refused in English is explained in Chinese', { complaints: true }, async (page, service) => {
  service.refusal = { status: 503, type: 'text/plain; charset=utf-8', body: 'UI unavailable' };
  await page.click('#settings-tab');
  await shows(page, '#advanced-status', 'UI unavailable');
  await hint(page, '电脑正忙，操作可能稍后才生效。请先看画面和计时有没有变化，再决定是否重试。');
});

formTest('an invalid edit begins the wait of a valid one anew', {}, async (page, service) => {
  await page.fill(field('opacity'), '45');
  await page.clock.runFor(400);
  await page.fill(field('blinkSeconds'), '');
  await page.clock.runFor(690);
  assert.equal(forms(service).length, 0);
  await page.clock.runFor(20);
  await shows(page, '#advanced-status', '有效设置已生效；请修正无效输入。');
  assert.deepEqual(forms(service).map(({ opacity, blinkSeconds }) => [opacity, blinkSeconds]), [['45', '0']]);
});

formTest('a value that turns invalid is taken back before it is sent', {}, async (page, service) => {
  await page.fill(field('opacity'), '45');
  await page.fill(field('opacity'), '450');
  await page.clock.runFor(1000);
  assert.equal(forms(service).length, 0);
});

formTest('turning the black screen on turns its rivals off',
  { prepare: (service) => { service.values = someValues({ exitShow: true, switchPpt: true }); } },
  async (page, service) => {
    await set(page, 'black', true);
    assert.equal(await page.isChecked(field('exitShow')), false);
    assert.equal(await page.isChecked(field('switchPpt')), false);
    await page.clock.runFor(1);
    await saved(page);
    const [{ black, exitShow, switchPpt }] = forms(service);
    assert.deepEqual([black, exitShow, switchPpt], ['1', '0', '0']);
  });

for (const name of ['exitShow', 'switchPpt']) {
  formTest(`turning ${name} on turns the black screen off`,
    { prepare: (service) => { service.values = someValues({ black: true }); } }, async (page, service) => {
      await set(page, name, true);
      assert.equal(await page.isChecked(field('black')), false);
      await page.clock.runFor(1);
      await saved(page);
      assert.deepEqual([forms(service)[0][name], forms(service)[0].black], ['1', '0']);
    });
}

formTest('ending the show and changing the deck go together', {}, async (page, service) => {
  await set(page, 'exitShow', true);
  await set(page, 'switchPpt', true);
  await page.clock.runFor(1);
  await saved(page);
  assert.deepEqual([service.values.exitShow, service.values.switchPpt], [true, true]);
});

formTest('turning the black screen off leaves its rivals alone', {
  prepare: (service) => { service.values = someValues({ black: true }); },
}, async (page) => {
  await set(page, 'black', false);
  assert.deepEqual((await draft(page)).pending, { black: '0' });
});

formTest('an edit during a save stays pending and goes out right after it', {}, async (page, service) => {
  const release = service.hold();
  await set(page, 'sound', true);
  await page.clock.runFor(1);
  await until(async () => assert.equal(forms(service).length, 1));
  await set(page, 'sound', false);
  await page.fill(field('opacity'), '30');
  release();
  await until(async () => assert.equal((await draft(page)).saving, false));
  assert.deepEqual((await draft(page)).pending, { sound: '0', opacity: '30' });
  await page.clock.runFor(1);  // not the 700 milliseconds of a number
  await until(async () => assert.deepEqual(await draft(page), clean));
  assert.deepEqual(forms(service).map(({ revision, sound, opacity }) => [revision, sound, opacity]),
    [['0000000000000001', '1', '80'], ['0000000000000002', '0', '30']]);
});

formTest('one save is in flight at a time', {}, async (page, service) => {
  const release = service.hold();
  await set(page, 'sound', true);
  await page.clock.runFor(1);
  await set(page, 'blink', false);
  await page.clock.runFor(1000);
  await until(async () => assert.equal(forms(service).length, 1));
  release();
  await until(async () => assert.equal((await draft(page)).saving, false));
  await page.clock.runFor(300);
  await until(async () => assert.equal(forms(service).length, 2));
  assert.equal(forms(service)[1].blink, '0');
});

formTest('a save waits for a command, 300 milliseconds at a time', {}, async (page, service) => {
  const release = service.hold();
  await page.click('[data-cmd=manual]');
  await set(page, 'sound', true);
  await page.clock.runFor(650);
  assert.equal(forms(service).length, 0);
  release();
  await shows(page, '#message', '操作已完成');
  await page.clock.runFor(300);
  await saved(page);
});

formTest('a stale revision keeps the draft and is not tried again', { complaints: true },
  async (page, service) => {
    service.revision = 7;
    await set(page, 'sound', true);
    await page.clock.runFor(1);
    await shows(page, '#advanced-status', stale + ' 输入已保留。');
    assert.deepEqual(await draft(page), { ...clean, dirty: true, pending: { sound: '1' } });
    assert.equal(await page.isChecked(field('sound')), true);
    await page.clock.runFor(10_000);
    assert.equal(forms(service).length, 1);
  });

formTest('what a failed save kept goes out with the next edit', { complaints: true }, async (page, service) => {
  service.refusal = 'gone';
  await set(page, 'sound', true);
  await page.clock.runFor(1);
  await until(async () => assert.match(await page.textContent('#advanced-status'), / 输入已保留。$/));
  service.refusal = null;
  await set(page, 'blink', false);
  await page.clock.runFor(1);
  await saved(page);
  assert.deepEqual(forms(service).map(({ sound, blink }) => [sound, blink]), [['1', '1'], ['1', '0']]);
});

for (const [type, body] of [['application/json', '{}'], ['text/plain', 'Bad request']]) {
  formTest(`a refusal without a reason (${type}) says that saving failed`, { complaints: true },
    async (page, service) => {
      service.refusal = { status: 400, type, body };
      await set(page, 'sound', true);
      await page.clock.runFor(1);
      await shows(page, '#advanced-status', '保存失败 输入已保留。');
    });
}

formTest('a save without an answer gives up after four seconds and keeps the draft', { complaints: true },
  async (page, service) => {
    service.hold();
    await set(page, 'sound', true);
    await page.clock.runFor(1);
    await page.clock.runFor(4100);
    await until(async () => assert.match(await page.textContent('#advanced-status'), / 输入已保留。$/));
    assert.deepEqual((await draft(page)).pending, { sound: '1' });
  });

formTest('reloading over a draft asks first', {}, async (page, service) => {
  const questions = [];
  let answer = false;
  page.on('dialog', (dialog) => {
    questions.push(dialog.message());
    return answer ? dialog.accept() : dialog.dismiss();
  });
  await page.fill(field('opacity'), '5');
  await page.click('#load-controls');
  assert.deepEqual(questions, ['重新加载会放弃当前遥控端草稿，继续？']);
  assert.equal(await page.inputValue(field('opacity')), '5');
  assert.equal(service.asked('controls').length, 1);

  answer = true;
  await page.click('#load-controls');
  await shows(page, '#advanced-status', '已加载电脑当前参数。');
  assert.equal(await page.inputValue(field('opacity')), '80');
  assert.deepEqual(await draft(page), clean);
});

formTest('reloading without a draft does not ask', {}, async (page, service) => {
  service.values.opacity = 33;
  await page.click('#load-controls');
  await until(async () => assert.equal(await page.inputValue(field('opacity')), '33'));
});

formTest('what waited to be saved does not go out after a reload', {}, async (page, service) => {
  page.on('dialog', (dialog) => dialog.accept());
  await page.fill(field('opacity'), '45');
  await page.click('#load-controls');
  await until(async () => assert.equal(await page.inputValue(field('opacity')), '80'));
  await page.clock.runFor(2000);
  assert.equal(forms(service).length, 0);
});

formTest('the Enter key in a number does not send the form away', {}, async (page, service) => {
  await page.focus(field('opacity'));
  await page.keyboard.press('Enter');
  assert.equal(new URL(page.url()).search, '');
  assert.equal(service.requests.filter(({ method }) => method === 'POST').length, 0);
});

// Changes that the page itself makes behind its form.

const loads = (service) => service.asked('controls').filter(({ method }) => method === 'GET').length;
const noQuestion = (page) => page.on('dialog', () => assert.fail('asked a question'));

for (const [cmd, name, value] of [
  ['countup', 'down', false], ['countdown', 'down', true], ['clock-on', 'machineTime', true],
  ['clock-off', 'machineTime', false],
]) {
  formTest(`after ${cmd} the form shows it, and takes the next edit`,
    { prepare: (service) => Object.assign(service.values, { [name]: !value }) }, async (page, service) => {
      noQuestion(page);
      await page.click(`[data-cmd=${cmd}]`);
      await until(async () => assert.equal(await page.isChecked(field(name)), value));
      assert.equal(loads(service), 2);
      await set(page, 'sound', true);
      await page.clock.runFor(1);
      await saved(page);
      assert.deepEqual([service.values[name], service.values.sound], [value, true]);
      assert.equal(loads(service), 2);
    });
}

formTest('after an applied duration the form shows it', {}, async (page) => {
  await page.click('#back-control');
  await page.fill('#minutes', '20');
  await page.click('#set-duration');
  await until(async () => assert.equal(await page.inputValue(field('duration')), '1200'));
});

formTest('other commands leave the form alone', {}, async (page, service) => {
  await page.$eval(field('opacity'), (input) => { input.id = 'same'; });
  await page.click('[data-cmd=manual]');
  await shows(page, '#message', '操作已完成');
  await nextPoll(page);
  assert.equal(loads(service), 1);
  assert.equal(await page.isVisible('#same'), true);
});

pageTest('a command loads no form that nobody has opened', {}, async (page, service) => {
  await page.fill('#minutes', '20');
  await page.click('#set-duration');
  await shows(page, '#message', '操作已完成');
  await nextPoll(page);
  assert.equal(loads(service), 0);
});

formTest('a command does not touch an edit', {}, async (page, service) => {
  noQuestion(page);
  await page.fill(field('opacity'), '5');
  await page.click('[data-cmd=countup]');
  await shows(page, '#message', '操作已完成');
  await nextPoll(page);
  assert.equal(loads(service), 1);
  assert.equal(await page.inputValue(field('opacity')), '5');
});

formTest('an edit that begins while the form loads itself stays', {}, async (page, service) => {
  noQuestion(page);
  let release;
  await page.route('**/api/controls', async (route) => {
    await new Promise((resolve) => { release = resolve; });
    await route.continue();
  });
  await page.click('[data-cmd=countup]');
  await until(() => assert.ok(release));
  await page.fill(field('opacity'), '5');
  release();
  await until(() => assert.equal(loads(service), 2));
  await nextPoll(page);  // earlier requests have arrived by then
  assert.equal(await page.inputValue(field('opacity')), '5');
  assert.deepEqual((await draft(page)).invalid, ['opacity']);
});

formTest('a command during a save loads the form after it', {}, async (page, service) => {
  noQuestion(page);
  let release;
  await page.route('**/api/controls', async (route) => {
    const response = await route.fetch();  // saved, but the answer is delayed
    await new Promise((resolve) => { release = resolve; });
    await route.fulfill({ response });
  }, { times: 1 });
  await set(page, 'sound', true);
  await page.clock.runFor(1);
  await until(() => assert.ok(release));
  await page.click('[data-cmd=countup]');
  await shows(page, '#message', '操作已完成');
  assert.equal(loads(service), 1);
  release();
  await until(async () => assert.equal(await page.isChecked(field('down')), false));
  await set(page, 'blink', false);
  await page.clock.runFor(1);
  await saved(page);
});

formTest('a form that could not load itself tries again after the next command', { complaints: true },
  async (page, service) => {
    await page.route('**/api/controls', (route) => route.abort(), { times: 1 });
    await page.click('[data-cmd=countup]');
    await shows(page, '#message', '操作已完成');
    await nextPoll(page);
    assert.equal(await page.isChecked(field('down')), true);
    await page.click('[data-cmd=manual]');
    await until(async () => assert.equal(await page.isChecked(field('down')), false));
    assert.equal(loads(service), 2);
  });
