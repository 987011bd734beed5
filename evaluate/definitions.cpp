// Reads definitions out of a scene.
#include "evaluate/definitions.h"

#include <algorithm>

#include "scan/scanBudget.h"
#include "scene/limits.h"

namespace vxV {

namespace {

constexpr std::string_view libraryEntry = ".OPdummydefs";
constexpr std::string_view addedKind = "spareparmdef";
constexpr std::string_view scriptSection = "DialogScript";

/// Takes numbers and texts from the front of bytes.
class _bytes {
 public:
    explicit _bytes(std::string_view ofLibrary) : left(ofLibrary) {}

    bool number(std::size_t& value) {
        const std::string_view taken = text(4);
        value = 0;
        for (const char byte : taken) value = value << 8 | static_cast<unsigned char>(byte);
        return taken.size() == 4;
    }
    std::string_view text(std::size_t length) {
        const std::string_view taken = left.substr(0, length);
        left.remove_prefix(taken.size());
        return taken;
    }
    std::string_view rest() const { return left; }

 private:
    std::string_view left;
};

/// "labs::Sop/filecache::2.0" defines "labs::filecache::2.0" among the nodes of the kind Sop.
std::string definedType(std::string_view definition) {
    const std::size_t slash = std::min(definition.find('/'), definition.size());
    const std::size_t colons = definition.substr(0, slash).rfind("::");
    const std::size_t space = colons == std::string_view::npos ? 0 : colons + 2;
    return std::string(definition.substr(0, space)).append(definition.substr(std::min(slash + 1, definition.size())));
}

}  // namespace

std::vector<_librarySection> readLibrary(std::string_view library) {
    struct _row {
        std::string_view name;
        std::size_t offset = 0, length = 0;
    };
    _bytes bytes(library);
    std::size_t zero = 0;
    std::size_t label = 0;
    std::size_t count = 0;
    if (bytes.text(4) != "INDX" || !bytes.number(zero) || !bytes.number(label)) return {};
    bytes.text(label);
    if (!bytes.number(count)) return {};
    std::vector<_row> rows;
    while (rows.size() < count) {
        std::size_t length = 0;
        std::size_t time = 0;
        _row row;
        if (!bytes.number(length)) return {};
        row.name = bytes.text(length);
        if (!bytes.number(row.offset) || !bytes.number(row.length) || !bytes.number(time)) return {};
        rows.push_back(row);
    }
    std::vector<_librarySection> sections;
    for (const _row& row : rows) {
        const std::string_view content = bytes.rest().substr(std::min(row.offset, bytes.rest().size()), row.length);
        if (content.size() == row.length) sections.push_back({row.name, content});
    }
    return sections;
}

void _definitions::listEntries() {
    isListed = true;
    vxN::_archive archive(source);
    while (const auto entry = archive.next()) {
        const vxN::_entryName name = vxN::splitEntryName(entry->name);
        if (name.kind == addedKind) added.emplace(name.path, entry->body);
        if (entry->name == libraryEntry) library = archive.read(entry->body, vxN::largestBody);
    }
    for (const _librarySection& definition : readLibrary(library)) {
        for (const _librarySection& section : readLibrary(definition.content)) {
            if (section.name == scriptSection) scripts.emplace(definedType(definition.name), section.content);
        }
    }
}

const _definitions::_script& _definitions::addedTo(const vxN::_node& node) {
    const std::string path = node.path();
    const auto [place, isNew] = read.try_emplace(path);
    const auto entry = added.find(std::string_view(path).substr(1));
    if (!isNew || entry == added.end()) return place->second;
    std::string script(static_cast<std::size_t>(std::min(entry->second.size, vxN::largestBody)), '\0');
    const qint64 length = source.readAt(entry->second.offset, script.data(), static_cast<qint64>(script.size()));
    script.resize(static_cast<std::size_t>(std::max<qint64>(0, length)));
    vxP::spendWork(vxP::dialogScriptCost, static_cast<qint64>(script.size()));
    return place->second = readDialogScript(script);
}

/// None where several kinds of nodes have a type of that name: the scene does not say of which kind a node is.
const _definitions::_script& _definitions::ofType(std::string_view type) {
    const auto [place, isNew] = read.try_emplace(std::string(type));
    if (!isNew || scripts.count(type) != 1) return place->second;
    const std::string_view script = scripts.find(type)->second;
    vxP::spendWork(vxP::dialogScriptCost, static_cast<qint64>(script.size()));
    return place->second = readDialogScript(script);
}

const _parameterDefinition* _definitions::find(const vxN::_node& node, std::string_view parameter) {
    if (!isListed) listEntries();
    const _parameterDefinition* const own = findDefinition(addedTo(node), parameter);
    return own != nullptr || node.type().empty() ? own : findDefinition(ofType(node.type()), parameter);
}

}  // namespace vxV
