#!/usr/bin/env bash
# Builds the fuzzers of the tool's input readers (fuzz/) and runs each one.
#   bash scripts/fuzz.sh [SECONDS]   fuzz each target for SECONDS (60)
#   bash scripts/fuzz.sh --regress   run every kept input once: the seeds in
#                                    fuzz/corpus/ and the crashes in fuzz/crashes/
# BUILD_DIR (build-fuzz) holds the build, the working corpora (the seeds
# copied in; the repository is never written), logs and crash files.
# Exits non-zero when any target crashed, leaked or timed out.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)

mode=fuzz
seconds=60
case "${1:-}" in
  --regress) mode=regress ;;
  '') ;;
  *[!0-9]* | 0)
    echo "usage: $0 [SECONDS] | --regress" >&2
    exit 2
    ;;
  *) seconds=$1 ;;
esac

build_dir=${BUILD_DIR:-build-fuzz}
case "$build_dir" in /*) ;; *) build_dir="$root/$build_dir" ;; esac

bash scripts/setup.sh clang-14 libclang-rt-14-dev lld-14 \
  cmake make pkg-config libplist-dev libpng-dev nlohmann-json3-dev libfmt-dev \
  libcairo2-dev libpango1.0-dev libwebp-dev libgtest-dev libgmock-dev

cmake -S fuzz -B "$build_dir" -DCMAKE_CXX_COMPILER=clang++-14 -DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=lld >/dev/null
cmake --build "$build_dir" -j2 >"$build_dir/build.log" 2>&1 || {
  tail -40 "$build_dir/build.log" >&2
  echo "fuzz: the build failed (whole log: $build_dir/build.log)" >&2
  exit 1
}

targets=(property_list scenario png)
declare -A dictionaries=([property_list]=fuzz/plist.dict [scenario]=fuzz/scenario.dict [png]=fuzz/png.dict)
limits=(-timeout=10 -rss_limit_mb=2048)
# The lines of a log that say why a target stopped: a sanitizer's or
# libFuzzer's report, an assertion, or a broken promise of the reader.
reasons='ERROR: |runtime error|Assertion|^(settings file|scenario|PNG): '
failed=0

# The files libFuzzer wrote for what stopped it, since `since` was touched.
findings() {
  local directory=$1 since=$2
  find "$directory" -maxdepth 1 -type f \( -name 'crash-*' -o -name 'leak-*' -o -name 'timeout-*' -o -name 'oom-*' \
    -o -name 'slow-unit-*' \) -newer "$since" 2>/dev/null | sort
}

regress() {
  local target=$1 fuzzer=$2 log=$3
  local inputs=()
  for kind in corpus crashes; do
    [ -d "fuzz/$kind/$target" ] || continue
    while IFS= read -r -d '' file; do inputs+=("$file"); done < <(find "fuzz/$kind/$target" -type f -print0 | sort -z)
  done
  if [ ${#inputs[@]} -eq 0 ]; then
    echo "$target: no kept inputs"
    failed=1
    return
  fi
  if "$fuzzer" "${limits[@]}" "${inputs[@]}" >"$log" 2>&1; then
    echo "$target: ${#inputs[@]} kept inputs, each read without a finding"
  else
    echo "$target: FAILED on $(sed -n 's/^Running: //p' "$log" | tail -1) (log: $log)"
    grep -E "$reasons" "$log" | head -3 | sed 's/^/  /'
    failed=1
  fi
}

fuzz() {
  local target=$1 fuzzer=$2 log=$3
  local corpus="$build_dir/corpus/$target" artifacts="$build_dir/artifacts/$target"
  mkdir -p "$corpus" "$artifacts"
  for seed in "fuzz/corpus/$target"/*; do
    [ -e "$corpus/$(basename "$seed")" ] || cp "$seed" "$corpus/"
  done
  local dictionary=()
  [ -f "${dictionaries[$target]}" ] && dictionary=(-dict="${dictionaries[$target]}")
  local started="$build_dir/logs/$target.started"
  touch "$started"
  local status=0
  "$fuzzer" "${limits[@]}" -max_total_time="$seconds" -print_final_stats=1 -artifact_prefix="$artifacts/" \
    "${dictionary[@]}" "$corpus" >"$log" 2>&1 || status=$?
  local runs elapsed
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -1)
  [ -n "$runs" ] || runs=$(sed -n 's/^Done \([0-9]*\) runs.*/\1/p' "$log" | tail -1)
  elapsed=$(sed -n 's/^Done [0-9]* runs in \([0-9]*\) second.*/\1/p' "$log" | tail -1)
  local found
  found=$(findings "$artifacts" "$started")
  if [ "$status" -eq 0 ] && [ -z "$found" ]; then
    local rate=""
    [ -n "$elapsed" ] && [ "$elapsed" -gt 0 ] && rate=" ($((runs * 60 / elapsed)) a minute)"
    echo "$target: ${runs:-?} executions in ${elapsed:-?} s${rate}, $(find "$corpus" -type f | wc -l) inputs in $corpus"
    return
  fi
  echo "$target: FAILED after ${runs:-?} executions (exit $status, log: $log)"
  grep -E "$reasons" "$log" | head -3 | sed 's/^/  /'
  if [ -n "$found" ]; then
    while IFS= read -r file; do echo "  crash file: $file"; done <<<"$found"
  else
    echo "  no crash file was written"
  fi
  failed=1
}

mkdir -p "$build_dir/logs"
# The targets write each input to a scratch file; libFuzzer's own exits skip
# their clean-up, so the scratch files stay in the build directory.
export TMPDIR="$build_dir/tmp"
rm -rf "$TMPDIR"
mkdir -p "$TMPDIR"
for target in "${targets[@]}"; do
  fuzzer="$build_dir/${target}_fuzzer"
  log="$build_dir/logs/$target.$mode.log"
  if [ "$mode" = regress ]; then
    regress "$target" "$fuzzer" "$log"
  else
    fuzz "$target" "$fuzzer" "$log"
  fi
done
exit "$failed"
