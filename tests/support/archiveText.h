// Scenes as archives of entries.
#pragma once

#include <array>
#include <cstdio>
#include <string>
#include <vector>

namespace vxTest {

struct _entryText {
    std::string name;
    std::string body;
};

inline std::string openEntry(const _entryText& entry) {
    std::array<char, 77> header{};
    std::snprintf(header.data(), header.size(), "0707070000010000000006660000000000000000%019o%06zo%011zo", 1U,
                  entry.name.size() + 1, entry.body.size());
    return header.data() + entry.name + '\0' + entry.body;
}

/// Of a non-commercial scene.
inline std::string licensedEntry(const _entryText& entry) {
    return "HouNC\0321033600baa064c639c709a7e5904" + entry.name + '\0' + entry.body;
}

inline std::string openArchive(const std::vector<_entryText>& entries) {
    std::string archive;
    for (const _entryText& entry : entries) archive += openEntry(entry);
    return archive + openEntry({"TRAILER!!!", ""});
}

inline std::string licensedArchive(const std::vector<_entryText>& entries) {
    std::string archive;
    for (const _entryText& entry : entries) archive += licensedEntry(entry);
    return archive + licensedEntry({"NON_COMMERCIAL_FILE!!!", ""});
}

}  // namespace vxTest
