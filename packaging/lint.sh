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

# Only files that this build compiles: the macOS backend has a check of its own.
tidy() {
    sources '*.cpp' | grep -v '^platform/macos/\|_macos\.cpp$' \
        | while read -r file; do grep -qF "/$file\"" "$build/compile_commands.json" && echo "$file"; done \
        | xargs -P "$(nproc)" -n 1 clang-tidy-16 -p "$build" --quiet \
            --extra-arg=-Wno-unknown-warning-option 2> >(grep -v 'warnings\? generated' >&2)
}

qml() {
    cmake --build "$build" --target all_qmllint
}

step "clang-format" format
step "clang-tidy" tidy
step "qmllint" qml
step "macOS files, against GNUstep's headers" packaging/check-macos.sh
exit "$failed"
