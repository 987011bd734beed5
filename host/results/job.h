// A job as vxscene works with it: what its record says, in texts and lists that outlive it.
#pragma once

#include <QList>
#include <QString>
#include <optional>
#include <vector>

#include "scan/scanObserver.h"

namespace vxH {

/// No job, where the index of one is expected.
constexpr int noJob = -1;

struct _namedText {
    QString name;
    QString value;

    bool operator==(const _namedText&) const = default;
};

/// A file that a job writes beside its main output.
struct _channelFile {
    int slot;           ///< in the record, from 0
    QString name;       ///< folder and file name
    QString extension;  ///< with its point

    bool operator==(const _channelFile&) const = default;
};

/// Fields have the names, units and meanings of the record (jobs/VX_DataTypes_jobs0_Basics.h); jobFields.h says how
/// they come from there. The password hash is left out: it is never shown.
struct _job {
    QString app;
    QString appRenderer;
    QString appRendererVersion;
    QString appType;
    int appVersionMajor = 0;
    QString appVersionMinor;
    QString camera;
    QString channel;
    std::vector<_channelFile> channels;  ///< the slots in use
    QString colorSpace;
    std::vector<_namedText> customData;
    QString imageDir;
    QString imageExtension;
    QString imageFileName;
    QString imageFormatOverride;
    int imageHeight = 0;
    int imageMulti = 0;
    int imagePadding = 0;
    bool imageSingleOutputFile = false;
    QString imageStereoL;
    QString imageStereoM;
    QString imageStereoR;
    int imageWidth = 0;
    quint64 jobID = 0;
    int jobKind = 0;
    QString layer;
    int pnl = 0;
    int preID = 0;
    QString requiredLicenses;
    QString sceneDatabaseDir;
    QString sceneName;
    int sceneOS = 0;
    QString sceneState;
    double seqEnd = 0;
    QString seqFrameSet;
    double seqStart = 0;
    int seqStep = 0;
    QString shotgunID;
    std::vector<int> structureIDs;
    std::vector<int> waitForPreIDs;  ///< the entries in use

    /// Not in the record: for each of `waitForPreIDs` the index of the job that is meant, or all jobs that are waited
    /// for where these are more, see jobWaits.h.
    std::vector<int> waitsFor;
    /// Not in the record: what was computed of the sections that the job came from. None: the load was not resolved, or
    /// there is too much of it.
    std::optional<QList<vxP::_resolvedValue>> resolved;

    /// Of the custom data; empty where there is none of that name.
    QString customText(QLatin1String name) const;
};

}  // namespace vxH
