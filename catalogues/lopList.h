// LOP nodes of the scene: the output image and the renderer of a USD driver are on the LOP node that it renders.
#pragma once

#include <QList>
#include <QStringList>
#include <QTextStream>
#include <span>

#include "catalogues/listIndex.h"
#include "grammar/paramSection.h"
#include "jobs/VX_DataTypes_plugin.h"

namespace vxP {

/// One LOP node. Its section and the drivers that name it come in either order; each fills its own part.
struct _LOPNode {
    QString lopName;    ///< node path, for example /stage/rendersettings1; compared in any letter case
    QString imageName;  ///< output image in the job's notation
    QString renderer;   ///< "karma", "prman", "vray", "redshift", "arnold", or empty
    bool imageUsesTake = false;
    QStringList renderNodes;  ///< drivers that render the node, in reporting order, duplicates kept

    /// Takes the renderer from a text that holds its name, from the node's path when the text is empty. A text
    /// without a known name leaves the renderer as it was.
    void setRenderer(const QString& text);
    /// Renderer name of the job that renders the stage: "usd", or "usd_karma" and so on.
    QString rendererName_render() const;
    /// Renderer name of the job that writes the stage: "createUSD", or "createUSD_karma" and so on.
    QString rendererName_create() const;
};

/// LOP nodes in the order in which they were met; entries are never removed, so an index stays valid.
class _LOPList {
 public:
    /// First node of that path. When there is none: -1, or with `create` a new entry of that path.
    qint32 findLOPIndex(const QString& name, const bool& create);
    /// First node that lists the driver (compared exactly), or -1.
    qint32 findLOPIndexByRenderNode(const QString& renderNode) const;
    /// Stores path, image and take use of a node and takes the renderer from its path; drivers stay attached.
    void addLOP(_LOPNode& node);
    /// Notes that a driver renders a node. @return the node's index
    qint32 addLOPFromOutNode(QString name, const QString& renderNode);

    _LOPNode& operator[](qint32 index) { return nodes[index]; }
    const QList<_LOPNode>& entries() const { return nodes.entries(); }

 private:
    _nodeList<_LOPNode> nodes;
};

extern _LOPList LOPList;  ///< lives as long as the plug-in is loaded and is never emptied

/// Beginnings of the lines that the reader looks at.
std::span<const QLatin1String> lopParameters();

/// Reads a LOP section: its "picture" parameter. A section without its closing brace adds nothing.
/// @param[in,out] line  in: the section's header; out: the last line read
/// @return resultSuccess
qint32 loadLOPNode(_dataPARS_LoadSceneFile* load, QTextStream& stream, QString& line);
/// The same for a node that is known.
qint32 readLOPNode(const _sectionNode& known, QTextStream& stream, QString& line);

}  // namespace vxP

Q_DECLARE_TYPEINFO(vxP::_LOPNode, Q_MOVABLE_TYPE);  // a long list grows in place
