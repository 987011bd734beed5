// The job records that host and plug-in share in memory, and the array that holds them.
//
// A record holds no pointer; every text is an inline text of fixed capacity. Records may be copied byte for byte.
// Offsets and sizes are part of the binary interface; recordLayout.cpp states and checks every one of them. Members
// named reserved... fill the gaps between fields whose use belongs to the host; the plug-in only clears them.
#pragma once

#include <QString>
#include <QStringList>

#include "jobs/VX_DataTypes_jobs_defines.h"
#include "jobs/jobIDs.h"
#include "shared/vxEnvironment.h"
#include "shared/vxString.h"
#include "shared/vxString8.h"

namespace vxJ {

using vxS::_size;
using vxS::_varValList;
using vxS::_vxString;
using vxS::_vxString8_allSize;

// All fields are at even offsets, some wide ones not at a multiple of their own size.
#pragma pack(push, 2)

/// Scene settings of one job, 4988 bytes: frame range, frame set, and the custom data.
struct _JobSettingsScene {
    quint8 reservedHead[4];
    double seqStart;  ///< first frame
    double seqEnd;    ///< last frame
    quint8 reservedRange[8];
    _vxString8_allSize<150> seqFrameSet;  ///< explicit frame set
    quint16 seqStep;                      ///< frames from one rendered frame to the next
    quint8 reservedStep[4];
    qint32 customDataCount;      ///< entries
    qint32 customDataValuesEnd;  ///< byte in the block after the last value
    qint32 customDataNamesEnd;   ///< byte in the block after the name directory: start of the values
    quint8 customDataBlock[customDataBlockCapacity];
    _vxString<50> unnamedTexts[5];
    _vxString<100> unnamedText;
    quint8 reservedTail[52];

    // Custom data: a small store of named texts. Names compare without regard to case; the first match counts.
    // A value is stored with one byte a character, or two where a character is U+0100 or above; reading keeps the
    // low byte of each character only. The block comes from shared memory: a damaged one reads as empty texts.

    int customData_maxIDs() const { return customDataCount; }
    void customData_ClearAll();
    /// Name or value of entry `id`; empty for an `id` below 0 or not below the count, and in a damaged directory.
    QString customData_NameByID(int id) const;
    QString customData_StrByID(int id) const;
    QString customData_Str(const QString& name) const;
    bool customData_Contains(const QString& name) const;
    QString customData_UserInfo() const { return customData_Str(CUSTOMUserInfoName); }
    QString customData_CommentInfo() const { return customData_Str(CUSTOMCommentInfoName); }
    bool customData_ContainCommentInfo() const { return customData_Contains(CUSTOMCommentInfoName); }
    /// The bytes of all values, upper-cased, for a quick search in any letter case; empty when longer than 4999 bytes.
    _vxString8_allSize<5000> customData_allValuesAsBlock_Uppercase() const;
    /// True when the two 4000-byte blocks are equal byte for byte.
    bool customData_isEqual(const _JobSettingsScene* other) const;
    void customData_All(QStringList& names, QStringList& values) const;
    void customData_All(_varValList& list) const;
    /// One `name=value` line per entry, each ended by "\n".
    QString customData_AllAsString() const;

