#!/usr/bin/env bash
# Holds the completions of a shell, run by that shell, against what vxscene's help says: check.sh SHELL VXSCENE FILE
set -euo pipefail
shell=$1 vxscene=$2 file=$3
here=$(cd "$(dirname "$0")" && pwd)
export LC_ALL=C.UTF-8 # elsewhere zsh offers "ä" as an escape
case $shell in
bash) driver=(bash --norc "$here/bash.bash") ;;
fish) driver=(fish --no-config "$here/fish.fish") ;;
zsh) driver=(zsh -f "$here/zsh.zsh") ;;
esac
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# The plug-in's file filter says what scenes are called. One name has a blank.
mkdir -p "$work/files/folder" "$work/files/szenen ä"
cd "$work/files"
filter=$("$vxscene" info | sed -n 's/^fileFilter: //p')
IFS=';' read -ra patterns <<<"$filter"
scenes=("${patterns[@]/\*/scene}")
touch "${scenes[@]}" notes.txt "szenen ä/nacht 1.hip"

# First fields of the lines below a heading of the help.
listed() { "$vxscene" "${@:2}" --help | awk -v heading="$1:" '$0 == heading { on = 1; next } !NF { on = 0 } on'; }
sorted() { tr ' ' '\n' | LC_ALL=C sort | xargs; }
row() { printf '%s\t%s\n' "$1" "$(sorted <<<"$2")"; }

commands=$(listed Commands | awk '{ print $1 }' | xargs)
{
    row "vxscene " "$commands"
    for command in $commands; do
        row "vxscene $command --" "$(listed Options "$command" | grep -oE '^ +[-,a-zA-Z0-9]+' | grep -oE -- '--[-a-z0-9]+' | xargs)"
        while read -r option choices; do
            row "vxscene $command $option " "${choices//|/ }"
            row "vxscene $command $option=" "${choices//|/ }"
        done < <(listed Options "$command" | awk '$2 ~ /\|/ { print $1, $2 }')
    done
    row "vxscene jobs --format js" "json jsonl"
    row "vxscene vars --job " ""
    row "vxscene jobs " "${scenes[*]} folder szenen ä"
    row "vxscene jobs --format json scene.hip sc" "${scenes[*]}"
    row "vxscene vars folder/" ""
    row "vxscene info --plugin n" "notes.txt"
    row "vxscene jobs scene.hip -- " ""
    row "vxscene jobs scene.hip -- --f" ""
} >"$work/expected"

# Shells write some candidates with their option, with a slash behind folders, with quotes.
cut -f 1 "$work/expected" | "${driver[@]}" "$file" | while IFS=$'\t' read -r line candidates; do
    row "$line" "$(sed -E 's/--[a-z]+=([^ ])/\1/g; s|/( \|$)|\1|g; s/[\\=]//g' <<<"$candidates")"
done >"$work/offered"
diff "$work/expected" "$work/offered" || { echo "$shell: < is what the help says, > what is offered" >&2 && exit 1; }
