#!/usr/bin/env bash
# Builds the libFuzzer targets with clang and runs each for a bounded time over a copy of its committed
# seed corpus (the committed corpus is never changed). Any crash, leak, timeout or memory blow-up fails the
# run; one summary line per target tells how many inputs it ran.
# FUZZ_SECONDS sets the time per target (20 s) and FUZZ_TARGETS a space-separated subset, for longer runs:
#   FUZZ_SECONDS=600 FUZZ_TARGETS=typing tools/fuzz-smoke.sh
set -euo pipefail

cd "$(dirname "$0")/.."
BUILD_DIR=${FUZZ_BUILD_DIR:-build-fuzz}
SECONDS_PER_TARGET=${FUZZ_SECONDS:-20}
read -r -a TARGETS <<<"${FUZZ_TARGETS:-pattern pattern_diff number datetime store formfile typing csv}"

if [ ! -f "$BUILD_DIR/build.ninja" ]; then
  CC=clang-14 CXX=clang++-14 cmake -S . -B "$BUILD_DIR" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DQUILLMAR_FUZZ=ON -DQUILLMAR_TESTS=OFF -DQUILLMAR_BENCH=OFF \
    -DQUILLMAR_QT=OFF -DBUILD_SHARED_LIBS=OFF >/dev/null
fi
cmake --build "$BUILD_DIR" --target quillmar_fuzzers

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# A smaller quarantine keeps a long run well under the memory limit; it only shortens how long freed memory
# stays poisoned.
export ASAN_OPTIONS=halt_on_error=1:detect_leaks=1:print_stacktrace=1:quarantine_size_mb=64
export UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1

failed=0
summary=()
for target in "${TARGETS[@]}"; do
  corpus="$work/corpus-$target"
  mkdir -p "$corpus" "$work/artifacts-$target"
  cp fuzz/corpus/"$target"/* "$corpus"/
  log="$work/$target.log"
  if "$BUILD_DIR/fuzz/fuzz_$target" "$corpus" -max_total_time="$SECONDS_PER_TARGET" -timeout=1 \
    -rss_limit_mb=512 -malloc_limit_mb=64 -print_final_stats=1 \
    -artifact_prefix="$work/artifacts-$target/" >"$log" 2>&1; then
    result=ok
  else
    result=FAILED
    failed=1
    echo "== fuzz_$target failed; the end of its log:" >&2
    tail -n 40 "$log" >&2
    for artifact in "$work/artifacts-$target"/*; do
      [ -e "$artifact" ] || continue
      mkdir -p "$BUILD_DIR/fuzz-findings"
      cp "$artifact" "$BUILD_DIR/fuzz-findings/$target-$(basename "$artifact")"
      echo "   input kept as $BUILD_DIR/fuzz-findings/$target-$(basename "$artifact")" >&2
    done
  fi
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -n 1)
  summary+=("$(printf 'fuzz %-13s %10s executions  %s' "$target" "${runs:-?}" "$result")")
done

printf '%s\n' "${summary[@]}"
exit "$failed"
