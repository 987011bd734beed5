// The steps as a script that submits them to Slurm, an array of tasks for each.
#include "host/base/displayText.h"
#include "host/base/shellText.h"
#include "host/engines/bashWords.h"
#include "host/engines/engines.h"

namespace vxH {
namespace {

constexpr const char* runner = R"runner(# usage: this script [OPTIONS OF sbatch]...; with --hold all jobs stay held
# All jobs are held until the last one is submitted, so that none starts, and none is forgotten by the controller, before
# those that wait for it are there. When a call fails, what was submitted is cancelled.
set -euo pipefail

# Tasks of one array: longer steps are split. MaxArraySize of the cluster is one more than the highest index.
array_tasks=${ARRAY_TASKS:-$(($(scontrol show config | sed -n 's/^MaxArraySize *= *//p') - 1))}
if [[ ! $array_tasks =~ ^[1-9][0-9]*$ ]]; then
  echo "how many tasks an array may have is not known: set ARRAY_TASKS" >&2
  exit 1
fi
options=("$@")
ids=()       # of each step's arrays, by its number: " 12 13"
names=()     # of the steps
submitted=() # all arrays

finish() {
  local status=$?
  trap - EXIT
  trap '' HUP INT TERM
  if ((status != 0 && ${#submitted[@]} > 0)); then
    echo "not everything could be submitted: cancelling ${submitted[*]}" >&2
    printf '%s\n' "${submitted[@]}" | xargs -n 500 scancel
  fi
  exit "$status"
}
trap finish EXIT
# A signal waits for the number of what is being submitted: without it nobody could cancel that.
stopped=0
trap 'stopped=130' INT
trap 'stopped=143' HUP TERM

# What each task begins with.
begin=$(cat <<'BEGIN'
#!/bin/bash
FIRST=$((RANGE_FIRST + SLURM_ARRAY_TASK_ID * TASK_FRAMES * STEP))
LAST=$((FIRST + (TASK_FRAMES - 1) * STEP))
if ((LAST > RANGE_LAST)); then LAST=$RANGE_LAST; fi
BEGIN
)

# dependency WAITS PART
dependency() {
  local wait list='' arrays
  for wait in ${1//,/ }; do
    if [[ $wait == each:* ]]; then
      read -ra arrays <<<"${ids[${wait#each:}]}"
      list+=",aftercorr:${arrays[$2]}"
    elif [[ $wait == all:* ]]; then
      list+=",afterok${ids[${wait#all:}]// /:}"
    fi
  done
  echo "${list#,}"
}

# step NUMBER NAME FIRST LAST STEP FRAMES-OF-A-TASK WAITS [OPTIONS OF sbatch]... reads the command of a task. "all:3"
# waits for all of step 3, "each:3" has each task wait for the task of step 3 with the same frames.
step() {
  local first=$3 last=$4 step=$5 frames=$6 waits=$7 script tasks from part count id after
  names[$1]=$2
  ids[$1]=''
  script=$begin$'\n'"exec $(cat)"
  tasks=$((((last - first) / step + frames) / frames))
  for ((from = 0, part = 0; from < tasks; from += array_tasks, part++)); do
    count=$((tasks - from < array_tasks ? tasks - from : array_tasks))
    after=$(dependency "$waits" "$part")
    id=$(trap '' HUP INT TERM && sbatch "${@:8}" "${options[@]}" --parsable --hold --job-name="$2" --array=0-$((count - 1)) \
      --export=ALL,RANGE_FIRST=$((first + from * frames * step)),RANGE_LAST="$last",STEP="$step",TASK_FRAMES="$frames" \
      ${after:+--dependency="$after" --kill-on-invalid-dep=yes} <<<"$script")
    id=${id%%;*}
    submitted+=("$id")
    ids[$1]+=" $id"
    if ((stopped != 0)); then exit "$stopped"; fi
  done
}
)runner";

constexpr const char* ending = R"ending(
held=no
for option in "${options[@]}"; do
  if [[ $option == --hold || $option == -H ]]; then held=yes; fi
done
if [[ $held == no ]]; then printf '%s\n' "${submitted[@]}" | xargs -n 500 scontrol release; fi
for number in "${!ids[@]}"; do echo "${names[number]}:${ids[number]}"; done
)ending";

/// The waits as one word, and options of sbatch.
QStringList wordsOf(const _farmStep& step) {
    const auto waits = bashWaits(step).join(QLatin1Char(','));
    QStringList options{waits.isEmpty() ? QStringLiteral("none") : waits,
                        QStringLiteral("--cpus-per-task=%1").arg(step.cores)};
    if (step.memoryMB > 0) options += QStringLiteral("--mem=%1M").arg(step.memoryMB);
    if (step.minutes > 0) options += QStringLiteral("--time=%1").arg(step.minutes);
    if (!step.licence.isEmpty()) options += QLatin1String{"--licenses="} + shellQuoted(step.licence);
    options += QLatin1String{"--comment="} + shellQuoted(printable(step.driver));
    return options;
}

QByteArray write(const _submission& submission) {
    return "#!/bin/bash\n# " + headlineForComment(submission).toUtf8() + ", for Slurm.\n" + runner +
           bashSteps(submission, wordsOf) + ending;
}

}  // namespace

const _engine slurmEngine{
    .name = QLatin1String{"slurm"},
    .description = QLatin1String{"script that submits arrays of tasks"},
    .fileEnding = QLatin1String{".slurm.sh"},
    .isProgram = true,
    .faultOfStep = noFault,
    .faultOfSubmission = noFaultOfAll,
    .write = write,
};

}  // namespace vxH
