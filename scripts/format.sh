#!/usr/bin/env bash
# Formats every source file in place:  scripts/format.sh [--check]   (--check only lists what is not formatted)
set -u -o pipefail
cd "$(dirname "$(readlink -f -- "${BASH_SOURCE[0]}")")/.." || exit 1

sources() {
    find . \( -path ./build -o -path ./.git \) -prune -o \( -name '*.cpp' -o -name '*.h' \) -print0
}

if [ "${1:-}" != --check ]; then
    sources | xargs -0 -r clang-format-14 -i
    exit
fi
# shellcheck disable=SC2016  # the inner shell expands it
sources | xargs -0 -r -P "$(nproc)" -n 1 sh -c \
    'clang-format-14 --dry-run -Werror "$0" 2>/dev/null || { echo "$0 is not formatted"; exit 1; }'
