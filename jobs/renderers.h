// The renderers, one row each: how scenes and submitters name them, and what hosts call their jobs.
#pragma once

#include <QStringView>
#include <array>
#include <string_view>

namespace vxP {

/// Kinds of drivers, by their renderer. A section never names its kind; the parameters that it holds imply it.
enum class _kind : quint8 { none, arnold, openGL, geometry, redshift, renderman, alembic, vray, lop, karma, mantra };

// Applications that are no renderer's own.
constexpr QStringView appNameHoudini{u"Houdini"};
constexpr QStringView appNameHoudini_Archive{u"Hdni"};

// Parts of node paths that tell more than the renderer.
constexpr std::string_view karmaNode{"/karma"};
constexpr std::string_view prmanNode{"/hdprman"};
constexpr std::string_view renderSettingsNode{"/rendersettings"};

/// A node outside out/ is taken for an output driver by a part of its path.
struct _nodeTypeMark {
    std::string_view part{};    ///< begins with "/" or "_"
    std::string_view unless{};  ///< a part that rules it out; empty: none
};

/// A text is empty where the renderer has no such thing.
struct _renderer {
    _kind kind;
    QStringView renderJob{};           ///< renderer of the job of a driver that renders by itself ...
    QStringView oneFileRenderJob{};    ///< ... into one file for all frames, where that has a name of its own
    QStringView exportJob{};           ///< renderer of the job that exports a scene description
    bool exportsOneFile = false;       ///< such a job may write one file for all frames
    QStringView application{};         ///< of the job that renders the scene description ...
    QStringView oneFileApplication{};  ///< ... and where that is one file for all frames
    QStringView versionSwitch{};       ///< argument of the submitter in front of the application's version
    QStringView versionVariable{};     ///< variable of the scene that holds the version
    QStringView stageMark{};           ///< part of a LOP node's path or of a delegate's name
    std::array<_nodeTypeMark, 4> nodeTypes{};
};

inline constexpr std::array renderers{
    // a driver may be of several kinds: the first of them that has the name asked for gives it
    _renderer{
        .kind = _kind::arnold,
        .renderJob = u"arnold",
        .exportJob = u"createASS",
        .application = u"Arnold",
        .oneFileApplication = u"Arnold-singlefile",
        .versionSwitch = u"-customRenVer_Arnold",
        .versionVariable = u"HtoA_KickVersion",
        .stageMark = u"arnold",
        .nodeTypes = {{{"/arnold"}}},
    },
    _renderer{
        .kind = _kind::openGL,
        .renderJob = u"opengl",
        .nodeTypes = {{{"/opengl"}}},
    },
    _renderer{
        .kind = _kind::geometry,
        .renderJob = u"geometry",
        .nodeTypes = {{{"/geometry"}, {"/geo"}, {"_geo_"}, {"/filecache"}}},
    },
    _renderer{
        .kind = _kind::redshift,
        .renderJob = u"redshift",
        .exportJob = u"createRS",
        .application = u"Redshift",
        .versionSwitch = u"-customRenVer_Redshift",
        .stageMark = u"redshift",
        .nodeTypes = {{{"/Redshift_"}, {"/rs_"}}},
    },
    _renderer{
        .kind = _kind::renderman,
        .renderJob = u"prman",
        .exportJob = u"createRIB",
        .application = u"RenderMan",
        .versionSwitch = u"-customRenVer_prman",
        .stageMark = u"hdprman",
        .nodeTypes = {{{"/ris"}}},
    },
    _renderer{
        .kind = _kind::alembic,
        .renderJob = u"alembic",
        .oneFileRenderJob = u"alembic-singleFile",
        .nodeTypes = {{{"/alembic", "/alembicarchive"}}},
    },
    _renderer{
        .kind = _kind::vray,
        .renderJob = u"vray",
        .exportJob = u"createVrScene",
        .exportsOneFile = true,
        .application = u"VRay_StdA",
        .versionSwitch = u"-customRenVer_VRay",
        .stageMark = u"vray",
        .nodeTypes = {{{"/vray"}}},
    },
    // the stage, whatever renders it: that renderer's name follows the names of its jobs
    _renderer{
        .kind = _kind::lop,
        .renderJob = u"usd",
        .exportJob = u"createUSD",
        .application = u"USD_StdA",
        .oneFileApplication = u"USD_StdA_single",
        .nodeTypes = {{{"/usd_rop"}, {"/usdrender_"}, {prmanNode}, {renderSettingsNode}}},
    },
    // no parameter implies these two
    _renderer{
        .kind = _kind::karma,
        .renderJob = u"karma",
        .stageMark = u"karma",
        .nodeTypes = {{{karmaNode, "renderproper"}}},
    },
    _renderer{
        .kind = _kind::mantra,  // of every driver that no other renderer has a name for
        .exportJob = u"createIFD",
        .application = u"Mantra_StdA",
        .nodeTypes = {{{"/mantra"}, {"/comp"}, {"/rop_comp"}}},
    },
};

/// The row of a kind. A kind without one does not compile.
consteval const _renderer& rendererOf(_kind kind) {
    for (const _renderer& renderer : renderers)
        if (renderer.kind == kind) return renderer;
    throw "this kind has no renderer";
}

/// The renderers of a stage, in the order in which a text is searched for their marks: it may hold several of them.
inline constexpr std::array stageRenderers{&rendererOf(_kind::karma), &rendererOf(_kind::renderman),
                                           &rendererOf(_kind::vray), &rendererOf(_kind::redshift),
                                           &rendererOf(_kind::arnold)};

consteval bool everyStageMarkHasItsPlace() {
    std::size_t marks = 0;
    for (const _renderer& renderer : renderers) marks += renderer.stageMark.isEmpty() ? 0 : 1;
    return marks == stageRenderers.size();
}
static_assert(everyStageMarkHasItsPlace(), "a renderer with a mark is missing in stageRenderers");

}  // namespace vxP
