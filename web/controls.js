// The controls beside the screen. Each sends one request; what it changed
// shows on the screen and in the state, and the controls follow the status.

import { postJson } from './api.js';

const $ = (id) => document.getElementById(id);

export function attachControls(status, refresh) {
  const act = async (path, body) => {
    await postJson(path, body);
    refresh();
  };

  $('enabled').addEventListener('change', (e) => act('/api/settings', { enabled: e.target.checked }));
  $('darkMode').addEventListener('change', (e) => act('/api/settings', { darkMode: e.target.checked }));
  $('activationMethod').addEventListener('change', (e) =>
    act('/api/settings', { activationMethod: Number(e.target.value) }));

  $('home').addEventListener('click', () => act('/api/home', {}));
  $('doubleHome').addEventListener('click', () => act('/api/home', { double: true }));
  $('keyboard').addEventListener('click', (e) => act('/api/keyboard', { show: e.target.dataset.show === 'true' }));
  $('lock').addEventListener('click', (e) => act('/api/lock', { locked: e.target.dataset.locked === 'true' }));

  const apps = $('notifyApp');
  for (const app of status.apps) apps.add(new Option(`${app.name} (${app.id})`, app.id));
  $('notify').addEventListener('click', () =>
    act('/api/notify', { icon: apps.value, title: $('notifyTitle').value, message: $('notifyMessage').value }));

  const pages = $('pages');
  for (let index = 0; index < status.pages; index++) {
    const button = document.createElement('button');
    button.textContent = `Page ${index + 1}`;
    button.dataset.page = index;
    button.addEventListener('click', () => act('/api/page', { index }));
    pages.append(button);
  }
  const folders = $('folders');
  for (const name of status.folders) {
    const button = document.createElement('button');
    button.textContent = `Folder ${name}`;
    button.dataset.folder = name;
    button.addEventListener('click', () =>
      act('/api/folder', { name, open: button.dataset.open !== 'true' }));
    folders.append(button);
  }

  const speed = $('speed');
  speed.addEventListener('input', () => {
    $('speedValue').textContent = `×${Number(speed.value).toFixed(1)}`;
  });
  speed.addEventListener('change', () => act('/api/speed', { speed: Number(speed.value) }));
}

// The controls as the phone now is.
export function showStatus(status) {
  $('enabled').checked = status.settings.enabled;
  $('darkMode').checked = status.settings.darkMode;
  $('activationMethod').value = String(status.settings.activationMethod);
  const keyboard = $('keyboard');
  keyboard.textContent = status.keyboard ? 'Keyboard down' : 'Keyboard up';
  keyboard.dataset.show = String(!status.keyboard);
  const lock = $('lock');
  lock.textContent = status.locked ? 'Unlock' : 'Lock';
  lock.dataset.locked = String(!status.locked);
  for (const button of $('pages').children) button.classList.toggle('on', Number(button.dataset.page) === status.page);
  for (const button of $('folders').children) {
    const open = button.dataset.folder === status.openFolder;
    button.dataset.open = String(open);
    button.classList.toggle('on', open);
  }
  if (document.activeElement !== $('speed')) {
    $('speed').value = status.speed;
    $('speedValue').textContent = `×${Number(status.speed).toFixed(1)}`;
  }
  $('eventCount').textContent = status.events;
  $('origin').textContent = `from ${status.origin}`;
  $('clock').textContent = `t = ${status.time.toFixed(2)} s`;
}
