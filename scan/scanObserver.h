// Someone who wants to know what the scan and its readers make of a scene, and why. A host's load has no observer; one
// changes no result.
#pragma once

#include <QLatin1String>
#include <QString>

namespace vxP {

/// Readers that take sections.
enum class _sectionReader : quint8 { wedge, camera, usdRenderSettings, lop, driver };

/// What a reader has to say that its result does not tell.
enum class _remark : quint8 {
    frameRangeStored,      ///< the scene has a frame range of its own; detail: its numbers
    ownFrames,             ///< the parameter handed out last gives the driver frames of its own
    passedOver,            ///< the section is not read: the job array holds too many jobs
    left,                  ///< the section is none of the reader's kind; detail: the parameter that tells
    notClosed,             ///< the scene ended inside the section
    exportName,            ///< the parameter handed out last names the exported scene description, not the image
    nameTaken,             ///< it names an output
    nameEmpty,             ///< it names no output ...
    nameUnusable,          ///< ... its name is no file; detail: the part that tells
    nameComesSecond,       ///< ... its name follows a channel, and another one was read before
    noImageName,           ///< no job: there is no output name
    imageViewerOnly,       ///< no job: the image goes to the viewer; detail: its name
    noExportName,          ///< no job: a scene description is exported, but there is no name for it
    exportViewerOnly,      ///< no job: the name of the exported scene description is none of a file; detail: the name
    noMoreJobs,            ///< the job array has no room
    relativeName,          ///< an output name is relative to the current directory; detail: the name
    notACamera,            ///< the node is no camera; detail: the part of its path that tells
    stepsUnknown,          ///< the parameter handed out last gives no number of steps
    channelsLeftOut,       ///< the numbers of a wedge's channels have gaps
    bypassed,              ///< no job: the node is bypassed
    loadsFromDisk,         ///< no job: the cache reads what was written before
    savedByHand,           ///< no job: the node writes only when somebody saves by hand
    wedgeWithoutDriver,    ///< no wedge: it names no driver ...
    wedgeWithoutVariants,  ///< ... its step counts give no variant
    wedgeOfOtherMethod,    ///< ... its method is another one; detail: the method
};

/// A value of a section that the scene holds as an expression.
struct _resolvedValue {
    QString parameter;   ///< or the component of one: "vm_picture", "f1"
    QString expression;  ///< as the scene holds it
    QString stored;      ///< what Houdini computed when it last looked; empty: nothing is stored
    QString value;       ///< what it is; empty where there is a reason
    QString reason;      ///< why it cannot be told; empty: it can
};

class _scanObserver {
 public:
    virtual ~_scanObserver() = default;

    /// A reader is about to take a section.
    /// @param byte  position of the header's line in the scene
    /// @param jobs  in the array so far
    virtual void sectionBegins(qint64 byte, qint32 jobs) = 0;
    /// The reader and the path of its node.
    virtual void readerTakes(_sectionReader reader, const QString& nodePath) = 0;
    /// A line of the section that its reader looks at. Lines that no reader knows may be left out before.
    virtual void parameter(const QString& line) = 0;
    virtual void remark(_remark what, const QString& detail) = 0;
    /// A value of the section was computed, or could not be.
    virtual void resolved(const _resolvedValue& /*value*/) {}
    /// @param jobs  in the array now
    virtual void sectionEnds(qint32 jobs) = 0;
};

extern _scanObserver* scanObserver;  ///< null: nobody wants to know

inline void tell(_remark what) {
    if (scanObserver != nullptr) scanObserver->remark(what, QString());
}
inline void tell(_remark what, const QString& detail) {
    if (scanObserver != nullptr) scanObserver->remark(what, detail);
}
inline void tell(_remark what, QLatin1String detail) {
    if (scanObserver != nullptr) scanObserver->remark(what, detail);
}
inline void tellReader(_sectionReader reader, const QString& nodePath) {
    if (scanObserver != nullptr) scanObserver->readerTakes(reader, nodePath);
}
inline void tellParameter(const QString& line) {
    if (scanObserver != nullptr) scanObserver->parameter(line);
}

}  // namespace vxP
