// Files that are scenes, and files that are not.
#include "input/sceneForm.h"

#include <gtest/gtest.h>

#include "tests/support/archiveText.h"
#include "tests/testText.h"

namespace {

using namespace vxP;

const std::string scene = vxTest::openArchive({{".start", "fps 24\n"}});
const std::string section = "out/a.parm {\n}\n";

struct _formCase {
    const char* what;
    std::string bytes;
    _sceneForm form;
    const char* instead;
};

const _formCase formCases[] = {
    {"archive", scene, _sceneForm::whole, ""},
    {"cut_archive", scene.substr(0, scene.size() - 5), _sceneForm::cut, ""},
    {"section_in_text", "some words\n  " + section, _sceneForm::whole, ""},
    {"section_far_behind", std::string(mostBytesOfText, '\n') + section, _sceneForm::none, ""},
    {"commands_alone", "frange 1 2\nset -g A = 'b'\ntake name Main\n", _sceneForm::none, ""},
    {"empty", "", _sceneForm::none, "it is empty"},
    {"zeros", std::string(9000, '\0'), _sceneForm::none, "it begins with nothing but zeros"},
    {"gzip", "\x1f\x8b\x08", _sceneForm::none, "it looks like a gzip archive"},
    {"program",
     "\x7f"
     "ELF\x02",
     _sceneForm::none, "it looks like a program"},
    {"page", " \n<!DOCTYPE HTML>", _sceneForm::none, "it looks like an HTML page"},
};

class SceneForm : public testing::TestWithParam<_formCase> {};

TEST_P(SceneForm, IsToldFromBothEnds) {
    const vxN::_memorySource source(GetParam().bytes);
    const auto [form, instead] = formOf(source);
    EXPECT_EQ(form, GetParam().form);
    EXPECT_EQ(vxTest::plain(instead), GetParam().instead);
}

INSTANTIATE_TEST_SUITE_P(Table, SceneForm, testing::ValuesIn(formCases), vxTest::rowName);

}  // namespace
