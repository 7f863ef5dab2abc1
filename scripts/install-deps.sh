#!/usr/bin/env bash
# Installs the packages of a package list (scripts/packages.txt unless one is
# named) that are not installed yet. Runs apt-get only when something is
# missing; uses sudo only when not root.
set -euo pipefail

here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
list="${1:-${here}/packages.txt}"

missing=()
while read -r line; do
  pkg="${line%%#*}"
  pkg="${pkg//[[:space:]]/}"
  [[ -z "${pkg}" ]] && continue
  if ! dpkg -s "${pkg}" 2>/dev/null | grep -q '^Status: install ok installed$'; then
    missing+=("${pkg}")
  fi
done <"${list}"

if ((${#missing[@]} == 0)); then
  echo "install-deps: all packages present"
  exit 0
fi

echo "install-deps: installing ${missing[*]}"
as_root=()
if [[ "$(id -u)" != 0 ]]; then
  if ! command -v sudo >/dev/null; then
    echo "install-deps: not root and sudo is not available; install as root: ${missing[*]}" >&2
    exit 1
  fi
  as_root=(sudo)
fi
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends \
  "${missing[@]}"
