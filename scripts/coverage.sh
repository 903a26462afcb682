#!/usr/bin/env bash
# Builds with the preset `coverage`, runs the tests and tells the share of lines run of each source, the least first.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/setup.sh
build coverage all
QT_QPA_PLATFORM=offscreen ctest --test-dir build/coverage --output-on-failure --parallel "$(nproc)"
find build/coverage/src -name '*.gcda' -print0 | xargs -0 -n 1 gcov -n -s "$PWD" -r |
    awk -F"'" '/^File/ { file = $2 } /^Lines executed/ && file ~ /^src\// { sub(/^Lines executed:/, ""); print $0, file; file = "" }' |
    sort -n | uniq
