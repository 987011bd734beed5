#!/bin/sh
# Fails unless the library's dynamic symbol table defines pInfo and pLoadSceneFile and nothing else.
# Usage: exportedSymbols.sh NM LIBRARY
set -eu
shown=$("$1" --dynamic --defined-only --format=posix "$2" | awk '{print $1}' | LC_ALL=C sort | tr '\n' ' ')
[ "$shown" = "pInfo pLoadSceneFile " ] || {
    echo "the library shows: $shown" >&2
    exit 1
}
