#!/usr/bin/env bash
# Runs every window test many times in changing order: scripts/repeat_window_tests.sh [TIMES]
# A test that fails once in a hundred runs is broken. Prints what failed; status 1 when something did.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
times=${1:-100}
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
failed=0
for program in build/dev/bin/*_window_test; do
    if ! out=$("$program" --gtest_repeat="$times" --gtest_shuffle --gtest_brief=1 2>&1); then
        printf '%s:\n%s\n' "$program" "$(grep -E '^\[  FAILED  \] [^ ]+ \(' <<<"$out" | sort | uniq -c)"
        failed=1
    fi
done
exit "$failed"
