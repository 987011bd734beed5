// Writes what the fuzz targets start from: a folder of seeds for each target, and the dictionary of scene texts.
// Usage: makeSeeds FOLDER EXAMPLE_SCENE
#include <QDir>
#include <QFile>
#include <cstddef>

#include "bench/sceneGenerator.h"
#include "input/sceneTexts.h"
#include "input/sectionKinds.h"
#include "tests/support/archiveText.h"
#include "tests/support/sceneText.h"

namespace {

using namespace vxP;
using vxTest::driver;

/// A seed in short: the place of a record is `@position:text`, a new line is what parts the fields.
struct _seed {
    const char* target;
    QByteArray input;
};

/// Writes a record's place as the targets read it. @param kind  0: bytes as they are; 1: a text with its length word
QByteArray place(std::size_t position, const QByteArray& written, int kind = 1) {
    QByteArray head;
    for (const std::size_t byte : {position, position >> 8, position >> 16}) head += static_cast<char>(byte);
    return head + static_cast<char>(written.size() * 2 + kind) + written;
}

QByteArray zeros(int count) {
    return QByteArray(count, '\0');
}

const QByteArray noMorePlaces = zeros(4);

/// A section as an archive holds it.
QByteArray archived(const QByteArray& path, const QByteArray& lines) {
    return "070707000001000000000666000000000000000001000000141515347410000160000000010" + path + ".parm" + zeros(1) +
           "{\nversion 0.8\n" + vxTest::params(lines) + "}\n";
}

/// Lines that the scan has to tell apart, and lines that look like them.
QByteArray linesOfAllKinds() {
    const QByteArray outside[] = {"\xFF\xFE#frange 7 8",
                                  "FRANGE\t5 6",
                                  "frange\t[ 0\tlocks=0 ]\t(\t1\t)",
                                  "frang",
                                  "HouLC1033.variables\1set -g V = 'w'",
                                  "SET -G X = 'y'\r",
                                  "_hip_\xC5\xBF"
                                  "aveversion '20.1'",
                                  "  take name wide kids 0",
                                  "Take name no",
                                  "x.parm"};
    const QByteArray inside[] = {"VM_PICTURE\t(\t/i/b.exr\t)",
                                 "vm_picture (\t/i/no.exr\t)",
                                 "#f\t(\t1\t2\t)",
                                 "tx\t[ 0\tlocks=0 ]\t(\t1.5\t)",
                                 "name\t(\tx\t)",
                                 "f\t(\t1\t2\t)",
                                 "\xE2\x84\xAA",
                                 "objectPath\t(\tx\t)",
                                 "a {",
                                 " \t\v\f}"};
    QByteArray scene;
    for (const QByteArray& line : outside) scene += line + '\n';
    for (const char* const path : {"obj/OBJ/REDSHIFT_rop", "obj/box1", "out/b"}) {
        scene += QByteArray(path) + ".parm" + zeros(1) + "{\n";
        for (const QByteArray& line : inside) scene += line + '\n';
    }
    return scene + archived("out/mantra2", "vm_picture=/i/c.exr|f=5\t6\t1|trange=on");
}

std::vector<QByteArray> shortScenes() {
    const QByteArray start =
        "fps 24\nfrange 1001 1100\nset -g _HIP_SAVEVERSION = '19.5.640'\nset -g JOB = '/projects/kettle'\n"
        "set -g SHOT = '$JOB/tt010'\n";
    const QByteArray image = "trange=\"normal\"|f=[ f1\t1 ] \t[ f2\t24 ] \t2|vm_picture=\"$HIP/$SHOT/$OS.$F4.exr\"|";
    return {
        start + driver(image + "camera=/obj/cam1|take=_current_|res_override=640\t480", "out/mantra1") +
            archived("obj/stereocam1", "res=1920\t1080") + "take name Main\ntake name wide\n",
        start + driver(image + "soho_outputmode=\"on\"|soho_diskfile=\"$HIP/${OS}.$F4.ifd\"", "out/a_sim_") +
            driver("ar_picture=$HIP/a.$FF.exr|ar_ass_export_enable=on|ar_ass_file=a.ass|"
                   "ar_aov_separate_file1=$HIP/z.$F.exr",
                   "obj/geo1/arnold1"),
        driver("vm_picture=/i/$OS_${WEDGE}_$WEDGENUM.exr", "out/light") +
            driver("prefix=key|driver=../light|wedgemethod=channel|name1=amount|steps1=3|range1=0\t1|name2=b|"
                   "steps2=2|range2=1\t,5",
                   "out/wedge1"),
        driver("vm_picture=/$WEDGE/$WED$WEDGEGE.exr|ar_aov_separate_file1=/i/$WEDGE/$WEDGENUM.$F4.exr|"
               "soho_outputmode=on|soho_diskfile=/x/${WEDGE}.$F3.ifd",
               "out/light") +
            driver("prefix=$WED$WEDGEGE|driver=../light|wedgemethod=channel|name1=$WEDGE|steps1=12|range1=0\t1",
                   "out/wedge1"),
        driver("RS_outputFileNamePrefix=$HIP/r.$AOV.$F4|RS_outputFileFormat=.exr|RS_aovSuffix_1=z|"
               "RS_aovCustomPrefix_2=$HIP/$AOV_|RS_aovFileFormat_2=.tif|RS_archive_enable=on|RS_archive_file=a.rs",
               "out/Redshift_1"),
        start +
            driver("SettingsOutput_img_file_path=$HIP/v.$ACTIVETAKE.exr|render_export_mode=2|"
                   "render_export_filepath=$HIP/v.vrscene",
                   "out/vray1") +
            driver("filename=$HIP/a.abc|trange=off", "out/alembic1") + driver("sopoutput=g.$F.bgeo", "out/geometry1"),
        driver("outputimage=$HIP/k.$F4.exr|renderer=BRAY_HdKarma|lopoutput=$HIP/k.usd|fileperframe=off",
               "stage/karma1") +
            driver("loppath=/stage/hdprman1|outputimage=p.exr", "stage/usdrender_rop1") +
            driver("picture=$HIP/`chsop(\"take\")`.$F4.exr", "stage/hdprman1") +
            driver("camera=/cam|xn__redshiftglobalRS_archive_enable=on|xn__redshiftglobalRS_archive_fileName=a.rs",
                   "stage/rendersettings1"),
        "\xEF\xBB\xBF fr\rang\re 7 9\r\n\xC5\xBF"
        "et -g JOB = '/a'\nta\rke name odd\n.pa\rrm\n" +
            driver("vm_\rpicture=/i/d.exr|\xC5\xBFoho_diskfile=/x/$JOB.ifd|\xC2\xA0take=wide", "out/\xE2\x84\xAA"),
        linesOfAllKinds(),
    };
}

QByteArray contentOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) qFatal("cannot read %s", qUtf8Printable(path));
    return file.readAll();
}

