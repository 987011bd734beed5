#include "jobs/recordLayout.h"

#include <new>
#include <type_traits>

#include "jobs/VX_DataTypes_plugin.h"

namespace vxJ {

namespace {

// A job record derives from its head, so it is no standard-layout type and offsetof is only conditionally supported.
// GCC and clang do support it for bases that are not virtual.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"

#define VX_FIELD(record, stated, field) \
    { #field, offsetof(record, field), stated, sizeof(record::field) }

constexpr _fieldLayout jobHeadFields[] = {
    VX_FIELD(_JobBasics_noSettings_noPaths, 0, structureIDs),
    VX_FIELD(_JobBasics_noSettings_noPaths, 20, jobKind),
    VX_FIELD(_JobBasics_noSettings_noPaths, 21, sceneOS),
    VX_FIELD(_JobBasics_noSettings_noPaths, 22, appVersionMajor),
    VX_FIELD(_JobBasics_noSettings_noPaths, 28, app),
    VX_FIELD(_JobBasics_noSettings_noPaths, 84, appRenderer),
    VX_FIELD(_JobBasics_noSettings_noPaths, 140, unnamedApp),
    VX_FIELD(_JobBasics_noSettings_noPaths, 196, appType),
    VX_FIELD(_JobBasics_noSettings_noPaths, 232, appRendererVersion),
    VX_FIELD(_JobBasics_noSettings_noPaths, 268, appVersionMinor),
    VX_FIELD(_JobBasics_noSettings_noPaths, 286, camera),
    VX_FIELD(_JobBasics_noSettings_noPaths, 592, layer),
    VX_FIELD(_JobBasics_noSettings_noPaths, 898, channel),
    VX_FIELD(_JobBasics_noSettings_noPaths, 1104, sceneState),
    VX_FIELD(_JobBasics_noSettings_noPaths, 1310, unnamedState),
    VX_FIELD(_JobBasics_noSettings_noPaths, 1516, colorSpace),
    VX_FIELD(_JobBasics_noSettings_noPaths, 1722, unnamedLicense),
    VX_FIELD(_JobBasics_noSettings_noPaths, 2128, requiredLicenses),
    VX_FIELD(_JobBasics_noSettings_noPaths, 2534, unnamedCode),
    VX_FIELD(_JobBasics_noSettings_noPaths, 2554, imageWidth),
    VX_FIELD(_JobBasics_noSettings_noPaths, 2556, imageHeight),
    VX_FIELD(_JobBasics_noSettings_noPaths, 2559, imageSingleOutputFile),
    VX_FIELD(_JobBasics_noSettings_noPaths, 2562, imageFormatOverride),
    VX_FIELD(_JobBasics_noSettings_noPaths, 2598, imageMulti),
    VX_FIELD(_JobBasics_noSettings_noPaths, 2600, unnamedList),
    VX_FIELD(_JobBasics_noSettings_noPaths, 3380, imageStereoL),
    VX_FIELD(_JobBasics_noSettings_noPaths, 3406, imageStereoM),
    VX_FIELD(_JobBasics_noSettings_noPaths, 3432, imageStereoR),
    VX_FIELD(_JobBasics_noSettings_noPaths, 3502, shotgunID),
    VX_FIELD(_JobBasics_noSettings_noPaths, 3556, unnamedID),
    VX_FIELD(_JobBasics_noSettings_noPaths, 3580, pnl),
    VX_FIELD(_JobBasics_noSettings_noPaths, 3581, imagePadding),
    VX_FIELD(_JobBasics_noSettings_noPaths, 3582, unnamedPadding),
    VX_FIELD(_JobBasics_noSettings_noPaths, 3606, preID),
    VX_FIELD(_JobBasics_noSettings_noPaths, 3607, waitForPreIDCount),
    VX_FIELD(_JobBasics_noSettings_noPaths, 3608, waitForPreIDs),
    VX_FIELD(_JobBasics_noSettings_noPaths, 3640, jobID),
    VX_FIELD(_JobBasics_noSettings_noPaths, 3648, commandPasswordHash),
};

constexpr _fieldLayout sceneSettingsFields[] = {
    VX_FIELD(_JobSettingsScene, 4, seqStart),
    VX_FIELD(_JobSettingsScene, 12, seqEnd),
    VX_FIELD(_JobSettingsScene, 28, seqFrameSet),
    VX_FIELD(_JobSettingsScene, 182, seqStep),
    VX_FIELD(_JobSettingsScene, 188, customDataCount),
    VX_FIELD(_JobSettingsScene, 192, customDataValuesEnd),
    VX_FIELD(_JobSettingsScene, 196, customDataNamesEnd),
    VX_FIELD(_JobSettingsScene, 200, customDataBlock),
    VX_FIELD(_JobSettingsScene, 4200, unnamedTexts),
    VX_FIELD(_JobSettingsScene, 4730, unnamedText),
};

constexpr _fieldLayout channelSlotFields[] = {
    VX_FIELD(_channelSlot, 0, fileName),
    VX_FIELD(_channelSlot, 2006, extension),
};

constexpr _fieldLayout largePathJobFields[] = {
    VX_FIELD(_JobBasics_largePath, 3686, sceneName),       VX_FIELD(_JobBasics_largePath, 5692, sceneDatabaseDir),
    VX_FIELD(_JobBasics_largePath, 7698, unnamedPath),     VX_FIELD(_JobBasics_largePath, 9704, imageDir),
    VX_FIELD(_JobBasics_largePath, 11710, imageFileName),  VX_FIELD(_JobBasics_largePath, 13716, unnamedFile),
    VX_FIELD(_JobBasics_largePath, 15722, imageExtension), VX_FIELD(_JobBasics_largePath, 15780, channels),
    VX_FIELD(_JobBasics_largePath, 221980, sceneSettings),
};

constexpr _fieldLayout compactJobFields[] = {
    VX_FIELD(_JobBasics, 3686, sceneName),        VX_FIELD(_JobBasics, 4692, sceneDatabaseDir),
    VX_FIELD(_JobBasics, 5698, unnamedPath),      VX_FIELD(_JobBasics, 6704, imageDir),
    VX_FIELD(_JobBasics, 7710, imageFileName),    VX_FIELD(_JobBasics, 8216, unnamedFile),
    VX_FIELD(_JobBasics, 8722, imageExtension),   VX_FIELD(_JobBasics, 8785, channelCount),
    VX_FIELD(_JobBasics, 8786, channelStart),     VX_FIELD(_JobBasics, 8986, channelNameLen),
    VX_FIELD(_JobBasics, 9186, channelExtLen),    VX_FIELD(_JobBasics, 9386, channelPool),
    VX_FIELD(_JobBasics, 25386, channelPoolUsed), VX_FIELD(_JobBasics, 25388, sceneSettings),
};

constexpr _fieldLayout jobArrayFields[] = {
    VX_FIELD(_JobBasicsArray, 0, structureVersion), VX_FIELD(_JobBasicsArray, 2, structureMinor),
    VX_FIELD(_JobBasicsArray, 4, message),          VX_FIELD(_JobBasicsArray, 2012, recordSize),
    VX_FIELD(_JobBasicsArray, 2016, count),         VX_FIELD(_JobBasicsArray, 2020, allocated),
    VX_FIELD(_JobBasicsArray, 2024, jobs),
};

constexpr _fieldLayout pluginInfoFields[] = {
    VX_FIELD(vxP::_dataPARS_PluginInfo, 0, structureVersion),
    VX_FIELD(vxP::_dataPARS_PluginInfo, 2, pluginKind),
    VX_FIELD(vxP::_dataPARS_PluginInfo, 18, appName),
    VX_FIELD(vxP::_dataPARS_PluginInfo, 124, author),
    VX_FIELD(vxP::_dataPARS_PluginInfo, 330, pluginVersion),
    VX_FIELD(vxP::_dataPARS_PluginInfo, 386, hostLibraryVersion),
    VX_FIELD(vxP::_dataPARS_PluginInfo, 442, qtVersion),
    VX_FIELD(vxP::_dataPARS_PluginInfo, 498, flag),
    VX_FIELD(vxP::_dataPARS_PluginInfo, 516, fileFilter),
};

constexpr _fieldLayout loadRecordFields[] = {
    VX_FIELD(vxP::_dataPARS_LoadSceneFile, 0, sceneFileName),
    VX_FIELD(vxP::_dataPARS_LoadSceneFile, 8, jobArray),
    VX_FIELD(vxP::_dataPARS_LoadSceneFile, 16, settings),
};

constexpr _fieldLayout submitterSettingsFields[] = {
    VX_FIELD(vxP::_submitterSettings, 0, argumentCount),
    VX_FIELD(vxP::_submitterSettings, 8, arguments),
};

template <class Whole>
void construct(void* memory) {
    ::new (memory) Whole;
}

/// @tparam Whole   what hosts make to get such a record
/// @param  offset  of the record in it
template <class Record, std::size_t size, std::size_t alignment, class Whole = Record>
constexpr _recordLayout layoutOf(std::string_view name, std::span<const _fieldLayout> fields, std::size_t offset = 0) {
    static_assert(sizeof(Record) == size && alignof(Record) == alignment);
    return {name, size, alignment, fields, {construct<Whole>, sizeof(Whole), offset}};
}

constexpr _recordLayout layouts[] = {
    layoutOf<_JobBasics_noSettings_noPaths, 3686, 2, _JobBasics_largePath>("_JobBasics_noSettings_noPaths",
                                                                           jobHeadFields),
    layoutOf<_JobSettingsScene, sceneSettingsSize, 2, _JobBasics_largePath>(
        "_JobSettingsScene", sceneSettingsFields, offsetof(_JobBasics_largePath, sceneSettings)),
    layoutOf<_channelSlot, 2062, 2, _JobBasics_largePath>("_channelSlot", channelSlotFields,
                                                          offsetof(_JobBasics_largePath, channels)),
    layoutOf<_JobBasics_largePath, largePathRecordSize, 2>("_JobBasics_largePath", largePathJobFields),
    layoutOf<_JobBasics, compactRecordSize, 2>("_JobBasics", compactJobFields),
    layoutOf<_JobBasicsArray, 2032, 8>("_JobBasicsArray", jobArrayFields),
    layoutOf<vxP::_dataPARS_PluginInfo, 722, 2>("_dataPARS_PluginInfo", pluginInfoFields),
    layoutOf<vxP::_dataPARS_LoadSceneFile, 24, 8>("_dataPARS_LoadSceneFile", loadRecordFields),
    layoutOf<vxP::_submitterSettings, 16, 8>("_submitterSettings", submitterSettingsFields),
};

#undef VX_FIELD
#pragma GCC diagnostic pop

/// Every field is where it is promised to be, after the one before it, and inside its record.
constexpr bool fieldsStandAsStated(const _recordLayout& record) {
    std::size_t end = 0;
    for (const _fieldLayout& field : record.fields) {
        if (field.offset != field.statedOffset || field.offset < end) return false;
        end = field.offset + field.size;
    }
    return end <= record.size;
}

constexpr bool allFieldsStandAsStated() {
    for (const _recordLayout& record : layouts)
        if (!fieldsStandAsStated(record)) return false;
    return true;
}

static_assert(allFieldsStandAsStated());
static_assert(sizeof(_JobBasics_noSettings) == 25388 && sizeof(_JobBasics_noSettings_largePath) == 221980);
static_assert(std::is_trivially_copyable_v<_JobBasics_largePath> && std::is_trivially_copyable_v<_JobBasics>);

}  // namespace

std::span<const _recordLayout> recordLayouts() {
    return layouts;
}

}  // namespace vxJ
