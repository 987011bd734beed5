#!/usr/bin/env bash
# What a shell offers behind a few lines, with the completions that the build makes: check.sh SHELL VXSCENE FILE
set -euo pipefail
shell=$1 vxscene=$2 file=$3
here=$(cd "$(dirname "$0")" && pwd)
export LC_ALL=C.UTF-8
case $shell in
bash) driver=(bash --norc "$here/bash.bash") ;;
fish) driver=(fish --no-config "$here/fish.fish") ;;
zsh) exec zsh -n "$file" ;; # completes in an interactive shell only: here it is read, no more
esac
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
mkdir folder "szenen ä"
touch shot.hip shot.hiplc notes.txt "szenen ä/nacht 1.hip"

commands=$("$vxscene" --help | awk '/^Commands:/ { on = 1; next } !NF { on = 0 } on { print $1 }' | xargs)
sorted() { tr ' ' '\n' | LC_ALL=C sort | xargs; }
while IFS='|' read -r line expected; do
    offered=$(printf '%s\n' "$line" | "${driver[@]}" "$file" | sed -E 's|/( \|$)|\1|g; s/\\//g' | sorted)
    [ "$offered" = "$(sorted <<<"$expected")" ] || { echo "$shell offers behind \"$line\": $offered" >&2 && exit 1; }
done <<END
vxscene |$commands
vxscene vars --|--help --plugin --format --job --resolve
vxscene jobs --format js|json jsonl
vxscene vars --job |
vxscene jobs --format json shot.hip |shot.hip shot.hiplc folder szenen ä
vxscene info --plugin n|notes.txt
vxscene jobs shot.hip -- --f|
END
