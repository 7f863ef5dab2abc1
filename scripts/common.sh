# Shared by the run-*.sh scripts: moves to the top of the tree, installs what
# is missing and configures the `default` preset. Source it, don't run it.
set -euo pipefail

VESK_ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
cd "${VESK_ROOT}"

# Parallel jobs for building and testing (override with VESK_JOBS=n).
VESK_JOBS="${VESK_JOBS:-$(nproc 2>/dev/null || echo 2)}"

bash scripts/install-deps.sh
cmake --preset default
