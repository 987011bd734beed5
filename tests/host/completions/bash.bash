# shellcheck shell=bash
# What bash offers behind the line of the standard input. Usage: bash bash.bash FILE
# shellcheck source=/dev/null # made by the build
source "$1"
IFS= read -r line
read -ra COMP_WORDS <<<"$line"
[[ $line != *' ' ]] || COMP_WORDS+=('')
COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
_vxscene
printf '%s\n' "${COMPREPLY[*]}"
