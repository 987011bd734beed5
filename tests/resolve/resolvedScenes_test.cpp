// What each driver of the real scenes writes, where they are loaded as Houdini reads them.
#include <gtest/gtest.h>

#include <QDir>

#include "plugin/vxSceneParserHoudini.h"
#include "tests/resolve/framesAndFile.h"
#include "tests/support/sceneText.h"

namespace {

using vxTest::plainOf;

/// What the drivers of a real scene write and for which frames, as its nodes' types, switches, channels and takes say.
struct _realCase {
    const char* scene;
    const char* outputs;  ///< "driver first-last file", a line each
};

constexpr _realCase realCases[] = {
    {"attribute_wrangler_bug.hiplc", ""},
    {"ball_water.hip",
     "/obj/A/rop_geometry1 1-50 E:/Houdini/BallWaterA/OutPut/A.abc\n"
     "/obj/A/rop_fbx1 1-160 $HIP/OutPut/A.fbx\n"
     "/out/filmboxfbx1 1-160 $HIP/OutPut/A.fbx"},
    {"bounding_image_generation.hiplc", ""},
    {"cloud_caches.hip",
     "/obj/geo2/rop_geometry1 1-120 E:/Houdini/SIACloud/Out/F/Cloud.####.vdb\n"
     "/obj/geo2/rop_geometry3 1-300 E:/Houdini/SIACloudG/Out/G/Cloud.####.vdb\n"
     "/obj/geo2/rop_geometry4 1-300 E:/Houdini/SIACloudG/Out/Small/Cloud.####.vdb"},
    {"color_adjustment.hip", "/out/mantra_ipr 1-240 $HIP/render/color_adjustment.mantra_ipr.####.exr"},
    {"csall.hip",
     "/obj/Volume/volume_texture2 1-100 E:/Houdini/CSALL/OutPut/CloudVloume/TA_10_17.exr\n"
     "/obj/Vertex/rop_fbx1 1-100 E:/FBX/untitled.fbx\n"
     "/obj/Ball/rop_alembic1 1-100 $HIP/OutPut/CS.abc\n"
     "/obj/BLBL_Taverna/rop_fbx1 1-100 $HIP/out.fbx\n"
     "/obj/BLBL_Taverna/Railings_Left 1-100 E:/Houdini/CSALL/OutPut/SM_Railings_Left\n"
     "/obj/Cloud_VDB/rop_geometry1 1-100 E:/Houdini/CSALL/OutPut/CloudVDB/PigVDB_200_Noise_Anim.####.vdb\n"
     "/obj/VectorFoce/niagara1 1-100 E:/Houdini/CSALL/OutPut/niagara/A.hbjson\n"
     "/obj/Volume/volume_texture1 1-100 E:/Houdini/CSALL/OutPut/CloudVloume/9_27_G.exr\n"
     "/out/karma_cheese 1-100 E:/Houdini/CSALL/render/Cloud.png"},
    {"ifd_test.hiplc",
     "/out/mantra1 1-240 $FARM/projects/ifd_test/test.ifd\n"
     "/out/mantra1 1-240 $FARM/projects/ifd_test/test.exr"},
    {"karma_aovs.hip", "/stage/usdrender_rop3 1-240 $HIP/render/denoiseme.####.exr"},
    {"lod_create.hip",
     "/obj/geo1/sop_lod_create1 1-240 $HIP/lodexport/sop_lod_create1.fbx\n"
     "/obj/geo1/sop_lod_create1/objnet1/ropnet1/rop_impostor_texture1 1-240 $HIP/export/sop_lod_create1.fbx\n"
     "/obj/geo1/sop_lod_create1/objnet1/ropnet1/filmboxfbx1 1-240 $HIP/lodexport/sop_lod_create1.fbx\n"
     "/obj/geo1/sop_lod_create1/objnet1/ropnet1/rop_impostor_texture1/"
     "impostor_render_animation 1-240 $HIP/render/sop_lod_create1.####.exr"},
    {"measure_curvature.hip", "/obj/geo1/rop_fbx1 1-240 $HIP/export/hardsurface.fbx"},
    {"motion_vector.hip",
     "/obj/motion_vector_ropnet/rop_motion_vectors1 1-64 $HIP/render/motion_vector_test1.####.exr\n"
     "/obj/fire_presets1/fire_import/filecache1 1-70 $HIP/geo/motion_vector_test1.#.bgeo.sc"},
    {"ocean.hip",
     "/out/Redshift_ROP 1-24 $HIP/render/Redshift_ROP.<ValueVar @$AOV.>####.exr\n"
     "/out/Redshift_ROP_look_dev 1-24 $HIP/render/Redshift_ROP_look_dev.<ValueVar @$AOV.>####.exr\n"
     "/out/Redshift_Proxy_Nature_Rock 1-24 $HIP/rsproxy/Redshift_Proxy_Nature_Rock.rs\n"
     "/out/Redshift_ROP_atmos 1-24 $HIP/render/Redshift_ROP_atmos.<ValueVar @$AOV.>####.exr\n"
     "/out/Redshift_ROP_meta 1-24 $HIP/render/Redshift_ROP_meta.<ValueVar @$AOV.>####.exr\n"
     "/out/cam_animated 1-24 $HIP/render/cam_animated.abc\n"
     "/out/center_glow_object 1-24 $HIP/render/center_glow_object.abc"},
    {"qlib_breako.hip",
     "/obj/breako_setup/waypoint_breako_RBDs 1-180 $HIP/tmp--sim/waypoint_breako_RBDs/"
     "waypoint_breako_RBDs_v0.####.bgeo.gz\n"
     "/obj/breako_setup/waypoint_breako_rbd_pts 1-180 $HIP/tmp--sim/waypoint_breako_rbd_pts/"
     "waypoint_breako_rbd_pts_v0.####.bgeo.gz\n"
     "/obj/breako_setup/waypoint_breako_particles 1-180 $HIP/tmp--sim/waypoint_breako_particles/"
     "waypoint_breako_particles_v0.####.bgeo.gz"},
    {"qlib_modelfactory.hip", "/out/mantra1 1-48 $HIP/images/tmp--render/mantra1.####.exr"},
    {"qlib_space_partition.hip",
     "/obj/space_partition_example_B/wp_partitions 1-96 $HIP/tmp--sim/wp_partitions/"
     "wp_partitions_v0.####.bgeo.gz\n"
     "/obj/space_partition_example_B/wp_partitions 1-96 $HIP/tmp--sim/wp_partitions/"
     "wp_partitions_v1.####.bgeo.gz\n"
     "/obj/space_partition_example_B/wp_partitions 1-96 $HIP/tmp--sim/wp_partitions/"
     "wp_partitions_v2.####.bgeo.gz\n"
     "/obj/space_partition_example_B/wp_partitions 1-96 $HIP/tmp--sim/wp_partitions/"
     "wp_partitions_v3.####.bgeo.gz"},
    {"qlib_super_light.hip",
     "/out/test_grid 1-240 /mnt/Work/Work/qLab/tmp/super_light_grid.ifd\n"
     "/out/test_grid 1-240 /mnt/Work/Work/qLab/tmp/super_light_grid.exr\n"
     "/out/test 1-240 /mnt/Work/Work/qLab/tmp/super_light_fast.ifd\n"
     "/out/test 1-240 /mnt/Work/Work/qLab/tmp/super_light_fast.exr"},
    {"rbd_solver.hip",
     "/out/rop_rbd_to_fbx1 1-100 $HIP/export/rbd_solver_test.fbx\n"
     "/obj/rbd_solver_example/rbd_filecache 1-100 $HIP/geo/rbd_filecache.#.bgeo.sc"},
    {"render_attribute_modification.hipnc", "/stage/usd_rop 1001-1050 $HIP/render.usdnc"},
    {"skinning_converter.hip",
     "/out/filmboxfbx1 1-190 H:/Paul Ambrosiussen/SkinningConverter/MinotaurCloth/Unreal/Export_03.fbx"},
    {"terrain_convert.hip",
     "/obj/heightfield1/sop_terrain_segment_rop1 1-240 $HIP/geo/TerrainChunk\n"
     "/obj/heightfield1/sop_terrain_segment_rop1/OUT/filmboxfbx2 1-240 $HIP/geo/TerrainChunk.fbx"},
    {"test_hdas.hiplc", ""},
    {"time_samples.hipnc", "/stage/usd_rop 1001-1010 $HIP/timeSample.####.usd"},
    {"usd_hda.hipnc",
     "/stage/minimal_hda_node_working_set/usd_rop 1-240 $HIP/geo/usd_hda.usd_rop.usd\n"
     "/stage/hda_time_dependency/usd_rop 1-240 $HIP/geo/usd_hda.usd_rop.####.usd"},
    {"usd_shot_lighting.hip",
     "/stage/karma1 1-240 $HIP/render/usd_shot_lighting.karma1.####.exr\n"
     "/stage/usd_rop1 1-240 $HIP/tutorials/shot002_lighting_v001.usd"},
    {"vortex_cloud.hip",
     "/out/Redshift_ROP1 1-240 $HIP/render/vortex_cloud.Redshift_ROP1.####.exr\n"
     "/out/Redshift_ROP_low 1-240 $HIP/render/vortex_cloud.Redshift_ROP_low.####.exr"},
};

TEST(ResolvedScenes, GiveEachDriverThatWritesItsFramesAndFile) {
    const QDir folder(QStringLiteral(VX_REAL_SCENES));
    if (!folder.exists()) GTEST_SKIP() << "no real scenes in " VX_REAL_SCENES;
    for (const _realCase& real : realCases) {
        vxTest::freshScanState();
        vxTest::_loader loader(folder.filePath(QLatin1String(real.scene)), {QStringLiteral("-houdiniResolve")});
        pLoadSceneFile(&loader.record());
        QStringList outputs;
        for (int i = 0; i < loader.count(); ++i) {
            const auto& job = loader.job(i);
            QString output = QString::fromStdString(plainOf(job.layer) + ' ' + vxTest::framesAndFileOf(job));
            output.replace(QDir::cleanPath(folder.absolutePath()), QLatin1String("$HIP"));
            output.remove(QDir::currentPath() + QLatin1Char('/'));  // what a relative name counts from
            if (!outputs.contains(output)) outputs.append(output);
        }
        EXPECT_EQ(outputs.join(QLatin1Char('\n')).toStdString(), real.outputs) << real.scene;
    }
}

}  // namespace
