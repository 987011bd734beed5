// Version of a render application, as a job names it.
#pragma once

#include <QString>

#include "shared/vxString8.h"

namespace vxRA {

struct _RenderAppBasic {
    int versionMajor = 0;  ///< 0: not known
    vxS::_vxString8_allSize<15> versionMinor;

    /// Exactly five characters: cut, or filled up with "0" at the end ("5" -> "50000").
    void setVersionMinor(const QString& text) { versionMinor = QStringView{text.left(5).leftJustified(5, u'0')}; }
};

}  // namespace vxRA
