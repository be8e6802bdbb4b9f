# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=bash

# Sourced by the scripts: moves to the top of the tree and sees to it that the packages that are needed are there.

cd "$(dirname "${BASH_SOURCE[0]}")/../.." || exit 1

# GCC starts its processes of link-time optimisation by make, and warns without it.
build_packages=(g++ make cmake ninja-build qt6-base-dev libqcustomplot-dev libfccp-dev libutfcpp-dev)
# A Wayland session without X needs Qt's own plug-in for it.
[[ -z "${WAYLAND_DISPLAY:-}" || -n "${DISPLAY:-}" ]] || build_packages+=(qt6-wayland)
# shellcheck disable=SC2034 # used by scripts/test
test_packages=(libgtest-dev libgmock-dev libbenchmark-dev)

is_debian() {
  command -v apt-get >/dev/null && command -v dpkg-query >/dev/null
}

# What a system has to bring, for those whose packages are too old or that have none.
tell_needs() {
  echo "This needs a C++20 compiler (GCC 12, Clang 14 or newer), CMake 3.25, Ninja 1.11, Qt 6.4 (Widgets," \
    "PrintSupport), QCustomPlot for Qt 6, the header csv.h of fast-cpp-csv-parser, and utfcpp; for scripts/test" \
    "also Qt Test, GoogleTest and Google Benchmark." >&2
}

# Installs those of the named packages that are missing. Asks nothing of apt when none is. Off Debian it only sees
# to it that the tools are there; CMake looks for the libraries.
require_packages() {
  if ! is_debian; then
    local tool
    for tool in cmake ninja "${CXX:-c++}"; do
      command -v "$tool" >/dev/null || {
        echo "'$tool' is missing, and this is no Debian system on which it could be installed." >&2
        tell_needs
        exit 1
      }
    done
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
  local log
  log=$(mktemp)
  {
    "${as_root[@]}" apt-get update -qq &&
      "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
  } >"$log" 2>&1 || {
    cat "$log" >&2
    tell_needs
    exit 1
  }
  rm -f "$log"
}

# Configures a preset; further arguments go to CMake.
configure_preset() {
  local preset=$1
  shift
  local log
  log=$(mktemp)
  cmake --preset "$preset" "$@" >"$log" 2>&1 || {
    cat "$log" >&2
    tell_needs
    exit 1
  }
  # What CMake warns about is shown; the rest of a good log is not.
  grep -A 20 'CMake Warning' "$log" >&2 || true
  rm -f "$log"
}

# Builds a configured preset; further arguments are the targets. Away from a terminal only what goes wrong is shown.
build_preset() {
  local preset=$1
  shift
  local targets=() quiet=()
  (($# == 0)) || targets=(--target "$@")
  [[ -t 1 ]] || quiet=(-- --quiet)
  echo "Building build/$preset"
  cmake --build --preset "$preset" "${targets[@]}" "${quiet[@]}"
}

# Runs a preset's tests; further arguments go to ctest. Away from a terminal passed tests are not listed.
run_tests() {
  if [[ -t 1 ]]; then
    ctest --preset "$@"
  else
    ctest --preset "$@" | grep -vE '^ +Start +[0-9]+:|Passed +[0-9.]+ sec$'
  fi
}
