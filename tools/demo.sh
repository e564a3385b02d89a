# shellcheck shell=bash disable=SC2034
# The demo: a folder of files, a saved setup for it, and the real program backing it up unattended. Read by ./run.

source tools/screen.sh

demo_folder=   # files, copies, setup and pictures of the demo
demo_root=      # the same folder as the program knows it
demo_sign=/     # what parts the folders of a path there
demo_config=    # where the program keeps its setup
demo_runner=()
demo_cleanup=(true)  # ends what the program leaves running

quoted_if_needed() { if [[ $1 == *,* ]]; then printf '"%s"' "$1"; else printf '%s' "$1"; fi; }

# The setup that the program loads at its start; the names are all folders of the first level.
save_setup() {
  local folders
  mapfile -t folders < <(cd "$demo_folder/source" && find . -mindepth 1 -maxdepth 1 -type d -printf '%f\n' | sort)
  mkdir -p "$demo_config/Quorvane" "$demo_folder/target"
  {
    printf '%s\r\n' "$(quoted_if_needed "$demo_root${demo_sign}source")" \
      "$(quoted_if_needed "$demo_root${demo_sign}target")"
    printf ' %d \r\n' 0 0 0 1 0 0  # with all subfolders, modified at any time, everything else off
    printf '%s\r\n' 'Browser cache/' " ${#folders[@]} " "${folders[@]}" ''
  } >"$demo_config/Quorvane/qvr.usr"
}

make_or_change_files() {
  if [[ -d $demo_folder/target ]]; then
    echo "Since the last demo these files have changed:"
    python3 -B tools/demo_files.py change "$demo_folder/source"
  else
    rm -rf "$demo_folder"
    mkdir -p "$demo_folder/pictures"
    python3 -B tools/demo_files.py make "$demo_folder/source"
  fi
}

# Root may read every file, whatever its permissions say. Without these two powers it is refused like any other user.
give_up_reading_everything() {
  local powers=-dac_override,-dac_read_search
  demo_runner=(env)
  ((EUID == 0)) || return 0
  demo_runner=(setpriv "--bounding-set=$powers" "--inh-caps=$powers" env)
  if ! "${demo_runner[@]}" test -w "$demo_folder/target"; then
    echo "Root cannot give up its rights here, so the unreadable file will be read after all."
    demo_runner=(env)
  fi
}

# Shows the report as it is written, and returns at its last line; the program is left open.
run_program() {
  local line=
  exec {report}< <(exec "${demo_runner[@]}" -u WAYLAND_DISPLAY QT_QPA_PLATFORM=xcb LC_ALL=C.UTF-8 \
    XDG_CONFIG_HOME="$demo_config" "$@" demo 2>"$demo_folder/errors.txt")
  demo_program=$!
  : >"$demo_folder/report.txt"
  while IFS= read -r -t 120 -u "$report" line; do
    line=${line%$'\r'}
    printf '%s\n' "$line" | tee -a "$demo_folder/report.txt"
    [[ $line == RESULT\ * ]] && return
  done
  cat "$demo_folder/errors.txt" >&2
  echo "The program ended or fell silent before its RESULT line." >&2
  return 1
}

say_what_is_missing() {
  cat "$demo_folder/errors.txt" >&2
  echo "The window \"$1\" $2." >&2
  return 1
}

take_pictures() {
  local title x=20
  for title in "Quorvane:main-window" "Back up new and modified:report-window"; do
    picture_of "${title%:*}" $x 40 "$demo_folder/pictures/${title#*:}.png" ||
      say_what_is_missing "${title%:*}" "did not appear within 20 seconds, or its picture could not be taken"
    x=980
  done
}

close_program() {
  demo_exit_code=0
  wmctrl -F -c "Quorvane" || say_what_is_missing "Quorvane" "could not be closed"
  wait "$demo_program" || demo_exit_code=$?
  demo_program=
}

end_demo() {
  local code=$?
  [[ -z ${demo_program:-} ]] || kill "$demo_program" 2>/dev/null || true
  "${demo_cleanup[@]}"
  stop_screen
  ((code == 0)) || echo "The demo stopped before its end (exit code $code). Its files and logs are in $demo_folder" >&2
}

say_where_things_are() {
  local folder=${demo_folder#"$PWD/"}
  echo
  case $demo_exit_code in
    0) echo "Exit code 0: everything was copied, here also the file without read permission." ;;
    1) echo "Exit code 1: everything was copied, and the report has a warning." ;;
    2) echo "Exit code 2: the one file without read permission could not be copied, and the report names it." ;;
    *) echo "Exit code $demo_exit_code" ;;
  esac
  echo "Files     $folder/source"
  echo "Copies    $folder/target"
  echo "Report    $folder/report.txt"
  echo "Pictures  $folder/pictures/main-window.png, report-window.png"
  echo "Run the demo again to see that only what has changed is copied; remove $folder to begin anew."
}

# demo FOLDER COMMAND...: the program is started by the command; full paths.
demo() {
  demo_folder=$1
  demo_root=${demo_root:-$demo_folder}
  demo_config=${demo_config:-$demo_folder/config}
  make_or_change_files
  save_setup
  give_up_reading_everything
  trap end_demo EXIT
  start_screen "$demo_folder"
  echo
  run_program "${@:2}"
  take_pictures
  close_program
  say_where_things_are
}

# demo_windows FOLDER PREFIX PROGRAM: the same under Wine, where the demo's folder is drive Q:. Wine shows all windows of a
# prefix where its first program was started, so what prepares it without a display must not go on running; nor may what
# has seen the demo's screen.
demo_windows() {
  echo "Preparing Wine ..."
  demo_cleanup=(tools/wine.sh "$2" --stop)
  tools/wine.sh "$2" cmd /c exit
  "${demo_cleanup[@]}"
  ln -sfn "$1" "$2/dosdevices/q:"
  demo_root=Q:
  demo_sign=\\
  demo_config=$(find "$2/drive_c/users" -maxdepth 3 -path '*/AppData/Roaming' -not -path '*/Public/*' | head -n 1)
  demo "$1" tools/wine.sh "$2" "$3"
}
