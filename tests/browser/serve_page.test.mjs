// The page of `tessel-sim serve`, driven in Chromium with the mouse as a
// person would: a swipe up on an icon opens the panel (in the state and in
// the pixels), a click on a row launches the app, light mode shows the white
// panel; the frame rate of an opening is measured and printed.
//
//   TESSEL_URL=http://127.0.0.1:PORT/ node serve_page.test.mjs
// (scripts/browser-test.sh starts the server and runs this.)

import assert from 'node:assert/strict';
import { writeFile } from 'node:fs/promises';
import { after, before, test } from 'node:test';
import { chromium } from 'playwright-core';

const base = process.env.TESSEL_URL;
const minFps = Number(process.env.TESSEL_MIN_FPS ?? 30);
const screenshotPath = process.env.TESSEL_SCREENSHOT;
assert.ok(base, 'TESSEL_URL names the running server');

let browser;
let page;

const sleep = (ms) => new Promise((resolve) => setTimeout(resolve, ms));

async function state() {
  const response = await fetch(new URL('/state.json', base));
  assert.equal(response.status, 200);
  return response.json();
}

async function until(what, predicate, timeoutMs = 20000) {
  const end = Date.now() + timeoutMs;
  for (;;) {
    const s = await state();
    if (predicate(s)) return s;
    if (Date.now() > end) assert.fail(`timed out waiting for ${what}`);
    await sleep(100);
  }
}

// A view's frame in window coordinates: the state dump gives frames in the
// superview's coordinates.
function windowFrame(s, id) {
  let [x, y] = [0, 0];
  const [, , width, height] = s.views[id].frame;
  for (let view = id; view; view = s.views[view].superview) {
    x += s.views[view].frame[0];
    y += s.views[view].frame[1];
  }
  return { x, y, width, height };
}

// The average colour of a rectangle (in points) of a screenshot of the
// screen, decoded by the browser.
async function averageColor(png, rect) {
  return page.evaluate(async ({ data, rect }) => {
    const bytes = Uint8Array.from(atob(data), (c) => c.charCodeAt(0));
    const bitmap = await createImageBitmap(new Blob([bytes], { type: 'image/png' }));
    const canvas = new OffscreenCanvas(bitmap.width, bitmap.height);
    const context = canvas.getContext('2d');
    context.drawImage(bitmap, 0, 0);
    const x = Math.round(rect.x);
    const y = Math.max(0, Math.round(rect.y));
    const w = Math.round(rect.width);
    const h = Math.min(bitmap.height - y, Math.round(rect.height));
    const pixels = context.getImageData(x, y, w, h).data;
    const sum = [0, 0, 0];
    for (let i = 0; i < pixels.length; i += 4) for (let c = 0; c < 3; c++) sum[c] += pixels[i + c];
    const n = pixels.length / 4;
    return sum.map((v) => v / n);
  }, { data: png.toString('base64'), rect });
}

const luminance = ([r, g, b]) => 0.2126 * r + 0.7152 * g + 0.0722 * b;

async function screenShot() {
  return page.locator('#screen').screenshot();
}

// Press on the icon's picture, drag up by 120 points in steps, release.
async function swipeUp(s, icon) {
  const box = await page.locator('#screen').boundingBox();
  const frame = windowFrame(s, s.home.iconViews[icon]);
  const x = box.x + frame.x + frame.width / 2;
  const y = box.y + frame.y + 30;
  await page.mouse.move(x, y);
  await page.mouse.down();
  for (let step = 1; step <= 6; step++) {
    await page.mouse.move(x, y - step * 20);
    await sleep(16);
  }
  await page.mouse.up();
}

// Animations that start while another runs make one burst; the opening is
// the burst in which the panel grows from its strip.
function lastOpening(animations) {
  const sorted = [...animations].sort((a, b) => a.start - b.start);
  let current = null;
  let opening = null;
  for (const a of sorted) {
    if (current && a.start <= current.end + 0.05) {
      current.end = Math.max(current.end, a.start + a.duration);
      current.list.push(a);
    } else {
      current = { start: a.start, end: a.start + a.duration, list: [a] };
    }
    if (a.property === 'frame' && a.to[3] > a.from[3] + 1) opening = current;
  }
  return opening;
}

before(async () => {
  browser = await chromium.launch({
    executablePath: process.env.CHROMIUM ?? '/usr/bin/chromium',
    args: ['--no-sandbox', '--disable-dev-shm-usage'],
  });
  page = await browser.newPage({ viewport: { width: 1300, height: 960 } });
  await page.goto(base);
  await page.waitForFunction(() => window.tesselShown && window.tesselShown.length > 0);
});

