// Writes what the fuzz targets start from: a folder of seeds for each target, and the dictionary of scene texts.
// Usage: makeSeeds FOLDER EXAMPLE_SCENE
#include <QDir>
#include <QFile>
#include <cstddef>

#include "bench/sceneGenerator.h"
#include "input/sceneTexts.h"
#include "input/sectionKinds.h"
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

std::vector<QByteArray> shortScenes() {
    const QByteArray start =
        "fps 24\nfrange 1001 1100\nset -g _HIP_SAVEVERSION = '19.5.640'\nset -g JOB = '/projects/kettle'\n"
        "set -g SHOT = '$JOB/tt010'\n";
    const QByteArray image = "trange=\"normal\"|f=[ f1\t1 ] \t[ f2\t24 ] \t2|vm_picture=\"$HIP/$SHOT/$OS.$F4.exr\"|";
    return {
        start + driver(image + "camera=/obj/cam1|take=_current_|res_override=640\t480", "out/mantra1") +
            vxTest::section("obj/stereocam1", {{"res", "1920\t1080"}}) + "take name Main\ntake name wide\n",
        start + driver(image + "soho_outputmode=\"on\"|soho_diskfile=\"$HIP/${OS}.$F4.ifd\"", "out/a_sim_") +
            driver("ar_picture=$HIP/a.$FF.exr|ar_ass_export_enable=on|ar_ass_file=a.ass|"
                   "ar_aov_separate_file1=$HIP/z.$F.exr",
                   "obj/geo1/arnold1"),
        driver("vm_picture=/i/$OS_${WEDGE}_$WEDGENUM.exr", "out/light") +
            driver("prefix=key|driver=../light|wedgemethod=channel|name1=amount|steps1=3|range1=0\t1|name2=b|"
                   "steps2=2|range2=1\t,5",
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
    for (const QByteArray& scene : scenes) {
        seeds.push_back({"load", scene});
        seeds.push_back({"explained", scene});
        seeds.push_back({"loadTwice", twoScenes(*before, scene)});
        seeds.push_back({"sceneDevice", zeros(1) + '\5' + scene});
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
    const QByteArray nearlyFull =
        place(0, "\2", 0) + place(1 + 3 * 2 * vxJ::channelCapacity + 2 * vxJ::channelPoolCapacity, "\x36\x1F", 0);
    return {
        {"customData",
         place(store, number(2) + number(22) + number(17), 0) + place(block, entries, 0) + noMorePlaces + changes},
        {"customData", noMorePlaces + changes},
        {"channels", noMorePlaces + channelChanges + QByteArray("\4\0\n\n\5\0\n\n", 8)},
        {"channels", nearlyFull + noMorePlaces + channelChanges},
        {"compactForm", jobTexts + paths + channels},
        {"jobVariables", jobTexts + paths + channels},
        {"fixedStrings", zeros(1) + place(0, "abc") + noMorePlaces + QByteArray("\1\1\0\0\0\2x\0y\0", 10)},
        {"fixedStrings", QByteArray("\2") +
                             place(0,
                                   QByteArray("\xFF\xFF"
                                              "abcABC"),
                                   0) +
                             noMorePlaces + QByteArray("\0\0\0\0\0\6AbcabC\7\0\0\0\0\2BC\3xyz\10\0\0\0\0\1x", 30)},
    };
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
    for (const auto& seeds : {sceneSeeds(scenes(folder.path(), arguments[2])), textSeeds(), recordSeeds()})
        writeSeeds(folder, seeds);
    write(folder.filePath(QStringLiteral("scene.dict")), dictionary());
    return EXIT_SUCCESS;
}
