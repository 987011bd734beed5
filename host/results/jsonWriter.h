// JSON as it is printed, piece by piece: a scene of thousands of jobs is never there as one tree of values.
#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QJsonValue>

#include "shared/vxString.h"

namespace vxH {

/// Writes objects and arrays as `QJsonDocument` does. Characters that could steer a terminal or reorder a line are
/// written as `\u`.
class _jsonWriter {
 public:
    /// @param isIndented  one value a line, with a line end for each; otherwise all in one line
    explicit _jsonWriter(bool isIndented) : indented(isIndented) {}

    void beginObject() { begin('{'); }
    void endObject() { end('}'); }
    void beginArray() { begin('['); }
    void endArray() { end(']'); }
    /// In an object, before each value.
    void key(const QString& name);
    /// In an array, before each value.
    void element();
    void value(const QJsonValue& value);
    void members(const QJsonObject& object);

    const QByteArray& text() const { return bytes; }

 private:
    void begin(char bracket);
    void end(char bracket);
    void string(const QString& text);

    bool indented;
    bool isFirst = true;  ///< of its object or array
    vxS::_size depth = 0;
    QByteArray bytes;
};

}  // namespace vxH
