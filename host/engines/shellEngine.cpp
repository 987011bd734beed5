// The steps as a script for one machine, which runs the tasks of each step with xargs.
#include "host/engines/bashWords.h"
#include "host/engines/engines.h"

namespace vxH {
namespace {

constexpr const char* runner = R"runner(# usage: this script [TASKS AT A TIME]; as many as there are cores otherwise
set -euo pipefail

export AT_A_TIME=${1:-$(nproc)}
export DONE # a folder with an empty file for each task and step that went well
DONE=$(mktemp -d)
trap 'rm -rf "$DONE"' EXIT
failed=0

# What each task begins with. Its number, from 0, comes as $1.
begin=$(cat <<'BEGIN'
FIRST=$((RANGE_FIRST + $1 * TASK_FRAMES * STEP))
LAST=$((FIRST + (TASK_FRAMES - 1) * STEP))
if ((LAST > RANGE_LAST)); then LAST=$RANGE_LAST; fi
for number in $PARTNERS; do
  if [[ ! -e $DONE/$number.$1 ]]; then
    echo "$NAME: not run from frame $FIRST: step $number failed there" >&2
    exit 1
  fi
done
BEGIN
)
# And what it ends with, where its command went well.
end=$(cat <<'END'
|| { echo "$NAME: failed from frame $FIRST" >&2; exit 1; }
: >"$DONE/$NUMBER.$1"
END
)

# step NUMBER NAME FIRST LAST STEP FRAMES-OF-A-TASK WAITS... reads the command of a task. "all:3" waits for all of step
# 3, "each:3" has each task wait for the task of step 3 with the same frames.
step() {
  export NUMBER=$1 NAME=$2 RANGE_FIRST=$3 RANGE_LAST=$4 STEP=$5 TASK_FRAMES=$6 PARTNERS=
  local count=$(((($4 - $3) / $5 + $6) / $6)) command wait
  command=$(cat)
  for wait in "${@:7}"; do
    if [[ $wait == each:* ]]; then
      PARTNERS+=" ${wait#each:}"
    elif [[ ! -e $DONE/${wait#all:} ]]; then
      echo "$NAME: not run: step ${wait#all:} failed" >&2
      failed=1
      return
    fi
  done
  echo "$NAME: tasks: $count" >&2
  if seq 0 $((count - 1)) | xargs -n 1 -P "$AT_A_TIME" bash -c "$begin"$'\n'"$command $end" "$NAME"; then
    : >"$DONE/$NUMBER"
  else
    failed=1
  fi
}
)runner";

QByteArray write(const _submission& submission) {
    return "#!/bin/bash\n# " + headlineForComment(submission).toUtf8() + ", for this machine.\n" + runner +
           bashSteps(submission, bashWaits) + "\nexit \"$failed\"\n";
}

}  // namespace

const _engine shellEngine{
    .name = QLatin1String{"shell"},
    .description = QLatin1String{"script for one machine"},
    .fileEnding = QLatin1String{".sh"},
    .isProgram = true,
    .faultOfStep = noFault,
    .faultOfSubmission = noFaultOfAll,
    .write = write,
};

}  // namespace vxH
