#!/usr/bin/env bash
# Takes the pictures of the documents anew from the program as it is: scripts/make_pictures.sh [FOLDER]
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/setup.sh

install_missing "${build_packages[@]}" "${run_packages[@]}"
build dev pictures
build/dev/bin/pictures "${1:-docs/pictures}"
