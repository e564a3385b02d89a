#!/usr/bin/env bash
# Makes the pictures of the documentation anew from the running program, with the demo's files in a home of its own.
#
#   tools/pictures.sh [PROGRAM]                  docs/*.png, from build/release/main/quorvane
#   tools/pictures.sh --windows PROGRAM.exe      docs/windows-*.png, under Wine; needs the targets winctl and shutdown
set -euo pipefail
cd "$(dirname "$0")/.."

root=/tmp/home/ada
pictures=$PWD/docs
if [[ -e $root ]]; then
  echo "$root is there already; please remove it first." >&2
  exit 1
fi
trap 'rm -rf "$root"; rmdir /tmp/home 2>/dev/null || true' EXIT

make_sample() {
  mkdir -p "$root/Documents" "$root/Backup"
  python3 -B tools/demo_files.py make "$root/Documents" >/dev/null
  # Without what the demo has to show failures and rare letters.
  chmod u+r "$root/Documents/Documents/Private/diary.txt"
  rm "$root/Documents/Documents/old link.txt"
  mv "$root/Documents/Photos/2024/Grandma's 80th "* "$root/Documents/Photos/2024/Grandma's 80th"
}

# Like the demo's setup, with other paths and four of the folders.
save_sample_setup() {
  mkdir -p "$1/Quorvane"
  printf '%s\r\n' "$2" "$3" ' 0 ' ' 0 ' ' 0 ' ' 1 ' ' 0 ' ' 0 ' 'Browser cache/, .tmp' ' 4 ' \
    Archive Documents Photos Projects '' >"$1/Quorvane/qvr.usr"
}

windows_pictures() {
  local prefix=$PWD/build/pictures-wine config
  # Without a previous run, as on Linux. A new prefix knows of none.
  tools/wine.sh "$prefix" reg delete 'HKCU\Software\Quorvane' /f >/dev/null 2>&1 || true
  config=$(find "$prefix/drive_c/users" -maxdepth 3 -path '*/AppData/Roaming' -not -path '*/Public/*' | head -n 1)
  save_sample_setup "$config" 'Q:\Documents' 'Q:\Backup'
  QV_PROGRAM=$1 QV_TOOLS=$(dirname "$1")/../tests QV_PREFIX=$prefix \
    python3 -B tools/pictures.py windows "$root" "$pictures/windows-"
}

make_sample
if [[ ${1:-} == --windows ]]; then
  windows_pictures "$(realpath "$2")"
else
  save_sample_setup "$root/settings" "$root/Documents" "$root/Backup"
  QV_PROGRAM=$(realpath "${1:-build/release/main/quorvane}") /usr/bin/python3 -B tools/pictures.py linux "$root" "$pictures/"
fi
ls -l "$pictures"/*.png
