#include <gtest/gtest.h>

#include <cstring>

#include "plugin/vxSceneParserHoudini.h"
#include "tests/support/sceneText.h"
#include "tests/testText.h"

namespace {

using vxTest::driver;
using vxTest::plainOf;

class EntryPoints : public testing::Test {
 protected:
    void SetUp() override { vxTest::freshScanState(); }

    vxTest::_sceneFolder folder;
};

qint32 loadFile(const QString& path) {
    vxTest::_loader loader(path);
    return pLoadSceneFile(&loader.record());
}

TEST_F(EntryPoints, InfoTellsMatchingHostsMore) {
    vxP::_dataPARS_PluginInfo info;
    std::memset(static_cast<void*>(&info), 0xFF, sizeof info);
    EXPECT_EQ(pInfo(&info), vxP::resultVersionMismatch);
    EXPECT_EQ(info.structureVersion, 0xB005);
    EXPECT_EQ(info.flag, 0xFF);
    EXPECT_EQ(pInfo(&info), vxP::resultSuccess);
    EXPECT_EQ(plainOf(info.hostLibraryVersion), " 8.4.00");
    EXPECT_EQ(plainOf(info.qtVersion), qVersion());
    EXPECT_EQ(plainOf(info.fileFilter), "*.hip;*.hipnc;*.hiplc;");
    EXPECT_EQ(info.pluginKind, 1);
    EXPECT_EQ(info.flag, 0);
}

TEST_F(EntryPoints, RefuseWhatCannotBeReadButAnotherLayoutFirst) {
    for (const QString& path : {folder.filePath(QStringLiteral("missing.hip")), folder.path(), QString()}) {
        vxTest::_loader loader(path);
        EXPECT_EQ(pLoadSceneFile(&loader.record()), vxP::resultCannotOpen);
        loader.array().structureMinor = 0;
        EXPECT_EQ(pLoadSceneFile(&loader.record()), vxP::resultVersionMismatch);
    }
}

TEST_F(EntryPoints, ReadScenesThatHoldNothing) {
    EXPECT_EQ(loadFile(folder.write({})), vxP::resultSuccess);
    EXPECT_EQ(loadFile(folder.write(QByteArray(1 << 20, '\0'))), vxP::resultSuccess);
    EXPECT_EQ(loadFile(folder.write(QByteArray(20 << 20, 'x'))), vxP::resultSuccess);  // one line without an end
}

TEST_F(EntryPoints, PrintNothing) {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    loadFile(folder.path());
    loadFile(folder.write(driver("vm_picture=ip") + QByteArray(1000, '\xFF')));
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace
