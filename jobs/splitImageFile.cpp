#include "jobs/splitImageFile.h"

#include <algorithm>
#include <array>

#include "shared/vxNumber.h"
#include "shared/vxPath.h"

namespace vxJ {

namespace {

constexpr QChar slash{u'/'};
constexpr QChar backslash{u'\\'};
constexpr QChar hash{u'#'};
constexpr std::array separators{backslash, slash};  // the order in which runs of them are collapsed

constexpr QLatin1String sceneFolderMarker{"<SceneFolder>"};
constexpr QLatin1String databaseMarker{"<Database>"};
constexpr int shortestSceneFolder = 11;
constexpr int sceneParentLevels = 3;
constexpr quint16 extensionCapacity = 25;

/// From the first of these on, a separator belongs to the text of a variable and not to a folder.
constexpr std::array fileVariables{
    QLatin1String{"<Layer>"},   QLatin1String{"<Channel"},   QLatin1String{"<Camera>"},
    QLatin1String{"userpass>"}, QLatin1String{"<removeVar"}, QLatin1String{"<ValueVar"},
};

/// Formats that hold all frames in one file.
constexpr std::array movieExtensions{
    QLatin1String{".AVI"},  QLatin1String{".MOV"}, QLatin1String{".WMV"}, QLatin1String{".DV"},   QLatin1String{".FLV"},
    QLatin1String{".MPEG"}, QLatin1String{".MPG"}, QLatin1String{".MP4"}, QLatin1String{".MPE"},  QLatin1String{".OMF"},
    QLatin1String{".OMFI"}, QLatin1String{".MXF"}, QLatin1String{".WMA"}, QLatin1String{".WAV"},  QLatin1String{".MP3"},
    QLatin1String{".VOB"},  QLatin1String{".ASF"}, QLatin1String{".SWF"}, QLatin1String{".SWFT"}, QLatin1String{".SVG"},
};
constexpr QLatin1String oneFileSceneExtension{".VRSCENE"};  // one file, unless its name has a frame number
/// Formats with a time axis, which hold all frames or one.
constexpr std::array timedExtensions{QLatin1String{".ABC"},  QLatin1String{".USD"},  QLatin1String{".USDA"},
                                     QLatin1String{".USDC"}, QLatin1String{".USDZ"}, QLatin1String{".FBX"},
                                     oneFileSceneExtension};
constexpr QLatin1String unparsedEnding{".file"};

/// The texts of a split in progress. `dir` and `file` never get longer than their capacities.
struct _imageName {
    quint16 dirCapacity;
    quint16 fileCapacity;
    QString file;
    QString dir;
    QString ext;
    bool singleOutput;
    quint8 padding;
    QString database;
    QString scene;
    QChar separator = slash;

