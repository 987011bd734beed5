// Growing a job array one record at a time, against one block of the final size in the same run. The ratio is the
// result: were the records copied at every growth, it would rise with the number of jobs. And what a copy of a job
// costs, in time and in pages.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "jobs/VX_DataTypes_jobs0_Basics.h"
#include "jobs/recordImage.h"

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

/// A job with texts where real ones have them.
void fill(_JobBasics_largePath& job) {
    job.app = u"Houdini";
    job.layer = u"/out/mantra1";
    job.sceneName = u"/projects/kettle/turntable/turntable.hip";
    job.sceneDatabaseDir = u"/projects/kettle/";
    job.imageDir = u"<Database>render/mantra1/";
    job.imageFileName = u"beauty.";
    job.imageExtension = u".exr";
    job.channels[0].fileName = u"<Database>render/mantra1/depth.";
    job.sceneSettings.customDataSet_Str(vxJ::CUSTOMUserInfoName, QStringLiteral("info"));
}

void BM_Copies(benchmark::State& state) {
    const auto jobs = static_cast<int>(state.range(0));
    const vxJ::_writtenPages pages;
    double best = std::numeric_limits<double>::max();
    for (auto _ : state) {
        _JobBasicsArray array;
        array.setArraySize(1);
        fill(*array.at(0));
        const auto start = std::chrono::steady_clock::now();
        const vxJ::_recordImage image(*array.at(0), pages);
        if (!array.setArraySize(jobs)) state.SkipWithError("no memory");
        for (int i = 1; i < array.allocated; ++i) image.copy(*array.at(0), *array.at(i));
        const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        state.SetIterationTime(seconds);
        best = std::min(best, seconds);
        if (std::memcmp(array.at(0), array.at(array.allocated - 1), sizeof(_JobBasics_largePath)) != 0)
            state.SkipWithError("another record");
        std::size_t bytes = 0;
        for (const auto& [begin, end] : pages.in(array.at(1), sizeof(_JobBasics_largePath))) bytes += end - begin;
        state.counters["kilobytesPerCopy"] = static_cast<double>(bytes) / 1024;
    }
    state.counters["microsecondsPerCopy"] = best * 1e6 / jobs;
}
BENCHMARK(BM_Copies)->Arg(1000)->Arg(16000)->Iterations(5)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
