// The archive of a scene and the tree of nodes in it.
#include "scene/archive.h"

#include <vector>

#include "fuzz/fuzzInput.h"
#include "scan/scanBudget.h"
#include "scene/scene.h"
#include "tests/support/archiveText.h"

namespace {

using vxFuzz::expect;

/// The entries one behind the other, the last one's end included; those of a complete open archive leave no gap.
void checkWalk(const vxN::_memorySource& source) {
    vxN::_archive archive(source);
    const bool isOpen = archive.kind() == vxN::_archiveKind::open;
    qint64 end = 0;
    bool hasGap = false;
    while (const auto entry = archive.next()) {
        expect(entry->start >= end && entry->body.offset > entry->start, "entries do not overlap");
        hasGap = hasGap || entry->start > end;
        end = entry->body.offset + entry->body.size;
        expect(entry->body.size >= 0 && end <= source.byteCount(), "a body lies in the source");
    }
    const bool isExact = isOpen && archive.end() == vxN::_archiveEnd::complete;
    expect(!isExact || !hasGap, "every byte of an open archive belongs to one entry");
}

void checkTree(const vxN::_memorySource& source) {
    const vxN::_scene scene(source);
    qint32 children = 0;
    for (qint32 i = 0; i < scene.nodeCount(); ++i) {
        const vxN::_node node = scene.node(i);
        expect(scene.find(node.path()) == node, "a node is found by its path");
        for (const vxN::_node& child : node.children()) {
            expect(child.parent() == node, "a child has its parent");
            ++children;
        }
        for (const vxN::_input& input : node.definition()->inputs) node.inputNode(input.index);
        node.multiparmLinks();
    }
    expect(children + 1 == scene.nodeCount(), "every node but the root is one node's child");
}

void checkBytes(std::string_view bytes) {
    const vxN::_memorySource source(bytes);
    checkWalk(source);
    checkTree(source);
}

/// Lines of names and bodies by turns: what is written comes back.
std::vector<vxTest::_entryText> entriesOf(vxFuzz::_input& input) {
    std::vector<vxTest::_entryText> entries;
    while (!input.isEmpty()) {
        std::string name = input.line().toStdString();
        name.erase(std::remove_if(name.begin(), name.end(), [](char byte) { return byte >= 0 && byte < ' '; }),
                   name.end());
        std::string body = input.line().toStdString();
        std::replace(body.begin(), body.end(), ';', '\n');
        if (!name.empty() && name != "TRAILER!!!" && name.size() < 4096) entries.push_back({name, body});
    }
    return entries;
}

void checkWritten(const std::vector<vxTest::_entryText>& entries) {
    const std::string bytes = vxTest::openArchive(entries);
    const vxN::_memorySource source(bytes);
    vxN::_archive archive(source);
    for (const vxTest::_entryText& written : entries) {
        const auto entry = archive.next();
        expect(entry && entry->name == written.name && archive.read(entry->body, 1 << 20) == written.body,
               "an entry comes back as it was written");
    }
    expect(!archive.next() && archive.end() == vxN::_archiveEnd::complete, "a written archive is complete");
    checkBytes(bytes);
    checkBytes(vxTest::licensedArchive(entries));
}

}  // namespace

/// Input: 1 byte, odd for entries to be written; else the bytes of an archive.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vxP::beginBudget();
    vxFuzz::_input input(data, size);
    try {
        if (input.flag())
            checkWritten(entriesOf(input));
        else
            checkBytes(input.bytes(size));
    } catch (const vxP::_budgetExceeded&) {
        return 0;
    }
    return 0;
}
