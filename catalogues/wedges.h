// Wedge drivers of the scene: which output driver they repeat, and what each variant is called.
#pragma once

#include <QList>
#include <QString>
#include <QTextStream>
#include <optional>
#include <span>
#include <vector>

#include "grammar/paramSection.h"
#include "jobs/VX_DataTypes_plugin.h"

namespace vxP {

/// One channel that a wedge varies.
struct _wedgeParams {
    QString name;
    double start = 0.0;
    double end = 0.0;
    qint32 steps = 0;  ///< values that the channel takes

    /// Value of step `index`, evenly spaced from `start` to `end`. One step alone has no spacing: not a number.
    double valueIdx(const int& index) const;
};

struct _wedgeNode {
    QString prefix;  ///< beginning of every variant's name
    QString nodePath;
    QString driver;  ///< node path of the output driver that is repeated
    QString wedgeMethod;
    QList<_wedgeParams> params;
    qint32 totalCache = -1;  ///< result of `totalWedges`; -1: not yet computed
    // What a resolved load adds:
    std::optional<qint32> onlyVariant{};  ///< the one that is rendered; none: all are
    qint32 group = -1;                    ///< of the entries of one node, which repeat a driver each; -1: it is alone
    bool isRandom = false;  ///< its variants have values that cannot be told; `totalCache` is their number

    /// Number of variants: the product of all steps, which wraps around at 32 bits. 0 without channels. The first
    /// result stays, whatever becomes of the channels.
    qint32 totalWedges();
    /// The variants that are rendered, from the first to the one behind the last.
    std::pair<qint32, qint32> variants();
    /// The value of each channel in a variant.
    /// @param wedgeIndex  0 .. totalWedges() - 1; no channel may have 0 steps
    std::vector<double> valuesOf(int wedgeIndex) const;
    /// Name of a variant: the prefix, then "_channel_value" for each channel with 6 digits after the point. The first
    /// channel changes fastest from one variant to the next. Channels beyond what a record can hold are left out.
    /// @param wedgeIndex  0 .. totalWedges() - 1; no channel may have 0 steps
    QString getWedgeFileName(int wedgeIndex) const;
};

extern QList<_wedgeNode> wedges;  ///< lives as long as the plug-in is loaded and is never emptied

/// Beginnings of the lines that the reader looks at.
std::span<const QLatin1String> wedgeParameters();

/// Reads a wedge section and appends the wedge when it varies channels of a driver in at least one variant. A "name" or
/// "range" parameter without an instance number ends the section: such a node is no wedge, and hosts get no copies for
/// it.
/// @param[in,out] line  in: the section's header; out: the last line read
/// @return resultSuccess
qint32 loadWedgeNode(_dataPARS_LoadSceneFile* load, QTextStream& stream, QString& line);
/// The same for a node that is known.
qint32 readWedgeNode(const _sectionNode& known, QTextStream& stream, QString& line);

}  // namespace vxP

Q_DECLARE_TYPEINFO(vxP::_wedgeParams, Q_MOVABLE_TYPE);  // a long list grows in place
Q_DECLARE_TYPEINFO(vxP::_wedgeNode, Q_MOVABLE_TYPE);
