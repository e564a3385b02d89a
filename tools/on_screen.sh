#!/bin/bash
# Runs a command on a screen in memory with a window manager on it, with the command's exit code.
#
#   tools/on_screen.sh COMMAND [ARGUMENT...]
set -u
. "$(dirname "$0")/screen.sh"
logs=$(mktemp -d)
trap 'stop_screen; rm -rf "$logs"' EXIT
start_screen "$logs" || exit 1
# What the command leaves running, as Wine does its services, must not hold the output of whoever waits for us.
QV_NEW_SCREEN=yes "$@" >"$logs/output" 2>&1
code=$?
cat "$logs/output"
exit "$code"
