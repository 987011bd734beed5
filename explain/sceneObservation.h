// What the readers said about each section of one load.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include "scan/scanObserver.h"

namespace vxE {

/// Something that a reader said, and the parameter line that it said it about; empty where it was about the section.
struct _observedRemark {
    vxP::_remark what;
    QString detail;
    QString parameter;
};

struct _observedSection {
    qint64 byte = 0;  ///< of its header's line, from the begin of the scene
    vxP::_sectionReader reader = vxP::_sectionReader::driver;
    QString node;
    qint32 jobsBefore = 0;  ///< in the array
    qint32 jobsAfter = 0;
    bool isEnded = false;  ///< false: the load ended inside the section
    QStringList frameRange;
    QList<_observedRemark> remarks;

    /// The first remark of that kind; null when there is none.
    const _observedRemark* find(vxP::_remark what) const;
    bool has(vxP::_remark what) const { return find(what) != nullptr; }
};

/// Listens to one load, from its making until it goes.
class _sceneObservation : public vxP::_scanObserver {
 public:
    _sceneObservation() { vxP::scanObserver = this; }
    _sceneObservation(const _sceneObservation&) = delete;
    _sceneObservation& operator=(const _sceneObservation&) = delete;
    ~_sceneObservation() override { vxP::scanObserver = nullptr; }

    void sectionBegins(qint64 byte, qint32 jobs) override;
    void readerTakes(vxP::_sectionReader reader, const QString& nodePath) override;
    void parameter(const QString& line) override;
    void remark(vxP::_remark what, const QString& detail) override;
    void sectionEnds(qint32 jobs) override;

    QList<_observedSection> sections;  ///< in file order
    bool frameRangeStored = false;

 private:
    QString parameterNow;
    bool isInSection = false;
};

}  // namespace vxE
