// Someone who wants to know what the scan and its readers make of a scene, and why. A host's load has no observer; one
// changes no result.
#pragma once

#include <QLatin1String>
#include <QString>
#include <cstddef>
#include <utility>

namespace vxP {

/// Readers that take sections.
enum class _sectionReader : quint8 { wedge, camera, usdRenderSettings, lop, driver };
constexpr std::size_t sectionReaderCount = static_cast<std::size_t>(_sectionReader::driver) + 1;  // the last one

/// What a reader has to say that its result does not tell. First what it says of one line ...
enum class _remark : quint8 {
    frameRangeStored,  ///< the scene has a frame range of its own
    ownFrames,         ///< the parameter gives the driver frames of its own
    left,              ///< the parameter tells that the section is none of the reader's kind
    exportName,        ///< the parameter names the exported scene description, not the image
    nameTaken,         ///< the parameter names an output
    nameEmpty,         ///< it names no output ...
    nameUnusable,      ///< ... its name is no file; detail: the part that tells
    nameComesSecond,   ///< ... its name follows a channel, and another one was read before
    stepsUnknown,      ///< the parameter gives no number of steps
    // ... then what it says of a section as a whole
    passedOver,            ///< the section is not read: the job array holds too many jobs; detail: how many are enough
    notClosed,             ///< the scene ended inside the section
    noImageName,           ///< no job: there is no output name
    imageViewerOnly,       ///< no job: the image goes to the viewer; detail: its name
    noExportName,          ///< no job: a scene description is exported, but there is no name for it
    exportViewerOnly,      ///< no job: the name of the exported scene description is none of a file; detail: the name
    noMoreJobs,            ///< the job array has no room
    noFrameNumber,         ///< the name of a job's output holds no frame number; detail: the job's number, from 1
    relativeName,          ///< an output name is relative to the current directory; detail: the name
    notACamera,            ///< the node is no camera; detail: the part of its path that tells
    channelsLeftOut,       ///< the numbers of a wedge's channels have gaps
    bypassed,              ///< no job: the node is bypassed
    loadsFromDisk,         ///< no job: the cache reads what was written before
    savedByHand,           ///< no job: the node writes only when somebody saves by hand
    offInTake,             ///< no copy for a take, in which the node writes nothing; detail: the take
    stageNamesNoImage,     ///< no job: the output is empty, and so is the stage's; detail: why
    exportIsTemporary,     ///< the exported scene description is removed after the render; detail: its name
    currentFrameOnly,      ///< Houdini renders the current frame alone: the driver has no range of its own
    wedgeIsRandom,         ///< the values of its variants cannot be told; detail: how many there are
    wedgeOfIdleDriver,     ///< no wedge: the driver that it leads to has no job; detail: the driver
    wedgeLeadsNowhere,     ///< ... it names no driver, and none is wired to it
    wedgeWithoutDriver,    ///< no wedge: it names no driver ...
    wedgeWithoutVariants,  ///< ... its step counts give no variant
    wedgeOfOtherMethod,    ///< ... its method is another one; detail: the method
};

/// A value of a section that the scene holds as an expression.
struct _resolvedValue {
    QString node;        ///< path; a driver's size is that of its camera
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
    /// @param line  that the remark is about; empty: about the section as a whole
    virtual void remark(_remark what, const QString& line, const QString& detail) = 0;
    /// A value of the section was computed, or could not be.
    virtual void resolved(const _resolvedValue& /*value*/) {}
    /// @param jobs  in the array now
    virtual void sectionEnds(qint32 jobs) = 0;
};

extern _scanObserver* scanObserver;  ///< null: nobody wants to know

/// Nobody hears what is read meanwhile.
class _unobserved {
 public:
    _unobserved() : observer(std::exchange(scanObserver, nullptr)) {}
    _unobserved(const _unobserved&) = delete;
    _unobserved& operator=(const _unobserved&) = delete;
    ~_unobserved() { scanObserver = observer; }

 private:
    _scanObserver* const observer;
};

/// @param line  that the remark is about
inline void tell(_remark what, const QString& line, QLatin1String detail = {}) {
    if (scanObserver != nullptr) scanObserver->remark(what, line, detail);
}
template <typename Text = QString>
void tellOfSection(_remark what, const Text& detail = {}) {
    if (scanObserver != nullptr) scanObserver->remark(what, {}, detail);
}
inline void tellReader(_sectionReader reader, const QString& nodePath) {
    if (scanObserver != nullptr) scanObserver->readerTakes(reader, nodePath);
}
inline void tellParameter(const QString& line) {
    if (scanObserver != nullptr) scanObserver->parameter(line);
}

}  // namespace vxP
