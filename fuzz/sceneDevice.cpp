// The scan that leaves lines out finds what a scan of all lines finds.
#include <QTextStream>

#include "fuzz/fuzzInput.h"
#include "input/candidateScan.h"
#include "plugin/jobFinishing.h"
#include "plugin/sceneScan.h"
#include "scan/scanBudget.h"
#include "scan/scanState.h"
#include "tests/support/pieces.h"
#include "tests/support/sceneText.h"

namespace {

using namespace vxP;

/// Result code, a sum of every job's bytes, variables, options.
QByteArray left(vxTest::_loader& loader, qint32 code) {
    QByteArray text = QByteArray::number(code) + ' ' + QByteArray::number(loader.count());
    for (int i = 0; i < std::min(loader.count(), loader.array().allocated); ++i) {
        const std::string_view job(reinterpret_cast<const char*>(&loader.job(i)), sizeof(vxJ::_JobBasics_largePath));
        text += ' ' + QByteArray::number(qulonglong{std::hash<std::string_view>{}(job)}) + '\n';
    }
    for (const _namevalue& variable : hVariables.toList())
        text += variable.name.toUtf8() + '=' + variable.value.toUtf8() + '\n';
    return text + loader.array().message.toQString().toUtf8() + QByteArray::number(GLseqStart);
}

/// What a load from fresh state leaves. Empty when the scene asks for more work than it may.
template <typename Scan>
QByteArray outcomeOf(Scan scan) {
    vxTest::freshScanState();
    vxTest::_loader loader;
    _sceneFacts facts;
    importSceneFolder(*loader.record().sceneFileName);
    try {
        const qint32 scanned = scan(loader.record(), facts);
        return left(loader, scanned == resultSuccess ? finishJobs(loader.record(), facts) : scanned);
    } catch (const _budgetExceeded&) {
        return {};
    }
}

QByteArray outcomeOfScan(const QByteArray& scene, qint64 pieceBytes) {
    return outcomeOf([&](_dataPARS_LoadSceneFile& load, _sceneFacts& facts) {
        vxTest::_pieces source(scene, pieceBytes, true);
        return scanScene(load, source, facts);
    });
}

/// The scene is decoded as a whole: where a stream decodes pieces of it, the versions of Qt differ.
QByteArray outcomeOfPlainScan(const QByteArray& scene) {
    return outcomeOf([&](_dataPARS_LoadSceneFile& load, _sceneFacts& facts) {
        QString text = QString::fromUtf8(scene.constData(), scene.size()).remove(u'\r');
        QTextStream stream(&text, QIODevice::ReadOnly);
        return scanStream(load, stream, facts, [](bool) {});
    });
}

/// Small pieces by single bytes, larger ones up to more than a block of the device.
qint64 pieceBytes(quint8 number) {
    return number < 128 ? 1 + number : (number - 127) * qint64{8192};
}

}  // namespace

/// Input: search path and size of the pieces in which the scene comes (1 byte each), scene.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr _searchPath paths[] = {_searchPath::automatic, _searchPath::avx2, _searchPath::portable};
    vxFuzz::_input input(data, size);
    chooseSearchPath(paths[input.number<quint8>() % std::size(paths)]);
    const qint64 piece = pieceBytes(input.number<quint8>());
    const std::string_view rest = input.bytes(size);
    const QByteArray scene(rest.data(), static_cast<int>(rest.size()));
    const QByteArray fast = outcomeOfScan(scene, piece);
    const QByteArray plain = outcomeOfPlainScan(scene);
    // Reading more lines takes more work: either way may end for that alone.
    vxFuzz::expect(fast == plain || fast.isEmpty() || plain.isEmpty(), "no wanted line is left out");
    return 0;
}
