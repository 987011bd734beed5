# What zsh offers behind lines of the standard input, one a line: LINE TAB CANDIDATE ... Usage: zsh zsh.zsh FILE
# Completion works in an interactive shell only: one runs in a pseudo terminal, and its compadd tells what it is given.
emulate -R zsh
zmodload zsh/zpty
export VX_FOLDER=${1:h} VX_HITS=$(mktemp)
trap 'rm -f $VX_HITS' EXIT

setUp='
    PROMPT=
    fpath=($VX_FOLDER $fpath)
    autoload -Uz compinit && compinit -D -u
    compadd() {
        local -a hits
        if [[ ${@[1,(i)(-|--)]} != *-(O|A|D)\ * ]]; then
            builtin compadd -A hits "$@"
            print -rn -- "${hits[*]} " >>$VX_HITS
        fi
        builtin compadd "$@"
    }
    offer() { _main_complete; compstate[insert]= compstate[list]=; print -rn -- "<""ready>" }
    zle -C offer complete-word offer
    bindkey "^I" offer
    print -rn -- "<""ready>"
'
ask() { # sends text and waits for the answer
    zpty -w -n shell $1
    zpty -r -m shell answer '*<ready>*'
}
zpty shell TERM=dumb zsh -f -i
ask ${setUp//$'\n'/;}$'\n'
while IFS= read -r line; do
    : >$VX_HITS
    ask $'\x15'$line$'\t'
    print -r -- $line$'\t'$(<$VX_HITS)
done
zpty -d shell
