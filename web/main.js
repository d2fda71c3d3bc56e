// The page: the phone's screen, driven by the mouse, the controls and the
// live state, all from one phone that every open tab shares.

import { getJson, onProblem } from './api.js';
import { attachControls, showStatus } from './controls.js';
import { startScreen } from './screen.js';
import { makeStateView } from './state_view.js';
import { attachTouches } from './touch.js';

const kStateInterval = 250; // ms: at most this often while frames change

async function start() {
  onProblem((text) => {
    document.getElementById('message').textContent = text;
  });
  let status = await getJson('/api/status');
  const refreshStatus = async () => {
    try {
      status = await getJson('/api/status');
      showStatus(status);
    } catch {
      // the server is gone for now; the screen retries
    }
  };
  const refreshState = makeStateView(() => status.speed);
  const refresh = () => {
    refreshStatus();
    refreshState();
  };

  const canvas = document.getElementById('screen');
  attachTouches(canvas, status.screen.width);
  attachControls(status, refresh);
  showStatus(status);
  refreshState();

  // The state follows the frames, but not faster than a few times a second.
  let lastRefresh = 0;
  let pending = null;
  startScreen(canvas, status.screen.width, () => {
    const wait = lastRefresh + kStateInterval - performance.now();
    if (pending) return;
    pending = setTimeout(() => {
      pending = null;
      lastRefresh = performance.now();
      refresh();
    }, Math.max(0, wait));
  });
  // Other tabs change the phone too.
  setInterval(refreshStatus, 2000);
}

start();
