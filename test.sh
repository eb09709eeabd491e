#!/usr/bin/env bash
# Builds everything and runs the tests: ./test.sh [preset], release by default.
set -euo pipefail
cd "$(dirname "$0")"
preset=${1:-release}
compiler=()
[ "$preset" != asan ] || compiler=(clang libclang-rt-14-dev)  # with its sanitizers
scripts/setup.sh "${compiler[@]}"
cmake --preset "$preset" ${VKT_CMAKE_ARGS:-} >/dev/null
cmake --build --preset "$preset"
ctest --preset "$preset" -j "$(nproc)"
