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

constexpr std::array nodeTypes{
    // first match wins
    _nodeType{.name = "ifd", .reader = driver, .outputs = {{{"vm_picture"}}}},
    _nodeType{.name = "opengl", .reader = driver, .outputs = {{{"picture"}}}},
    _nodeType{.name = "karma",
              .reader = driver,
              .outputs = {{{"picture"}}},
              .traits = {.rendersStage = true},
              .rendersSettings = true},
    _nodeType{
        .name = "usdrender", .reader = driver, .outputs = {{{"outputimage"}, {"lopoutput"}}}, .rendersSettings = true},
    _nodeType{.name = "usdrender_rop",
              .reader = driver,
              .outputs = {{{"outputimage"}, {"lopoutput"}}},
              .rendersSettings = true},
    _nodeType{.name = "usd_rop", .reader = driver, .outputs = {{{"lopoutput"}}}, .traits = {.exportsOnly = true}},
    _nodeType{.name = "usd", .reader = driver, .outputs = {{{"lopoutput"}}}, .traits = {.exportsOnly = true}},
    _nodeType{.name = "usdexport", .reader = driver, .outputs = {{{"lopoutput"}}}, .traits = {.exportsOnly = true}},
    _nodeType{.name = "ropusd", .reader = driver, .outputs = {{{"lopoutput"}}}, .traits = {.exportsOnly = true}},
    _nodeType{.name = "geometry", .reader = driver, .outputs = {{{"sopoutput"}}}},
    _nodeType{.name = "rop_geometry", .reader = driver, .outputs = {{{"sopoutput"}}}},
    _nodeType{.name = "ropgeometry", .reader = driver, .outputs = {{{"sopoutput"}}}},
    _nodeType{.name = "filmboxfbx", .reader = driver, .outputs = {{{"sopoutput"}}}},
    _nodeType{.name = "rop_fbx", .reader = driver, .outputs = {{{"sopoutput"}}}},
    _nodeType{.name = "ropfbx", .reader = driver, .outputs = {{{"sopoutput"}}}},
    _nodeType{.name = "alembic", .reader = driver, .outputs = {{{"filename"}}}},
    _nodeType{.name = "rop_alembic", .reader = driver, .outputs = {{{"filename"}}}},
    _nodeType{.name = "ropalembic", .reader = driver, .outputs = {{{"filename"}}}},
    _nodeType{.name = "comp", .reader = driver, .outputs = {{{"copoutput"}}}},
    _nodeType{.name = "rop_comp", .reader = driver, .outputs = {{{"copoutput"}}}},
    _nodeType{.name = "ropcomposite", .reader = driver, .outputs = {{{"copoutput"}}}},
    _nodeType{.name = "rop_image", .reader = driver, .outputs = {{{"copoutput"}}}},
    _nodeType{.name = "heightfield_output", .reader = driver, .outputs = {{{"output", asImage}}}},
    _nodeType{.name = "arnold", .reader = driver, .outputs = {{{"ar_picture"}}}},
    _nodeType{.name = "Redshift_ROP", .reader = driver, .outputs = {{{"RS_outputFileNamePrefix"}}}},
    _nodeType{.name = "Redshift_Proxy_Output",
              .reader = driver,
              .outputs = {{{"RS_archive_file"}}},
              .traits = {.exportsOnly = true}},
    _nodeType{.name = "vray_renderer",
              .reader = driver,
              .outputs = {{{"SettingsOutput_img_file_path"},
                           {"SettingsOutput.img_file_path", "SettingsOutput_img_file_path"}}}},
    _nodeType{.name = "ris", .reader = driver, .outputs = {{{"ri_display_0"}, {"ri_display"}}}},
    _nodeType{.name = "filecache",
              .reader = driver,
              .outputs = {{{"sopoutput"}, {"file"}}},
              .writes = _writes::unlessLoading},
    _nodeType{.space = "labs",
              .name = "filecache",
              .reader = driver,
              .outputs = {{{"sopoutput"}, {"file"}}},
              .writes = _writes::unlessLoading},
    _nodeType{.name = "vellumio", .reader = driver, .outputs = {{{"file"}}}, .writes = _writes::unlessLoading},
    // made with every simulation, whether or not anybody wants its files
    _nodeType{.name = "dopio", .reader = driver, .outputs = {{{"file"}}}, .writes = _writes::never},
    _nodeType{.name = "output", .reader = driver, .outputs = {{{"dopoutput", asGeometry}}}, .writes = _writes::never},
    _nodeType{.space = "qLib", .name = "waypoint_ql", .reader = driver, .outputs = {{{"sopoutput"}}}},
    _nodeType{.space = anyThirdParty,
              .name = "*",
              .reader = driver,
              .outputs = {{{"sopoutput"}, {"output_picture", asImage}}}},
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

bool namesAnOutput(const vxN::_node& node, const _nodeType& type) {
    return std::any_of(type.outputs.begin(), type.outputs.end(), [&](const _outputParameter& output) {
        return !output.name.empty() && node.parameter(output.name) != nullptr;
    });
}

bool isRenderSettings(std::string_view type) {
    const _nodeType* const row = nodeTypeOf(type);
    return row != nullptr && row->reader == _sectionReader::usdRenderSettings;
}

}  // namespace vxP
