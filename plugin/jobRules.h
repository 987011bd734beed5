// What becomes of one job once the whole scene is known: versions, licences, the scene file that it renders, stereo.
#pragma once

#include <QString>

#include "jobs/VX_DataTypes_plugin.h"
#include "jobs/renderApp.h"
#include "jobs/renderers.h"
#include "plugin/sceneScan.h"

namespace vxP {

/// Versions of the applications that render a scene description, by the rows of `renderers`; major 0 where none is
/// known.
using _rendererVersions = std::array<vxRA::_RenderAppBasic, renderers.size()>;

/// "7.1.2" -> major 7, minor "1" (filled up to five characters); without a point the minor version is all zeros.
vxRA::_RenderAppBasic rendererVersionOf(const QString& text);

/// Output of the job visited just before: what a render job takes as its scene.
struct _outputBefore {
    QString imageDir;
    QString imageFileName;
    QString imageExtension;
    int imagePadding = 4;  ///< digits
    bool singleFile = false;
};

/// What every job is completed from.
struct _sceneSummary {
    const _sceneFacts& facts;
    const _rendererVersions& versions;
    QString sceneFileName;
    vxRA::_RenderAppBasic houdini;
    QStringList jobVariables;  ///< values of every scene variable JOB
};

/// Puts a value into a job's custom data, at the cost of what has to be rewritten there.
void setCustomData(vxJ::_JobBasics_largePath& job, const QString& name, const QString& value);

/// Completes one job. Jobs must be visited in array order.
/// @param[in,out] before  in: the job visited before; out: this one
void completeJob(vxJ::_JobBasics_largePath& job, const _sceneSummary& scene, _outputBefore& before);

}  // namespace vxP
