// What the readers said about each section of one load.
#pragma once

#include <QList>
#include <QString>

#include "explain/explanationBudget.h"
#include "scan/scanObserver.h"

namespace vxE {

/// Something that a reader said.
struct _observedRemark {
    vxP::_remark what;
    QString line;  ///< that it is about; empty: it is about the section
    QString detail;
};

struct _observedSection {
    qint64 byte = 0;  ///< of its header's line, from the beginning of the scene
    vxP::_sectionReader reader = vxP::_sectionReader::driver;
    QString node;
    qint32 jobsBefore = 0;  ///< in the array
    qint32 jobsAfter = 0;
    bool isEnded = false;            ///< false: the load ended inside the section
    bool hasFrames = false;          ///< a parameter of frames was met
    bool isOfCurrentFrame = false;   ///< the driver renders no range
    bool isSizeSwitchedOff = false;  ///< its own size does not count
    QList<_observedRemark> remarks;
    QList<vxP::_resolvedValue> resolved;  ///< in the order in which they were computed

    bool madeJobs() const { return jobsAfter > jobsBefore; }
    /// The first remark of that kind; null when there is none.
    const _observedRemark* find(vxP::_remark what) const;
    bool has(vxP::_remark what) const { return find(what) != nullptr; }
};

/// Listens to one load, for as long as it lives. Sections for which there is no room are left out. Half of the room is
/// kept for sections that are more than a node with a driver's name.
class _sceneObservation : public vxP::_scanObserver {
 public:
    /// @param room  bytes for all sections, here and in the explanation; must outlive the observation
    explicit _sceneObservation(_share& room) : bytes(room), bytesForAnySection(room.rest() / 2) {
        vxP::scanObserver = this;
    }
    _sceneObservation(const _sceneObservation&) = delete;
    _sceneObservation& operator=(const _sceneObservation&) = delete;
    ~_sceneObservation() override { vxP::scanObserver = nullptr; }

    void sectionBegins(qint64 byte, qint32 jobs) override;
    void readerTakes(vxP::_sectionReader reader, const QString& nodePath) override;
    void parameter(const QString& line) override;
    void remark(vxP::_remark what, const QString& line, const QString& detail) override;
    void resolved(const vxP::_resolvedValue& value) override;
    void sectionEnds(qint32 jobs) override;
    /// The load is over, maybe inside a section.
    void loadEnds();

    QList<_observedSection> sections;  ///< in file order once the load is over: a resolved one follows the wires
    bool hasFrameRange = false;
    qint64 lastByte = -1;       ///< where the last section in the file begins, left out or not; -1: there is none
    qint32 jobsOfSections = 0;  ///< in the array behind the last section
    qint64 sectionsLeftOut = 0;
    qint64 remarksLeftOut = 0;

 private:
    void keepSection();

    _share& bytes;
    const qint64 bytesForAnySection;
    _observedSection section;  ///< that is being read
    int linesRemarkedOn = 0;   ///< in it
    bool isInSection = false;
};

}  // namespace vxE
