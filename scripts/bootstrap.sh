#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs what is missing, from Debian's packages: by default only what
# building the libraries, the tool and the examples needs (a compiler, CMake,
# Ninja, pkg-config and Qt 5); with --dev also what the tests, the checks,
# the benchmarks, the fuzz targets and the Debian packages need. Runs apt-get
# as root (directly, or through sudo when available).
#
#   scripts/bootstrap.sh [--dev]
set -euo pipefail

packages=(g++ cmake ninja-build pkg-config qtbase5-dev)
case "${1:-}" in
"") ;;
--dev)
    # The tests.
    packages+=(libgtest-dev)
    # The build against Qt 6 (-DEXCITERSETTINGS_QT_MAJOR_VERSION=6).
    packages+=(qt6-base-dev)
    # The static checks of .ci/tidy.
    packages+=(clang-tidy)
    # The schema tests validate with xmllint.
    packages+=(libxml2-utils)
    # The API reference (the docs target, .ci/docs).
    packages+=(doxygen)
    # The benchmarks (bench/run, .ci/bench): Google Benchmark, GNU time, python3.
    packages+=(libbenchmark-dev time python3)
    # The fuzz build: clang, and the libFuzzer and sanitizer runtimes, which
    # clang only recommends.
    packages+=(clang libclang-rt-14-dev)
    # The Debian packages (cpack -G DEB, .ci/packages): dpkg-shlibdeps, file
    # and lintian.
    packages+=(dpkg-dev file lintian)
    ;;
*)
    echo "usage: scripts/bootstrap.sh [--dev]" >&2
    exit 64
    ;;
esac
missing=()
for package in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed" \
        || missing+=("$package")
done
if [ ${#missing[@]} -eq 0 ]; then
    exit 0
fi

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "bootstrap: need root to install: ${missing[*]}" >&2; exit 1; }
    as_root=(sudo)
fi
echo "bootstrap: installing ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" apt-get install -y --no-install-recommends "${missing[@]}"
