#include "bench/measurement.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>

#include "jobs/sparseMemory.h"

namespace vxBench {

namespace {

rusage used() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage;
}

double secondsBetween(const timeval& start, const timeval& end) {
    return static_cast<double>(end.tv_sec - start.tv_sec) + static_cast<double>(end.tv_usec - start.tv_usec) * 1e-6;
}

long writtenKilobytes(const vxJ::_JobBasicsArray& jobs) {
    std::size_t bytes = 0;
    const auto block = static_cast<std::size_t>(jobs.allocated) * vxJ::largePathRecordSize;
    for (const auto& [begin, end] : vxJ::_writtenPages{}.in(jobs.jobs, block)) bytes += end - begin;
    return static_cast<long>(bytes / 1024);
}

}  // namespace

_measurement measured(const std::function<void(_measurement&)>& work) {
    int ends[2];
    if (pipe(ends) != 0) std::exit(EXIT_FAILURE);
    const pid_t child = fork();
    if (child == 0) {
        _measurement answer;
        work(answer);
        _exit(write(ends[1], &answer, sizeof answer) == sizeof answer ? 0 : 1);
    }
    close(ends[1]);
    _measurement answer;
    const bool whole = read(ends[0], &answer, sizeof answer) == sizeof answer;
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    if (!whole || status != 0) std::exit(EXIT_FAILURE);
    return answer;
}

void timed(_measurement& answer, const std::function<void()>& work) {
    const rusage before = used();
    const auto start = std::chrono::steady_clock::now();
    work();
    answer.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    const rusage after = used();
    answer.ownSeconds = secondsBetween(before.ru_utime, after.ru_utime);
    answer.kernelSeconds = secondsBetween(before.ru_stime, after.ru_stime);
    answer.peakKilobytes = after.ru_maxrss - before.ru_maxrss;
}

_measurement measuredLoad(const std::string& path, int records,
                          const std::function<qint32(vxP::_dataPARS_LoadSceneFile&)>& loadScene) {
    return measured([&](_measurement& answer) {
        const vxS::_vxString<500> name(QString::fromStdString(path));
        vxJ::_JobBasicsArray jobs;
        jobs.setArraySize(records);
        const char* const arguments[] = {"scanReport"};
        const vxP::_submitterSettings settings{1, arguments};
        vxP::_dataPARS_LoadSceneFile load{&name, &jobs, &settings};
        timed(answer, [&] { answer.code = loadScene(load); });
        answer.jobs = jobs.count;
        answer.records = jobs.allocated;
        answer.recordKilobytes = writtenKilobytes(jobs);
    });
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

}  // namespace vxBench
