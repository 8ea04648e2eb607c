#!/usr/bin/env bash
# Installs the Debian packages the build, the tests and the station need, if any is missing.
# Sourced by ./run, ./test and ./bench; uses sudo when not root.
set -euo pipefail

TARVELLE_PACKAGES=(
  build-essential cmake ninja-build ccache pkg-config
  qt6-base-dev qt6-base-dev-tools qt6-svg-dev qt6-serialport-dev libgl-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  fonts-dejavu-core python3
  libxdo-dev socat python3-icalendar
)

ensure_packages() {
  local missing=()
  for p in "${TARVELLE_PACKAGES[@]}" "$@"; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
      missing+=("$p")
    fi
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  echo "Installing: ${missing[*]}"
  local sudo=""
  [ "$(id -u)" -ne 0 ] && sudo="sudo"
  $sudo env DEBIAN_FRONTEND=noninteractive apt-get update -qq
  $sudo env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# Configures (once) and builds a tree: configure_and_build DIR [cmake options...]
configure_and_build() {
  local dir=$1; shift
  local generator=()
  [ -f "$dir/CMakeCache.txt" ] || generator=(-G Ninja)
  cmake -S . -B "$dir" "${generator[@]}" "$@" >/dev/null
  cmake --build "$dir" -j "$(nproc)"
}
