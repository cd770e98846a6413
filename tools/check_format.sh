#!/usr/bin/env bash
# Fails, with a list, when a source file is not as .clang-format wants it.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
rooms=(platform engine data reactors residence evaluation simulations diagrams shell tests bench fuzz)
bad=$(find "${rooms[@]}" \( -name '*.h' -o -name '*.cpp' \) -print0 2>/dev/null |
  xargs -0 -n 40 -P 2 clang-format --dry-run -Werror 2>&1 |
  sed -n 's/:[0-9]*:[0-9]*: error: .*//p' | sort -u || true)
if [ -n "$bad" ]; then
  printf 'clang-format -i is due on:\n%s\n' "$bad"
  exit 1
fi