constexpr int pieceSize = 4000;  ///< of a larger scene: short inputs run more often

std::vector<QByteArray> scenes(const QString& folder, const char* example) {
    std::vector<QByteArray> list = shortScenes();
    const QByteArray whole = contentOf(QString::fromLocal8Bit(example));
    for (int start = 0; start < whole.size(); start += pieceSize) list.push_back(whole.mid(start, pieceSize));
    const QString generated = folder + QLatin1String("/generated.hip");
    for (const auto shape : {vxBench::_sceneShape::sectionHeavy, vxBench::_sceneShape::shortLines}) {
        vxBench::writeScene(generated.toStdString(), shape, 2000, 1);
        list.push_back(contentOf(generated).left(pieceSize));
    }
    QFile::remove(generated);
    return list;
}

QByteArray twoScenes(const QByteArray& first, const QByteArray& second) {
    return QByteArray(1, static_cast<char>(first.size())) + static_cast<char>(first.size() >> 8) + first + second;
}

std::vector<_seed> sceneSeeds(const std::vector<QByteArray>& scenes) {
    std::vector<_seed> seeds;
    const QByteArray* before = &scenes.back();
    int number = 0;
    for (const QByteArray& scene : scenes) {
        const QByteArray pathAndPiece{QByteArray(1, static_cast<char>(number)) + static_cast<char>(number * 29)};
        ++number;
        seeds.push_back({"load", scene});
        seeds.push_back({"explained", scene});
        seeds.push_back({"loadTwice", twoScenes(*before, scene)});
        seeds.push_back({"sceneDevice", pathAndPiece + scene});
        before = &scene;
    }
    return seeds;
}

