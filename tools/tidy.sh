#!/usr/bin/env bash
# Runs clang-tidy, with the checks of .clang-tidy, over every source of the program and fails when it
# finds something.
#     tools/tidy.sh [FILE ...]     only these files
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# clang reads no header that GCC has precompiled.
cmake -S . -B build-tidy -G Ninja -DCMAKE_CXX_COMPILER=clang++ -DZORVANT_TESTS=OFF \
  -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON >/dev/null
ninja -C build-tidy zorvant_qt_autogen >/dev/null
rooms=(platform engine data reactors residence evaluation simulations diagrams dialogs shell)
files=("$@")
[ $# -gt 0 ] || mapfile -t files < <(find "${rooms[@]}" -name '*.cpp' | sort)
printf '%s\0' "${files[@]}" |
  xargs -0 -n 1 -P 2 clang-tidy -p build-tidy --quiet --warnings-as-errors='*' 2>/dev/null ||
  { echo "clang-tidy has found faults."; exit 1; }
