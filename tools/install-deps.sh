#!/usr/bin/env bash
# Installs, on Debian, what the demo or the tests need and the machine lacks, and says what it
# did. Packages come from Debian's archive only (the browser tests' modules from npm).
#
#   tools/install-deps.sh demo   the cross compilers, CMake, Wine with its 32-bit half, Xvfb
#   tools/install-deps.sh test   that, and the unit test, fuzzing and browser test tools, and
#                                xdotool, the end-to-end tests' keyboard and pointer
#
# 32-bit Wine (wine32:i386) runs the release, a 32-bit program, in a 64-bit prefix. It comes
# through the i386 architecture. Where the i386 index of the security suite cannot be had (a
# mirror in the middle of a sync), apt would take wine32 from the main suite and remove wine64
# and the amd64 twins that are newer than their i386 halves; the fallback below resolves from
# the main suite alone and names those twins at the main suite's version instead, so that
# nothing is removed.
set -euo pipefail

need=${1:-test}
demo_packages=(cmake ninja-build g++ mingw-w64 wine wine64 xvfb imagemagick unzip python3)
test_packages=(libgtest-dev libbenchmark-dev clang libclang-rt-14-dev chromium nodejs npm shellcheck xdotool)
packages=("${demo_packages[@]}")
[[ $need == demo ]] || packages+=("${test_packages[@]}")

sudo=""
[[ $(id -u) -eq 0 ]] || sudo="sudo"
apt_get() { DEBIAN_FRONTEND=noninteractive $sudo apt-get -q -y "$@"; }
say() { echo "install-deps: $*"; }
installed() { dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null | grep -qx installed; }

# An index that fails to download leaves apt with the lists it has; what matters is whether the
# packages then resolve, which the install itself tells.
update() { apt_get "$@" update >/dev/null 2>&1 || say "apt-get update reported errors; going on with the lists it has"; }

missing=()
for package in "${packages[@]}"; do
  installed "$package" || missing+=("$package")
done
# Node's own distribution bundles npm; Debian's package of it would conflict.
if command -v npm >/dev/null; then
  missing=("${missing[@]/npm/}")
  command -v node >/dev/null && missing=("${missing[@]/nodejs/}")
fi
read -r -a missing <<<"${missing[*]}"
if [[ ${#missing[@]} -gt 0 ]]; then
  say "installing ${missing[*]}"
  update
  apt_get install "${missing[@]}" >/dev/null
fi

if ! installed wine32:i386; then
  if ! dpkg --print-foreign-architectures | grep -qx i386; then
    say "adding the i386 architecture for 32-bit Wine"
    $sudo dpkg --add-architecture i386
  fi
  update
  # The standard way, as long as it removes nothing.
  plan=$(apt_get -s install wine32:i386 2>&1 || true)
  if grep -q '^Inst wine32:i386' <<<"$plan" && ! grep -q '^Remv' <<<"$plan"; then
    say "installing wine32:i386"
    apt_get install wine32:i386 >/dev/null
  else
    say "wine32:i386 does not install beside wine64 with the present indexes;" \
        "resolving from the main suite alone"
    parts=$(mktemp -d)
    trap 'rm -rf "$parts"' EXIT
    # The machine's sources less every security suite: one-line lists lose those lines,
    # deb822 files those paragraphs.
    for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
      if [[ -f $file ]]; then grep -v -e '-security' "$file" >"$parts/$(basename "$file").list" || true; fi
    done
    for file in /etc/apt/sources.list.d/*.sources; do
      if [[ -f $file ]]; then
        awk -v RS= -v ORS='\n\n' '!/Suites:[^\n]*-security/' "$file" >"$parts/$(basename "$file")"
      fi
    done
    main=(-o "Dir::Etc::SourceParts=$parts" -o Dir::Etc::SourceList=/dev/null)
    update "${main[@]}"
    # Each amd64 package that apt would remove for wine32 is named at the version that its
    # i386 half has in the main suite; wine64 and libwine are asked for as they are.
    request=(wine32:i386 wine64 libwine)
    plan=$(apt_get "${main[@]}" -s install wine32:i386 2>&1 || true)
    while read -r package; do
      package=${package%:amd64}
      [[ $package == wine64 || $package == libwine ]] && continue
      version=$(apt-cache "${main[@]}" policy "$package:i386" | awk '/Candidate:/ { print $2 }')
      if [[ -z $version || $version == '(none)' ]]; then
        say "cannot keep $package: it has no i386 version in the main suite" >&2
        exit 1
      fi
      request+=("$package=$version")
    done < <(awk '/^Remv / { print $2 }' <<<"$plan")
    plan=$(apt_get "${main[@]}" --allow-downgrades -s install "${request[@]}" 2>&1 || true)
    if ! grep -q '^Inst wine32:i386' <<<"$plan" || grep -q '^Remv' <<<"$plan"; then
      say "32-bit Wine would still remove packages, or does not resolve; stopping:" >&2
      grep -E '^(Remv|E:)' <<<"$plan" >&2 || true
      exit 1
    fi
    pinned=("${request[@]:3}")
    if [[ ${#pinned[@]} -gt 0 ]]; then
      say "installing wine32:i386 from the main suite; keeping ${pinned[*]} at its version"
    else
      say "installing wine32:i386 from the main suite; no amd64 package needs keeping back"
    fi
    apt_get "${main[@]}" --allow-downgrades install "${request[@]}" >/dev/null
    # The machine's own lists again, for whatever apt does next.
    update
  fi
  installed wine64 || { say "wine64 is gone" >&2; exit 1; }
  say "32-bit Wine installed: $(wine --version 2>/dev/null)"
fi

if [[ $need == test ]]; then
  browser=$(dirname "$0")/../tests/browser
  if [[ -f $browser/package-lock.json && ! -d $browser/node_modules ]]; then
    say "installing the browser tests' modules (npm ci)"
    (cd "$browser" && npm ci --no-audit --no-fund --loglevel=error)
  fi
fi
