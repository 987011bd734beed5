#include "host/batch/shard.h"

#include <charconv>
#include <cstdint>

namespace vxH {
namespace {

/// FNV-1a, stirred at the end: its low bits alone tell paths apart that differ in even digits only badly.
std::uint64_t hashOf(std::string_view text) {
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const char character : text) hash = (hash ^ static_cast<unsigned char>(character)) * 0x100000001b3;
    for (const std::uint64_t factor : {0xff51afd7ed558ccdU, 0xc4ceb9fe1a85ec53U})
        hash = (hash ^ (hash >> 33U)) * factor;
    return hash ^ (hash >> 33U);
}

bool readNumber(std::string_view text, int& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc{} && end == text.data() + text.size();
}

}  // namespace

bool _shard::holds(std::string_view path) const {
    return count == 1 || hashOf(path) % static_cast<std::uint64_t>(count) == static_cast<std::uint64_t>(number - 1);
}

std::string readShard(const std::string& text, _shard& shard) {
    const auto slash = text.find('/');
    const std::string_view view{text};
    const bool isRead = slash != std::string::npos && readNumber(view.substr(0, slash), shard.number) &&
                        readNumber(view.substr(slash + 1), shard.count);
    const bool isPart = isRead && 1 <= shard.number && shard.number <= shard.count && shard.count <= mostShards;
    return isPart ? std::string{} : text + " is no part like 3/16: the third of sixteen";
}

}  // namespace vxH
