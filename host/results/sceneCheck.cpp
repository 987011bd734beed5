#include "host/results/sceneCheck.h"

#include <QJsonArray>
#include <algorithm>

#include "host/results/sceneJson.h"

namespace vxH {
namespace {

constexpr QLatin1String verdictsKey{"verdicts"};
constexpr QLatin1String reasonsKey{"reasons"};
constexpr QLatin1String channelsKey{"channels"};
constexpr QLatin1String millisecondsKey{"milliseconds"};
constexpr QLatin1String nameKey{"name"};
constexpr QLatin1String countKey{"count"};

struct _countKey {
    QLatin1String name;
    qint64 _checkCounts::*count;
};
constexpr _countKey countKeys[] = {
    {QLatin1String{"pairs"}, &_checkCounts::pairs},
    {QLatin1String{"evaluated"}, &_checkCounts::evaluated},
    {QLatin1String{"judged"}, &_checkCounts::judged},
    {QLatin1String{"agree"}, &_checkCounts::agree},
};

struct _textKey {
    QLatin1String name;
    QString _checkedValue::*text;
    bool isAlwaysThere;  // else only where there is a text
};
constexpr _textKey textKeys[] = {
    {QLatin1String{"node"}, &_checkedValue::node, true},
    {QLatin1String{"channel"}, &_checkedValue::channel, true},
    {QLatin1String{"expression"}, &_checkedValue::expression, true},
    {QLatin1String{"cached"}, &_checkedValue::stored, true},
    {QLatin1String{"reason"}, &_checkedValue::reason, false},
    {QLatin1String{"verdict"}, &_checkedValue::verdict, true},
};
constexpr QLatin1String valueKey{"value"};  // where there is no reason

QJsonArray toJson(const std::vector<_namedCount>& counts) {
    QJsonArray list;
    for (const auto& one : counts) list.append(QJsonObject{{nameKey, one.name}, {countKey, one.count}});
    return list;
}

std::vector<_namedCount> countsFrom(const QJsonValue& value) {
    std::vector<_namedCount> counts;
    const auto list = value.toArray();
    for (const auto& one : list)
        counts.push_back({one.toObject()[nameKey].toString(), one.toObject()[countKey].toVariant().toLongLong()});
    return counts;
}

QJsonObject toJson(const _checkedValue& one) {
    QJsonObject object;
    for (const auto& row : textKeys)
        if (row.isAlwaysThere || !(one.*row.text).isEmpty()) object.insert(row.name, one.*row.text);
    if (one.reason.isEmpty()) object.insert(valueKey, one.value);
    return object;
}

_checkedValue checkedFrom(const QJsonObject& object) {
    _checkedValue one;
    for (const auto& row : textKeys) one.*row.text = object[row.name].toString();
    one.value = object[valueKey].toString();
    return one;
}

void add(const std::vector<_namedCount>& counts, std::vector<_namedCount>& to) {
    for (const auto& one : counts) {
        const auto same = std::find_if(to.begin(), to.end(), [&](const auto& sum) { return sum.name == one.name; });
        if (same == to.end())
            to.push_back(one);
        else
            same->count += one.count;
    }
}

}  // namespace

_checkCounts& _checkCounts::operator+=(const _checkCounts& other) {
    for (const auto& row : countKeys) this->*row.count += other.*row.count;
    add(other.verdicts, verdicts);
    add(other.reasons, reasons);
    milliseconds += other.milliseconds;
    return *this;
}

QJsonObject checkToJson(const _sceneCheck& check) {
    auto object = headToJson(check);
    for (const auto& row : countKeys) object.insert(row.name, check.counts.*row.count);
    object.insert(verdictsKey, toJson(check.counts.verdicts));
    object.insert(reasonsKey, toJson(check.counts.reasons));
    object.insert(millisecondsKey, check.counts.milliseconds);
    QJsonArray channels;
    for (const auto& one : check.channels) channels.append(toJson(one));
    object.insert(channelsKey, channels);
    return object;
}

_sceneCheck checkFromJson(const QJsonObject& object) {
    _sceneCheck check{headFromJson(object), {}, {}};
    for (const auto& row : countKeys) check.counts.*row.count = object[row.name].toVariant().toLongLong();
    check.counts.verdicts = countsFrom(object[verdictsKey]);
    check.counts.reasons = countsFrom(object[reasonsKey]);
    check.counts.milliseconds = object[millisecondsKey].toDouble();
    const auto channels = object[channelsKey].toArray();
    for (const auto& one : channels) check.channels.push_back(checkedFrom(one.toObject()));
    return check;
}

}  // namespace vxH
