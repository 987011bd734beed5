// Sizes, versions and well-known names of the job records that host and plug-in share in memory.
#pragma once

#include <QLatin1String>
#include <cstddef>

namespace vxJ {

constexpr quint16 structureVersion = 1033;  ///< word 0 of a record's head, and the array's layout version
constexpr quint16 structureMinor = 1;       ///< word 1 of a record's head, and the array's minor version

constexpr std::size_t largePathRecordSize = 226968;  ///< bytes of one `_JobBasics_largePath`
constexpr std::size_t compactRecordSize = 30376;     ///< bytes of one `_JobBasics`
constexpr std::size_t sceneSettingsSize = 4988;      ///< bytes of the `_JobSettingsScene` block in both

constexpr int channelCapacity = 100;           ///< extra output files of one job
constexpr int channelPoolCapacity = 8000;      ///< characters of the compact form's pool ...
constexpr int channelPoolUsable = 7999;        ///< ... of which the last one is never used
constexpr int waitForPreIDCapacity = 32;       ///< jobs that one job can wait for
constexpr int customDataBlockCapacity = 4000;  ///< bytes of the custom data
constexpr int jobArrayCapacity = 16384;        ///< records of a job array (3.7 GB); growing past it fails

constexpr QLatin1String vxVersion{" 8.4.00"};  ///< host library that the records belong to; the blank is part of it

/// How a custom-data value is stored: "u" two bytes a character, "c" one byte a character.
enum class CUSTOMData_Modes { twoBytes = 0, oneByte = 1 };

constexpr QLatin1String CUSTOMUserInfoName{"UserInfo"};
constexpr QLatin1String CUSTOMCommentInfoName{"Comment"};
constexpr QLatin1String CUSTOMAdditionalCommandlineFlags{"AdditionalCommandlineFlags"};
constexpr QLatin1String CUSTOMSubmitterParameter{"vxSubmitterParameter"};
constexpr QLatin1String CUSTOMSubmitterPluginVersion{"vxSubmitterPluginVersion"};
/// Positions in the array, from 1, of all jobs that a job waits for, where the record's own list does not tell them
/// all.
constexpr QLatin1String CUSTOMWaitsFor{"vxWaitsFor"};
/// Of a copy for a wedge: the path of the wedge's node, and the number of the variant, from 0.
constexpr QLatin1String CUSTOMWedge{"vxWedge"};
constexpr QLatin1String CUSTOMVariant{"vxVariant"};

}  // namespace vxJ
