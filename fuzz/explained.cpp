// A scene that is explained has the jobs and the result that it has without, and every section has its words.
#include <QJsonArray>
#include <QJsonObject>
#include <vector>

#include "explain/explainedLoad.h"
#include "fuzz/fuzzScene.h"
#include "tests/support/sceneText.h"

namespace {

void expectWords(const QJsonArray& list, const char* promise) {
    for (const auto& entry : list)
        vxFuzz::expect(!entry.toObject()[QLatin1String{"text"}].toString().isEmpty(), promise);
}

void expectPlaces(const QJsonArray& sections) {
    double before = -1;
    for (const auto& section : sections) {
        const double byte = section.toObject()[QLatin1String{"byte"}].toDouble();
        vxFuzz::expect(byte > before, "sections stand in file order");
        before = byte;
    }
}

/// A hash of all bytes of each record: two arrays at a time would be too much.
std::vector<std::size_t> hashesOf(const vxJ::_JobBasicsArray& jobs) {
    std::vector<std::size_t> hashes;
    for (qint32 i = 0; i < std::min(jobs.count, jobs.allocated); ++i)
        hashes.push_back(std::hash<std::string_view>{}(
            {reinterpret_cast<const char*>(jobs.at(i)), sizeof(vxJ::_JobBasics_largePath)}));
    return hashes;
}

struct _loaded {
    qint32 code;
    std::vector<std::size_t> jobs;

    bool operator==(const _loaded&) const = default;
};

_loaded load(std::string_view scene, const vxFuzz::_loader& loader) {
    vxTest::freshScanState();
    vxJ::_JobBasicsArray jobs;
    const qint32 code = vxFuzz::loadScene(scene, jobs, loader);
    return {code, hashesOf(jobs)};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view scene(reinterpret_cast<const char*>(data), size);
    QJsonObject explanation;
    const auto explain = [&](auto* record) { return vxE::loadExplained(*record, explanation); };
    vxFuzz::expect(load(scene, pLoadSceneFile) == load(scene, explain), "the same result and the same jobs");
    expectWords(explanation[QLatin1String{"sections"}].toArray(), "a section has its words");
    expectWords(explanation[QLatin1String{"notRecognised"}].toArray(), "a stranger has its reason");
    expectPlaces(explanation[QLatin1String{"sections"}].toArray());
    return 0;
}
