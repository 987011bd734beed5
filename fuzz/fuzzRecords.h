// The texts of job records, to be read or checked one by one.
#pragma once

#include "fuzz/fuzzInput.h"
#include "jobs/VX_DataTypes_jobs0_Basics.h"

namespace vxFuzz {

using namespace vxJ;

/// Bytes of a record, also of one whose texts no longer are sound.
template <typename Record>
std::span<quint8> bytesOf(Record& record) {
    return {reinterpret_cast<quint8*>(&record), sizeof record};
}

/// Overwrites places of a job. The flag is no text and no number: it is 0 or 1 in any record.
template <typename Job>
void patchJob(_input& input, Job& job) {
    input.patch(bytesOf(job));
    bytesOf(job.imageSingleOutputFile)[0] &= 1;
}

template <typename Text>
void expectReadable(const Text& text) {
    expect(text.length() <= text.capacity(), "no text is longer than its capacity");
    expect(text.toQString().size() == text.length(), "a text reads as long as it says");
}

/// Also the length word and the terminator are as the plug-in writes them.
template <typename Text, std::size_t head, std::size_t unit>
void expectWritten(const Text& text) {
    const auto* const bytes = reinterpret_cast<const quint8*>(&text);
    quint16 length = 0;
    std::memcpy(&length, bytes, sizeof length);
    expect(length <= text.capacity(), "no length word is above the capacity");
    expect(bytes[head + unit * length] == 0, "a 0 character ends a text");
    expectReadable(text);
}
template <quint16 Capacity>
void expectSound(const _vxString<Capacity>& text) {
    expectWritten<_vxString<Capacity>, 4, 2>(text);
}
template <quint16 Capacity>
void expectSound(const _vxString8_allSize<Capacity>& text) {
    expectWritten<_vxString8_allSize<Capacity>, 2, 1>(text);
}

/// Calls `visit` for every text of a job but its channels.
template <typename Job, typename Visit>
void forEachText(const Job& job, Visit visit) {
    const auto each = [&](const auto&... texts) { (visit(texts), ...); };
    const auto eachOf = [&](const auto& texts) {
        for (const auto& text : texts) visit(text);
    };
    each(job.app, job.appRenderer, job.unnamedApp, job.appType, job.appRendererVersion, job.appVersionMinor, job.camera,
         job.layer, job.channel, job.sceneState, job.unnamedState, job.colorSpace, job.unnamedLicense,
         job.requiredLicenses, job.unnamedCode, job.imageFormatOverride, job.imageStereoL, job.imageStereoM,
         job.imageStereoR, job.shotgunID, job.unnamedID, job.unnamedPadding);
    each(job.sceneName, job.sceneDatabaseDir, job.unnamedPath, job.imageDir, job.imageFileName, job.unnamedFile,
         job.imageExtension);
    each(job.sceneSettings.seqFrameSet, job.sceneSettings.unnamedText);
    eachOf(job.unnamedList);
    eachOf(job.sceneSettings.unnamedTexts);
}

}  // namespace vxFuzz
