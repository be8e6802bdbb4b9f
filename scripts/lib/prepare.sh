# SPDX-License-Identifier: GPL-3.0-or-later

# Sourced by the scripts: moves to the top of the tree and sees to it that the packages that are needed are there.

cd "$(dirname "${BASH_SOURCE[0]}")/../.."

build_packages=(g++ cmake ninja-build qt6-base-dev libqcustomplot-dev libfccp-dev libutfcpp-dev)
# A Wayland session without X needs Qt's own plug-in for it.
[[ -z "${WAYLAND_DISPLAY:-}" || -n "${DISPLAY:-}" ]] || build_packages+=(qt6-wayland)
test_packages=(libgtest-dev libgmock-dev libbenchmark-dev)

# Installs those of the named packages that are missing. Asks nothing of apt when none is.
require_packages() {
  if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
    echo "This is no Debian system, so nothing is installed. What is needed there: $*" >&2
    return
  fi
  local missing=() package
  for package in "$@"; do
    [[ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" == installed ]] || missing+=("$package")
  done
  ((${#missing[@]})) || return 0

  local as_root=()
  if ((EUID != 0)); then
    command -v sudo >/dev/null || {
      echo "Please install, as root: apt-get install ${missing[*]}" >&2
      exit 1
    }
    as_root=(sudo)
  fi
  echo "Installing: ${missing[*]}"
  "${as_root[@]}" apt-get update -qq
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
}

# Configures and builds a preset; further arguments go to the configuration.
build_preset() {
  local preset=$1
  shift
  local log
  log=$(mktemp)
  cmake --preset "$preset" "$@" >"$log" 2>&1 || {
    cat "$log" >&2
    exit 1
  }
  rm -f "$log"
  cmake --build --preset "$preset"
}
