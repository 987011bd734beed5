#!/usr/bin/env bash
# Installs a build, moves the tree away, and uses it there: runs vxscene in it, and builds and runs the smallest host.
# Usage: installedTree.sh SOURCES BUILD
set -euo pipefail
sources=$1 build=$2
unset LD_LIBRARY_PATH
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
quietly() { "$@" >"$work/log" 2>&1 || { cat "$work/log" >&2 && exit 1; }; }
fail() { echo "installed tree: $1" >&2 && exit 1; }

quietly cmake --install "$build" --prefix "$work/first"
tree="$work/Umgezogen ä 日本"
mv "$work/first" "$tree"
scene="$tree/share/doc/vxscene/examples/turntable.hip"

# Programs and libraries look for each other inside the tree only.
while IFS= read -r -d '' file; do
    IFS=: read -ra folders < <(readelf -d "$file" | sed -nE 's/.*\((RPATH|RUNPATH)\).*\[(.*)\]/\2/p') || true
    for folder in "${folders[@]}"; do
        found=$(realpath -e "${folder/#'$ORIGIN'/$(dirname "$file")}") || fail "$file: no folder $folder"
        [[ $found == "$tree"/* ]] || fail "$file looks for libraries in $folder"
        # A host's program may lie above a plug-in, with a Qt of its own.
        [[ $file != *.so* || $folder == '$ORIGIN' ]] || fail "$file looks for libraries beside itself and in $folder"
    done
done < <(find "$tree" -type f \( -perm -u+x -o -name '*.so*' \) -print0)
# The README shows paths of its own, which may be the very ones of this build.
grep -rlF --exclude=README.md -e "$build/" -e "$sources/" "$tree" && fail "these files name the folders of the build"

# The program finds its plug-in, in any locale.
"$build/bin/vxscene" jobs "$scene" >"$work/expected"
LC_ALL=C "$tree/bin/vxscene" jobs "$scene" | diff "$work/expected" - || fail "vxscene prints other jobs"
(cd "$tree/bin" && PATH=$PWD && vxscene info >"$work/log") || fail "vxscene is not found along PATH"

# A host that knows nothing but the tree. It includes every header there is, and is not compiled as this project is.
: >"$work/headers.h" # filled after CMake has tried the compiler
quietly cmake -G Ninja -S "$tree/share/doc/libvxscene-dev/examples" -B "$work/host" -DCMAKE_PREFIX_PATH="$tree" \
    -DCMAKE_CXX_FLAGS="-include $work/headers.h" -DCMAKE_EXPORT_COMPILE_COMMANDS=ON
(cd "$tree/include/vxSceneParser" && find . -name '*.h' -printf '#include "%P"\n') >"$work/headers.h"
plugin=$(sed -n 's/^-- PLUGIN: //p' "$work/log")
quietly cmake --build "$work/host"
! grep -oE -e '-W[a-z]+|-DQT_NO_(CAST|KEYWORDS)[A-Z_]*' "$work/host/compile_commands.json" || fail "leaves flags to hosts"
"$build/bin/exampleHost" "$build/bin/lx_vxSceneParserHoudini64.so" "$scene" >"$work/expected"
[ -s "$work/expected" ] || fail "no jobs to compare"
"$work/host/host" "$plugin" "$scene" | diff "$work/expected" - || fail "the host prints other jobs"