std::vector<_seed> textSeeds() {
    const QByteArray noFlags = zeros(3);
    std::vector<_seed> seeds{
        {"imageOutVars", noFlags + vxTest::param("vm_picture", "\"$HIP/a.${F4}.exr\"")},
        {"imageOutVars", noFlags + vxTest::param("RS_outputFileNamePrefix", "[ RS_outputFileNamePrefix\t$FF ]")},
        {"imageOutVars", "\1\1\1" + vxTest::param("picture", "`chsop(\"take\")`/$ACTIVETAKE.$F.exr")},
        {"houdiniVariables", zeros(16) + "$HIP/${HIPNAME:r}/$JOB:r/$OS.$RFSTART-${RFEND}.exr\n/p/shot.hip\n/p/\n"
                                         "/out/mantra1\nJOB=/a/b.hip\nSHOT=$JOB\n"},
        {"pathResolve", "/a/./b/../c//d.e.exr"},
        {"pathResolve", "//share\\a/$HIP/../x/"},
        {"pathResolve", "C:\\a\\..\\..\\b.exr"},
        {"pathResolve", "<Scene>/../../`chs(\"a\")`/b"},
    };
    // Letters that change their length or their alphabet with their case.
    seeds.push_back({"houdiniVariables",
                     zeros(16) + "$K\xE2\x84\xAA${\xC3\x9F$\xE1\xBA\x9E$\xF0\x90\x90\x80s$\xC4\xB0\n\n\n\nk=1\nss=2\n"
                                 "\xC3\x9F=3\n\xF0\x90\x90\xA8S=4\ni=5\n\xE2\x84\xAAk=6\n=7\n"});
    QByteArray chain = zeros(16) + "$V10\n\n\n\n";  // each value holds the next variable twice
    for (int i = 10; i < 18; ++i)
        chain +=
            'V' + QByteArray::number(i) + "=$V" + QByteArray::number(i + 1) + "$V" + QByteArray::number(i + 1) + '\n';
    seeds.push_back({"houdiniVariables", chain});
    for (const char* const name :
         {"/projects/show/shot/r/b.####.exr\n\n\n/projects/show\n/projects/show/shot/work/a.hip",
          "C:\\s\\\\\\\\b.%06d.exr\n\n\n\n", "/s/<Channel>/m[#].mov\nC:d\n.exr", "/s//../b.0001.vrscene\n/s/"})
        seeds.push_back({"splitImageFile", QByteArray("\2\4") + name});
    return seeds;
}

/// Changes of every kind to a text of at most 15 characters, at its edges and beyond them.
QByteArray changedText(bool wide) {
    struct _step {
        int kind, position, count;
        std::vector<QByteArray> texts{QByteArray()};
    };
    enum { assign, insert, remove, cut, replace, ownTail, ownCopy, replaceInAnyCase, compare };
    const _step steps[] = {{compare, 1, 0, {"ab"}},
                           {insert, 3, 0, {"01234567"}},
                           {replace, 0, 0, {"ab", "-"}},
                           {remove, 4, 100},
                           {remove, 0, 2},
                           {insert, -1, 0, {"x"}},
                           {insert, 99, 0, {"x"}},
                           {remove, 99, 1},
                           {remove, 1, -1},
                           {ownCopy, 1, 0},
                           {ownTail, 2, 0},
                           {cut, 99, 0},
                           {cut, -1, 0},
                           {cut, 3, 0},
                           {assign, 0, 0, {"a.b.C.Aba.B.c"}},
                           {replace, 0, 0, {".", "-+-"}},
                           {compare, 0, 0, {"aB"}},
                           {assign, 0, 0, {"aaaabBAb"}},
                           {replace, 0, 0, {"aa", "a"}},
                           {replace, 0, 0, {"", "x"}},
                           {replaceInAnyCase, 0, 0, {"aB", "xyzxyz"}},
                           {assign, 0, 0, {"1234567890abcdefg"}}};
    QByteArray bytes;
    for (const _step& step : steps) {
        bytes += static_cast<char>(step.kind);
        for (const int number : {step.position, step.count})
            bytes += QByteArray(1, static_cast<char>(number)) + static_cast<char>(number >> 8);
        for (const QByteArray& text : step.texts) {
            bytes += static_cast<char>(text.size());
            for (const char letter : text) bytes += wide ? QByteArray(1, letter) + zeros(1) : QByteArray(1, letter);
        }
    }
    return bytes;
}

