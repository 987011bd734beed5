// What one output-driver section has told so far.
#pragma once

#include <QString>
#include <QTextStream>
#include <array>

#include "grammar/paramSection.h"
#include "jobs/VX_DataTypes_plugin.h"
#include "jobs/renderers.h"
#include "scan/scanState.h"

namespace vxP {

/// The kinds that a section's parameters have implied so far: a driver may carry several.
class _kinds {
 public:
    void set(_kind kind) { bits = static_cast<quint16>(bits | bitOf(kind)); }
    void clear(_kind kind) { bits = static_cast<quint16>(bits & ~bitOf(kind)); }
    bool has(_kind kind) const { return (bits & bitOf(kind)) != 0; }

 private:
    static quint16 bitOf(_kind kind) { return static_cast<quint16>(1U << static_cast<unsigned>(kind)); }

    quint16 bits = 0;
};

constexpr int aovSlotCount = 20;  ///< slots 1 to 19 are used

/// One output file beside the main image, as its parameters give it.
struct _aovSlot {
    QString prefix;
    QString suffix;
    QString fileFormat;
    QString fileName;
};

struct _driver {
    // What the scan knows.
    _dataPARS_LoadSceneFile& load;
    bool& activeTakeUsed;
    const int& majorVersion;
    const QString& versionText;  ///< version after the major number

    // What the section says.
    QString nodePath{};
    const _nodeTraits* traits = nullptr;  ///< what the node's type tells; null: it is not known
    QString imageName{};
    QString exportName{};  ///< scene description that the driver writes instead of rendering
    QString take{};
    _kinds kinds{};
    bool isExport = false;
    bool singleFile = false;
    bool oneImageFile = false;   ///< the image name holds no frame number ...
    bool oneExportFile = false;  ///< ... that of the scene description
    bool cameraIsProxyExport = false;
    qint32 resolutionWidth = 0;   ///< pixels; 0: none given
    qint32 resolutionHeight = 0;  ///< pixels; 0: none given
    std::array<_aovSlot, aovSlotCount> aovs{};

    bool has(_kind kind) const { return kinds.has(kind); }
    bool exportsOnly() const { return traits != nullptr && traits->exportsOnly; }
};

}  // namespace vxP
