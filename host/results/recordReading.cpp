#include "host/results/recordReading.h"

#include <algorithm>
#include <functional>
#include <memory>

#include "host/results/jobFields.h"
#include "host/results/jobWaits.h"

namespace vxH {
namespace {

void forEachRecord(const vxJ::_JobBasicsArray& records,
                   const std::function<void(const vxJ::_JobBasics_largePath&, int number)>& take) {
    for (int i = 0; i < records.count; ++i) {
        const auto* const record = records.at(i);
        if (record == nullptr) break;  // counted, but there was no memory for it
        take(*record, i + 1);
    }
}

}  // namespace

std::vector<_job> jobsOf(const vxJ::_JobBasicsArray& records) {
    const vxJ::_writtenPages pages;
    std::vector<_job> jobs;
    jobs.reserve(static_cast<std::size_t>(std::clamp(records.count, 0, std::max(records.allocated, 0))));
    forEachRecord(records, [&](const auto& record, int) { jobs.push_back(jobFromRecord({record, pages})); });
    findWaits(jobs);
    return jobs;
}

std::vector<_jobVariables> variablesOf(const vxJ::_JobBasicsArray& records) {
    const auto compact = std::make_unique<vxJ::_JobBasics>();
    std::vector<_jobVariables> jobs;
    forEachRecord(records, [&](const auto& record, int number) {
        record.toJobsBasic(*compact);
        vxJ::_varValList list;
        compact->exportJobVarList_Basic(list);
        auto& job = jobs.emplace_back(_jobVariables{number, record.layer.toQString(), {}});
        for (const auto& variable : list) job.variables.push_back({variable.name, variable.value});
    });
    return jobs;
}

}  // namespace vxH