std::vector<_seed> expressionSeeds() {
    std::vector<_seed> seeds{
        {"definitions", "parm { name \"mode\" type ordinal default { \"a\" } menu { \"a\" \"A\" \"b\" \"B\" } }"},
        {"definitions", QByteArray("INDX\0\0\0\0\0\0\0\0\0\0\0\1\0\0\0\1s\0\0\0\0\0\0\0\2\0\0\0\0xy", 35)},
    };
    for (const char* const text :
         {"$HIP/${OS:r}.$F4.`padzero(4, $F)`\\$x", "-12.5e-3",
          "`ifs(strcmp(chs(\"name\"), 'a') != 0 || !ch(\"../b/flag\"), strreplace(\"a.b\", '.', $OS), \"\" + 4)`",
          "`{ s = \"\"; for (i = 0; i < 3; i++) { if (i % 2 == 1) s += i; else s -= 1; } return s; }`",
          "`fit(ch(\"tz\"), $FSTART, $FEND, 0, 2 ^ 3) + opdigits(opinputpath(\".\", 0))`",
          "`{ float a = 1; while (a < 100) { a *= 2; a++; } return max(a, @b.x); }`"})
        seeds.push_back({"expressions", text});
    return seeds;
}

std::vector<_seed> recordSeeds() {
    using vxJ::_JobSettingsScene;
    constexpr std::size_t store = offsetof(_JobSettingsScene, customDataCount);
    constexpr std::size_t block = offsetof(_JobSettingsScene, customDataBlock);
    const QByteArray entries = QByteArray("c\0\16\0\3Ab\0u\0\21\0\1C\0xyz\1A", 19);
    const auto number = [](char value) { return QByteArray(1, value) + zeros(3); };
    const QByteArray changes = QByteArray("\0\0\1UserInfo\na value\n", 20) +
                               "\3\1\144|name|x\nab|\n\1\1\1\n\xC5\x81\n" + QByteArray("\2\0\3ab\nmore\n", 11);
    const QByteArray jobTexts = place(28, "Houdini") + place(592, "/out/[App]") + place(3686, "/p/s.hip");
    const QByteArray paths = place(3686 + 2006 * 3, "/p/[Layer]/[x]") + place(3686 + 2006 * 4, "[App].[TotalStart");
    const QByteArray channels = place(15788, "z.[App].exr") + place(15788 + 2006, ".exr") + place(17850, "n");
    const QByteArray channelChanges =
        QByteArray("\0\0/a/b.####.exr\n\n\0\0name\n.exr\n", 28) + "\3\1longer name\n.tif\n\6\1\n\n" + zeros(0);
    const QByteArray longText = "\xFF\xFF..abcABC";
    QByteArray fullPool;  // sixteen names of 500 characters, each cut out of longer ones
    for (std::size_t slot = 0; slot < 17; ++slot) fullPool += place(15788 + slot * 2062, "\xE0\x2E", 0);
    const QByteArray damagedStore = place(0, "\3", 0) + place(1, QByteArray("\x3E\x1F\5\0\xFF\xFF", 6), 0);
    const QByteArray nearlyFull =
        place(0, "\2", 0) + place(1 + 3 * 2 * vxJ::channelCapacity + 2 * vxJ::channelPoolCapacity, "\x36\x1F", 0);
    return {
        {"customData",
         place(store, number(2) + number(22) + number(17), 0) + place(block, entries, 0) + noMorePlaces + changes},
        {"customData", noMorePlaces + changes},
        {"channels", noMorePlaces + channelChanges + QByteArray("\4\0\n\n\5\0\n\n", 8)},
        {"channels", nearlyFull + noMorePlaces + channelChanges},
        {"channels", damagedStore + noMorePlaces + channelChanges},
        {"compactForm", jobTexts + paths + channels},
        {"compactForm", fullPool},
        {"jobVariables", jobTexts + paths + channels},
        {"fixedStrings", zeros(1) + place(0, "abcABCab.c.d") + noMorePlaces + changedText(true)},
        {"fixedStrings", zeros(1) + place(0, longText, 0) + noMorePlaces + changedText(true)},
        {"fixedStrings", "\2" + place(0, QByteArray("\14\0abcABCab.c.d", 14), 0) + noMorePlaces + changedText(false)},
        {"fixedStrings", "\2" + place(0, longText, 0) + noMorePlaces + changedText(false)},
    };
}

