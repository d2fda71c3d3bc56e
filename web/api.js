// Requests to the phone's server. Every refusal comes back as {"error": …}.

let report = () => {};

// Where refusals and lost connections are told to the person.
export function onProblem(show) {
  report = show;
}

export async function postJson(path, body) {
  try {
    const response = await fetch(path, {
      method: 'POST',
      headers: { 'Content-Type': 'application/json' },
      body: JSON.stringify(body),
    });
    const answer = await response.json().catch(() => ({}));
    if (!response.ok) report(answer.error || `${path}: status ${response.status}`);
    else report('');
    return response.ok ? answer : null;
  } catch (error) {
    report(`${path}: ${error.message}`);
    return null;
  }
}

export async function getJson(path) {
  const response = await fetch(path, { cache: 'no-store' });
  if (!response.ok) throw new Error(`${path}: status ${response.status}`);
  return response.json();
}
