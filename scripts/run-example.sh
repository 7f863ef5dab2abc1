#!/usr/bin/env bash
# Installs what is missing, configures the `default` preset, builds the XML
# round trip example (an order written to a file and read back) and runs it.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

cmake --build --preset default --parallel "${VESK_JOBS}" --target example_xml_roundtrip
./build/default/examples/xml_roundtrip "${TMPDIR:-/tmp}/vesk-order.xml"
