#!/usr/bin/env bash
# tidy_file.sh FILE: prints what clang-tidy finds in the file; only if it finds something it leaves a log in build/tidy.
# What only the build for Windows compiles is read with the headers of mingw-w64.
log=build/tidy/${1//\//_}.log
options=(-p build/tidy-linux)
case $1 in
  *win32* | */windows/* | *_windows.cpp)
    compiler=$(x86_64-w64-mingw32-g++-posix -print-file-name=include)/c++
    options=(-p build/tidy-windows --extra-arg-before=--target=x86_64-w64-windows-gnu)
    for folder in "$compiler" "$compiler/x86_64-w64-mingw32" /usr/x86_64-w64-mingw32/include; do
      options+=("--extra-arg=-isystem$folder")
    done
    ;;
esac
if clang-tidy --quiet "${options[@]}" --extra-arg=-Wno-unknown-warning-option "$1" >"$log" 2>/dev/null; then
  rm "$log"
else
  cat "$log"
fi
