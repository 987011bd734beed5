#include "scene/takes.h"

#include <algorithm>
#include <optional>
#include <tuple>
#include <utility>

#include "scan/scanBudget.h"
#include "scene/textTokens.h"

namespace vxN {

namespace {

constexpr std::string_view fileMark = "HoudiniTakeFile ";
constexpr std::string_view takeMark = "take name ";
constexpr std::string_view kidsMark = " kids ";
constexpr std::string_view nameMark = "s ";
constexpr std::string_view overrideMark = "d ";
constexpr std::string_view endMark = "e";
constexpr std::size_t lengthBytes = 4;

auto keyOf(const _takeOverride& override) {
    return std::tie(override.node, override.name);
}

/// The bytes after a length (big-endian); none when they reach past the end. `text` loses both.
std::optional<std::string_view> takeCounted(std::string_view& text) {
    if (text.size() < lengthBytes) return std::nullopt;
    std::size_t length = 0;
    for (const char byte : text.substr(0, lengthBytes)) length = length * 256 + static_cast<quint8>(byte);
    if (length > text.size() - lengthBytes) return std::nullopt;
    const std::string_view counted = text.substr(lengthBytes, length);
    text.remove_prefix(lengthBytes + length);
    return counted;
}

std::string_view takeWord(std::string_view& text) {
    const std::size_t end = std::min(text.find(' '), text.size());
    const std::string_view word = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return word;
}

}  // namespace

/// Reads the list of takes, depth first: a line for each take, then records with a length in front: "s number text"
/// names a node or parameter, "d node parameter" and a value with a length of its own overrides it, "e" ends the take.
class _takeReader {
 public:
    explicit _takeReader(_takes& read) : into(read), left(read.source) {}

    void readAll() {
        into.whole = left.empty() || readList();
        setSpans();
    }

 private:
    bool readList() {
        if (!takeLine(left).starts_with(fileMark)) return false;
        while (!trimmed(left).empty())
            if (!readTake()) return false;
        return true;
    }

    bool readTake() {
        const std::string_view line = trimmed(takeLine(left));
        const std::size_t kids = line.rfind(kidsMark);
        if (!line.starts_with(takeMark) || kids == std::string_view::npos || kids < takeMark.size()) return false;
        vxP::spendWork(vxP::takeRecordCost);
        vxP::keepMemory(sizeof(_take) + sizeof(_open) + sizeof(std::size_t));
        into.takes.push_back({line.substr(takeMark.size(), kids - takeMark.size()), nextParent(), {}});
        open.push_back(
            {static_cast<qint32>(into.takes.size()) - 1, countIn(line.substr(kids + kidsMark.size())).value_or(0)});
        const bool isComplete = readRecords();
        ends.push_back(into.overrides.size());
        return isComplete;
    }

    /// The take read last of those that wait for kids; -1: none does.
    qint32 nextParent() {
        while (!open.empty() && open.back().kids == 0) open.pop_back();
        if (open.empty()) return -1;
        --open.back().kids;
        return open.back().take;
    }

    bool readRecords() {
        while (auto record = takeCounted(left)) {
            vxP::spendWork(vxP::takeRecordCost);
            if (record->starts_with(nameMark)) readName(record->substr(nameMark.size()));
            if (record->starts_with(overrideMark)) readOverride(record->substr(overrideMark.size()));
            if (record->starts_with(endMark)) return true;
        }
        return false;
    }

    void readName(std::string_view record) {
        const auto number = countIn(takeWord(record));
        if (!number || *number != names.size()) return;
        vxP::keepMemory(sizeof(std::string_view));
        names.push_back(trimmed(record));
    }

    void readOverride(std::string_view record) {
        std::string_view line = trimmed(takeLine(record));
        const std::string_view node = nameOf(takeWord(line));
        const std::string_view name = nameOf(line);
        const auto value = takeCounted(record);
        if (node.empty() || name.empty() || !value) return;
        vxP::keepMemory(sizeof(_takeOverride));
        into.overrides.push_back({node, name, *value});
    }

    std::string_view nameOf(std::string_view number) const {
        const auto position = countIn(number);
        return position && *position < names.size() ? names[*position] : std::string_view();
    }

    void setSpans() {
        std::size_t first = 0;
        for (std::size_t i = 0; i < ends.size(); ++i) {
            const auto own = std::span(into.overrides).subspan(first, ends[i] - first);
            std::stable_sort(own.begin(), own.end(), [](const auto& a, const auto& b) { return keyOf(a) < keyOf(b); });
            into.takes[i].overrides = own;
            first = ends[i];
        }
    }

    /// A take whose kids follow.
    struct _open {
        qint32 take;
        quint32 kids;
    };

    _takes& into;
    std::string_view left;
    std::vector<_open> open;
    std::vector<std::string_view> names;
    std::vector<std::size_t> ends;  ///< positions behind each take's overrides
};

_takes::_takes(std::string text) : source(std::move(text)) {
    _takeReader(*this).readAll();
}

qint32 _takes::find(std::string_view name) const {
    const auto take = std::find_if(takes.begin(), takes.end(), [&](const _take& one) { return one.name == name; });
    return take == takes.end() ? -1 : static_cast<qint32>(take - takes.begin());
}

const _takeOverride* _takes::overrideIn(qint32 take, std::string_view node, std::string_view name) const {
    const _takeOverride wanted{node, name, {}};
    while (take >= 0 && take < static_cast<qint32>(takes.size())) {
        const _take& one = takes[static_cast<std::size_t>(take)];
        const auto behind = std::upper_bound(one.overrides.begin(), one.overrides.end(), wanted,
                                             [](const auto& a, const auto& b) { return keyOf(a) < keyOf(b); });
        if (behind != one.overrides.begin() && keyOf(*(behind - 1)) == keyOf(wanted)) return &*(behind - 1);
        take = one.parent;
    }
    return nullptr;
}

std::vector<_takeOverride> _takes::overridesOf(qint32 take, std::string_view node) const {
    std::vector<_takeOverride> found;
    for (; take >= 0; take = takes[static_cast<std::size_t>(take)].parent) {
        vxP::spendWork(vxP::takeRecordCost);
        const auto own = takes[static_cast<std::size_t>(take)].overrides;
        const _takeOverride wanted{node, {}, {}};
        const auto [first, behind] = std::equal_range(own.begin(), own.end(), wanted,
                                                      [](const auto& a, const auto& b) { return a.node < b.node; });
        for (auto one = std::make_reverse_iterator(behind); one != std::make_reverse_iterator(first); ++one) {
            vxP::spendWork(vxP::takeRecordCost);
            found.push_back(*one);
        }
    }
    const auto byName = [](const _takeOverride& a, const _takeOverride& b) { return a.name < b.name; };
    std::stable_sort(found.begin(), found.end(), byName);
    const auto isSame = [](const _takeOverride& a, const _takeOverride& b) { return a.name == b.name; };
    found.erase(std::unique(found.begin(), found.end(), isSame), found.end());
    return found;
}

}  // namespace vxN
