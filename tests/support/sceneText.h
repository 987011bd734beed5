// Scenes in few lines, written as Houdini writes them, and loaded through the real scan.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <memory>
#include <vector>

#include "plugin/sceneScan.h"

namespace vxTest {

/// One parameter line: name, TAB, flags, TAB, value in parentheses. Fields of a value are parted by TABs.
QByteArray param(const QByteArray& name, const QByteArray& value);

/// Parameter lines in short: `name=value`, parted by `|`.
QByteArray params(const QByteArray& text);
/// The section of an output driver with parameter lines in short.
QByteArray driver(const QByteArray& lines, const QByteArray& path = "out/a");

/// A folder of its own for scene files, as long as this lives.
class _sceneFolder : public QTemporaryDir {
 public:
    /// Writes a scene, in place of the one written before. @return its path
    QString write(const QByteArray& scene) const;
};

/// A job array on the heap with everything that a load needs.
class _loader {
 public:
    explicit _loader(const QString& sceneFileName = QStringLiteral("/proj/shots/scene.hip"),
                     const QStringList& arguments = {});

    /// Scans and finishes a scene text as an opened file would be. @return the result code
    qint32 load(const QByteArray& scene);
    /// Scans a scene text without finishing its jobs.
    qint32 scan(const QByteArray& scene);

    vxP::_dataPARS_LoadSceneFile& record() { return loadRecord; }
    vxJ::_JobBasicsArray& array() { return *jobs; }
    const vxJ::_JobBasics_largePath& job(int index) const { return *jobs->at(index); }
    int count() const { return jobs->count; }
    /// Of the last scan.
    const vxP::_sceneFacts& facts() const { return sceneFacts; }

 private:
    std::unique_ptr<vxJ::_JobBasicsArray> jobs;
    vxS::_vxString<500> sceneName;
    QList<QByteArray> argumentTexts;
    std::vector<const char*> argumentPointers;
    vxP::_submitterSettings settings;
    vxP::_dataPARS_LoadSceneFile loadRecord;
    vxP::_sceneFacts sceneFacts;
};

/// A scene that was scanned, or loaded, from fresh state, to success.
std::unique_ptr<_loader> scanned(const QByteArray& scene);
std::unique_ptr<_loader> loaded(const QByteArray& scene);

/// Folder, file and extension of a job's output, parted by "|".
std::string outputOf(const vxJ::_JobBasics_largePath& job);

/// Brings the module-wide state back to what it is when the plug-in has just been loaded.
void freshScanState();

}  // namespace vxTest
