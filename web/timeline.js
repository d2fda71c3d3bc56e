// The animations of the last opening and closing of the panel on a time
// axis: one row per view and property, a bar from start to end.

// Animations that start while another is running belong to one burst.
function bursts(animations) {
  const sorted = [...animations].sort((a, b) => a.start - b.start);
  const result = [];
  for (const animation of sorted) {
    const end = animation.start + animation.duration;
    const current = result[result.length - 1];
    if (current && animation.start <= current.end + 0.05) {
      current.animations.push(animation);
      current.end = Math.max(current.end, end);
    } else {
      result.push({ start: animation.start, end, animations: [animation] });
    }
  }
  return result;
}

// The panel grows from a strip when it opens and folds back when it closes;
// nothing else changes height.
function kindOf(burst) {
  let kind = null;
  for (const a of burst.animations) {
    if (a.property !== 'frame' || !Array.isArray(a.from) || !Array.isArray(a.to)) continue;
    if (a.to[3] > a.from[3] + 1) kind = kind || 'opening';
    if (a.to[3] < a.from[3] - 1) kind = kind || 'closing';
  }
  return kind;
}

export function lastOpeningAndClosing(animations) {
  const found = {};
  for (const burst of bursts(animations)) {
    const kind = kindOf(burst);
    if (kind) found[kind] = burst;
  }
  return found;
}

const NS = 'http://www.w3.org/2000/svg';
function element(name, attributes, text) {
  const node = document.createElementNS(NS, name);
  for (const [key, value] of Object.entries(attributes)) node.setAttribute(key, value);
  if (text !== undefined) node.textContent = text;
  return node;
}

function drawBurst(title, burst) {
  const rows = new Map();
  for (const a of burst.animations) {
    const key = `${a.target} ${a.property}`;
    if (!rows.has(key)) rows.set(key, []);
    rows.get(key).push(a);
  }
  const label = 110;
  const width = 520;
  const rowHeight = 12;
  const top = 22;
  const height = top + rows.size * rowHeight + 18;
  const span = Math.max(burst.end - burst.start, 0.001);
  const x = (t) => label + ((t - burst.start) / span) * (width - label - 10);
  const svg = element('svg', { viewBox: `0 0 ${width} ${height}`, role: 'img' });
  svg.append(element('text', { x: 4, y: 13 },
    `${title}: t = ${burst.start.toFixed(3)} s, ${Math.round(span * 1000)} ms, ${burst.animations.length} animations`));
  let y = top;
  for (const [key, list] of rows) {
    svg.append(element('text', { x: 4, y: y + 9 }, key));
    for (const a of list) {
      const finished = a.finished !== false;
      svg.append(element('rect', {
        x: x(a.start), y: y + 2, height: rowHeight - 3,
        width: Math.max(1, x(a.start + a.duration) - x(a.start)),
        fill: a.property === 'alpha' ? '#c38cff' : '#5aa9ff',
        opacity: finished ? 0.9 : 0.4,
      }));
    }
    y += rowHeight;
  }
  svg.append(element('line', { class: 'axis', x1: label, x2: width - 10, y1: y + 2, y2: y + 2 }));
  const step = span > 0.6 ? 0.2 : 0.1;
  for (let t = 0; t <= span + 1e-9; t += step) {
    svg.append(element('text', { class: 'tick', x: x(burst.start + t) - 8, y: y + 14 }, `${Math.round(t * 1000)}`));
  }
  return svg;
}

export function drawTimeline(container, animations) {
  const { opening, closing } = lastOpeningAndClosing(animations);
  container.replaceChildren();
  if (opening) container.append(drawBurst('Opening', opening));
  if (closing) container.append(drawBurst('Closing', closing));
  if (!opening && !closing) container.textContent = 'No panel has opened yet.';
  return { opening, closing };
}
