#!/usr/bin/env bash
# tidy_file.sh FILE: prints what clang-tidy finds in the file; only if it finds something it leaves a log in build/tidy.
log=build/tidy/${1//\//_}.log
if clang-tidy --quiet -p build/release --extra-arg=-Wno-unknown-warning-option "$1" >"$log" 2>/dev/null; then
  rm "$log"
else
  cat "$log"
fi
