// Growing a job array one record at a time, against one block of the final size in the same run. The ratio is the
// result: were the records copied at every growth, it would rise with the number of jobs.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <limits>

#include "jobs/VX_DataTypes_jobs0_Basics.h"

namespace {

using vxJ::_JobBasics_largePath;
using vxJ::_JobBasicsArray;

bool growTo(_JobBasicsArray& array, int jobs) {
    _JobBasics_largePath* job = nullptr;
    for (int i = 0; i < jobs; ++i) {
        if (!array.getNewJob(job)) return false;
        job->preID = static_cast<quint8>(i);
    }
    return true;
}

bool grownRight(const _JobBasicsArray& array, int jobs) {
    if (array.count != jobs || array.allocated != jobs) return false;
    for (int i = 0; i < jobs; ++i)
        if (array.at(i)->structureIDs[0] != vxJ::structureVersion || array.at(i)->preID != static_cast<quint8>(i))
            return false;
    return true;
}

/// Seconds to allocate and initialise all records at once.
double oneBlockSeconds(int jobs) {
    const auto start = std::chrono::steady_clock::now();
    void* const block = std::calloc(static_cast<std::size_t>(jobs), vxJ::largePathRecordSize);
    auto* const records = static_cast<_JobBasics_largePath*>(block);
    for (int i = 0; records != nullptr && i < jobs; ++i) records[i].initialize();
    benchmark::DoNotOptimize(records);
    std::free(block);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double grownSeconds(int jobs) {
    const auto start = std::chrono::steady_clock::now();
    {
        _JobBasicsArray array;
        growTo(array, jobs);
        benchmark::DoNotOptimize(array.jobs);
    }
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void BM_GrowByOne(benchmark::State& state) {
    const auto jobs = static_cast<int>(state.range(0));
    {
        _JobBasicsArray array;
        if (!growTo(array, jobs) || !grownRight(array, jobs)) {
            state.SkipWithError("wrong records");
            return;
        }
    }
    double grown = std::numeric_limits<double>::max();  // the best of all rounds: page faults vary much
    double oneBlock = grown;
    for (auto _ : state) {
        const double seconds = grownSeconds(jobs);
        state.SetIterationTime(seconds);
        grown = std::min(grown, seconds);
        oneBlock = std::min(oneBlock, oneBlockSeconds(jobs));
    }
    state.counters["ratioToOneBlock"] = grown / oneBlock;
    state.counters["microsecondsPerJob"] = grown * 1e6 / jobs;
}
BENCHMARK(BM_GrowByOne)
    ->Arg(1000)
    ->Arg(5000)
    ->Arg(10000)
    ->Iterations(5)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
