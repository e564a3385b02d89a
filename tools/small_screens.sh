#!/usr/bin/env bash
# Takes pictures of every window on the smallest screens that the program is made for.
#
#   tools/small_screens.sh FOLDER [PROGRAM]                 from build/release/main/quorvane
#   tools/small_screens.sh --windows FOLDER PROGRAM.exe     under Wine; needs the targets winctl and shutdown
set -euo pipefail
cd "$(dirname "$0")/.."

kind=linux
if [[ ${1:-} == --windows ]]; then
  kind=windows
  shift
fi
QV_PROGRAM=$(realpath "${2:-build/release/main/quorvane}")
QV_TOOLS=$(dirname "$QV_PROGRAM")/../tests
QV_PREFIX=$PWD/build/pictures-wine
export QV_PROGRAM QV_TOOLS QV_PREFIX

while read -r size percent; do
  /usr/bin/python3 -B tools/small_screens.py "$kind" "$size" "$percent" "$1"
done <<'END'
1024x560 100
1366x728 125
1366x728 150
1920x1040 175
1920x1040 200
END
ls "$1"/*.png
