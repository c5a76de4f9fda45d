#!/bin/sh
# Type-checks the files that are built on macOS alone, here, with clang against GNUstep's headers.
# Prints what it checked; fails on any error or warning. With arguments, checks those files only.
#
# What this can find: wrong names, arguments and types. What it cannot: how macOS behaves.
set -eu
cd "$(dirname "$0")/.."

if [ "$(uname)" = Darwin ]; then
    echo "check-macos: here the build itself checks these files"
    exit 0
fi

missing=
for tool in clang++ gnustep-config pkg-config; do
    command -v "$tool" >/dev/null || missing="$missing $tool"
done
if [ -n "$missing" ]; then
    echo "check-macos: not found:$missing (install what packaging/debian-packages.txt lists)" >&2
    exit 2
fi

additions=platform/macos/gnustep
objc_headers=$(dirname "$(find /usr/lib/gcc -path '*/include/objc/objc.h' | sort | tail -n 1)")/..
qcoro=$(dirname "$(find /usr/include /usr/local/include -name qcorotask.h 2>/dev/null | head -n 1)")
system_headers="-isystem $additions -isystem /usr/include/GNUstep -isystem $objc_headers
    -isystem $qcoro/.. -isystem $qcoro/../QCoro -isystem $qcoro
    $(pkg-config --cflags Qt6Gui Qt6Network | sed 's/-I/-isystem /g')"
definitions="$(gnustep-config --objc-flags | tr ' ' '\n' | grep '^-D') -DCOMPANION_TYPE_CHECK
    -DQT_NO_CAST_FROM_ASCII -DQT_NO_CAST_TO_ASCII -DQT_NO_URL_CAST_FROM_STRING -DQT_NO_KEYWORDS
    -DQT_NO_CAST_FROM_BYTEARRAY -DQT_STRICT_ITERATORS"
warnings="-Wall -Wextra -Wconversion -Wshadow -Werror"
common="-std=c++20 -fsyntax-only -fPIC -fblocks -I. $system_headers $definitions $warnings"
objective_c="-x objective-c++ -fobjc-runtime=gcc -fobjc-exceptions
    -fconstant-string-class=NSConstantString -include $additions/additions.h"

# Run by a shell of its own per file, so that as many files as there are processors are
# checked at a time; a file's messages come out in one piece.
export common objective_c
check='
    case $1 in
    *.mm) flags="$objective_c $common" ;;
    *) flags=$common ;;
    esac
    if messages=$(clang++ $flags "$1" 2>&1); then
        echo "checked  $1"
    else
        echo "$messages
FAILED   $1"
        exit 1
    fi'

if [ $# -eq 0 ]; then
    set -- platform/macos/*.mm platform/macos/*.cpp platform/posix/*_macos.cpp
fi
printf '%s\0' "$@" | xargs -0 -n 1 -P "$(nproc)" sh -c "$check" check
