#!/usr/bin/env bash
# Checks the form and the types of all sources; the first argument is a configured build folder.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
readonly build=$1
failed=0

step() {
    echo "== $1"
    shift
    "$@" || { failed=1; echo "   failed" >&2; }
}

sources() { git ls-files --cached --others --exclude-standard -- "$@"; }

format() {
    sources '*.cpp' '*.h' '*.mm' | xargs clang-format --dry-run --Werror
}

step "clang-format" format
step "texts" packaging/texts.py
step "clang-tidy" packaging/tidy.py "$build"
step "qmllint" packaging/qml.py "$build"
step "macOS files, against GNUstep's headers" packaging/check-macos.sh
exit "$failed"
