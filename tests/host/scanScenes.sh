#!/usr/bin/env bash
# Parts of a scan, as tasks of an array and as GNU parallel run them, together are the whole: scanScenes.sh ROOT VXSCENE
set -euo pipefail
root=$1
export VXSCENE=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
mkdir parts
for number in {1..23}; do ln "$root/examples/turntable_unfinished.hip" "shot $number.hip" 2>/dev/null ||
    cp "$root/examples/turntable_unfinished.hip" "shot $number.hip"; done
echo no scene >broken.hip
ls -d "$work"/*.hip "$work/gone.hip" >scenes.txt 2>/dev/null || true
echo "$work/gone.hip" >>scenes.txt

"$VXSCENE" jobs --format jsonl - <scenes.txt 2>/dev/null | sort >whole || true
[ "$(wc -l <whole)" = 25 ]

for number in 1 2 3; do
    SLURM_ARRAY_TASK_ID=$number SLURM_ARRAY_TASK_COUNT=3 "$root/examples/scanScenes.sbatch" scenes.txt parts
done
cat parts/part-*-of-3.jsonl | sort | cmp - whole
if SLURM_ARRAY_TASK_ID=1 SLURM_ARRAY_TASK_COUNT=3 SLURM_ARRAY_TASK_MIN=0 SLURM_ARRAY_TASK_MAX=2 \
    "$root/examples/scanScenes.sbatch" scenes.txt parts 2>/dev/null; then exit 1; fi

if command -v parallel >/dev/null; then
    # Scenes that fail are lines too; the status only tells that there are some.
    parallel --will-cite "$VXSCENE jobs --format jsonl --shard {}/3 - <scenes.txt" ::: 1 2 3 2>/dev/null >joined || true
    sort joined | cmp - whole
fi
