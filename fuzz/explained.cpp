// A scene that is explained has the jobs and the result that it has without, and every section has its words. However
// little room the explanation has, it keeps to it and counts what it leaves out.
#include <vector>

#include "explain/explainedLoad.h"
#include "fuzz/fuzzScene.h"
#include "tests/support/sceneText.h"

namespace {

using vxFuzz::expect;

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

_loaded explain(std::string_view scene, vxE::_explanation& explanation, const vxE::_explanationBudget& budget) {
    return load(scene, [&](auto* record) { return vxE::loadExplained(*record, explanation, budget); });
}

void expectSound(const vxE::_explanation& explanation) {
    qint64 before = -1;
    for (const auto& section : explanation.sections) {
        expect(!section.text.isEmpty(), "a section has its words");
        expect(section.byte > before && section.line > 0, "sections come in file order");
        expect(section.node.size() <= vxE::longestText, "no node is longer than a text may be");
        before = section.byte;
    }
    for (const auto& section : explanation.notRecognised) expect(!section.text.isEmpty(), "a stranger has its reason");
}

// ---- with little room

constexpr qint64 littleRoom = 4096;

vxE::_explanationBudget littleBudget() {
    vxE::_explanationBudget budget;
    budget.surveySteps = vxE::_share(littleRoom);
    budget.surveyStepsPerByte = 1;
    budget.warningSteps = budget.factBytes = budget.sectionBytes = budget.warningBytes = vxE::_share(littleRoom);
    return budget;
}

qint64 bytesOf(const vxE::_explanation& explanation) {
    qint64 bytes = 0;
    for (const auto& section : explanation.sections)
        bytes += static_cast<qint64>(sizeof section) + 2 * (section.node.size() + section.details.join(QChar()).size());
    for (const auto& section : explanation.notRecognised)
        bytes += static_cast<qint64>(sizeof section) + 2 * (section.node.size() + section.text.size());
    return bytes;
}

void expectCut(const vxE::_explanation& cut, const vxE::_explanation& whole) {
    expect(bytesOf(cut) <= littleRoom, "sections keep to their room");
    expect(cut.sections.size() + cut.leftOut.sections == whole.sections.size() + whole.leftOut.sections,
           "every section is kept or counted");
    expect(cut.facts.cameras.size() + cut.leftOut.cameras == whole.facts.cameras.size() + whole.leftOut.cameras,
           "every camera is kept or counted");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view scene(reinterpret_cast<const char*>(data), size);
    vxE::_explanation whole;
    vxE::_explanation cut;
    const _loaded plain = load(scene, pLoadSceneFile);
    expect(plain == explain(scene, whole, {}), "the same result and the same jobs");
    expect(plain == explain(scene, cut, littleBudget()), "the same with little room");
    expectSound(whole);
    expectSound(cut);
    expectCut(cut, whole);
    return 0;
}
