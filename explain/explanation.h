// A scene explained: what its load learned, what became of each section, and what is likely to go wrong. Who shows it
// makes JSON or text of it.
#pragma once

#include <QLatin1String>
#include <QList>
#include <QString>
#include <QStringList>
#include <array>
#include <string_view>

#include "scan/scanObserver.h"

namespace vxE {

/// How much of a scene is read to explain it.
enum class _surveyBreadth : quint8 {
    wholeScene,
    nodes,  ///< what it says of its nodes, as far as its form tells where that is: no section has a line then
};

/// A variable that names may hold.
struct _variableFact {
    QString name;
    QString value;
    bool isImported;  ///< taken from the environment, not set by the scene
};

struct _cameraFact {
    QString node;
    qint32 width;   ///< pixels; 0: no section of the camera was read
    qint32 height;  ///< pixels
    bool isStereo;
    QStringList drivers;  ///< that render through it
};

struct _lopFact {
    QString node;
    QString image;     ///< in the job's notation; empty: none
    QString renderer;  ///< "karma", "prman" ...; empty: not known
    QStringList drivers;
};

struct _usdRenderSettingsFact {
    QString node;
    QString camera;
    QString image;  ///< scene archive in the job's notation
    bool isArchiveEnabled;
    QStringList drivers;
};

struct _wedgeChannelFact {
    QString name;
    double start;
    double end;
    qint32 steps;
};

struct _wedgeFact {
    QString node;
    QString driver;  ///< that is repeated
    qint32 variants;
    QList<_wedgeChannelFact> channels;
};

/// What the load learned about the scene as a whole.
struct _explainedFacts {
    QString houdiniVersion;  ///< for example "19.5.640"; empty: the scene does not tell
    qint32 firstFrame;
    qint32 lastFrame;
    qint32 frameStep;
    bool isFrameRangeStored;  ///< false: the scene has none, and the range is the default
    QStringList takes;
    qint64 variableCount;  ///< of which `variables` holds the first ones
    QList<_variableFact> variables;
    QList<_cameraFact> cameras;
    QList<_lopFact> lops;
    QList<_usdRenderSettingsFact> usdRenderSettings;
    QList<_wedgeFact> wedges;
};

/// What came of a section.
enum class _outcomeKind : quint8 {
    none,  ///< nothing; its code and text tell why
    kept,  ///< an entry of a catalogue: a camera, a wedge ...
    jobs,
};

/// The type of nodes that read a file, though many have frames and a parameter called like a driver's.
inline constexpr std::string_view fileNodeType{"file"};

/// Code of the section of an output driver that was taken for a camera.
inline constexpr QStringView takenForCamera{u"takenForCamera"};

/// What is told of a scene that ends before its trailer.
inline constexpr QStringView sceneCutText{u"the scene is cut off: it ends before its trailer, and jobs may be missing"};

/// A section that a reader took.
struct _explainedSection {
    vxP::_sectionReader reader;
    QLatin1String readerName;  ///< stays the same between versions
    QString node;
    QString type;    ///< of the node: "ifd"; empty: not known
    qint64 line;     ///< of its header, from 1; 0: not known
    qint64 byte;     ///< of that line, from the beginning of the scene
    bool hasFrames;  ///< the section holds a parameter of frames
    _outcomeKind outcome;
    QList<int> jobs;      ///< numbers from 1
    QList<int> copies;    ///< numbers of the copies of these jobs, for takes and wedges
    QString code;         ///< a word that stays the same between versions; empty where something came of the section
    QString text;         ///< the outcome in words
    QStringList details;  ///< the names that the reader met, with what it thought of each
    QList<vxP::_resolvedValue> resolved;  ///< what was computed of it; empty where the load was not resolved
};

/// A section that looks like a driver's and that no reader took.
struct _unrecognisedSection {
    QString node;
    QString type;  ///< of the node: "rop_fbx"; empty: not known
    qint64 line;
    qint64 byte;
    QString code;
    QString text;
};

struct _warning {
    QString code;     ///< a word that stays the same between versions
    QString node;     ///< empty: not about one node
    QList<int> jobs;  ///< numbers from 1, each once
    QString text;
};

/// How many entries there would be beyond those that the explanation holds. All are 0 but for scenes that are enormous
/// or hostile, see docs/limits.md; a warning tells of them in words.
struct _leftOut {
    qint64 takes = 0;
    qint64 cameras = 0;
    qint64 lops = 0;
    qint64 usdRenderSettings = 0;
    qint64 wedges = 0;
    qint64 sections = 0;
    qint64 details = 0;
    qint64 notRecognised = 0;
    qint64 warnings = 0;
    qint64 jobs = 0;   ///< whose output was not looked at for warnings
    qint64 bytes = 0;  ///< at the scene's end, where no unrecognised sections and no expressions were looked for
};

/// A count with its name, for all who show them.
struct _leftOutCount {
    QLatin1String name;
    qint64 _leftOut::*count;
};

inline constexpr std::array leftOutCounts{
    _leftOutCount{QLatin1String{"takes"}, &_leftOut::takes},
    _leftOutCount{QLatin1String{"cameras"}, &_leftOut::cameras},
    _leftOutCount{QLatin1String{"lops"}, &_leftOut::lops},
    _leftOutCount{QLatin1String{"usdRenderSettings"}, &_leftOut::usdRenderSettings},
    _leftOutCount{QLatin1String{"wedges"}, &_leftOut::wedges},
    _leftOutCount{QLatin1String{"sections"}, &_leftOut::sections},
    _leftOutCount{QLatin1String{"details"}, &_leftOut::details},
    _leftOutCount{QLatin1String{"notRecognised"}, &_leftOut::notRecognised},
    _leftOutCount{QLatin1String{"warnings"}, &_leftOut::warnings},
    _leftOutCount{QLatin1String{"jobs"}, &_leftOut::jobs},
    _leftOutCount{QLatin1String{"bytes"}, &_leftOut::bytes},
};

struct _explanation {
    bool isSceneRead = false;  ///< false: the scene could not be read, and there is no explanation
    bool isResolved = false;   ///< the load computed expressions
    _explainedFacts facts;
    QList<_explainedSection> sections;  ///< in file order
    QList<_unrecognisedSection> notRecognised;
    QList<_warning> warnings;
    _leftOut leftOut;
};

}  // namespace vxE
