// Cameras of the scene: which one an output driver renders through, its resolution, and whether it is stereo.
#pragma once

#include <QList>
#include <QStringList>
#include <QTextStream>
#include <span>

#include "catalogues/listIndex.h"
#include "grammar/paramSection.h"
#include "jobs/VX_DataTypes_plugin.h"
#include "shared/vxString8.h"

namespace vxP {

using vxS::_vxString8_allSize;

/// One camera. Its section and the drivers that name it come in either order; each fills its own part.
struct _camNode {
    _vxString8_allSize<150> camName;  ///< node path, for example /obj/cam1; compared exactly
    qint32 resX = 0;                  ///< pixels
    qint32 resY = 0;                  ///< pixels
    bool isStereo = false;
    QStringList renderNodes;  ///< drivers that use the camera, in reporting order, duplicates kept
};

/// Cameras in the order in which they were met; entries are never removed, so an index stays valid.
class _camList {
 public:
    /// First camera of that name, or a new blank entry (its name is blank too) that the caller fills at once.
    qint32 findCamIndex(const _vxString8_allSize<150>& name);
    /// First camera that lists the driver (compared exactly), or -1.
    qint32 findCamIndexByRenderNode(const QString& renderNode) const;
    /// Stores name, resolution and stereo mark of a camera section; drivers reported before stay attached. A helper
    /// node of a camera rig ("xform", "camOrigin", "file" or "constraints" in its path) is not a camera.
    void addCam(_camNode& node);
    /// The same for a node that is known to be a camera.
    void keepCam(const _camNode& node);
    /// Notes that a driver renders through a camera.
    void addCamFromOutNode(_vxString8_allSize<150> name, const QString& renderNode);

    const QList<_camNode>& entries() const { return cameras; }

 private:
    qint32 knownIndex(const _vxString8_allSize<150>& name) const;
    qint32 append(const _vxString8_allSize<150>& name);
    /// First camera of that name, or a new one.
    qint32 indexOfCamera(const _vxString8_allSize<150>& name);

    QList<_camNode> cameras;
    std::map<std::size_t, qint32> byNameHash;
    _firstPositions byDriver;
};

extern _camList camList;  ///< lives as long as the plug-in is loaded and is never emptied

/// Beginnings of the lines that the reader looks at.
std::span<const QLatin1String> cameraParameters();

/// Reads a camera section: its "res" parameter. A section without its closing brace adds nothing.
/// @param[in,out] line  in: the section's header; out: the last line read
/// @return resultSuccess
qint32 loadCamNode(_dataPARS_LoadSceneFile* load, QTextStream& stream, QString& line);
/// The same for a node that is known: one of a camera's type is a camera, whatever it is called.
qint32 readCamNode(const _sectionNode& known, QTextStream& stream, QString& line);

}  // namespace vxP

Q_DECLARE_TYPEINFO(vxP::_camNode, Q_MOVABLE_TYPE);  // a long list grows in place
