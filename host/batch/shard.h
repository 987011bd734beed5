// A part of many scenes, for one of several machines that share them.
#pragma once

#include <string>
#include <string_view>

namespace vxH {

/// Part `number` of `count`. A scene's part follows from its path as it is named, and from nothing else: machines that
/// name scenes alike share them without talking to each other, and a scene that comes or goes in the meantime moves no
/// other one to another part, as counting them would. Parts are about equal in scenes, not exactly.
struct _shard {
    int number = 1;  ///< from 1
    int count = 1;

    bool holds(std::string_view path) const;
};

constexpr int mostShards = 1'000'000;

/// Reads "3/16". @return what is wrong with it; empty: nothing
std::string readShard(const std::string& text, _shard& shard);

}  // namespace vxH
