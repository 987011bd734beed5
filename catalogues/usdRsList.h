// USD render settings of the scene: camera and scene archive of a USD render, with the drivers that use them.
#pragma once

#include <QList>
#include <QStringList>
#include <QTextStream>
#include <span>

#include "catalogues/listIndex.h"
#include "grammar/paramSection.h"
#include "jobs/VX_DataTypes_plugin.h"

namespace vxP {

struct _USD_RendersettingNode {
    QString lopName;     ///< node path; compared in any letter case
    QString cameraName;  ///< empty when the camera is an expression
    bool imageUsesTake = false;
    bool archiveEnabled = false;
    bool archiveControlSet = false;
    QString imageName;  ///< archive file in the job's notation
    bool spareFlag = false;
    QStringList renderNodes;  ///< drivers that use the settings, in reporting order, duplicates kept
};

/// Settings in the order in which they were met; entries are never removed, so an index stays valid.
class _USD_RSList {
 public:
    /// First settings of that path. When there are none: -1, or with `create` a new entry of that path.
    qint32 findIndex(const QString& name, const bool& create);
    /// First settings that list the driver (compared exactly), or -1.
    qint32 findIndexByROP(const QString& renderNode) const;
    /// Notes that a driver uses settings. @return their index
    qint32 addFromROP(QString name, const QString& renderNode);
    /// Stores path, camera, archive switch and archive file. The other flags of the stored entry stay as they were: no
    /// job that a host is given depends on them. @return the entry's index
    qint32 add(_USD_RendersettingNode& node);

    const QList<_USD_RendersettingNode>& entries() const { return settings.entries(); }

 private:
    _nodeList<_USD_RendersettingNode> settings;
};

extern _USD_RSList USD_RSList;  ///< lives as long as the plug-in is loaded and is never emptied

/// Beginnings of the lines that the reader looks at.
std::span<const QLatin1String> usdRsParameters();

/// Reads a section of USD render settings. When a driver was attached to them before, that driver's plain Houdini jobs
/// get the archive file as their output, whether or not the archive is enabled.
/// @param[in,out] line  in: the section's header; out: the last line read
/// @return resultSuccess, or resultNoMoreJobs when the array has no record for one of its jobs
qint32 load_USD_RS_Node(_dataPARS_LoadSceneFile* load, QTextStream& stream, QString& line);
/// The same for a node that is known.
qint32 read_USD_RS_Node(_dataPARS_LoadSceneFile* load, const _sectionNode& known, QTextStream& stream, QString& line);

}  // namespace vxP

Q_DECLARE_TYPEINFO(vxP::_USD_RendersettingNode, Q_MOVABLE_TYPE);  // a long list grows in place
