// Expressions of channels and texts, in a scene of two nodes.
#include <array>

#include "evaluate/evaluator.h"
#include "fuzz/fuzzInput.h"
#include "scan/scanBudget.h"
#include "tests/support/archiveText.h"

namespace {

using namespace vxV;
using vxFuzz::expect;

const std::string& sceneBytes() {
    static const std::string bytes = vxTest::openArchive({
        {".start", "fps 24\ntcur 0.5\ntset 0 2\nfrange 1 48\n"},
        {".variables", "set -g JOB = '/projects/kettle'\n"},
        {"obj.init", "type = obj\n"},
        {"obj/a.init", "type = geo\n"},
        {"obj/a.def", "inputs\n{\n0 \tb 0 1\n}\n"},
        {"obj/a.parm", "{\nt\t[ 0\tlocks=0 ]\t(\t1\t2\t[ tz 3 ]\t)\nname\t[ 0\tlocks=0 ]\t(\t\"$OS.$F4\"\t)\n}\n"},
        {"obj/a.chn", "{\nchannel tz {\nsegment { length = 0 expr = \"ch(\\\"../b/x\\\") + $F\" }\n}\n}\n"},
        {"obj/b.init", "type = geo\n"},
        {"obj/b.parm", "{\nx\t[ 0\tlocks=0 ]\t(\t[ x 3 ]\t)\nflag\t[ 0\tlocks=0 ]\t(\t\"on\"\t)\n}\n"},
        {"obj/b.chn", "{\nchannel x {\nsegment { length = 0 expr = ch(\\\"../a/tz\\\") }\n}\n}\n"},
    });
    return bytes;
}

std::string shown(const _textOutcome& outcome) {
    return outcome ? "known " + *outcome : wordsOf(outcome.why().reason).code.latin1() + outcome.why().culprit;
}

std::string written(double number) {
    std::array<char, 40> digits{};
    std::snprintf(digits.data(), digits.size(), "%.17g", number);
    return digits.data();
}

void evaluate(const std::string& text) {
    const vxN::_memorySource source(sceneBytes());
    const vxN::_scene scene(source);
    const vxN::_node node = scene.find("/obj/a");
    _evaluator evaluator(scene);
    _evaluator other(scene);
    const std::string first = shown(evaluator.expand(node, text));
    expect(shown(evaluator.expand(node, text)) == first, "a second evaluation gives the same");
    expect(shown(other.expand(node, text)) == first, "another evaluator gives the same");
    if (text.find_first_of("$`\\") == std::string::npos)
        expect(first == "known " + text || text.size() > 65536, "a text without variables stays");

    double number = 0;
    if (!readNumber(text, number)) return;
    const auto channel = "{\nchannel x {\nsegment { length = 0 expr = " + written(number) + " }\n}\n}\n";
    const std::string bytes = vxTest::openArchive({{".start", "fps 24\ntcur 0\n"}, {"a.parm", ""}, {"a.chn", channel}});
    const vxN::_memorySource literal(bytes);
    const vxN::_scene small(literal);
    const _numberOutcome again = _evaluator(small).number(small.find("/a"), "x");
    expect(again && *again == number, "a printed number evaluates to itself");
}

}  // namespace

/// Input: a text, in which expressions stand in back-quotes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vxP::beginBudget();
    try {
        evaluate(std::string(reinterpret_cast<const char*>(data), size));
    } catch (const vxP::_budgetExceeded&) {
        return 0;
    }
    return 0;
}
