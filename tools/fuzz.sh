#!/usr/bin/env bash
# Fuzzes one parser for some minutes and says how many inputs it ran.
#     tools/fuzz.sh TARGET MINUTES     TARGET: table_text, xy, zc3, zi3, number_text, oc2, paint; or
#                                      "all", in turn
# Starts from the corpus of the repository. New inputs that reach new code are kept in
# build-fuzz/corpus/TARGET and used again; an input that breaks something is put into
# build-fuzz/findings/TARGET. When the fault is mended, the input goes into fuzz/corpus, where every
# test run replays it.
set -euo pipefail
cd "$(dirname "$0")/.."
targets=$(basename -s .cpp -a fuzz/fuzz_*.cpp fuzz/qt/fuzz_*.cpp | sed 's/^fuzz_//')
usage() {
  { echo "tools/fuzz.sh TARGET MINUTES"; echo "targets: all" $targets; } >&2
  exit 2
}
[ $# -eq 2 ] && [[ "$2" =~ ^[0-9]+$ ]] && [ "$2" -gt 0 ] || usage
if [ "$1" != all ]; then
  grep -qx -- "${1#fuzz_}" <<<"$targets" || usage
  targets=${1#fuzz_}
fi

tools/install_deps.sh --all
if [ ! -f build-fuzz/build.ninja ]; then
  CC=clang CXX=clang++ cmake -S . -B build-fuzz -G Ninja \
    -DZORVANT_TESTS=OFF -DZORVANT_FUZZ=ON >/dev/null
fi
status=0
for target in $targets; do
  ninja -C build-fuzz "fuzz_$target"
  found=build-fuzz/findings/$target kept=build-fuzz/corpus/$target log=build-fuzz/$target.log
  mkdir -p "$found" "$kept"
  seeds=fuzz/corpus/fuzz_$target
  memory=64
  if [ "$target" = paint ]; then # designs, and the toolkit's share on top
    seeds=fuzz/corpus/fuzz_oc2 memory=256
    export ASAN_OPTIONS=detect_leaks=0 # the font library keeps what it has read
  fi
  before=$(find "$found" -type f | wc -l)
  # 1 MiB of input must do with 64 MiB (the sanitizers' own share comes on top), and never hang.
  "build-fuzz/fuzz_$target" -max_total_time=$(($2 * 60)) -max_len=1048576 -len_control=20 \
    -timeout=10 -rss_limit_mb=1024 -malloc_limit_mb=$memory -print_final_stats=1 \
    -artifact_prefix="$found/" "$kept" "$seeds" >"$log" 2>&1 || status=1
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
  new=$(($(find "$found" -type f | wc -l) - before))
  echo "$target: ${runs:-an unknown number of} executions in $2 min, $new findings" \
    "($found; what was said: $log)"
done
exit $status
