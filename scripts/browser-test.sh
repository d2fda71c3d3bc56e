#!/usr/bin/env bash
# The page of `tessel-sim serve` in Chromium, driven by Playwright: installs
# what is missing (Debian's chromium, the test's npm packages), builds
# tessel-sim if needed, serves the demo's phone on a free port, runs the
# test, and stops the server.
#   bash scripts/browser-test.sh            (BUILD_DIR=build by default)
#   TESSEL_SCREENSHOT=docs/serve-screenshot.png bash scripts/browser-test.sh
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD
build_dir=${BUILD_DIR:-build}

bash scripts/setup.sh chromium
command -v node >/dev/null || bash scripts/setup.sh nodejs
command -v npm >/dev/null || bash scripts/setup.sh npm
if [ ! -d tests/browser/node_modules/playwright-core ]; then
  (cd tests/browser && PLAYWRIGHT_SKIP_BROWSER_DOWNLOAD=1 npm ci --no-audit --no-fund)
fi
if [ ! -x "$build_dir/tessel-sim" ]; then
  bash scripts/setup.sh
  cmake -S . -B "$build_dir" -DTESSEL_BENCH=OFF >/dev/null
fi
cmake --build "$build_dir" -j"$(nproc)" --target tessel-sim >/dev/null

log=$(mktemp)
"$build_dir/tessel-sim" serve --port 0 >"$log" 2>&1 &
server=$!
stop_server() {
  kill -TERM "$server" 2>/dev/null && wait "$server" || true
  rm -f "$log"
}
trap stop_server EXIT

url=""
for _ in $(seq 100); do
  url=$(grep -o 'http://[^ ]*' "$log" | head -n1 || true)
  [ -n "$url" ] && break
  kill -0 "$server" 2>/dev/null || { cat "$log" >&2; exit 1; }
  sleep 0.1
done
[ -n "$url" ] || { echo "browser-test: the server did not start" >&2; cat "$log" >&2; exit 1; }
echo "browser-test: serving at $url"

screenshot=${TESSEL_SCREENSHOT:+$root/$TESSEL_SCREENSHOT}
(cd tests/browser && TESSEL_URL="$url" TESSEL_SCREENSHOT="$screenshot" node serve_page.test.mjs)