    /// Rebuilds the store from the pairs, as many as the shorter list has. When the running total of name length +
    /// value length + 5 (in characters) passes 3990, or the block is full (a two-byte value takes more bytes than it
    /// counts), that entry and all later ones are dropped. A name ends before a character whose low byte is 0.
    void customDataSet_All(const QStringList& names, const QStringList& values);
    void customDataSet_All(const _varValList& list);
    /// Replaces the value of every entry of that name, or appends one. An empty value deletes; the entry that moves
    /// into a deleted entry's place is passed over.
    void customDataSet_Str(const QString& name, const QString& value);
    /// Replaces or (empty value) deletes entry `id`; an `id` out of range changes nothing.
    void customDataSet_StrByID(int id, const QString& value);
    void customDataSet_UserInfo(const QString& value) { customDataSet_Str(CUSTOMUserInfoName, value); }
    void customDataSet_CommentInfo(const QString& value) { customDataSet_Str(CUSTOMCommentInfoName, value); }
    void customDataAppend_Str(const QString& name, const QString& more) {
        customDataSet_Str(name, customData_Str(name) + more);
    }
};

/// SHA-256 of a job's command password.
struct _passHash {
    quint8 bytes[32];
};
_passHash passHashOf(const _vxString8_allSize<40>& password);

/// The head common to all forms of a job, 3686 bytes.
struct _JobBasics_noSettings_noPaths {
    quint16 structureIDs[10];  ///< layout identification: 1033, 1, then zeros
    quint8 jobKind;            ///< 2 by default
    quint8 sceneOS;            ///< operating system of the scene, a number of the host's
    qint16 appVersionMajor;    ///< major version of the render application
    quint8 reservedVersion[4];
    _vxString<25> app;          ///< render application
    _vxString<25> appRenderer;  ///< renderer within it
    _vxString<25> unnamedApp;
    _vxString<15> appType;
    _vxString<15> appRendererVersion;
    _vxString8_allSize<15> appVersionMinor;
    _vxString<150> camera;
    _vxString<150> layer;    ///< path of the output driver
    _vxString<100> channel;  ///< main channel or take
    _vxString<100> sceneState;
    _vxString<100> unnamedState;
    _vxString<100> colorSpace;
    _vxString<200> unnamedLicense;
    _vxString<200> requiredLicenses;
    _vxString8_allSize<16> unnamedCode;
    quint16 imageWidth;   ///< pixels; 0: the camera's
    quint16 imageHeight;  ///< pixels; 0: the camera's
    quint8 reservedSize[1];
    bool imageSingleOutputFile;  ///< one file holds all frames
    quint8 reservedOutput[2];
    _vxString<15> imageFormatOverride;
    qint8 imageMulti;  ///< tiles or parts of the image
    quint8 reservedMulti[1];
    _vxString<10> unnamedList[30];
    _vxString<10> imageStereoL;
    _vxString<10> imageStereoM;
    _vxString<10> imageStereoR;
    quint8 reservedStereo[44];
    _vxString8_allSize<50> shotgunID;
    _vxString8_allSize<20> unnamedID;
    quint8 pnl;           ///< one character
    quint8 imagePadding;  ///< digits of the frame number in the image name, 4 by default
    _vxString8_allSize<20> unnamedPadding;
    quint8 preID;                                ///< the job's own number in its array
    quint8 waitForPreIDCount;                    ///< entries of `waitForPreIDs` in use
    quint8 waitForPreIDs[waitForPreIDCapacity];  ///< own numbers of the jobs this one waits for
    quint64 jobID;
    quint8 commandPasswordHash[32];
    quint8 reservedPaths[6];

    /// Writes the ten head words.
    void setStructureIDs();
    /// Adds a job to wait for; nothing happens when all places are taken.
    void addWaitForPreID(quint8 id);
    /// Sets entry `index`; the count grows to hold it. Outside 0 .. 31 nothing happens.
    void setWaitForPreID(int index, quint8 id);

    /// Keeps the password's hash, never its text.
    void setCommandPassword(const _vxString8_allSize<40>& password);
    bool isRightCommandPW(const _passHash& hash) const;

    /// Short and full letter code of the job's ID.
    QString IDstr() const { return vxJ::ID2str(jobID); }
    QString IDstrFull() const { return vxJ::ID2strFull(jobID); }
    QString ID2str() const { return IDstr(); }
    QString ID2strFull() const { return IDstrFull(); }
    /// Main number of the job's ID.
    quint32 IDmain() const { return _IDDecomp::fromID(jobID).stamp(); }
    /// The job's own number in its array.
    quint8 IDpre() const { return preID; }
};

/// The compact form without scene settings: paths of 500 and 250 characters, channels packed into one pool.
struct _JobBasics_noSettings : _JobBasics_noSettings_noPaths {
    _vxString<500> sceneName;
    _vxString<500> sceneDatabaseDir;
    _vxString<500> unnamedPath;
    _vxString<500> imageDir;
    _vxString<250> imageFileName;
    _vxString<250> unnamedFile;
    _vxString<25> imageExtension;
    quint8 reservedChannels[7];
    quint8 channelCount;                     ///< channels in use, 0 .. 100
    qint16 channelStart[channelCapacity];    ///< pool index of a channel's file name
    qint16 channelNameLen[channelCapacity];  ///< characters of its file name
    qint16 channelExtLen[channelCapacity];   ///< characters of its extension, which follows the name
    char16_t channelPool[channelPoolCapacity];
    quint16 channelPoolUsed;  ///< characters, at most 7999

    // Output channels: further files that the job writes. The store comes from shared memory; whatever its numbers
    // say, no operation reads or writes outside the pool.

    void channelClear();
    /// Zeroes the pool after the characters in use; the pool's last character stays as it is.
    void channelClearUnusedBuffer();
    /// Empty when there is no channel `i`, or its numbers do not fit the pool in use or 500 characters.
    _vxString<500> channelFileName(int i) const;
    _vxString<25> channelExtension(int i) const;
    /// Appends a channel. An empty name, a 101st channel, or one that the pool has no room for is ignored.
    void channelAdd(const _vxString<500>& name, const _vxString<25>& extension);
    /// Replaces a text of channel `i`. An empty text is ignored, so an extension can never be set to empty.
    void channelSetFileName(int i, const _vxString<500>& name);
    void channelSetExtension(int i, const _vxString<25>& extension);
    void channelSet(int i, const _vxString<500>& name, const _vxString<25>& extension);
    /// Moves each later channel one place down with the setters above: a channel with an empty extension takes over
    /// the older extension of its new place. The characters of the last place stay in the pool.
    void channelRemove(int i);
};

/// The compact form of a job, 30376 bytes.
struct _JobBasics : _JobBasics_noSettings {
    _JobSettingsScene sceneSettings;

