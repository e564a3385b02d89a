# shellcheck shell=bash disable=SC2034
# Configures and builds a preset, with little output unless something is wrong. Read by ./run and ./test.

# Passes on what is worth reading of ninja's output: a line every quarter of the way, and everything from a failure on.
show_progress() {
  local line quarter shown=0 failed=
  while IFS= read -r line; do
    if [[ $line =~ ^\[([0-9]+)/([0-9]+)\] ]]; then
      quarter=$((BASH_REMATCH[1] * 4 / BASH_REMATCH[2] * 25))  # in steps of 25
      if ((quarter > shown && BASH_REMATCH[2] >= 20)); then
        echo "  $quarter % of ${BASH_REMATCH[2]} steps"
        shown=$quarter
      fi
    else
      [[ $line == FAILED* || $line == ninja:\ error* ]] && failed=yes
      [[ -z $failed ]] || printf '%s\n' "$line"
    fi
  done
}

configure() {
  local preset=$1
  mkdir -p "build/$preset"
  if ! cmake --preset "$preset" "${@:2}" >"build/$preset/configure.log" 2>&1; then
    cat "build/$preset/configure.log" >&2
    return 1
  fi
}

# build PRESET TARGET [CMAKE OPTIONS...]; all of the output is kept in build/PRESET/build.log.
build() {
  local preset=$1 target=$2
  echo "Building $target ($preset) ..."
  configure "$preset" "${@:3}" || return
  NINJA_STATUS='[%f/%t] ' cmake --build --preset "$preset" --target "$target" 2>&1 |
    tee "build/$preset/build.log" | show_progress
}
