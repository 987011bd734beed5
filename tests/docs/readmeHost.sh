#!/bin/sh
# The C++ block in the README is examples/host.cpp, and that program finds the example's drivers.
# Usage: readmeHost.sh ROOT HOST PLUGIN
set -eu
shown=$(awk '/^```cpp/ { inside = 1; next } /^```/ { inside = 0 } inside' "$1/README.md")
[ "$shown" = "$(cat "$1/examples/host.cpp")" ] || { echo "README and examples/host.cpp differ" >&2 && exit 1; }
"$2" "$3" "$1/examples/turntable.hip" | grep -q '^/out/mantra_beauty  Mantra_StdA$'
