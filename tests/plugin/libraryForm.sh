#!/bin/sh
# Fails unless a library needs what it may need and no more, and is sealed: all references bound and made read-only at
# load time, no executable stack, no code that is written to, further libraries looked for beside itself and one
# folder up only.
# Usage: libraryForm.sh READELF LIBRARY
set -eu
file=$2
dynamic=$("$1" --dynamic --wide "$file")
segments=$("$1" --program-headers --wide "$file")
fail() {
    echo "$file: $1" >&2
    exit 1
}

# The loader (ld-linux) would be needed by variables of a thread's own.
needed=$(echo "$dynamic" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p')
for library in $needed; do
    case $library in
    libQt[56]Core.so.[56] | libvxShared.so.1 | libstdc++.so.6 | libgcc_s.so.1 | libc.so.6 | libm.so.6) ;;
    *) fail "needs $library" ;;
    esac
done
[ -n "$needed" ] || fail "no list of needed libraries"

for path in $(echo "$dynamic" | sed -n 's/.*(R\(UN\)\{0,1\}PATH).*\[\(.*\)\]/\2/p'); do
    case $path in
    '$ORIGIN' | '$ORIGIN:$ORIGIN/..') ;;
    *) fail "looks for libraries in $path" ;;
    esac
done
echo "$segments" | grep -q GNU_RELRO || fail "no part that becomes read-only"
echo "$dynamic" | grep -Eq '\(FLAGS(_1)?\).*\b(BIND_)?NOW\b' || fail "references are bound late"
echo "$segments" | grep -q 'GNU_STACK.* RW ' || fail "executable stack"
! echo "$dynamic" | grep -q TEXTREL || fail "code that is written to"
