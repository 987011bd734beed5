// The worst scenes: each is written to take long or to take memory.
#pragma once

#include <string>
#include <vector>

namespace vxBench {

/// A scene: a beginning, a text repeated up to the size with its number in place of "@", and an end.
struct _hostileScene {
    const char* name;
    int code, jobs;  ///< what a load of a small one gives
    std::string begin;
    std::string repeated;
    std::string end;
};

constexpr std::size_t smallBytes = 1000000;
constexpr int smallMost = 300;

/// @param most  variants and long channels of a wedge that has many; each variant becomes a job
std::vector<_hostileScene> hostileScenes(int most);

/// Writes a scene of about so many bytes. @return bytes written
std::size_t writeHostileScene(const _hostileScene& scene, std::size_t bytes, const std::string& path);

}  // namespace vxBench
