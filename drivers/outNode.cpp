#include "drivers/outNode.h"

#include "drivers/outNodeDriver.h"
#include "drivers/outNodeJobs.h"
#include "drivers/outNodeRules.h"
#include "grammar/paramSection.h"
#include "scan/scanObserver.h"

namespace vxP {

namespace {

void restartFrameRange() {
    trange = false;
    seqStart = GLseqStart;
    seqEnd = GLseqEnd;
    seqStep = GLseqStep;
}

void passOver(const QString& nodePath) {
    if (scanObserver == nullptr) return;
    scanObserver->readerTakes(_sectionReader::driver, nodePath);
    tellOfSection(_remark::passedOver, QString::number(mostJobsBefore));
}

}  // namespace

qint32 loadOutNode(_dataPARS_LoadSceneFile* load, QTextStream& stream, QString& line, bool& activeTakeUsed,
                   const int& majorVersion, const QString& versionText) {
    return readOutNode(load, {nodePathOf(line, outputRoots, _unendedPath::isWhole)}, stream, line, activeTakeUsed,
                       majorVersion, versionText);
}

qint32 readOutNode(_dataPARS_LoadSceneFile* load, const _sectionNode& known, QTextStream& stream, QString& line,
                   bool& activeTakeUsed, const int& majorVersion, const QString& versionText) {
    if (load->jobArray->count > mostJobsBefore) {
        passOver(known.path);
        return resultSuccess;
    }
    restartFrameRange();
    _driver driver{.load = *load,
                   .activeTakeUsed = activeTakeUsed,
                   .majorVersion = majorVersion,
                   .versionText = versionText,
                   .nodePath = known.path,
                   .traits = known.traits};
    tellReader(_sectionReader::driver, driver.nodePath);
    return readSection(
        stream, line, [&](const QString& parameter) { return applyOutNodeRules(driver, parameter); },
        [&] { return addJobsOf(driver); });
}

bool isNothingWhenEmpty(const vxJ::_JobBasicsArray& jobs, std::string_view header) {
    return jobs.count <= mostJobsBefore && header.find(karmaNode) == std::string_view::npos;
}

void passEmptyOutNode() {
    restartFrameRange();
    emptyNodesfound = true;
}

}  // namespace vxP
