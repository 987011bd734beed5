#include "tests/support/twoScans.h"

#include <QBuffer>
#include <QTextStream>
#include <algorithm>
#include <cstring>
#include <string_view>

#include "plugin/jobFinishing.h"
#include "scan/scanBudget.h"
#include "scan/scanState.h"
#include "tests/support/sceneText.h"

namespace vxTest {

namespace {

using namespace vxP;

QByteArray outcome(_loader& loader, qint32 code) {
    QByteArray text = QByteArray::number(code) + ' ' + QByteArray::number(loader.count());
    for (int i = 0; i < std::min(loader.count(), loader.array().allocated); ++i) {
        const std::string_view job(reinterpret_cast<const char*>(&loader.job(i)), sizeof(vxJ::_JobBasics_largePath));
        text += ' ' + QByteArray::number(qulonglong{std::hash<std::string_view>{}(job)}) + '\n';
    }
    for (const _namevalue& variable : hVariables.toList())
        text += variable.name.toUtf8() + '=' + variable.value.toUtf8() + '\n';
    return text + loader.array().message.toQString().toUtf8() + QByteArray::number(GLseqStart);
}

template <typename Scan>
QByteArray outcomeOf(Scan scan) {
    freshScanState();
    _loader loader;
    _sceneFacts facts;
    importSceneFolder(*loader.record().sceneFileName);
    try {
        const qint32 scanned = scan(loader.record(), facts);
        return outcome(loader, scanned == resultSuccess ? finishJobs(loader.record(), facts) : scanned);
    } catch (const _budgetExceeded&) {
        return {};
    }
}

}  // namespace

_pieces::_pieces(QByteArray bytes, qint64 pieceBytes, bool ends)
    : text(std::move(bytes)), piece(pieceBytes), fails(!ends) {
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

qint64 _pieces::readData(char* data, qint64 most) {
    const qint64 count = std::min({most, piece, static_cast<qint64>(text.size()) - done});
    if (count <= 0) return fails ? -1 : 0;
    std::memcpy(data, text.constData() + done, static_cast<std::size_t>(count));
    done += count;
    return count;
}

QByteArray outcomeOfScan(const QByteArray& scene, qint64 pieceBytes) {
    return outcomeOf([&](_dataPARS_LoadSceneFile& load, _sceneFacts& facts) {
        _pieces source(scene, pieceBytes, true);
        return scanScene(load, source, facts);
    });
}

QByteArray outcomeOfPlainScan(const QByteArray& scene) {
    return outcomeOf([&](_dataPARS_LoadSceneFile& load, _sceneFacts& facts) {
        QBuffer buffer;
        buffer.setData(scene);
        buffer.open(QIODevice::ReadOnly | QIODevice::Text);
        QTextStream stream(&buffer);
        decodeAsUtf8(stream);
        return scanStream(load, stream, facts, [](bool) {});
    });
}

}  // namespace vxTest