after(async () => {
  await browser?.close();
});

test('a swipe up on an icon opens its panel, seen in the state and in the pixels; the opening is measured', async () => {
  const before = await state();
  assert.equal(before.panel, null, 'no panel open at the start');
  const panelArea = { x: 0, y: 120, width: 390, height: 300 };
  const homePixels = await averageColor(await screenShot(), panelArea);

  const shownBefore = await page.evaluate(() => window.tesselShown.length);
  await swipeUp(before, 'com.example.mail');
  const open = await until('the Mail panel', (s) => s.panel && s.panel.bundleIdentifier === 'com.example.mail');
  assert.equal(open.panel.rows, 3);
  // Let the opening finish, then look at the panel where it stands.
  assert.ok(lastOpening(open.animations), 'the opening animations are in the state');
  // Its later stages are added as the earlier ones end: once none is added,
  // the opening is whole.
  await until('the end of the opening', (s) => s.time > lastOpening(s.animations).end + 0.3);
  const settled = await state();
  const opening = lastOpening(settled.animations);
  const panel = windowFrame(settled, settled.controller.genericView);
  const panelPixels = await averageColor(await screenShot(), panel);
  const homeThere = await averageColor(
    Buffer.from(await (await fetch(new URL('/frame.png', base))).arrayBuffer()), panel);
  assert.ok(Math.abs(luminance(panelPixels) - luminance(homeThere)) < 8,
    'the page shows the latest frame');
  assert.ok(luminance(panelPixels) < luminance(homePixels) - 10,
    `the dark panel darkens the screen (${luminance(homePixels).toFixed(0)} → ${luminance(panelPixels).toFixed(0)})`);
  if (screenshotPath) await page.screenshot({ path: screenshotPath });

  const shown = await page.evaluate((from) => window.tesselShown.slice(from), shownBefore);
  const speed = (await (await fetch(new URL('/api/status', base))).json()).speed;
  const during = new Set(shown.filter((s) => s.time >= opening.start && s.time <= opening.end).map((s) => s.frame));
  const seconds = (opening.end - opening.start) / speed;
  const fps = during.size / seconds;
  console.log(`opening: ${during.size} distinct frames shown over ${(seconds * 1000).toFixed(0)} ms ` +
    `of the phone's time at x${speed}: ${fps.toFixed(1)} fps`);
  assert.ok(fps >= minFps, `the opening plays at ${fps.toFixed(1)} fps, below ${minFps}`);
});

test('a click on a row closes the panel and launches the app', async () => {
  const s = await state();
  const table = Object.keys(s.views).find((id) => s.views[id].class === 'UITableView' && s.views[id].superview);
  assert.ok(table, 'the panel has its table');
  const frame = windowFrame(s, table);
  const rowHeight = s.views[table].rowHeight;
  const box = await page.locator('#screen').boundingBox();
  await page.mouse.click(box.x + frame.x + frame.width / 2, box.y + frame.y + rowHeight / 2);
  const launched = await until('Mail launched', (t) => t.launched.at(-1) === 'com.example.mail');
  await until('the panel gone', (t) => t.panel === null);
  assert.equal(launched.launched.at(-1), 'com.example.mail');
});

test('light mode shows the panel on a white backdrop', async () => {
  // The launch before this finishes a little later, and would close a panel
  // opened sooner, as any foreign action does.
  const launched = (await state()).time;
  await until('the launch to finish', (s) => s.time > launched + 1);
  await page.locator('#darkMode').uncheck();
  const light = await until('dark mode off', (s) => s.shared.darkMode === false);
  await swipeUp(light, 'com.example.weather');
  const open = await until('the Weather panel', (s) => s.panel && s.panel.bundleIdentifier === 'com.example.weather');
  assert.ok(lastOpening(open.animations), 'the opening animations are in the state');
  await until('the end of the opening', (s) => s.time > lastOpening(s.animations).end + 0.3);
  const settled = await state();
  assert.equal(settled.controller.isLightMode, true);
  const panel = windowFrame(settled, settled.controller.genericView);
  const [r, g, b] = await averageColor(await screenShot(), panel);
  assert.ok(r > 200 && g > 200 && b > 200, `the panel is white (${[r, g, b].map((v) => v.toFixed(0))})`);
});
