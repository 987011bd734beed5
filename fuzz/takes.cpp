// The takes of a scene: what is read comes back when it is written and read again.
#include "scene/takes.h"

#include "fuzz/fuzzInput.h"
#include "scan/scanBudget.h"

namespace {

using vxFuzz::expect;

std::string counted(const std::string& text) {
    std::string record;
    for (int shift = 24; shift >= 0; shift -= 8) record += static_cast<char>(text.size() >> shift);
    return record + text;
}

std::string written(const vxN::_takes& takes) {
    std::string text = "HoudiniTakeFile 1.0\n";
    std::size_t names = 0;
    for (std::size_t i = 0; i < takes.all().size(); ++i) {
        const auto kids = std::count_if(takes.all().begin(), takes.all().end(),
                                        [&](const auto& take) { return take.parent == static_cast<qint32>(i); });
        text.append("take name ").append(takes.all()[i].name).append(" kids " + std::to_string(kids) + '\n');
        for (const vxN::_takeOverride& override : takes.all()[i].overrides) {
            const std::string node = std::to_string(names++);
            const std::string name = std::to_string(names++);
            text += counted("s " + node + ' ' + std::string(override.node) + '\n');
            text += counted("s " + name + ' ' + std::string(override.name) + '\n');
            text += counted("d " + node + ' ' + name + '\n' + counted(std::string(override.value)));
        }
        text += counted("e\n");
    }
    return text;
}

bool isSame(const vxN::_take& a, const vxN::_take& b) {
    return a.name == b.name && a.parent == b.parent &&
           std::equal(a.overrides.begin(), a.overrides.end(), b.overrides.begin(), b.overrides.end(),
                      [](const auto& one, const auto& other) {
                          return one.node == other.node && one.name == other.name && one.value == other.value;
                      });
}

void check(const vxN::_takes& read) {
    const vxN::_takes again(written(read));
    expect(std::equal(read.all().begin(), read.all().end(), again.all().begin(), again.all().end(), isSame),
           "takes come back as they were");
    for (std::size_t i = 0; i < read.all().size(); ++i) {
        const vxN::_take& take = read.all()[i];
        const auto position = static_cast<qint32>(i);
        expect(take.parent < position, "a take stands behind its parent");
        for (const vxN::_takeOverride& override : take.overrides) {
            const auto* const found = read.overrideIn(position, override.node, override.name);
            expect(found != nullptr && found >= &override, "an override is found, the last one of its kind");
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vxP::beginBudget();
    try {
        check(vxN::_takes(std::string(reinterpret_cast<const char*>(data), size)));
    } catch (const vxP::_budgetExceeded&) {
        return 0;
    }
    return 0;
}
