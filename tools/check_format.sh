#!/usr/bin/env bash
# Fails, with a list, when a source file is not as .clang-format wants it or has a line (a comment
# too, which clang-format leaves alone) of more than 100 columns.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
rooms=(platform engine data reactors residence evaluation simulations diagrams dialogs shell
  tests bench fuzz tools)
mapfile -d '' files < <(find "${rooms[@]}" \( -name '*.h' -o -name '*.cpp' \) -print0)
status=0

unformatted=$(printf '%s\0' "${files[@]}" |
  xargs -0 clang-format --dry-run -Werror 2>&1 |
  sed -n 's/:[0-9]*:[0-9]*: error: .*//p' | sort -u || true)
if [ -n "$unformatted" ]; then
  printf 'clang-format -i is due on:\n%s\n' "$unformatted"
  status=1
fi
long=$(LC_ALL=C.UTF-8 grep -nE '^.{101,}' "${files[@]}" | cut -c 1-100 || true)
if [ -n "$long" ]; then
  printf 'lines of more than 100 columns:\n%s\n' "$long"
  status=1
fi
exit $status
