// Values that results are made of, to JSON and back. What a member of an object lacks or has otherwise reads as empty.
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <vector>

#include "host/results/job.h"

namespace vxH {

QJsonValue jsonOf(const QString& text);
QJsonValue jsonOf(int number);
QJsonValue jsonOf(bool truth);
/// Null where it is no finite number.
QJsonValue jsonOf(double number);
/// Decimal digits: a JSON number has 53 bits.
QJsonValue jsonOf(quint64 number);
/// {slot, name, extension}
QJsonValue jsonOf(const _channelFile& file);
/// {name, value}
QJsonValue jsonOf(const _namedText& text);

/// What of a section was computed: {node, parameter, expression, stored, value or reason} each.
QJsonValue jsonOf(const QList<vxP::_resolvedValue>& values);
constexpr QLatin1String resolvedKey{"resolved"};  ///< of a job or section that has them

void readJson(const QJsonValue& value, QString& text);
void readJson(const QJsonValue& value, int& number);
void readJson(const QJsonValue& value, bool& truth);
void readJson(const QJsonValue& value, double& number);
void readJson(const QJsonValue& value, quint64& number);
void readJson(const QJsonValue& value, _channelFile& file);
void readJson(const QJsonValue& value, _namedText& text);

template <class _entry>
QJsonValue jsonOf(const std::vector<_entry>& list) {
    QJsonArray array;
    for (const auto& entry : list) array.append(jsonOf(entry));
    return array;
}

template <class _entry>
void readJson(const QJsonValue& value, std::vector<_entry>& list) {
    const auto array = value.toArray();
    for (const auto& entry : array) readJson(entry, list.emplace_back());
}

}  // namespace vxH
