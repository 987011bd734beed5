#!/bin/sh
# The table in the README, first block behind "scripts/run jobs", and the lines of the block behind "scripts/run
# explain", against what vxscene prints: folders and the width of the columns depend on where the project lies and do not
# count. Usage: readmeOutput.sh ROOT VXSCENE
set -eu
squeezed() { sed -e "s|$1/|/home/me/parser/|g" -e 's/  */ /g' -e 's/ *$//'; }
shown=$(awk '/^```/ { if (inside) exit; inside = 1; next } inside && !/^\$ /' "$1/README.md" | squeezed /home/me/parser)
real=$("$2" jobs "$1/examples/turntable.hip" | squeezed "$1")
if [ -z "$shown" ] || [ "$shown" != "$real" ]; then
    printf 'README:\n%s\n\nvxscene:\n%s\n' "$shown" "$real" >&2
    exit 1
fi

real=$("$2" explain "$1/examples/turntable_unfinished.hip" | squeezed "$1")
awk '/^```/ { inside = 0 } inside { print } /^\$ scripts\/run explain/ { inside = 1 }' "$1/README.md" |
    squeezed /home/me/parser | {
    lines=0
    while IFS= read -r line; do
        lines=$((lines + 1))
        printf '%s\n' "$real" | grep -qxF -e "$line" || { printf 'README: %s\nvxscene: no such line\n' "$line" >&2; exit 1; }
    done
    [ "$lines" -gt 10 ] || { echo "README: no output of explain" >&2; exit 1; }
}
