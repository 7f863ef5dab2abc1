#!/usr/bin/env bash
# The Windows stage: installs the cross compiler and Wine, cross-builds the
# dependencies once per machine (scripts/windows-deps.sh), then configures
# the `windows` preset, builds everything with MinGW-w64 and runs the whole
# test suite under Wine.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

jobs="${VESK_JOBS:-$(nproc 2>/dev/null || echo 2)}"
stamp() { echo "== $(date -u +%H:%M:%S) $*"; }

stamp "windows: dependencies"
VESK_DEPS_JOBS="${VESK_DEPS_JOBS:-${jobs}}" bash scripts/windows-deps.sh
# Wine's prefix is made once, before the build runs test programs (test
# discovery) in parallel.
stamp "windows: Wine prefix"
bash scripts/wine-run.sh wineboot --init >/dev/null 2>&1
stamp "windows: configure"
cmake --preset windows
stamp "windows: build"
cmake --build --preset windows --parallel "${jobs}"
stamp "windows: test under Wine"
ctest --preset windows --parallel "${jobs}"
