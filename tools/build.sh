#!/usr/bin/env bash
# tools/build.sh [target ...]: configures and builds into build/; everything without a target.
set -euo pipefail
top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cmake -S "$top" -B "$top/build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
  -DZORVANT_WERROR="${ZORVANT_WERROR:-OFF}" >/dev/null
cmake --build "$top/build" -j 2 ${1:+--target "$@"}
