#!/usr/bin/env bash
# Cross-builds the Windows build's dependencies with MinGW-w64: Xerces-C 3.2
# from Debian's source package and GoogleTest from /usr/src/googletest (Debian
# ships no MinGW builds of either). They are installed into
# ~/.cache/vesk/windows-deps/<version>, outside the clone, and built only
# once per machine: a later run finds the finished tree and returns at once.
# ~/.cache/vesk/windows-deps/current names the tree the `windows` preset uses.
#
# Xerces-C is built with the Windows transcoder, the in-memory message loader
# and no network accessor: the library never fetches anything, and the
# system's own code-page tables do the transcoding. XMLCh is char16_t, as on
# Linux. ICU is not built: on Windows the library takes case mapping and
# character classes from the system (see docs/DECISIONS.md).
#
# Builds run with one job at low priority unless VESK_DEPS_JOBS says otherwise.
set -euo pipefail

here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
bash "${here}/install-deps.sh" "${here}/packages-windows.txt"

as_root=()
if [[ "$(id -u)" != 0 ]]; then as_root=(sudo); fi

jobs="${VESK_DEPS_JOBS:-1}"
cache="${VESK_WINDOWS_DEPS_CACHE:-${HOME}/.cache/vesk/windows-deps}"
gtest_version="$(dpkg-query -W -f '${Version}' googletest)"
gcc_version="$(x86_64-w64-mingw32-g++-posix -dumpfullversion)"
# Bump when the build options below change, so every machine rebuilds.
recipe=1

# Debian's source packages need deb-src lines; they are added (once) beside
# the machine's deb lines when missing.
if ! apt-cache showsrc xerces-c 2>/dev/null | grep -q '^Version:'; then
  echo "windows-deps: enabling Debian source packages"
  "${as_root[@]}" tee /etc/apt/sources.list.d/vesk-deb-src.sources >/dev/null <<'EOF'
Types: deb-src
URIs: http://deb.debian.org/debian
Suites: bookworm bookworm-updates
Components: main
Signed-By: /usr/share/keyrings/debian-archive-keyring.gpg
EOF
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update
fi
xerces_version="$(apt-cache showsrc xerces-c | sed -n 's/^Version: //p' | sort -V | tail -n 1)"

version="xerces-c-${xerces_version}_googletest-${gtest_version}_mingw-gcc-${gcc_version}_r${recipe}"
prefix="${cache}/${version}"
if [[ -f "${prefix}/.complete" ]]; then
  echo "windows-deps: ${prefix} is complete"
  ln -sfn "${version}" "${cache}/current"
  exit 0
fi

# The sources and build trees stay until the run completes, so an interrupted
# run goes on where it stopped.
work="${cache}/build-${version}"
rm -rf "${prefix}"
mkdir -p "${prefix}" "${work}"
toolchain="${here}/../cmake/mingw-w64-x86_64.cmake"
stamp() { echo "== windows-deps $(date -u +%H:%M:%S) $*"; }

common=(-G Ninja -DCMAKE_TOOLCHAIN_FILE="${toolchain}" -DCMAKE_BUILD_TYPE=Release
        -DCMAKE_INSTALL_PREFIX="${prefix}" -DVESK_WINDOWS_DEPS="${prefix}")

stamp "Xerces-C ${xerces_version}: source"
xerces_src="$(find "${work}" -maxdepth 1 -type d -name 'xerces-c-*' | head -n 1)"
if [[ -z "${xerces_src}" ]]; then
  (cd "${work}" && apt-get source --only-source "xerces-c=${xerces_version}" >/dev/null)
  xerces_src="$(find "${work}" -maxdepth 1 -type d -name 'xerces-c-*' | head -n 1)"
  # The library only: its samples and tests are not needed, some of its
  # tests do not build with MinGW (<Windows.h> in mixed case), and Debian's
  # source package has no prebuilt HTML documentation to install.
  sed -i -e '/^add_subdirectory(\(tests\|samples\|doc\))$/d' \
    "${xerces_src}/CMakeLists.txt"
fi
stamp "Xerces-C: configure and build (${jobs} job(s))"
cmake -S "${xerces_src}" -B "${work}/xerces-build" "${common[@]}" \
  -DBUILD_SHARED_LIBS=ON \
  -Dnetwork=OFF \
  -Dtranscoder=windows \
  -Dmessage-loader=inmemory \
  -Dmutex-manager=windows \
  -Dxmlch-type=char16_t \
  >"${work}/xerces-configure.log" || { cat "${work}/xerces-configure.log"; exit 1; }
nice -n 10 cmake --build "${work}/xerces-build" --parallel "${jobs}"
cmake --install "${work}/xerces-build" >/dev/null

stamp "GoogleTest ${gtest_version}: configure and build"
cmake -S /usr/src/googletest -B "${work}/gtest-build" "${common[@]}" -DBUILD_GMOCK=OFF \
  >"${work}/gtest-configure.log" || { cat "${work}/gtest-configure.log"; exit 1; }
nice -n 10 cmake --build "${work}/gtest-build" --parallel "${jobs}"
cmake --install "${work}/gtest-build" >/dev/null

touch "${prefix}/.complete"
ln -sfn "${version}" "${cache}/current"
rm -rf "${work}"
stamp "done: ${prefix}"
