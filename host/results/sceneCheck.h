// How computed values of a scene agree with those that it stored. As JSON: docs/schema/values.schema.json.
#pragma once

#include <QJsonObject>

#include "host/results/sceneResult.h"

namespace vxH {

struct _namedCount {
    QString name;
    qint64 count = 0;
};

/// A channel whose value was computed once more.
struct _checkedValue {
    QString node;
    QString channel;
    QString expression;
    QString stored;
    QString value;    ///< empty where there is a reason
    QString reason;   ///< empty: there is a value
    QString verdict;  ///< the name of one of the counts
};

struct _checkCounts {
    qint64 pairs = 0;  ///< channels with a stored value
    qint64 evaluated = 0;
    qint64 judged = 0;                  ///< whose stored value is of the state that the scene was saved in
    qint64 agree = 0;                   ///< of these
    std::vector<_namedCount> verdicts;  ///< all there are, in their order: "agrees", "other frame" ...
    std::vector<_namedCount> reasons;   ///< why there is no value, those that occur
    double milliseconds = 0;            ///< of processor time, for each value once

    _checkCounts& operator+=(const _checkCounts& other);
};

struct _sceneCheck : _sceneHead {
    _checkCounts counts;
    std::vector<_checkedValue> channels;  ///< in the scene's order
};

QJsonObject checkToJson(const _sceneCheck& check);
_sceneCheck checkFromJson(const QJsonObject& object);

}  // namespace vxH
