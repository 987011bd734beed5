#include "resolve/nodeTypes.h"

#include <algorithm>

namespace vxP {

namespace {

constexpr auto driver = _sectionReader::driver;
constexpr auto camera = _sectionReader::camera;
constexpr std::string_view anyThirdParty{"*"};
constexpr std::array thirdParties{std::string_view{"labs"}, std::string_view{"gamedev"}, std::string_view{"qLib"}};

/// A kind of file that the reader knows by this parameter.
constexpr std::string_view asGeometry{"sopoutput"};
constexpr std::string_view asImage{"copoutput"};

/// A driver of Houdini's own with one output.
constexpr _nodeType writes(std::string_view name, _outputParameter output) {
    return {.name = name, .reader = driver, .outputs = {{output}}};
}

constexpr _nodeType exports(std::string_view name, std::string_view output) {
    return {.name = name, .reader = driver, .outputs = {{{output}}}, .traits = {.exportsOnly = true}};
}

/// Renders a stage with an image of its own, or with the one of the stage's settings.
constexpr _nodeType rendersStage(std::string_view name) {
    return {.name = name,
            .reader = driver,
            .outputs = {{{"outputimage"}}},
            .stageFile = "lopoutput",
            .rendersSettings = true};
}

constexpr _nodeType rendersOwnStage(std::string_view name) {
    return {.name = name,
            .reader = driver,
            .outputs = {{{"picture"}}},
            .traits = {.rendersStage = true},
            .rendersSettings = true};
}

constexpr _nodeType caches(std::string_view space, std::string_view name) {
    return {.space = space,
            .name = name,
            .reader = driver,
            .outputs = {{{"sopoutput"}, {"file"}}},
            .writes = _writes::unlessLoading};
}

/// Made with every simulation, whether or not anybody wants its files.
constexpr _nodeType savesByHand(std::string_view name, _outputParameter output) {
    return {.name = name, .reader = driver, .outputs = {{output}}, .writes = _writes::never};
}

constexpr std::array nodeTypes{
    // first match wins
    writes("ifd", {"vm_picture"}),
    writes("ropmantra", {"vm_picture"}),
    _nodeType{.name = "baketexture", .reader = driver, .outputs = {{{"vm_uvoutputpicture1", asImage}, {"vm_picture"}}}},
    writes("opengl", {"picture"}),
    rendersOwnStage("karma"),
    rendersOwnStage("ropkarma"),
    rendersStage("usdrender"),
    rendersStage("usdrender_rop"),
    exports("usd_rop", "lopoutput"),
    exports("usd", "lopoutput"),
    exports("usdexport", "lopoutput"),
    exports("ropusd", "lopoutput"),
    writes("geometry", {"sopoutput"}),
    writes("rop_geometry", {"sopoutput"}),
    writes("ropgeometry", {"sopoutput"}),
    writes("filmboxfbx", {"sopoutput"}),
    writes("rop_fbx", {"sopoutput"}),
    writes("ropfbx", {"sopoutput"}),
    writes("gltf", {"file"}),
    writes("rop_gltf", {"file"}),
    writes("mdd", {"file"}),
    _nodeType{.space = "kinefx", .name = "rop_*", .reader = driver, .outputs = {{{"sopoutput"}, {"file"}}}},
    writes("alembic", {"filename"}),
    writes("rop_alembic", {"filename"}),
    writes("ropalembic", {"filename"}),
    writes("dop", {"dopoutput", asGeometry}),
    writes("channel", {"chopoutput", asGeometry}),
    writes("rop_channel", {"chopoutput", asGeometry}),
    writes("comp", {"copoutput"}),
    writes("rop_comp", {"copoutput"}),
    writes("ropcomposite", {"copoutput"}),
    writes("image", {"copoutput"}),
    writes("rop_image", {"copoutput"}),
    writes("heightfield_output", {"output", asImage}),
    writes("arnold", {"ar_picture"}),
    writes("Redshift_ROP", {"RS_outputFileNamePrefix"}),
    exports("Redshift_Proxy_Output", "RS_archive_file"),
    _nodeType{.name = "vray_renderer",
              .reader = driver,
              .outputs = {{{"SettingsOutput_img_file_path"},
                           {"SettingsOutput.img_file_path", "SettingsOutput_img_file_path"}}}},
    _nodeType{.name = "ris", .reader = driver, .outputs = {{{"ri_display_0"}, {"ri_display"}}}},
    _nodeType{.name = "rib", .reader = driver, .outputs = {{{"ri_display_0"}, {"ri_display"}}}},
    caches({}, "filecache"),
    caches({}, "vellumio"),
    caches({}, "rbdio"),
    savesByHand("dopio", {"file"}),
    savesByHand("output", {"dopoutput", asGeometry}),
    caches("labs", "filecache"),
    _nodeType{.space = anyThirdParty,
              .name = "*",
              .reader = driver,
              .outputs = {{{"sopoutput"},
                           {"output_picture", asImage},
                           {"outputpath", asGeometry},
                           {"export_path", asGeometry},
                           {"vm_picture"}}},
              .writes = _writes::unlessLoading},
    _nodeType{.name = "cam", .reader = camera},
    _nodeType{.name = "vrcam", .reader = camera},
    _nodeType{.name = "switcher", .reader = camera},
    _nodeType{.name = "stereocam", .reader = camera, .traits = {.isStereo = true}},
    _nodeType{.name = "stereocamrig", .reader = camera, .traits = {.isStereo = true}},
    _nodeType{.name = "wedge", .reader = _sectionReader::wedge},
    _nodeType{.name = "rendersettings", .reader = _sectionReader::usdRenderSettings},
    _nodeType{.name = "karmarendersettings", .reader = _sectionReader::usdRenderSettings},
    _nodeType{.name = "karmarenderproperties", .reader = _sectionReader::usdRenderSettings},
};

bool isSpace(std::string_view wanted, std::string_view space) {
    if (wanted != anyThirdParty) return wanted == space;
    return std::find(thirdParties.begin(), thirdParties.end(), space) != thirdParties.end();
}

bool isName(std::string_view wanted, std::string_view name) {
    return wanted.ends_with('*') ? name.starts_with(wanted.substr(0, wanted.size() - 1)) : wanted == name;
}

}  // namespace

const _nodeType* nodeTypeOf(std::string_view type) {
    const auto parts = vxN::splitNodeType(type);
    const auto row = std::find_if(nodeTypes.begin(), nodeTypes.end(), [&](const _nodeType& known) {
        return isSpace(known.space, parts.space) && isName(known.name, parts.name);
    });
    return row == nodeTypes.end() ? nullptr : &*row;
}

const _outputParameter* outputOf(const vxN::_node& node, const _nodeType& type) {
    const auto output = std::find_if(type.outputs.begin(), type.outputs.end(), [&](const _outputParameter& row) {
        return !row.name.empty() && node.parameter(row.name) != nullptr;
    });
    return output == type.outputs.end() ? nullptr : &*output;
}

bool isRenderSettings(std::string_view type) {
    const _nodeType* const row = nodeTypeOf(type);
    return row != nullptr && row->reader == _sectionReader::usdRenderSettings;
}

}  // namespace vxP
