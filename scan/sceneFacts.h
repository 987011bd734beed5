// What one load learns about a scene as a whole, apart from the module-wide state (scanState.h).
#pragma once

#include <QString>
#include <QStringList>
#include <set>

namespace vxP {

/// The scene's takes, as its "take name" lines name them.
struct _takes {
    qint64 lines = 0;
    QStringList names;        ///< in file order, each once, at most as many as a job array has records
    std::set<QString> known;  ///< the same names

    void add(const QString& name);
};

struct _sceneFacts {
    bool activeTakeUsed = false;  ///< an output name holds the take variable
    int majorVersion = 10;        ///< of Houdini, for example 19
    QString fullVersion;          ///< for example "19.5.640"
    QString minorText;            ///< for example "5640"; for the output-driver reader
    QString versionMinorText;     ///< for example "5.640"; for the jobs
    bool usesBuildVersion = true;
    bool compressedIFD = false;
    bool resolves = false;  ///< the load computes expressions and knows nodes by their types
    _takes takes;
};

}  // namespace vxP
