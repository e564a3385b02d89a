# shellcheck shell=bash disable=SC2034
# What Quorvane needs beyond a bare Debian or Ubuntu, and how to get it. Read by ./run and ./test.

build_packages=(g++ cmake ninja-build qt6-base-dev googletest libgtest-dev libbenchmark-dev libxxhash-dev python3
  fonts-liberation)
screen_packages=(xvfb openbox xdotool wmctrl imagemagick x11-utils util-linux
  at-spi2-core gir1.2-atspi-2.0 python3-gi dbus)
tidy_packages=(clang-tidy)
windows_packages=(g++-mingw-w64-x86-64-posix wine wine64 nsis)

missing_packages() {
  comm -23 <(printf '%s\n' "$@" | sort) \
    <(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null | sed -n 's/^installed //p' | sort)
}

as_root() {
  if ((EUID == 0)); then
    "$@"
  else
    sudo "$@"
  fi
}

apt() {
  as_root env DEBIAN_FRONTEND=noninteractive apt-get -qq -o Dpkg::Use-Pty=0 -o DPkg::Lock::Timeout=120 \
    -o Acquire::Retries=3 "$@" </dev/null
}

# need_packages NAME...: installs those that are missing; does nothing, quickly, when none is.
need_packages() {
  if ! command -v dpkg-query apt-get >/dev/null; then
    echo "This system has no apt-get. Quorvane needs what these Debian packages hold: $*"
    return
  fi
  local missing
  mapfile -t missing < <(missing_packages "$@")
  ((${#missing[@]})) || return 0
  if ((EUID != 0)) && ! command -v sudo >/dev/null; then
    echo "Please have these packages installed (there is no sudo here): ${missing[*]}" >&2
    return 1
  fi
  echo "Installing ${missing[*]} ..."
  mkdir -p build
  # A package list that cannot be fetched need not be one of those that count.
  if ! { apt update || true; apt install --no-install-recommends -y "${missing[@]}"; } >build/packages.log 2>&1; then
    tail -n 20 build/packages.log >&2
    echo "The packages could not be installed; all of the output is in build/packages.log." >&2
    return 1
  fi
}