    void setFile(const QString& text) { file = text.left(fileCapacity); }
    void setDir(const QString& text) { dir = text.left(dirCapacity); }
    void setExt(const QString& text) { ext = text.left(extensionCapacity); }
};

void useOneSeparator(_imageName& name) {
    const auto* const first =
        std::find_if(name.file.cbegin(), name.file.cend(), [](QChar c) { return c == slash || c == backslash; });
    const bool backward = first != name.file.cend() && *first == backslash;
    name.separator = backward ? backslash : slash;
    for (QString* text : {&name.file, &name.dir, &name.scene, &name.database})
        text->replace(backward ? slash : backslash, name.separator);
}

/// Gives every run of a character another length.
/// @param lengthOf  `_size(_size start, _size length)`, the new length of a run
template <typename LengthOf>
void changeRuns(QString& text, QChar character, LengthOf lengthOf) {
    QString changed;
    _size copied = 0;
    for (_size start = text.indexOf(character); start >= 0; start = text.indexOf(character, copied)) {
        changed += QStringView(text).mid(copied, start - copied);
        copied = start;
        while (copied < text.size() && text.at(copied) == character) ++copied;
        changed += QString(lengthOf(start, copied - start), character);
    }
    text = changed += QStringView(text).mid(copied);
}

/// What is left of a run of four or more when half of each four is removed.
_size halved(_size length) {
    return 2 + length % 2;
}

void halveQuadBackslashes(QString& text) {
    if (!text.contains(QString(4, backslash))) return;
    changeRuns(text, backslash, [](_size, _size length) { return length < 4 ? length : halved(length); });
}

/// As long as there is a run of four, the first pair of the text is removed, which may lie before that run.
void halveQuadSlashes(QString& text) {
    const _size lastFour = text.lastIndexOf(QString(4, slash));
    if (lastFour < 0) return;
    changeRuns(text, slash, [&](_size start, _size length) {
        if (start > lastFour) return length;
        return start + length > lastFour ? halved(length) : length % 2;
    });
}

/// Leaves a pair at the very beginning, as of a network share.
void collapsePairs(QString& text) {
    for (const QChar separator : separators)
        if (text.indexOf(QString(2, separator), 1) >= 0)
            changeRuns(text, separator,
                       [](_size start, _size length) { return std::min<_size>(length, start == 0 ? 2 : 1); });
}

void collapseFile(_imageName& name) {
    halveQuadBackslashes(name.file);
    halveQuadSlashes(name.file);
    collapsePairs(name.file);
}

void resolveFile(_imageName& name) {
    name.setFile(vxS::vxPathResolve(name.file));
}

/// Position of the first variable, or -1, which a backward search takes as the end of the text.
_size firstVariable(const QString& file) {
    _size first = -1;
    for (const QLatin1String variable : fileVariables) {
        const _size at = file.indexOf(variable);
        if (at >= 0 && (first < 0 || at < first)) first = at;
    }
    return first;
}

void splitFolder(_imageName& name) {
    if (!name.dir.isEmpty()) return;
    const _size length = name.file.lastIndexOf(name.separator, firstVariable(name.file)) + 1;
    name.setDir(name.file.left(length));
    name.file.remove(0, length);
}

/// "C:folder" names a folder below the root as well.
void completeDrive(_imageName& name) {
    if (name.dir.size() > 3 && name.dir.at(1) == QLatin1Char(':') && name.dir.at(2) != name.separator)
        name.setDir(QString(name.dir).insert(2, name.separator));
}

bool parsePrintfNumber(_imageName& name) {
    const QString whole = name.file;
    const _size percent = whole.lastIndexOf(QLatin1Char('%'));
    if (percent < 0 || percent > whole.lastIndexOf(QLatin1Char('d'))) return false;
    const _size letter = whole.indexOf(QLatin1Char('d'), percent);
    const auto digits = static_cast<quint8>(vxS::wholeNumber(whole.mid(percent + 1, letter - percent - 1)));
    name.file = whole.left(percent);
    name.setExt(whole.mid(letter + 1).remove(hash));
    name.padding = digits == 0 ? quint8{1} : digits;
    return true;
}

bool parseHashNumber(_imageName& name) {
    if (!name.file.contains(hash)) return false;
    const QString whole =
        QString(name.file).replace(QLatin1String("[#"), QString(hash)).replace(QLatin1String("#]"), QString(hash));
    const _size start = whole.indexOf(hash);
    _size end = start;
    while (end < whole.size() && whole.at(end) == hash) ++end;
    name.file = whole.left(start);
    name.setExt(whole.mid(end));
    name.padding = static_cast<quint8>(end - start);
    return true;
}

bool isDigit(QChar character) {
    return character >= QLatin1Char('0') && character <= QLatin1Char('9');
}

/// The plain digits in front of the extension go too, but say nothing about the padding.
void parsePlainExtension(_imageName& name) {
    const _size point = name.file.lastIndexOf(QLatin1Char('.'));
    if (point < 0) return;
    name.setExt(name.file.mid(point));
    name.file.truncate(point);
    while (name.file.size() > 1 && isDigit(name.file.back())) name.file.chop(1);
}

/// @return true when the name holds a placeholder of the frame number
bool parseName(_imageName& name, bool printfPadding) {
    if (printfPadding && parsePrintfNumber(name)) return true;
    if (parseHashNumber(name)) return true;
    parsePlainExtension(name);
    return false;
}

bool isMovie(const QString& ext) {
    const QString upper = ext.toUpper();
    return std::any_of(movieExtensions.begin(), movieExtensions.end(),
                       [&](QLatin1String movie) { return upper == movie; });
}

void splitExtension(_imageName& name, bool printfPadding) {
    const QString whole = name.file + name.ext;
    if (name.singleOutput) {
        name.setFile(whole);
        name.ext.clear();
        return;
    }
    const bool extensionKnown = !name.ext.isEmpty();
    const bool parsed = !extensionKnown && !name.file.endsWith(unparsedEnding);
    const bool numbered = parsed && parseName(name, printfPadding);
    const bool oneFileScene = !numbered && !extensionKnown && name.ext.toUpper() == oneFileSceneExtension;
    if (isMovie(name.ext) || oneFileScene) {
        name.setFile(whole);
        name.ext.clear();
        name.singleOutput = true;
    } else if (name.file.endsWith(name.ext, Qt::CaseInsensitive)) {
        name.file.chop(name.ext.size());
    }
}

bool replaceSceneFolder(_imageName& name, const QString& folder, const QString& marker) {
    if (folder.size() < shortestSceneFolder || !name.dir.startsWith(folder)) return false;
    name.setDir(QString(name.dir).replace(folder, marker));
    return true;
}

void markSceneFolder(_imageName& name) {
    replaceSceneFolder(name, vxS::vxGetDirName(name.scene, name.separator), sceneFolderMarker);
}

/// The prefix ends with a slash whatever the separator is: a project folder with backslashes never matches.
void markDatabase(_imageName& name) {
    if (name.database.isEmpty()) return;
    const QString prefix = name.database.endsWith(slash) ? name.database : name.database + slash;
    if (name.dir.startsWith(prefix)) name.setDir(QString(name.dir).replace(name.database, databaseMarker));
}

void markSceneParents(_imageName& name) {
    QString folder = vxS::vxGetDirName(name.scene, name.separator);
    QString marker = sceneFolderMarker;
    for (int level = 0; level < sceneParentLevels; ++level) {
        folder = vxS::vxGetDirName(folder, name.separator);
        marker += QLatin1String("..") + name.separator;
        if (replaceSceneFolder(name, folder, marker)) return;
    }
}

void tidyFolder(_imageName& name) {
    halveQuadBackslashes(name.dir);
    collapsePairs(name.dir);
    if (!name.dir.isEmpty() && !name.dir.endsWith(name.separator)) name.setDir(name.dir + name.separator);
}

void splitImageName(_imageName& name, bool printfPadding) {
    useOneSeparator(name);
    collapseFile(name);
    resolveFile(name);
    splitFolder(name);
    completeDrive(name);
    splitExtension(name, printfPadding);
    markSceneFolder(name);
    markDatabase(name);
    markSceneParents(name);
    tidyFolder(name);
}

/// Splits the path of one channel. @return folder and file in one, as a channel has no field for its folder
template <quint16 A, quint16 B, class Job>
_vxString<A> splitChannel(const bool& printfPadding, const Job& job, _vxString<B> file, _vxString<25>& ext) {
    _vxString<A> path;
    bool singleOutput = job.imageSingleOutputFile;
    unsigned char padding = job.imagePadding;
    template_splitImageFileInto_DirFileExt(printfPadding, file, path, ext, singleOutput, padding, job.sceneDatabaseDir,
                                           job.sceneName);
    path.append(file.view());
    return path;
}

template <class Job>
void splitMainImage(const bool& printfPadding, Job& job) {
    job.splitImageFileInto_DirFileExt_Channel(printfPadding);
    template_splitImageFileInto_DirFileExt(printfPadding, job.imageFileName, job.imageDir, job.imageExtension,
                                           job.imageSingleOutputFile, job.imagePadding, job.sceneDatabaseDir,
                                           job.sceneName);
}

}  // namespace

template <quint16 A, quint16 B>
void template_splitImageFileInto_DirFileExt(const bool& printfPadding, _vxString<B>& file, _vxString<A>& dir,
                                            _vxString<25>& ext, bool& singleOutput, unsigned char& padding,
                                            _vxString<A> database, _vxString<A> scene) {
    _imageName name{A,
                    B,
                    file.toQString(),
                    dir.toQString(),
                    ext.toQString(),
                    singleOutput,
                    padding,
                    database.toQString(),
                    scene.toQString()};
    splitImageName(name, printfPadding);
    file = name.file;
    dir = name.dir;
    ext = name.ext;
    singleOutput = name.singleOutput;
    padding = name.padding;
}

template void template_splitImageFileInto_DirFileExt(const bool&, _vxString<250>&, _vxString<500>&, _vxString<25>&,
                                                     bool&, unsigned char&, _vxString<500>, _vxString<500>);
template void template_splitImageFileInto_DirFileExt(const bool&, _vxString<500>&, _vxString<500>&, _vxString<25>&,
                                                     bool&, unsigned char&, _vxString<500>, _vxString<500>);
template void template_splitImageFileInto_DirFileExt(const bool&, _vxString<1000>&, _vxString<1000>&, _vxString<25>&,
                                                     bool&, unsigned char&, _vxString<1000>, _vxString<1000>);

bool holdsAllFrames(const QString& fileName) {
    const QString ext = fileName.mid(fileName.lastIndexOf(QLatin1Char('.')));
    return isMovie(ext) ||
           std::find(timedExtensions.begin(), timedExtensions.end(), ext.toUpper()) != timedExtensions.end();
}

void _JobBasics_largePath::splitImageFileInto_DirFileExt(const bool& printfPadding) {
    splitMainImage(printfPadding, *this);
}

void _JobBasics_largePath::splitImageFileInto_DirFileExt_Channel(const bool& printfPadding) {
    for (_channelSlot& slot : channels)
        if (!slot.fileName.isEmpty())
            slot.fileName = splitChannel<1000>(printfPadding, *this, slot.fileName, slot.extension).view();
}

void _JobBasics::splitImageFileInto_DirFileExt(const bool& printfPadding) {
    splitMainImage(printfPadding, *this);
}

void _JobBasics::splitImageFileInto_DirFileExt_Channel(const bool& printfPadding) {
    for (int i = 0; i < channelCapacity; ++i) {
        const _vxString<250> file(channelFileName(i).view());
        if (file.isEmpty()) continue;
        _vxString<25> ext = channelExtension(i);
        const _vxString<500> path = splitChannel<500>(printfPadding, *this, file, ext);
        channelSet(i, path, ext);
    }
}

}  // namespace vxJ
