// The page on the headless program, and tests that need its commands.
import assert from 'node:assert/strict';
import { anyService, testsOn } from './any_service.js';
import { shows } from './browser.js';
import { Headless } from './headless.js';
import { wireTests } from './wire.js';

const start = () => new Headless().start();
const { remoteTest } = testsOn(start);

anyService(start);
wireTests(start);

remoteTest('unfinished input on the computer is not overwritten', { complaints: true }, async (page, service) => {
  await service.obey('dirty');
  await page.fill('#minutes', '5');
  await page.click('#set-duration');
  await shows(page, '#message', '电脑有尚未完成的输入，请先修正或完成输入。');
});

remoteTest('the connection is lost with the service and found again', { complaints: true }, async (page, service) => {
  await service.obey('stop');
  await shows(page, '#connection', '断线重连');
  assert.equal(await page.isDisabled('[data-cmd=next]'), true);
  await service.obey('start');
  await shows(page, '#connection', '已连接');
  assert.equal(await page.isDisabled('[data-cmd=next]'), false);
});

// The clock is frozen so that no poll precedes the click: its answer would show the page as
// disconnected, or the poll would use up the click's own time-out.
remoteTest('a computer that is busy for long is reported in its own words', { complaints: true, frozen: true },
  async (page, service) => {
    await service.obey('block');
    await page.click('[data-cmd=toggle]');
    await shows(page, '#message', 'UI unavailable; command may be pending. Refresh state before retry.');
    await shows(page, '#message-hint', '电脑正忙，操作可能稍后才生效。请先看画面和计时有没有变化，再决定是否重试。');
    await page.clock.runFor(1000);
    await shows(page, '#connection', '断线重连');
    await service.obey('unblock');
    await page.clock.resume();
    await shows(page, '#connection', '已连接');
    await shows(page, '#message', '');
    await shows(page, '#message-hint', '');
  });
