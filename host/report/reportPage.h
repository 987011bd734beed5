// The report as one page that needs nothing but itself.
#pragma once

#include <QByteArray>
#include <QJsonObject>

namespace vxH {

/// A page in HTML (UTF-8) that shows the data, see reportData.h. Texts of scenes stand in one place of it, a data block
/// in which no text can end the block; the page's policy runs only the style and script that it came with, and loads
/// nothing.
QByteArray reportPage(const QJsonObject& data);

}  // namespace vxH
