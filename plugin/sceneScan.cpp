#include "plugin/sceneScan.h"

#include <QTextStream>

#include "drivers/outNode.h"
#include "grammar/paramSection.h"
#include "input/sceneDevice.h"
#include "input/sceneLine.h"
#include "input/sceneTexts.h"
#include "input/sectionKinds.h"
#include "scan/scanBudget.h"
#include "scan/scanObserver.h"
#include "scan/scanState.h"

namespace vxP {

namespace {

constexpr QLatin1String importedPrefix{"HIP"};
constexpr std::array neverImported{QLatin1String{"OS"}, QLatin1String{"AOV"}};
constexpr int longestImportedValue = 200;  ///< characters

/// `frange 1001 1100`; without a second number nothing is set.
void keepFrameRange(const QString& line) {
    const QString numbers = textBehind(line, u' ');
    if (!numbers.contains(QLatin1Char(' '))) return;
    GLseqStart = integerOf(textBefore(numbers, u' '));
    GLseqEnd = integerOf(textBehind(numbers, u' '));
    GLseqStep = 1;
    tell(_remark::frameRangeStored, line);
}

/// `set -g _HIP_SAVEVERSION = '19.5.640'`
void keepSaveVersion(const QString& line, _sceneFacts& facts) {
    const QString version = textBefore(textBehind(line, u'\'').trimmed(), u'\'');
    if (version.isEmpty()) return;
    facts.fullVersion = version;
    facts.majorVersion = integerOf(textBefore(version, u'.'));
    if (!version.contains(QLatin1Char('.'))) return;
    QString minor = textBehind(version, u'.');
    if (facts.usesBuildVersion) {
        facts.versionMinorText = minor;
        const _size point = minor.indexOf(QLatin1Char('.'));
        if (point >= 0) minor.remove(point, 1);
    }
    minor = textBefore(minor, u'.');
    if (facts.versionMinorText.isEmpty()) facts.versionMinorText = minor;
    facts.minorText = minor;
}

/// `set -g JOB = '/proj/shot'`
void keepVariable(const QString& line) {
    constexpr QLatin1String command = latin(variableCommand);
    constexpr QLatin1String equalsSign = latin(assignment.substr(0, 2));  // an empty value may end the line
    const QStringView rest = QStringView(line).mid(line.indexOf(command) + command.size());
    const auto equals = rest.indexOf(equalsSign);
    QStringView value = (equals < 0 ? rest : rest.mid(equals + equalsSign.size())).trimmed();
    value = value.size() < 2 ? QStringView() : value.mid(1, value.size() - 2).trimmed();  // its quotes
    const auto nameEnd = rest.indexOf(latin(assignment));
    const QStringView name = (nameEnd < 0 ? rest : rest.left(nameEnd)).trimmed();
    keepMemory(_variableList::bytesOf(name, value));
    hVariables.append(name, value);
}

/// `take name Main kids 0`
QString takeName(const QString& line) {
    return textBefore(line.mid(static_cast<_size>(takeCommand.size())).trimmed(), u' ').trimmed();
}

qint32 readSectionOf(const _sectionKind& kind, _dataPARS_LoadSceneFile& load, QTextStream& stream, QString& line,
                     const _sectionSwitch& sectionOpens, _sceneFacts& facts) {
    spendWork(sectionCost, line.size());
    sectionOpens(true);
    const qint32 result = kind.read(load, stream, line, facts);
    sectionOpens(false);
    return result;
}

/// @return resultSuccess, or what the reader of a section returned
qint32 actOn(QString& line, _dataPARS_LoadSceneFile& load, QTextStream& stream, const _sectionSwitch& sectionOpens,
             _sceneFacts& facts) {
    const _sceneLine meaning = classifyLine(line);
    if (meaning.isFrameRange) keepFrameRange(line);
    if (meaning.isVariable) keepVariable(line);
    switch (meaning.kind) {
        case _lineKind::other:
            break;
        case _lineKind::saveVersion:
            keepSaveVersion(line, facts);
            break;
        case _lineKind::take:
            facts.takes.add(takeName(line));
            break;
        case _lineKind::section:
            return readSectionOf(*meaning.section, load, stream, line, sectionOpens, facts);
    }
    return resultSuccess;
}

/// Drivers' sections that come to nothing take the same work as if they were read.
class _emptyDrivers : public _emptySections {
 public:
    explicit _emptyDrivers(const vxJ::_JobBasicsArray& jobArray) : jobs(jobArray) {}

