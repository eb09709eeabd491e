#!/usr/bin/env bash
# Installs what the build needs on Debian 12, as far as it is missing. Arguments name
# further packages.
set -euo pipefail
packages=(
    g++ cmake ninja-build ccache
    libassimp-dev libtinygltf-dev nlohmann-json3-dev libcli11-dev
    libgtest-dev libgmock-dev assimp-testmodels
    "$@"
)
missing=()
for package in "${packages[@]}"; do
    dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
done
[ "${#missing[@]}" -gt 0 ] || exit 0
echo "Installing: ${missing[*]}"
as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
export DEBIAN_FRONTEND=noninteractive
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
