// What a job writes, as tests compare it.
#pragma once

#include <string>

#include "jobs/VX_DataTypes_jobs0_Basics.h"
#include "tests/testText.h"

namespace vxTest {

/// "first-last path"
inline std::string framesAndFileOf(const vxJ::_JobBasics_largePath& job) {
    const auto& settings = job.sceneSettings;
    const int digits = job.imageSingleOutputFile ? 0 : job.imagePadding;
    return std::to_string(static_cast<int>(settings.seqStart)) + '-' +
           std::to_string(static_cast<int>(settings.seqEnd)) + ' ' + plainOf(job.imageDir) +
           plainOf(job.imageFileName) + std::string(static_cast<std::size_t>(digits), '#') +
           plainOf(job.imageExtension);
}

}  // namespace vxTest
