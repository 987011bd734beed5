// What is going to run, for people.
#pragma once

#include <QStringList>

#include "host/engines/submission.h"

namespace vxH {

/// A line for the scene, and one for each step: name, driver, frames, tasks, and what it waits for. Printable.
QStringList planLines(const _submission& submission);

}  // namespace vxH
