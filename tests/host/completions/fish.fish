# What fish offers behind lines of the standard input, one a line: LINE TAB CANDIDATE ... Usage: fish fish.fish FILE
source $argv[1]
while read -l line
    set -l candidates (complete -C "$line" | string replace -r '\t.*' '')
    printf '%s\t%s\n' "$line" "$candidates"
end
