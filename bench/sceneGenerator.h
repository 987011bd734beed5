// Scenes of any size for the benchmarks, written from a seed in the proportions of real ones.
#pragma once

#include <cstdint>
#include <string>

namespace vxBench {

/// What a scene consists of.
enum class _sceneShape {
    shortLines,     ///< nodes of 39 parameters, their other entries and descriptions; every sixth is read and yields
                    ///< nothing
    heavyGeometry,  ///< binary runs of 64 KB to 64 MB between few sections
    sectionHeavy,   ///< driver sections of 100 lines that yield nothing
    drivers,        ///< drivers of 130 lines and 200 scene variables
    oneLine,        ///< one line without an end
};

/// Writes a scene of at least `bytes` bytes; `drivers` always has 250 drivers.
/// The same seed gives the same bytes. Ends the program with a message when the file cannot be written.
void writeScene(const std::string& path, _sceneShape shape, std::uint64_t bytes, std::uint64_t seed);

}  // namespace vxBench
