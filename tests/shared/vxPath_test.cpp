#include "shared/vxPath.h"

#include <gtest/gtest.h>

#include <QDir>

#include "tests/testText.h"

using vxTest::plain;
using vxTest::wide;

namespace {

struct _partsCase {
    const char *what, *path;
    char separator;
    const char *dir, *base;
};

constexpr _partsCase partsCases[] = {
    {"trailing_separator_ignored", "/a/b/", '/', "/a/", ""},
    {"last_extension_only", "/a/b.c.exr", '/', "/a/", "b.c"},
    {"only_point_in_front", "/a/.exr", '/', "/a/", ".exr"},
    {"no_separator", "c.exr", '/', "", "c"},
    {"root", "/", '/', "", ""},
    {"other_separator_is_a_letter", "C:\\a/b.tif", '\\', "C:\\", "a/b"},
};

class PathParts : public testing::TestWithParam<_partsCase> {};

TEST_P(PathParts, FolderAndBaseName) {
    const auto& path = GetParam();
    EXPECT_EQ(plain(vxS::vxGetDirName(wide(path.path), QLatin1Char(path.separator))), path.dir);
    EXPECT_EQ(plain(vxS::vxGetFileNameBase(wide(path.path), QLatin1Char(path.separator))), path.base);
}

INSTANTIATE_TEST_SUITE_P(Table, PathParts, testing::ValuesIn(partsCases), vxTest::rowName);

struct _resolveCase {
    const char *what, *path, *resolved;
};

constexpr _resolveCase resolveCases[] = {
    {"points", "/a/./b/../c", "/a/c"},
    {"above_the_root", "/../../a", "/a"},
    {"trailing_separator", "/a/b/", "/a/b/"},
    {"backslashes", "C:\\a\\..\\..\\b", "C:\\b"},
    {"first_separator_counts", "C:\\a/../b", "C:\\a/../b"},
    {"marker", "<SceneFolder>/a/../b", "<SceneFolder>/b"},
    {"far_above_a_variable", "$HIP/a/../../../b", "$HIP/../../b"},
    {"expression", "`chs(\"x\")`/a", "`chs(\"x\")`/a"},
};

class PathResolve : public testing::TestWithParam<_resolveCase> {};

TEST_P(PathResolve, IsLexicalAndSettled) {
    const QString resolved = vxS::vxPathResolve(wide(GetParam().path));
    EXPECT_EQ(plain(resolved), GetParam().resolved);
    EXPECT_EQ(plain(vxS::vxPathResolve(resolved)), GetParam().resolved);
}

INSTANTIATE_TEST_SUITE_P(Table, PathResolve, testing::ValuesIn(resolveCases), vxTest::rowName);

TEST(PathResolve, PutsRelativeNamesBehindTheCurrentFolder) {
    EXPECT_EQ(plain(vxS::vxPathResolve(wide("a/../b.exr"))), plain(QDir::currentPath()) + "/b.exr");
    const QString before = QDir::currentPath();
    QDir::setCurrent(QStringLiteral("/"));
    EXPECT_EQ(plain(vxS::vxPathResolve(wide("b.exr"))), "/b.exr");
    QDir::setCurrent(before);
}

}  // namespace
