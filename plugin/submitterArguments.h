// The submitter's command line: its texts, and the switches that a load takes from it.
#pragma once

#include <QStringList>

#include "jobs/VX_DataTypes_plugin.h"
#include "scan/sceneFacts.h"

namespace vxP {

/// The arguments after the program's name, decoded as UTF-8; an argument that is missing reads as empty.
QStringList argumentsOf(const _submitterSettings& settings);

/// Takes the switches for the whole load (any letter case); those of renderers are left to the end of the scene.
void readSubmitterArguments(const _submitterSettings& settings, _sceneFacts& facts);

/// Row in `renderers` of the one whose version follows the argument; the number of rows when it is no such switch.
std::size_t rowOfVersionSwitch(const QString& argument);

/// All switches that a load knows.
QStringList submitterSwitches();

/// The arguments that are neither a switch nor the value of one: no load takes notice of them.
QStringList argumentsNotTaken(const _submitterSettings& settings);

}  // namespace vxP
