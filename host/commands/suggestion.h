// What a mistyped word was probably meant to be.
#pragma once

#include <QString>
#include <QStringList>

namespace vxH {

/// "; did you mean --format?", with the known word that is nearest; empty where none is near.
QString suggestionFor(const QString& typed, const QStringList& known);

}  // namespace vxH
