#!/usr/bin/env bash
# ./test.sh: installs what is missing, builds, runs all tests and prints ctest's closing lines.
# The output of the tests is in build/tests.log.
set -euo pipefail
top=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
cd "$top"

tools/install_deps.sh
tools/check_format.sh
ZORVANT_WERROR=ON tools/build.sh
status=0
ctest --test-dir build -j 2 --output-on-failure >build/tests.log 2>&1 || status=$?
[ "$status" -eq 0 ] || grep -E '\*\*\*|Failure|\[  FAILED' build/tests.log || true
tail -n 6 build/tests.log
exit "$status"
