// The single pass over a scene: facts of the scene are kept, sections are handed to their readers.
#pragma once

#include <QIODevice>
#include <QTextStream>
#include <functional>

#include "jobs/VX_DataTypes_plugin.h"
#include "scan/sceneFacts.h"
#include "shared/vxEnvironment.h"

namespace vxP {

/// Takes -houdiniBuildVersion, -houdiniCompressedIFD and -houdiniResolve (any letter case) from the submitter's command
/// line.
void readSubmitterArguments(const _submitterSettings& settings, _sceneFacts& facts);

/// Keeps the scene's folder with its separator as `DatabaseDir`; a name without folder is kept whole.
void importSceneFolder(const _vxString<500>& sceneFileName);

/// True for the environment's HIP... variables. Values above 200 characters are left out.
bool isImported(const vxS::_varValue& variable);

/// Appends the environment's variables that are imported to `hVariables`.
void importEnvironment();

/// Called with true before a reader takes the lines of a section from the stream, with false afterwards.
using _sectionSwitch = std::function<void(bool open)>;

/// Decodes the stream's bytes as UTF-8, invalid ones as U+FFFD, whatever encoding a byte-order mark tells of; a mark at
/// the very start is dropped.
void decodeAsUtf8(QTextStream& stream);

/// Reads all lines of a stream.
/// @return resultSuccess, or what a reader returned that was not resultSuccess, and the rest is not read
qint32 scanStream(_dataPARS_LoadSceneFile& load, QTextStream& stream, _sceneFacts& facts,
                  const _sectionSwitch& sectionOpens);

/// Reads the scene to its end.
/// @param source  open for reading
/// @return resultSuccess; resultException after a read error; else what a reader returned that was not resultSuccess,
///         and the rest of the scene is not read
qint32 scanScene(_dataPARS_LoadSceneFile& load, QIODevice& source, _sceneFacts& facts);

}  // namespace vxP
