#include "tests/support/sceneText.h"

#include <QBuffer>
#include <QFile>
#include <stdexcept>

#include "catalogues/camList.h"
#include "catalogues/lopList.h"
#include "catalogues/usdRsList.h"
#include "catalogues/wedges.h"
#include "plugin/jobFinishing.h"
#include "scan/scanBudget.h"
#include "scan/scanState.h"

namespace vxTest {

QByteArray param(const QByteArray& name, const QByteArray& value) {
    return name + "\t[ 0\tlocks=0 ]\t(\t" + value + "\t)\n";
}

QByteArray params(const QByteArray& text) {
    QByteArray lines;
    for (const QByteArray& item : text.split('|')) {
        const auto equals = item.indexOf('=');
        if (equals >= 0) lines += param(item.left(equals), item.mid(equals + 1));
    }
    return lines;
}

QByteArray driver(const QByteArray& lines, const QByteArray& path) {
    return path + ".parm {\n" + params(lines) + "}\n";
}

QString _sceneFolder::write(const QByteArray& scene) const {
    QFile file(filePath(QStringLiteral("scene.hip")));
    if (!isValid() || !file.open(QIODevice::WriteOnly) || file.write(scene) != scene.size())
        throw std::runtime_error("the scene cannot be written");
    return file.fileName();
}

_loader::_loader(const QString& sceneFileName, const QStringList& arguments)
    : jobs(std::make_unique<vxJ::_JobBasicsArray>()), sceneName(QStringView{sceneFileName}) {
    argumentTexts.append("submitter");
    for (const QString& argument : arguments) argumentTexts.append(argument.toUtf8());
    for (const QByteArray& text : argumentTexts) argumentPointers.push_back(text.constData());
    settings = {static_cast<qint32>(argumentPointers.size()), argumentPointers.data()};
    loadRecord = {&sceneName, jobs.get(), &settings};
}

qint32 _loader::load(const QByteArray& scene) {
    const qint32 scanned = scan(scene);
    return scanned == vxP::resultSuccess ? vxP::finishJobs(loadRecord, sceneFacts) : scanned;
}

qint32 _loader::scan(const QByteArray& scene) {
    QBuffer buffer;
    buffer.setData(scene);
    buffer.open(QIODevice::ReadOnly);
    sceneFacts = {};
    vxP::readSubmitterArguments(settings, sceneFacts);
    vxP::importSceneFolder(sceneName);
    return vxP::scanScene(loadRecord, buffer, sceneFacts);
}

namespace {

std::unique_ptr<_loader> succeeded(qint32 (_loader::*action)(const QByteArray&), const QByteArray& scene) {
    freshScanState();
    auto loader = std::make_unique<_loader>();
    if (const qint32 code = ((*loader).*action)(scene); code != vxP::resultSuccess)
        throw std::runtime_error("code " + std::to_string(code));
    return loader;
}

}  // namespace

std::unique_ptr<_loader> scanned(const QByteArray& scene) {
    return succeeded(&_loader::scan, scene);
}

std::unique_ptr<_loader> loaded(const QByteArray& scene) {
    return succeeded(&_loader::load, scene);
}

std::string outputOf(const vxJ::_JobBasics_largePath& job) {
    return (job.imageDir.toQString() + u'|' + job.imageFileName.toQString() + u'|' + job.imageExtension.toQString())
        .toStdString();
}

void freshScanState() {
    using namespace vxP;
    beginBudget();
    GLseqStart = seqStart = 1;
    GLseqEnd = seqEnd = 100;
    GLseqStep = seqStep = 1;
    DatabaseDir.clear();
    hVariables.clear();
    nodeActiveTakes.clear();
    trange = emptyNodesfound = mantraIFDJob = overrideCameraRes = HIPFound_DisableLocalScene = false;
    camList = _camList();
    LOPList = _LOPList();
    USD_RSList = _USD_RSList();
    wedges.clear();
}

}  // namespace vxTest
