#!/usr/bin/env bash
# Builds the library and its tests with clang under AddressSanitizer and UndefinedBehaviorSanitizer in a
# build directory of their own, then runs the whole test suite there. Any report stops the test that made
# it and fails the run. The Qt binding stays out of this build.
set -euo pipefail

cd "$(dirname "$0")/.."
BUILD_DIR=${SANITIZE_BUILD_DIR:-build-asan}
FLAGS="-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer"

if [ ! -f "$BUILD_DIR/build.ninja" ]; then
  CC=clang-14 CXX=clang++-14 cmake -S . -B "$BUILD_DIR" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_FLAGS="$FLAGS" \
    -DCMAKE_EXE_LINKER_FLAGS="-fsanitize=address,undefined" -DQUILLMAR_QT=OFF -DQUILLMAR_BENCH=OFF \
    -DQUILLMAR_TESTS=ON -DBUILD_SHARED_LIBS=OFF >/dev/null
fi
cmake --build "$BUILD_DIR"

export ASAN_OPTIONS=halt_on_error=1:detect_leaks=1:print_stacktrace=1:strict_string_checks=1:detect_stack_use_after_return=1
export UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1
ctest --test-dir "$BUILD_DIR" --output-on-failure -j2
