#!/usr/bin/env bash
# Installs what is missing, configures the `default` preset, builds everything
# and runs the whole test suite.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

cmake --build --preset default --parallel "${VESK_JOBS}"
ctest --preset default --parallel "${VESK_JOBS}"
