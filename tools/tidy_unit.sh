#!/usr/bin/env bash
# tidy_unit.sh UNIT: prints what clang-tidy finds in the unit; only if it finds something it leaves a log in build/tidy.
# What the build for Windows compiles is read with the headers of mingw-w64.
unit=$1
name=${unit#"$PWD"/}
log=build/tidy/${name//\//_}.log
options=(-p build/tidy-linux)
checks=-bugprone-suspicious-include # a unit includes its sources
case $unit in
  */tidy-windows/* | */win32/* | */windows/* | *_windows.cpp)
    compiler=$(x86_64-w64-mingw32-g++-posix -print-file-name=include)/c++
    options=(-p build/tidy-windows --extra-arg-before=--target=x86_64-w64-windows-gnu)
    for folder in "$compiler" "$compiler/x86_64-w64-mingw32" /usr/x86_64-w64-mingw32/include; do
      options+=("--extra-arg=-isystem$folder")
    done
    checks+=,-performance-no-int-to-ptr # the system's calls hand pointers over as numbers
    ;;
esac
if clang-tidy --quiet "${options[@]}" "--checks=$checks" --extra-arg=-Wno-unknown-warning-option "$unit" >"$log" 2>/dev/null; then
  rm "$log"
else
  cat "$log"
fi
