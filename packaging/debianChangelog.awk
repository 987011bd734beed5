# CHANGELOG.md as Debian wants it: awk -v maintainer="NAME <ADDRESS>" -f debianChangelog.awk CHANGELOG.md
# A version's date becomes its noon, in UTC.
function finish() { if (date) printf "\n -- %s  %s\n\n", maintainer, date }

/^## / {
    finish()
    command = "LC_ALL=C date -uR -d " substr($3, 2, 10) "T12:00Z"
    if ((command | getline date) != 1) exit failed = 1
    printf "vxscene (%s) bookworm; urgency=medium\n\n", $2
    next
}
date && NF { sub(/^-/, "*"); print "  " $0 }
END { if (failed) exit 1; finish() }
