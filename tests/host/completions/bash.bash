# shellcheck shell=bash
# What bash offers behind lines of the standard input, one a line: LINE TAB CANDIDATE ... Usage: bash bash.bash FILE
# shellcheck source=/dev/null # made by the build
source "$1"
while IFS= read -r line; do
    # readline makes a word of each "="
    read -ra COMP_WORDS <<<"${line//=/ = }"
    [[ $line != *' ' ]] || COMP_WORDS+=('')
    COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
    COMPREPLY=()
    _vxscene
    printf '%s\t%s\n' "$line" "${COMPREPLY[*]}"
done
