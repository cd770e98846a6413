#!/usr/bin/env bash
# ./run.sh [project.ZC3]: installs what is missing, builds, opens the program. Where there is no
# display it draws the project (or an example) to a picture and a table and says where they are.
set -euo pipefail
top=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
project=${1:+$(realpath -m "$1")}

"$top/tools/install_deps.sh"
"$top/tools/build.sh" zorvant
program=$top/build/zorvant

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  exec "$program" ${project:+"$project"}
fi
echo "There is no display to open a window on."
project=${project:-$top/examples/n2o5.ZC3}
name=$(basename "${project%.*}")
mkdir -p "$top/build/pictures"
"$program" --export "$top/build/pictures/$name.png" --table "$top/build/pictures/$name.TXT" "$project"
echo "The diagram of $project is in $top/build/pictures/$name.png,"
echo "its table in $top/build/pictures/$name.TXT."
