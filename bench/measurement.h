// Measuring a piece of work in a process of its own, as every load of a host starts from fresh state.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "jobs/VX_DataTypes_plugin.h"

namespace vxBench {

/// What a measured process answers.
struct _measurement {
    double seconds = 0;
    double ownSeconds = 0;     ///< of the processor, in the process itself ...
    double kernelSeconds = 0;  ///< ... and in the kernel, mostly for new memory
    long peakKilobytes = 0;    ///< above the start of the work
    int code = 0;
    int jobs = 0;
    int records = 0;           ///< job records that stand in memory
    long recordKilobytes = 0;  ///< of those that were ever written
};

/// Runs the work in a child process; what it answers there is the result. Ends the program when the child fails.
_measurement measured(const std::function<void(_measurement&)>& work);

/// Times the work and how far the process grows meanwhile.
void timed(_measurement& answer, const std::function<void()>& work);

/// Times a load.
/// @param records  that are there already: their memory costs any reader the same
_measurement measuredLoad(const std::string& path, int records,
                          const std::function<qint32(vxP::_dataPARS_LoadSceneFile&)>& loadScene);

/// @param values  at least one
double median(std::vector<double> values);

}  // namespace vxBench
