#!/usr/bin/env bash
# Makes the Debian packages of the programs as they are, in build/release/package.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/setup.sh

install_missing "${build_packages[@]}" dpkg-dev file gzip
build release all
# One of the files has a name that a locale without UTF-8 cannot spell.
LC_ALL=C.UTF-8 cpack --config build/release/CPackConfig.cmake
