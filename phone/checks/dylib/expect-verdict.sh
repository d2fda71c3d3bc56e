#!/usr/bin/env bash
# Runs check-dylib.sh on DYLIB and requires exactly the named checks to fail
# (none named: all must pass), with the exit status to match.
#   expect-verdict.sh CHECK_DYLIB DYLIB [FAILING_CHECK...]
set -uo pipefail
checker=$1 dylib=$2
shift 2
output=$("$checker" "$dylib")
status=$?
echo "$output"

expected=$(printf '%s\n' "$@" | sed '/^$/d' | sort)
actual=$(sed -n 's/^FAIL \([^:]*\):.*/\1/p' <<<"$output" | sort)
if [ "$actual" != "$expected" ]; then
  echo "expected failing checks: [${expected//$'\n'/, }], got: [${actual//$'\n'/, }]"
  exit 1
fi
if [ $# -eq 0 ] && [ "$status" -ne 0 ]; then
  echo "expected exit status 0, got $status"
  exit 1
fi
if [ $# -gt 0 ] && [ "$status" -ne 1 ]; then
  echo "expected exit status 1, got $status"
  exit 1
fi
if ! grep -qx "check-dylib: $((8 - $#)) passed, $# failed" <<<"$output"; then
  echo "summary line missing or wrong"
  exit 1
fi
