#include "plugin/jobWaits.h"

#include <QStringList>
#include <algorithm>
#include <array>

#include "plugin/jobRules.h"

namespace vxP {

namespace {

using vxJ::_JobBasics_largePath;

constexpr qint32 ownNumbers = 256;  ///< the numbers of jobs have 8 bits and repeat in a long array

QString positionsOf(const std::vector<qint32>& jobs) {
    QStringList positions;
    for (const qint32 job : jobs) positions.append(QString::number(job + 1));
    return positions.join(QLatin1Char(' '));
}

/// An own number means the nearest job before that has it.
bool isNearest(qint32 waiting, qint32 before) {
    return waiting - before < ownNumbers;
}

void writeWaits(const vxJ::_JobBasicsArray& jobs, qint32 index, const std::vector<qint32>& waits) {
    _JobBasics_largePath* const job = jobs.at(index);
    if (job == nullptr) return;
    std::fill(std::begin(job->waitForPreIDs), std::end(job->waitForPreIDs), quint8{0});
    job->waitForPreIDCount = 0;
    for (const qint32 before : waits)
        if (isNearest(index, before) && job->waitForPreIDCount < vxJ::waitForPreIDCapacity)
            job->waitForPreIDs[job->waitForPreIDCount++] = jobs.at(before)->preID;
    const bool isAmbiguous = index >= ownNumbers;
    const bool isWhole = !isAmbiguous && job->waitForPreIDCount == static_cast<qint32>(waits.size());
    if (isWhole && !job->sceneSettings.customData_Contains(vxJ::CUSTOMWaitsFor)) return;
    setCustomData(*job, vxJ::CUSTOMWaitsFor, isWhole ? QString() : positionsOf(waits));
}

}  // namespace

/// A number means the nearest job before that has it.
_jobWaits::_jobWaits(vxJ::_JobBasicsArray& array) : jobs(array) {
    std::array<qint32, ownNumbers> lastOfNumber{};
    lastOfNumber.fill(-1);
    for (qint32 index = 0; index < jobs.count; ++index) {
        const _JobBasics_largePath* const job = jobs.at(index);
        append(job != nullptr && job->waitForPreIDCount == 1 ? lastOfNumber[job->waitForPreIDs[0]] : -1);
        if (job != nullptr) lastOfNumber[job->preID] = index;
    }
}

void _jobWaits::wire(qint32 job, std::vector<qint32> before) {
    if (before.empty()) return;
    writeWaits(jobs, job, before);
    waits[static_cast<std::size_t>(job)] = {std::move(before), true};
}

void _jobWaits::append(qint32 before) {
    waits.push_back(before < 0 ? _entry{} : _entry{{before}, false});
}

void _jobWaits::appendWired(std::vector<qint32> before) {
    waits.push_back({});
    wire(static_cast<qint32>(waits.size()) - 1, std::move(before));
}

}  // namespace vxP
