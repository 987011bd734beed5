// The report as one page that needs nothing but itself.
#pragma once

#include <QByteArray>
#include <QJsonObject>

namespace vxH {

/// A page in HTML (UTF-8) that shows the data, see reportData.h. Texts of scenes are in one place only, a data block
/// that no text can end; the page's policy runs only the style and script that it came with, and loads
/// nothing.
QByteArray reportPage(const QJsonObject& data);

}  // namespace vxH