    bool mayPass(const _sectionKind& kind, std::string_view header) const override {
        return kind.reader == _sectionReader::driver && isNothingWhenEmpty(jobs, header);
    }
    void pass(std::size_t header, std::size_t end) override {
        spendWork(sceneLineCost, static_cast<qint64>(header));
        spendWork(sectionCost, static_cast<qint64>(header));
        spendWork(parameterLineCost, static_cast<qint64>(end));
        passEmptyOutNode();
    }

 private:
    const vxJ::_JobBasicsArray& jobs;
};

void tellSection(bool open, qint64 byte, qint32 jobs) {
    if (scanObserver == nullptr) return;
    if (open)
        scanObserver->sectionBegins(byte, jobs);
    else
        scanObserver->sectionEnds(jobs);
}

/// While it is made, Qt's text stream does not check that it gets the few hundred bytes that it asks for: without them
/// the process ends. A shortage has to show before that.
void ensureRoomForStream() {
    constexpr int enough = 8192;
    QByteArray(enough, Qt::Uninitialized);
}

}  // namespace

void importSceneFolder(const _vxString<500>& sceneFileName) {
    DatabaseDir = sceneFileName.toQString();
    const _size slash = DatabaseDir.lastIndexOf(QLatin1Char('/'));
    if (slash >= 0) DatabaseDir.truncate(slash + 1);
}

bool isImported(const vxS::_varValue& variable) {
    if (variable.value.size() > longestImportedValue) return false;
    for (const QLatin1String name : neverImported)
        if (variable.name.compare(name, Qt::CaseInsensitive) == 0) return false;
    return variable.name.startsWith(importedPrefix, Qt::CaseInsensitive);
}

void importEnvironment() {
    for (const vxS::_varValue& variable : vxS::vxGetEnvironmentVariableList(false))
        if (isImported(variable)) hVariables.append(variable.name, variable.value);
}

void decodeAsUtf8(QTextStream& stream) {
#if QT_VERSION_MAJOR >= 6
    stream.setEncoding(QStringConverter::Utf8);
#else
    stream.setCodec("UTF-8");
#endif
    stream.setAutoDetectUnicode(false);
}

qint32 scanStream(_dataPARS_LoadSceneFile& load, QTextStream& stream, _sceneFacts& facts,
                  const _sectionSwitch& sectionOpens) {
    while (!stream.atEnd()) {
        QString line = stream.readLine().trimmed();
        spendWork(sceneLineCost, line.size());
        const qint32 result = actOn(line, load, stream, sectionOpens, facts);
        if (result != resultSuccess) return result;
    }
    return resultSuccess;
}

qint32 scanScene(_dataPARS_LoadSceneFile& load, QIODevice& source, _sceneFacts& facts) {
    _sceneDevice device(source);
    _emptyDrivers emptyDrivers(*load.jobArray);
    if (scanObserver == nullptr) device.passEmptySections(emptyDrivers);
    ensureRoomForStream();
    QTextStream stream(&device);
    decodeAsUtf8(stream);
    const qint32 result = scanStream(load, stream, facts, [&](bool open) {
        device.setSectionOpen(open);
        tellSection(open, device.positionOfLine(), load.jobArray->count);
    });
    return result == resultSuccess && device.readFailed() ? qint32{resultException} : result;
}

}  // namespace vxP
