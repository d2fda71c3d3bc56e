// The mouse as a finger: press, drag and release on the screen go to the
// phone as raw touches at points; the server decides what gesture they make.

import { postJson } from './api.js';

const kMoveInterval = 30; // ms between two moves sent

export function attachTouches(canvas, pointsWide) {
  let pressed = false;
  let lastMove = 0;
  // In order: a move must not overtake its down.
  let queue = Promise.resolve();
  const send = (body) => {
    queue = queue.then(() => postJson('/api/touch', body));
  };
  const pointOf = (event) => {
    const perPoint = canvas.clientWidth / pointsWide;
    return [event.offsetX / perPoint, event.offsetY / perPoint];
  };

  canvas.addEventListener('pointerdown', (event) => {
    if (event.button !== 0) return;
    event.preventDefault();
    canvas.setPointerCapture(event.pointerId);
    pressed = true;
    send({ phase: 'down', point: pointOf(event) });
  });
  canvas.addEventListener('pointermove', (event) => {
    if (!pressed || event.timeStamp - lastMove < kMoveInterval) return;
    lastMove = event.timeStamp;
    send({ phase: 'move', point: pointOf(event) });
  });
  canvas.addEventListener('pointerup', (event) => {
    if (!pressed) return;
    pressed = false;
    send({ phase: 'up', point: pointOf(event) });
  });
  canvas.addEventListener('pointercancel', () => {
    if (!pressed) return;
    pressed = false;
    send({ phase: 'cancel' });
  });
}
