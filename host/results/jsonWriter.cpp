#include "host/results/jsonWriter.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>
#include <cmath>

#include "host/base/displayText.h"

namespace vxH {
namespace {

constexpr vxS::_size indent = 4;    ///< blanks
constexpr double plainLimit = 1e5;  ///< a greater number may be written with an exponent

/// ASCII that stands for itself, as nearly all texts do.
bool isPlain(const QString& text) {
    return std::all_of(text.begin(), text.end(), [](QChar character) {
        const char16_t unit = character.unicode();
        return unit >= u' ' && unit < 0x7f && unit != u'"' && unit != u'\\';
    });
}

bool isSmallInteger(double number) {
    return std::abs(number) < plainLimit && number == std::trunc(number) && !std::signbit(number);
}

QString escapesOf(QStringView character) {
    QString escapes;
    for (const QChar unit : character) {
        const int code = unit.unicode();
        escapes += QStringLiteral("\\u%1").arg(code, 4, 16, QLatin1Char('0'));
    }
    return escapes;
}

/// What Qt writes for a number or a text.
QByteArray qtText(const QJsonValue& value) {
    const QByteArray list = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return list.mid(1, list.size() - 2);
}

}  // namespace

void _jsonWriter::begin(char bracket) {
    bytes += bracket;
    if (indented) bytes += '\n';
    ++depth;
    isFirst = true;
}

void _jsonWriter::end(char bracket) {
    --depth;
    if (indented && !isFirst) bytes += '\n';
    if (indented) bytes.append(depth * indent, ' ');
    bytes += bracket;
    isFirst = false;
}

void _jsonWriter::element() {
    if (!isFirst) bytes += indented ? ",\n" : ",";
    if (indented) bytes.append(depth * indent, ' ');
    isFirst = false;
}

void _jsonWriter::key(const QString& name) {
    element();
    string(name);
    bytes += indented ? ": " : ":";
}

void _jsonWriter::string(const QString& text) {
    if (isPlain(text)) {
        bytes += '"';
        bytes += text.toLatin1();
        bytes += '"';
    } else {
        bytes += withoutHarmful(QString::fromUtf8(qtText(text)), escapesOf).toUtf8();
    }
}

void _jsonWriter::members(const QJsonObject& object) {
    for (auto member = object.begin(); member != object.end(); ++member) {
        key(member.key());
        value(member.value());
    }
}

void _jsonWriter::value(const QJsonValue& value) {
    switch (value.type()) {
        case QJsonValue::Object:
            beginObject();
            members(value.toObject());
            endObject();
            break;
        case QJsonValue::Array: {
            beginArray();
            const QJsonArray array = value.toArray();
            for (const auto& one : array) {
                element();
                this->value(one);
            }
            endArray();
            break;
        }
        case QJsonValue::String:
            string(value.toString());
            break;
        case QJsonValue::Double:
            bytes += isSmallInteger(value.toDouble()) ? QByteArray::number(value.toInt()) : qtText(value);
            break;
        case QJsonValue::Bool:
            bytes += value.toBool() ? "true" : "false";
            break;
        case QJsonValue::Null:
        case QJsonValue::Undefined:
            bytes += "null";
            break;
    }
}

}  // namespace vxH
