#!/usr/bin/env bash
# Installs what is missing, configures the `default` preset, builds the first
# example program and runs it.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

cmake --build --preset default --parallel "${VESK_JOBS}" --target example_hello
./build/default/examples/hello
