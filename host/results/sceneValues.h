// What the parameters of a scene's nodes say: as stored, and as computed. As JSON: docs/schema/values.schema.json.
#pragma once

#include <QJsonObject>
#include <optional>

#include "host/results/sceneResult.h"

namespace vxH {

/// One component of a parameter.
struct _nodeValue {
    QString node;                   ///< path
    QString type;                   ///< of the node; empty: unknown
    QString parameter;              ///< "f"
    QString channel;                ///< name of the component, "f1"; empty: the scene does not tell it
    int component = 1;              ///< of the parameter, from 1
    QString expression;             ///< of the channel, or a text with variables or expressions in it; empty: neither
    QString language;               ///< of a channel's expression, "hscript", "python"
    int keys = 0;                   ///< of an animated channel; its expression is how it leaves the first one
    std::optional<QString> cached;  ///< what Houdini computed when it last looked; none: no channel drives it
    QString value;                  ///< a literal as written, else what was computed
    QString reason;                 ///< why there is no value; empty: there is one
    QString code;                   ///< the reason in a word that stays the same between versions

    bool isComputed() const { return !expression.isEmpty() || cached.has_value(); }
};

struct _sceneValues : _sceneHead {
    double frame = 1;                ///< for which values were computed
    bool isWhole = true;             ///< false: the file ends early or is damaged, and nodes may be missing
    std::vector<_nodeValue> values;  ///< by node, then by channel
};

/// The head with `frame`, `complete` and `values`.
QJsonObject valuesToJson(const _sceneValues& scene);

/// One object for each value, with its scene.
std::vector<QJsonObject> valueLines(const _sceneValues& scene);

}  // namespace vxH
