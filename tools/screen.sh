# shellcheck shell=bash disable=SC2034
# A screen in memory with a window manager on it. Read by the demo and by tools/on_screen.sh.

# wait_for SECONDS COMMAND...: until the command succeeds; fails when the time is over.
wait_for() {
  local end=$((SECONDS + $1))
  until "${@:2}" >/dev/null 2>&1; do
    ((SECONDS < end)) || return 1
    sleep 0.1
  done
}

# start_screen FOLDER: sets DISPLAY; logs and the number of the screen lie in the folder. stop_screen ends it.
start_screen() {
  local number=$1/screen-number
  : >"$number"
  # Without -noreset the server throws everybody out when its only client leaves, such as a first look of wmctrl.
  Xvfb -displayfd 9 -screen 0 1920x1080x24 -nolisten tcp -noreset 9>"$number" >"$1/xvfb.log" 2>&1 &
  screen_processes=($!)
  wait_for 20 test -s "$number" || { cat "$1/xvfb.log" >&2; return 1; }
  DISPLAY=:$(<"$number")
  export DISPLAY
  openbox >"$1/openbox.log" 2>&1 &
  screen_processes+=($!)
  wait_for 20 wmctrl -m || { cat "$1/openbox.log" >&2; return 1; }
}

stop_screen() {
  local process
  for process in "${screen_processes[@]}"; do
    kill "$process" 2>/dev/null || true
    wait "$process" 2>/dev/null || true
  done
  screen_processes=()
}

window_id() { xdotool search --onlyvisible --name "$1\$" | tail -n 1; }

# A program paints its moved window anew in its own time: the picture is good once it stays the same.
steady_picture() {
  local before= now=none
  for _ in {1..20}; do
    before=$now
    sleep 0.7
    import -frame -window "$1" "$2"
    now=$(convert "$2" rgb:- | cksum)
    [[ $now != "$before" ]] || return 0
  done
}

# picture_of TITLE X Y FILE: moves the window there and takes its picture with its frame.
picture_of() {
  local window
  wait_for 20 window_id "$1"
  window=$(window_id "$1")
  xdotool windowmove --sync "$window" "$2" "$3" windowactivate --sync "$window" 2>/dev/null || true
  steady_picture "$window" "$4"
}
