// Which job a job waits for.
#pragma once

#include <vector>

#include "host/results/job.h"

namespace vxH {

/// Finds the jobs that a scene's jobs wait for: fills `waitsFor` of each. A job that waits for more jobs than its
/// record can name lists all of them in its custom data (`CUSTOMWaitsFor`): these are meant. For all others own numbers
/// count, which have 8 bits and repeat in a long list. Of the jobs before the waiting one with the number it names, the
/// nearest is meant that writes the file which the waiting job renders; where there is none, the nearest with its
/// driver and take; and then the nearest of all.
void findWaits(std::vector<_job>& jobs);

/// Whether a job renders the files that an earlier one writes: its scene is "<Database>ifd/a.<FN4>.ifd" where that one
/// has "<Database>ifd/a." and ".ifd", without the frame for a single file.
bool rendersWhatIsWritten(const _job& waiting, const _job& earlier);

}  // namespace vxH
