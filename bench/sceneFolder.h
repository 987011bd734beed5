// The scenes of a folder, as the reports take them.
#pragma once

#include <algorithm>
#include <filesystem>
#include <vector>

namespace vxBench {

/// In the order of their names; none where there is no such folder.
inline std::vector<std::filesystem::path> scenesIn(const std::filesystem::path& folder) {
    namespace fs = std::filesystem;
    std::vector<fs::path> scenes;
    std::error_code missing;
    for (const auto& entry : fs::directory_iterator{folder, missing})
        if (entry.path().extension().native().rfind(".hip", 0) == 0) scenes.push_back(fs::canonical(entry.path()));
    std::sort(scenes.begin(), scenes.end());
    return scenes;
}

}  // namespace vxBench
