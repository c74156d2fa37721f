#!/usr/bin/env bash
# Installs the Debian packages that building, running and testing need.
# Packages already present are not fetched again. The print server is there for
# the desktop's printers; the tests run a server of their own on it.
set -euo pipefail
packages=(
    build-essential cmake ninja-build pkg-config ccache lld
    qt6-base-dev qt6-base-dev-tools libgl-dev
    libsqlite3-dev sqlite3
    libbenchmark-dev
    fonts-liberation
    poppler-utils
    xvfb xauth
    cups
)
missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
    sudo=""
    [ "$(id -u)" -eq 0 ] || sudo="sudo"
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
