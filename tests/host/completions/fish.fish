# What fish offers behind the line of the standard input. Usage: fish fish.fish FILE
source $argv[1]
read -l line
string join ' ' -- (complete -C "$line" | string replace -r '\t.*' '')
true
