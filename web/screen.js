// The phone's screen: frames taken from the server as soon as each is drawn
// (one request waiting at a time), put on the canvas unencoded.

const sleep = (ms) => new Promise((resolve) => setTimeout(resolve, ms));

// Every frame shown, for measuring: {frame, time (the phone's), at (page ms)}.
// Kept on the window as well, where a test can read it.
export const shown = [];
window.tesselShown = shown;
const kKeepShown = 2000;

export function startScreen(canvas, pointsWide, onFrame) {
  const context = canvas.getContext('2d');
  canvas.style.width = `${pointsWide}px`;
  let last = 0;
  (async () => {
    for (;;) {
      let response;
      try {
        response = await fetch(`/frame.rgba?after=${last}`, { cache: 'no-store' });
      } catch {
        last = 0; // the server may come back with frames numbered afresh
        await sleep(1000);
        continue;
      }
      if (response.status === 204) continue;
      if (!response.ok) {
        await sleep(1000);
        continue;
      }
      const width = Number(response.headers.get('X-Width'));
      const height = Number(response.headers.get('X-Height'));
      const frame = Number(response.headers.get('X-Frame'));
      const time = Number(response.headers.get('X-Time'));
      const pixels = new Uint8ClampedArray(await response.arrayBuffer());
      if (pixels.length !== width * height * 4) continue;
      if (canvas.width !== width || canvas.height !== height) {
        canvas.width = width;
        canvas.height = height;
      }
      context.putImageData(new ImageData(pixels, width, height), 0, 0);
      last = frame;
      shown.push({ frame, time, at: performance.now() });
      if (shown.length > kKeepShown) shown.splice(0, shown.length - kKeepShown);
      onFrame(frame, time);
    }
  })();
}

// Frames shown a second while the phone's clock ran from `start` to `end`
// at `speed`.
export function framesPerSecond(start, end, speed) {
  const frames = new Set(shown.filter((s) => s.time >= start && s.time <= end).map((s) => s.frame));
  const wallSeconds = (end - start) / speed;
  return wallSeconds > 0 ? frames.size / wallSeconds : 0;
}