std::vector<_seed> treeSeeds() {
    const QByteArray parameters =
        "{\nversion 0.8\nf\t[ 0\tlocks=0 ]\t(\t[ f1\t1 ] \t\"a \\\"b\\\"\"\t\\\"c\\\"\t)\n}\n";
    const QByteArray channels =
        "{\n    channel f1 {\n      lefttype = extend\n      default = 1\n      defaultString = \\\"a\\\"\n      "
        "segment { "
        "options = {\t autoslope }\n\n length = 1 value = 0 1 slope = 0 5 expr = bezier() }\n      segment { length = "
        "0 "
        "expr = \"ch(\\\"../a\\\") + 1\" language = python }\n    }\n  }\n";
    const QByteArray takes =
        QByteArray("HoudiniTakeFile 1.0\ntake name Main kids 1\n\0\0\0\7s 0 /a\n\0\0\0\6s 1 f\n", 63) +
        QByteArray("\0\0\0\14d 0 1\n\0\0\0\2on\0\0\0\2e\ntake name b kids 0\n\0\0\0\2e\n", 47);
    const QByteArray inputs =
        "flags = bypass on display off\ninputs\n{\n0 \t(__dot1) 0 1\n1 \t(0) 0 1\n2 \ta 0 1\n}\nend\n";
    QByteArray lines = QByteArray("\1.start\nfps 24;tset 0 10;\na.init\ntype = null;\na.def\n") +
                       QByteArray(inputs).replace('\n', ';') +
                       "\na/__dot1.networkdotinit\n{\"input\":\"a 0 1\"}\na.parm\n{}\na.order\n1;b;\n.takes\nx\n";
    const std::string archive = vxTest::openArchive({{"a.init", "type = null\n"}, {"a.def", inputs.toStdString()}});
    const std::string licensed =
        vxTest::licensedArchive({{".OPdummydefs", vxTest::licensedArchive({{"b.parm", ""}}) +
                                                      "a dialog script of some length, as they all are"},
                                 {"a.parm", parameters.toStdString()}});
    return {{"parameters", parameters},
            {"nodeChannels", channels},
            {"takes", takes},
            {"archive", lines},
            {"archive", zeros(1) + QByteArray::fromStdString(archive)},
            {"archive", zeros(1) + QByteArray::fromStdString(licensed)}};
}

/// A driver network with every kind of way that leads to a driver, circles among them, and takes. Of the licensed kind:
/// its entries are found whatever their sizes become.
std::vector<_seed> networkSeeds() {
    struct _node {
        const char* path;
        const char* type;
        const char* inputs;  ///< parted by blanks
        QByteArray parameters;
    };
    const _node nodes[] = {
        {"out/last", "ifd", "all sub", "vm_picture=/i/$WEDGE/last.exr|trange=\"on\"|f=[ f1\t0 ] \t5\t1|camera=/obj/c"},
        {"out/all", "merge", "pair chosen all", ""},
        {"out/chosen", "switch", "one last", "index=1"},
        {"out/far", "fetch", "far", "source=../w"},
        {"out/sub", "subnet", "one", ""},
        {"out/sub/in", "ifd", "(0)", "vm_picture=/i/$FARM.$F4.exr|take=far"},
        {"out/one", "geometry", "far", "sopoutput=\"/c/`chs(\"../last/camera\")`.bgeo\""},
        {"out/pair", "ifd", "", "vm_picture=/i/p.exr|soho_outputmode=\"on\"|soho_diskfile=/x/p.ifd"},
        {"out/w", "wedge", "all", "prefix=p|driver=\"\"|wedgemethod=\"channel\"|name1=n|range1=0\t1|steps1=2"},
        {"out/r", "usdrender", "", "outputimage=\"\"|loppath=/stage/s"},
        {"stage/s", "karmarendersettings", "s", "picture=/i/s.exr"},
        {"obj/c", "cam", "", "res=10\t20"}};
    std::vector<vxTest::_entryText> entries{{".start", "fps 24\nfrange 1 9\n"},
                                            {".variables", "set -g ACTIVETAKE = 'Main'\n"}};
    for (const _node& node : nodes) {
        const std::string path = node.path;
        QByteArray inputs;
        int index = 0;
        for (const QByteArray& input : QByteArray(node.inputs).split(' '))
            if (!input.isEmpty()) inputs += QByteArray::number(index++) + " \t" + input + " 0 1\n";
        entries.push_back({path + ".init", std::string("type = ") + node.type + '\n'});
        entries.push_back({path + ".def", ("flags = bypass off\ninputs\n{\n" + inputs + "}\nend\n").toStdString()});
        entries.push_back({path + ".parm", ("{\n" + vxTest::params(node.parameters) + "}\n").toStdString()});
    }
    entries.push_back(
        {"out/last.chn", "{\nchannel f1 {\nsegment { length = 0 expr = ch(\\\"../w/steps1\\\") }\n}\n}\n"});
    const auto counted = [](const std::string& text) {
        return std::string("\0\0\0", 3) + static_cast<char>(text.size()) + text;
    };
    std::string takes = "HoudiniTakeFile 1.0\ntake name Main kids 1\n" + counted("e\n") + "take name far kids 0\n";
    for (const char* const name : {"s 0 /out/last\n", "s 1 vm_picture\n", "s 2 .flags.b\n", "s 3 /out/pair\n"})
        takes += counted(name);
    takes += counted("d 0 1\n" + counted("{\nvm_picture\t[ 0\tlocks=0 ]\t(\t/i/far.exr\t)\n}\n"));
    takes += counted("d 3 2\n" + counted("on")) + counted("e\n");
    entries.push_back({".takes", takes});
    return {{"resolvedLoad", QByteArray::fromStdString(vxTest::licensedArchive(entries))},
            {"resolvedLoad", QByteArray::fromStdString(vxTest::openArchive(entries))}};
}

