#!/bin/bash
# Runs Windows programs under Wine, with a prefix (Wine's C: drive and registry) of their own.
#
#   tools/wine.sh PREFIX PROGRAM [ARGUMENT...]          the program's exit code is the script's
#   tools/wine.sh PREFIX --test PROGRAM [ARGUMENT...]   a GoogleTest program: passes only when it also says so
#   tools/wine.sh PREFIX --stop                         ends what still runs in the prefix
#
# Tests that open windows need a screen: run the script by tools/on_screen.sh for them. A test program that has not
# ended after two minutes fails.
# PREFIX is a folder; it is made when missing (about 700 MB, 3 seconds).
set -u

prefix=$1
shift
mkdir -p "$prefix" "$prefix.home"
export WINEPREFIX=$(realpath "$prefix")
# A new prefix links the user's Documents and Downloads to those of HOME: an empty one keeps tests away from them.
export HOME=$WINEPREFIX.home
# In the C locale Wine garbles names and arguments beyond ASCII.
export LC_ALL=C.UTF-8 WINEDEBUG=-all
# With Wine's debugger a crash waits for somebody to close a window; the next three would ask for downloads or write
# to the user's menus; a test may have its own program in the place of shutdown.
export WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe=;winedbg.exe=;shutdown.exe=n"

boot_prefix() {
  wine wineboot -i
  # Wine would draw it in letters of various widths.
  wine reg add 'HKCU\Software\Wine\Fonts\Replacements' /v 'Courier New' /d 'Liberation Mono' /f
} </dev/null >/dev/null 2>&1

stop_services() { wineserver -k; wineserver -w; } 2>/dev/null

# The background services inherit the output of whoever starts them, and ctest waits until that is closed: so they
# are started here, with none. The server answers 2 when it runs already.
start_services() {
  exec 9>"$WINEPREFIX.lock"
  flock 9
  # All programs share the screen of the first.
  if [ -n "${QV_NEW_SCREEN:-}" ]; then stop_services; fi
  if wineserver -p120 </dev/null >/dev/null 2>&1 9>&-; then boot_prefix 9>&-; fi
  exec 9>&-
}

# As the script's own process, so that whoever ends the script ends the program. A terminal would be taken for the
# program's console.
run() {
  if [ -t 0 ]; then exec wine "$@" </dev/null; else exec wine "$@"; fi
}

# A crash under Wine has been seen to exit with 0: only GoogleTest's own closing line tells that all tests ran. The
# output goes through a file, because programs that a test starts may keep a pipe open for long after its end.
run_test() {
  local log code
  log=$(mktemp)
  timeout 120 wine "$@" </dev/null >"$log" 2>&1
  code=$?
  tr -d '\r' <"$log"
  if [ "$code" -eq 0 ] && ! grep -q '^\[  PASSED  \] [1-9]' "$log"; then
    echo "$1 ended without the line that its tests passed"
    code=1
  fi
  rm -f "$log"
  return "$code"
}

[ "$1" = --stop ] || start_services
case $1 in
  --stop) stop_services ;;
  --test) shift; run_test "$@" ;;
  *) run "$@" ;;
esac