    _JobBasics() { initialize(); }

    /// Zero bytes, the head words as they were, the defaults, and "<auto>" in three of the five unnamed texts.
    /// @return false, unlike the large-path form: hosts may rely on either
    bool vxClearBasics();
    void initialize();
    /// The job as a list of named variables; see jobVariables.h for the names.
    void exportJobVarList_Basic(_varValList& list) const;
    /// File name of the scene without folder and extension.
    QString getSceneDisplayName() const;
    /// Splits `imageFileName` as the large-path form does, at this form's capacities.
    void splitImageFileInto_DirFileExt(const bool& printfPadding);
    void splitImageFileInto_DirFileExt_Channel(const bool& printfPadding);
};

/// One extra output file of the large-path form, 2062 bytes; in use while its file name is not empty.
struct _channelSlot {
    _vxString<1000> fileName;
    _vxString<25> extension;
};

/// The large-path form without scene settings.
struct _JobBasics_noSettings_largePath : _JobBasics_noSettings_noPaths {
    _vxString<1000> sceneName;         ///< full path of the file that the job renders
    _vxString<1000> sceneDatabaseDir;  ///< project folder
    _vxString<1000> unnamedPath;
    _vxString<1000> imageDir;       ///< output folder
    _vxString<1000> imageFileName;  ///< output file name without folder, frame number and extension
    _vxString<1000> unnamedFile;
    _vxString<25> imageExtension;  ///< with its point
    quint8 reservedChannels[2];
    _channelSlot channels[channelCapacity];
};

/// The form that host and plug-in exchange: all paths with 1000 characters, 226968 bytes. Too large for a stack.
struct _JobBasics_largePath : _JobBasics_noSettings_largePath {
    _JobSettingsScene sceneSettings;

    _JobBasics_largePath() { initialize(); }

    /// Zero bytes, the head words as they were, then the defaults: job kind 2, padding 4, frames 1 to 1 step 1.
    /// @return true
    bool vxClearBasics();
    /// Head words, then `vxClearBasics`: a record of any content becomes a new one.
    void initialize();

    /// Fills a compact job. Texts are cut at its capacities; a channel that its pool has no room for is left out.
    void toJobsBasic(_JobBasics& target) const;
    /// Puts job variables in the place of their names in square brackets, in output folder, output file and the
    /// channels' files.
    void replaceSquareBracketVariables();
    /// Splits the output path in `imageFileName` into `imageDir`, `imageFileName`, `imageExtension`, `imagePadding`
    /// and `imageSingleOutputFile`; the channels before that. See splitImageFile.h.
    /// @param printfPadding  also recognise a frame number written as "%", digits, "d"
    void splitImageFileInto_DirFileExt(const bool& printfPadding);
    /// The same for the channel slots alone: folder and file go back into the slot's file name, the extension into
    /// its extension. The job's own flag and padding are not changed.
    void splitImageFileInto_DirFileExt_Channel(const bool& printfPadding);
};

#pragma pack(pop)

/// The host's job array: one heap block of records that grows by exactly one record. `getNewJob` may move the block:
/// fetch record pointers again with `at` afterwards. The block comes from malloc, so that either side can free it.
struct _JobBasicsArray {
    quint16 structureVersion;  ///< 1033
    quint16 structureMinor;    ///< 1
    _vxString<1000> message;   ///< submitter options of the whole submission
    quint8 reservedMessage[2];
    quint32 recordSize;          ///< bytes of one record: 226968
    qint32 count;                ///< jobs in use
    qint32 allocated;            ///< records in the block
    _JobBasics_largePath* jobs;  ///< the block; null while nothing is allocated

    _JobBasicsArray();
    ~_JobBasicsArray();
    _JobBasicsArray(const _JobBasicsArray&) = delete;
    _JobBasicsArray& operator=(const _JobBasicsArray&) = delete;

    /// No jobs, no message; the records stay allocated.
    void clear();
    /// Makes room for `n` records, the new ones initialised; never shrinks.
    /// @return true for any `n` that the block has room for already, below 0 as well; false when it has to grow above
    ///         16384 records or memory is short: an existing block is then kept
    bool setArraySize(int n);
    /// Record `i`; null when `i` is not below `allocated` (`count` is not looked at) or is negative.
    _JobBasics_largePath* at(const int& i) const;
    /// True when the layout is 1033 of at least this minor version and the records have this size.
    bool isVersionSupported(quint8 minor) const;
    /// Counts one job more and hands out its cleared record. @return false when there is no room; `count` has then
    /// grown all the same
    bool getNewJob(_JobBasics_largePath*& job);
};

}  // namespace vxJ
