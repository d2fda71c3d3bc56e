// The live state beside the screen, read from the state dump: the open
// panel's rows, the shared presentation state and the last opening and
// closing on a time axis.

import { getJson } from './api.js';
import { drawTimeline } from './timeline.js';
import { framesPerSecond } from './screen.js';

const $ = (id) => document.getElementById(id);
const kKeys = 'time,shared,panel,home,controller,launched,animations';

function format(value) {
  if (Array.isArray(value)) {
    return `[${value.map((v) => (typeof v === 'number' ? Number(v.toFixed(2)) : JSON.stringify(v))).join(', ')}]`;
  }
  if (typeof value === 'number') return String(Number(value.toFixed(3)));
  return JSON.stringify(value);
}

function showPanel(state) {
  const panel = $('panel');
  panel.replaceChildren();
  const last = state.launched.length ? state.launched[state.launched.length - 1] : 'none';
  const facts = document.createElement('div');
  facts.className = 'dim';
  facts.textContent = `page ${state.home.page + 1}` +
    (state.home.openFolder ? ` · folder ${state.home.openFolder} open` : '') +
    (state.home.locked ? ' · locked' : '') + ` · last launched: ${last}`;
  panel.append(facts);
  if (!state.panel) {
    panel.append('No panel open.');
    return;
  }
  const head = document.createElement('div');
  head.textContent = `${state.panel.bundleIdentifier}: ${state.panel.rows} rows` +
    (state.panel.emptyLabel ? ` (“${state.panel.emptyLabel}”)` : '');
  panel.append(head);
  state.panel.cells.forEach((cell, row) => {
    const item = document.createElement('div');
    item.className = 'cell';
    item.dataset.row = row;
    item.innerHTML = '<b></b> <span></span> <div class="age"></div>';
    item.querySelector('b').textContent = cell.title;
    item.querySelector('span').textContent = cell.detail.trim();
    item.querySelector('.age').textContent = cell.age;
    panel.append(item);
  });
}

function showShared(shared) {
  const table = $('shared');
  table.replaceChildren();
  for (const [key, value] of Object.entries(shared || {})) {
    const row = table.insertRow();
    row.insertCell().textContent = key;
    row.insertCell().textContent = format(value);
  }
}

export function makeStateView(speedOf) {
  let busy = false;
  let again = false;
  const refresh = async () => {
    if (busy) {
      again = true;
      return;
    }
    busy = true;
    try {
      const state = await getJson(`/state.json?only=${kKeys}`);
      showPanel(state);
      showShared(state.shared);
      const { opening } = drawTimeline($('timeline'), state.animations);
      if (opening) {
        const fps = framesPerSecond(opening.start, opening.end, speedOf());
        $('fps').textContent = `The last opening was shown at ${fps.toFixed(1)} frames a second.`;
      }
    } catch {
      // the next frame asks again
    } finally {
      busy = false;
      if (again) {
        again = false;
        setTimeout(refresh, 100);
      }
    }
  };
  return refresh;
}