void write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qUtf8Printable(path));
}

void writeSeeds(const QDir& folder, const std::vector<_seed>& seeds) {
    int number = 0;
    for (const _seed& seed : seeds) {
        const QString target = QLatin1String(seed.target);
        folder.mkpath(target);
        write(folder.filePath(target + QLatin1String("/seed") + QString::number(++number)), seed.input);
    }
}

/// Forms of variables and parts of names that no table of the readers holds.
constexpr QLatin1String notations[] = {QLatin1String{"$F4"},         QLatin1String{"${FF}"},
                                       QLatin1String{"$ACTIVETAKE"}, QLatin1String{"`chsop(\"take\")`"},
                                       QLatin1String{"$HIP"},        QLatin1String{"${OS}"},
                                       QLatin1String{"$AOV."},       QLatin1String{"$WEDGENUM"},
                                       QLatin1String{"${WEDGE}"},    QLatin1String{":r"},
                                       QLatin1String{"%04d"},        QLatin1String{"####"},
                                       QLatin1String{"../"},         QLatin1String{"<Channel>"},
                                       QLatin1String{"out/"},        QLatin1String{"obj/cam"},
                                       QLatin1String{"stage/"},      QLatin1String{"/karma"},
                                       QLatin1String{"/hdprman"},    QLatin1String{"/rendersettings"},
                                       QLatin1String{"out/wedge"},   QLatin1String{"\t(\t"},
                                       QLatin1String{"\t)\n"},       QLatin1String{" {\n"},
                                       QLatin1String{"}\n"},         QLatin1String{"\r"},
                                       QLatin1String{"channel"},     QLatin1String{"\xC5\xBF"},
                                       QLatin1String{"\xC2\xA0"},    QLatin1String{"chs("}};

QByteArray dictionary() {
    QList<QLatin1String> words;
    for (const _sectionKind& kind : sectionKinds())
        for (const QLatin1String name : kind.parameters()) words.append(name);
    for (const std::string_view text :
         {sectionSuffix, frameRangeCommand, saveVersionName, variableCommand, assignment, takeCommand})
        words.append(latin(text));
    for (const QLatin1String notation : notations) words.append(notation);
    QByteArray lines;
    for (const QLatin1String word : words) {
        lines += '"';
        for (const char letter : std::string_view(word.data(), static_cast<std::size_t>(word.size())))
            lines += "\\x" + QByteArray::number(static_cast<quint8>(letter), 16).rightJustified(2, '0');
        lines += "\"\n";
    }
    return lines;
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 3) return EXIT_FAILURE;
    const QDir folder(QString::fromLocal8Bit(arguments[1]));
    folder.mkpath(QStringLiteral("."));
    for (const auto& seeds : {sceneSeeds(scenes(folder.path(), arguments[2])), textSeeds(), treeSeeds(), networkSeeds(),
                              expressionSeeds(), recordSeeds()})
        writeSeeds(folder, seeds);
    write(folder.filePath(QStringLiteral("scene.dict")), dictionary());
    return EXIT_SUCCESS;
}
