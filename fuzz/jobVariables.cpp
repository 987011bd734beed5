// The variables of an arbitrary job, and these in square brackets inside its paths.
#include "jobs/jobVariables.h"

#include "fuzz/fuzzRecords.h"

/// Input: places to overwrite in a new job.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static auto& job = *new vxJ::_JobBasics_largePath;
    static auto& compact = *new vxJ::_JobBasics;
    job.initialize();
    vxFuzz::_input input(data, size);
    vxFuzz::patchJob(input, job);
    const vxJ::_varValList variables = vxJ::jobVariables(job);
    job.toJobsBasic(compact);
    vxJ::_varValList compactVariables;
    compact.exportJobVarList_Basic(compactVariables);
    vxFuzz::expect(variables.size() == compactVariables.size(), "both forms have the same variables");
    for (const vxS::_varValue& variable : variables)
        vxFuzz::expect(variable.value.size() <= 4000, "no value is longer than what it is taken from");
    job.IDstr();
    job.IDstrFull();
    compact.getSceneDisplayName();
    job.replaceSquareBracketVariables();
    vxFuzz::forEachText(job, [](const auto& text) { vxFuzz::expectReadable(text); });
    return 0;
}
