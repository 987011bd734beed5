#!/bin/sh
# The table in the README, first block behind "scripts/run jobs", against what vxscene prints: folders and the width of
# the columns depend on where the project lies and do not count. Usage: readmeOutput.sh ROOT VXSCENE
set -eu
squeezed() { sed -e "s|$1/|/home/me/parser/|g" -e 's/  */ /g' -e 's/ *$//'; }
shown=$(awk '/^```/ { if (inside) exit; inside = 1; next } inside && !/^\$ /' "$1/README.md" | squeezed /home/me/parser)
real=$("$2" jobs "$1/examples/turntable.hip" | squeezed "$1")
[ -n "$shown" ] && [ "$shown" = "$real" ] || {
    printf 'README:\n%s\n\nvxscene:\n%s\n' "$shown" "$real" >&2
    exit 1
}
