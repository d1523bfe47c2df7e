#!/usr/bin/env bash
# Installs what the builds and the tests need on Debian, where it is missing.
set -euo pipefail

packages=(cmake ninja-build g++ libgtest-dev libbenchmark-dev mingw-w64 wine wine64 xvfb imagemagick unzip
  clang libclang-rt-14-dev)
missing=()
for package in "${packages[@]}"; do
  dpkg -s "$package" >/dev/null 2>&1 || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
sudo=""
[ "$(id -u)" -eq 0 ] || sudo="sudo"
$sudo apt-get update -qq
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq "${missing[@]}" >/dev/null
