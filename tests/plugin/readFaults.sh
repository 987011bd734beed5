#!/usr/bin/env bash
# A host whose reads are short, interrupted and fail at a byte: readFaults.sh VXSCENE FAULTY_READ_LIBRARY
set -euo pipefail
vxscene=$1 library=$2
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
scene=$folder/scene.hip

driver() { printf 'out/%s.parm {\nvm_picture\t[ 0\tlocks=0 ]\t(\t/img/a.exr\t)\n}\n' "$1"; }
{ driver first && driver second; } >"$scene"
first=$(driver first | wc -c)
error="vxscene: $scene: an exception, a read error or the limit of a load ended it (code 6)"

# Exit status, number of jobs, and what stands on the error stream.
load() {
    local status=0
    env ASAN_OPTIONS="${ASAN_OPTIONS-}:verify_asan_link_order=0" LD_PRELOAD="$library" VX_FAULTY_FILE="$scene" \
        VX_FAULT_AT="$1" "$vxscene" jobs --format json "$scene" >"$folder/out" 2>"$folder/error" || status=$?
    echo "$status $(grep -c '"layer"' "$folder/out")$(sed 's/^/ /' "$folder/error")"
}

while read -r byte expected; do
    got=$(load "$byte")
    [ "$got" = "$expected" ] || { printf 'fault at byte %s:\n%s\n%s\n' "$byte" "$expected" "$got" >&2 && exit 1; }
done <<ROWS
0 1 0 $error
$((first - 2)) 1 0 $error
$first 1 1 $error
$((first + 30)) 1 1 $error
never 0 2
ROWS
