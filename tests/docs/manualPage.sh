#!/usr/bin/env bash
# Holds the manual page against vxscene's help, both ways, and against two formatters: manualPage.sh VXSCENE PAGE
set -euo pipefail
vxscene=$1 page=$2
failed=0
fail() { printf '%s\n' "docs/vxscene.1.in: $1" >&2 && failed=1; }

complaints=$(mandoc -T lint -W warning "$page"; groff -mandoc -ww -z -T utf8 "$page" 2>&1) || true
[ -z "$complaints" ] || fail "not well formed:
$complaints"

# Lines below a heading of a help: listed HEADING [COMMAND]
listed() { "$vxscene" "${@:2}" --help | awk -v heading="$1:" '$0 == heading { on = 1; next } !NF { on = 0 } on'; }

# "--format text|json", as the help shows options and as the page does: "Fl -format Cm text Ns | Ns Cm json"
helpOptions() { listed Options "$@" | grep -E '^  -' | sed -E 's/^  //; s/  .*//; s/ \.\.\.$//'; }
pageOptions() {
    sed -nE "/^\.S[sh] $1\$/,/^\.S[sh] /s/^\.It Fl /-/p" "$page" |
        sed -E 's/ , /,-/g; s/ Ns \| Ns( Cm)? /|/g; s/ (Ar|Cm) / /g'
}
compare() { # SECTION, options of the help
    diff <(sort <<<"$2") <(pageOptions "$1" | sort) >&2 ||
        fail "section \"$1\" has other options than the help (< help, > page; written \".It Fl -option Ar VALUE\")"
}
compare DESCRIPTION "$(helpOptions)"
for command in $(listed Commands | awk '{ print $1 }'); do
    grep -qx "\.Ss $command" "$page" || { fail "no subsection \".Ss $command\" for the command $command" && continue; }
    compare "$command" "$(helpOptions "$command" | grep -v -- --help)"
done

# "1  a scene failed" in the help, ".It 1", "A scene failed." in the page
while read -r status meaning; do
    sed -n "/^\.Sh EXIT STATUS/,/^\.Sh [^E]/p" "$page" | grep -A1 -x "\.It $status" | grep -qixF "$meaning." ||
        fail "EXIT STATUS lacks \"$status  $meaning\""
done < <(listed "Exit status")
exit $failed
