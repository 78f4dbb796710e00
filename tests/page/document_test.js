// The document before the first answer: order of its parts, names, texts and ranges.
import assert from 'node:assert/strict';
import { pageTest } from './browser.js';

function documentTest(name, body) {
  pageTest(name, { waits: false, prepare: (service) => service.hold() }, body);
}

const text = (page, selector) => page.$eval(selector, (element) => element.textContent);
const attributes = (page, selector, names) => page.$eval(selector, (element, wanted) =>
  wanted.map((name) => element.getAttribute(name)), names);

async function assertTexts(page, expected) {
  for (const [selector, words] of Object.entries(expected)) assert.equal(await text(page, selector), words, selector);
}

/** Asserts that the elements occur in this order in the document. */
async function assertOrder(page, selectors) {
  const order = await page.evaluate((wanted) => {
    const elements = [...document.querySelectorAll('*')];
    return wanted.map((selector) => elements.indexOf(document.querySelector(selector)));
  }, selectors);
  assert.ok(!order.includes(-1), String(order));
  assert.deepEqual(order, [...order].sort((a, b) => a - b));
}

documentTest('the document is in Chinese and fits the phone', async (page) => {
  assert.deepEqual(await attributes(page, 'html', ['lang']), ['zh-CN']);
  assert.deepEqual(await attributes(page, 'meta[name=viewport]', ['content']),
    ['width=device-width,initial-scale=1,viewport-fit=cover']);
});

documentTest('the header leads to the three panels', async (page) => {
  await assertOrder(page, ['header .logo', 'h1', '#address', '[data-tab=pair]', '#theme-toggle', '#settings-tab',
    '#back-control']);
  await assertTexts(page, { h1: 'Marlune 遥控器', '#back-control': '返回' });
  assert.deepEqual(await attributes(page, '[data-tab=pair]', ['class', 'aria-label']), ['connection offline', '连接状态']);
  assert.deepEqual(await attributes(page, '#settings-tab', ['data-tab', 'aria-label']), ['timer', '系统设置']);
  assert.deepEqual(await attributes(page, '#back-control', ['data-tab']), ['control']);
  assert.equal(await page.isVisible('#back-control'), false);
});

documentTest('the control panel has its parts in order, and the others wait', async (page) => {
  await assertOrder(page, ['#clock-mode', '#clock', '#summary', '[data-cmd]', '#keyboard-toggle', '#minutes',
    '#refresh-status', '#files', '#panel-timer', '#panel-pair', '#message']);
  assert.deepEqual(await Promise.all(['#panel-control', '#panel-timer', '#panel-pair'].map((id) => page.isVisible(id))),
    [true, false, false]);
  assert.equal(await page.$eval('#files', (files) => files.closest('#panel-control > *').previousElementSibling
    .contains(document.querySelector('#clock'))), true);
});

documentTest('the control panel says what its parts are', async (page) => {
  await assertTexts(page, {
    '#refresh-status': '刷新状态', '#refresh-files': '刷新列表', '#set-duration': '应用时长', '#keyboard-record': 'F5',
  });
  const words = await text(page, '#panel-control');
  for (const part of ['快捷键控制', '允许使用键盘控制播放', '当前页放映快捷键', '快捷设置时长', 'PPT 文件列表',
    '在电脑的PPT控制设置中选择文件夹。',
    '方向键、Page Up / Page Down 翻页；空格或回车下一页；Esc 退出放映。输入或操作控件时不会触发快捷键。']) {
    assert.ok(words.includes(part), part);
  }
  assert.deepEqual(await attributes(page, '[data-cmd=toggle]', ['class']), ['primary wide']);
  assert.deepEqual(await attributes(page, '[data-cmd=reset]', ['class']), ['warn']);
  assert.equal(await page.isVisible('#keyboard-options'), false);
});

documentTest('minutes and seconds are numbers within their ranges', async (page) => {
  assert.deepEqual(await attributes(page, '#minutes', ['type', 'min', 'max', 'value']), ['number', '0', '999', '8']);
  assert.deepEqual(await attributes(page, '#seconds', ['type', 'min', 'max', 'value']), ['number', '0', '59', '0']);
});

documentTest('the settings panel has its groups, and the form below them', async (page) => {
  await assertOrder(page, ['[data-cmd=automatic]', '[data-cmd=manual]', '[data-cmd=countdown]', '[data-cmd=countup]',
    '[data-cmd=clock-on]', '[data-cmd=clock-off]', '#advanced', '#load-controls', '#advanced-status', '#control-form']);
  await assertTexts(page, {
    '#advanced summary': '计时、外观、到期动作与两级预警', '#load-controls': '重新加载电脑参数', '#machine': '',
    '#advanced small': '提示音和切换文稿使用电脑端已选择的文件；窗口尺寸和文稿文件夹请在电脑端设置。',
  });
  assert.deepEqual(await page.$$eval('#panel-timer h2', (found) => found.map((title) => title.textContent)),
    ['控制模式', '计时方向', '系统时钟']);
  assert.equal(await page.$eval('#advanced', (details) => details.tagName + details.open), 'DETAILSfalse');
});

documentTest('the pairing panel tells how to connect', async (page) => {
  await page.click('.connection');
  await assertTexts(page, {
    '#panel-pair h2': '连接远程遥控',
    '#panel-pair p': '请扫描电脑上的二维码，或输入电脑地址和端口。遥控设备与电脑需连接同一局域网。',
  });
});
