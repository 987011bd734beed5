#include "host/results/jsonValues.h"

#include <cmath>
#include <limits>

namespace vxH {
namespace {

constexpr QLatin1String nameKey{"name"};
constexpr QLatin1String valueKey{"value"};
constexpr QLatin1String reasonKey{"reason"};
constexpr QLatin1String slotKey{"slot"};
constexpr QLatin1String extensionKey{"extension"};

}  // namespace

QJsonValue jsonOf(const QString& text) {
    return text;
}

QJsonValue jsonOf(int number) {
    return number;
}

QJsonValue jsonOf(bool truth) {
    return truth;
}

QJsonValue jsonOf(double number) {
    return std::isfinite(number) ? QJsonValue{number} : QJsonValue{};
}

QJsonValue jsonOf(quint64 number) {
    return QString::number(number);
}

QJsonValue jsonOf(const _channelFile& file) {
    return QJsonObject{{slotKey, file.slot}, {nameKey, file.name}, {extensionKey, file.extension}};
}

QJsonValue jsonOf(const _namedText& text) {
    return QJsonObject{{nameKey, text.name}, {valueKey, text.value}};
}

QJsonValue jsonOf(const QList<vxP::_resolvedValue>& values) {
    QJsonArray list;
    for (const auto& one : values) {
        QJsonObject object{{QLatin1String{"node"}, one.node},
                           {QLatin1String{"parameter"}, one.parameter},
                           {QLatin1String{"expression"}, one.expression},
                           {QLatin1String{"stored"}, one.stored}};
        const bool isKnown = one.reason.isEmpty();
        object.insert(isKnown ? valueKey : reasonKey, isKnown ? one.value : one.reason);
        list.append(object);
    }
    return list;
}

void readJson(const QJsonValue& value, QString& text) {
    text = value.toString();
}

void readJson(const QJsonValue& value, int& number) {
    number = value.toInt();
}

void readJson(const QJsonValue& value, bool& truth) {
    truth = value.toBool();
}

void readJson(const QJsonValue& value, double& number) {
    number = value.toDouble(std::numeric_limits<double>::quiet_NaN());
}

void readJson(const QJsonValue& value, quint64& number) {
    number = value.toString().toULongLong();
}

void readJson(const QJsonValue& value, _channelFile& file) {
    const auto object = value.toObject();
    file = {object[slotKey].toInt(), object[nameKey].toString(), object[extensionKey].toString()};
}

void readJson(const QJsonValue& value, _namedText& text) {
    const auto object = value.toObject();
    text = {object[nameKey].toString(), object[valueKey].toString()};
}

}  // namespace vxH
