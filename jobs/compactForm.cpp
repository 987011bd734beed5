// The large-path form of a job as a compact one.
#include "jobs/VX_DataTypes_jobs0_Basics.h"

namespace vxJ {

void _JobBasics_largePath::toJobsBasic(_JobBasics& target) const {
    static_cast<_JobBasics_noSettings_noPaths&>(target) = *this;
    target.sceneName = sceneName.view();
    target.sceneDatabaseDir = sceneDatabaseDir.view();
    target.unnamedPath = unnamedPath.view();
    target.imageDir = imageDir.view();
    target.imageFileName = imageFileName.view();
    target.unnamedFile = unnamedFile.view();
    target.imageExtension = imageExtension.view();
    target.channelClear();
    for (const _channelSlot& slot : channels)
        target.channelAdd(_vxString<500>(slot.fileName.view()), _vxString<25>(slot.extension.view()));
    target.sceneSettings = sceneSettings;
}

}  // namespace vxJ
