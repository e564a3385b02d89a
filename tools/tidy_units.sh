#!/usr/bin/env bash
# tidy_units.sh: lists what clang-tidy reads: the units that are compiled for Linux, and those for Windows that hold
# what is only compiled there. Units hold many sources, whose headers are read once.
units_of() { sed -n 's/^ *"file": "\(.*\)"[,]*$/\1/p' "build/$1/compile_commands.json" | grep -v '/\.rcc/\|/googletest/\|\.rc$' | sort -u; }

units_of tidy-linux
units_of tidy-windows | while read -r unit; do
  { echo "$unit" && cat "$unit"; } | grep -qE '/win32/|/windows/|_windows\.cpp' && echo "$unit"
done
