#!/usr/bin/env bash
# Runs a cross-built Windows program under Wine: the emulator of the `windows`
# preset (CMAKE_CROSSCOMPILING_EMULATOR), used by CTest and by test discovery.
# The program finds vesk.dll beside itself and the DLLs of the MinGW runtime
# and of the cross-built dependencies through WINEPATH. Wine keeps its own
# prefix under ~/.cache/vesk, made on the first run.
set -euo pipefail

deps="${VESK_WINDOWS_DEPS:-${HOME}/.cache/vesk/windows-deps/current}"
gcc_dir="$(dirname "$(x86_64-w64-mingw32-g++-posix -print-libgcc-file-name)")"
# Unix folders are named through drive Z:, Wine's view of the root.
path="Z:${gcc_dir};Z:/usr/x86_64-w64-mingw32/lib;Z:$(readlink -f "${deps}")/bin"
export WINEPATH="${path}${WINEPATH:+;${WINEPATH}}"
export WINEPREFIX="${WINEPREFIX:-${HOME}/.cache/vesk/wine}"
export WINEDEBUG="${WINEDEBUG:--all,err+virtual}"
# No Mono or Gecko installer prompts when the prefix is made.
export WINEDLLOVERRIDES="${WINEDLLOVERRIDES:-mscoree,mshtml=}"
mkdir -p "$(dirname "${WINEPREFIX}")"
unset DISPLAY

wine=/usr/lib/wine/wine64
command -v wine64 >/dev/null && wine="$(command -v wine64)"
# One Wine server for the whole test run, kept for 30 s after its last
# program ends: a server that quits between two tests while the next one
# connects resets that program's connection ("recvmsg: Connection reset").
# Starting it is refused at once when one is running already. A new server
# gets Wine's helper processes started here, with no standard streams: the
# first program would otherwise hand them its output pipe, and whoever reads
# that pipe (CTest, test discovery) would wait until the server ends.
if /usr/lib/wine/wineserver64 -p30 </dev/null >/dev/null 2>&1; then
  "${wine}" wineboot </dev/null >/dev/null 2>&1 || true
fi
# Debian's Wine has no preloader to reserve its fixed addresses, and now and
# then a program's start finds the page of the shared user data taken
# ("failed to map the shared user data") and ends with status 1 before any
# of the program has run. Such a start is made again; Wine's errors of that
# one channel (WINEDEBUG above) stay on to tell it apart from a failing test.
errors="$(mktemp)"
trap 'rm -f "${errors}"' EXIT
for attempt in 1 2 3 4 5; do
  status=0
  "${wine}" "$@" 2>"${errors}" || status=$?
  if [[ ${status} -eq 0 ]] || ! grep -q "failed to map the shared user data" "${errors}"; then
    break
  fi
  echo "wine-run.sh: Wine could not map its shared user data (start ${attempt}); starting again" >&2
done
cat "${errors}" >&2
exit "${status}"
