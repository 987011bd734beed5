#include "drivers/aovFiles.h"

#include "grammar/imageOutVars.h"
#include "grammar/markedText.h"
#include "grammar/nameText.h"
#include "grammar/paramSection.h"
#include "shared/vxPath.h"

namespace vxP {

namespace {

/// Where the values of a family's parameters go.
struct _aovFamily {
    QLatin1String name;
    QString _aovSlot::*part;
    QString (*valueOf)(const QString& line);
    bool keepsOldWhenEmpty;
};

QString outerUnquoted(const QString& line) {
    return withoutOuterQuotes(parenthesised(line));
}
QString unquotedAsItIs(const QString& line) {
    return parenthesised(line).remove(QLatin1Char('"'));
}

constexpr std::array aovFamilies{
    _aovFamily{aovSeparateFile, &_aovSlot::fileName, unquoted, true},
    _aovFamily{aovCustomPrefix, &_aovSlot::prefix, outerUnquoted, false},
    _aovFamily{aovSuffix, &_aovSlot::suffix, outerUnquoted, false},
    _aovFamily{aovFileFormat, &_aovSlot::fileFormat, unquotedAsItIs, false},
};

constexpr QLatin1String aovToken{"$AOV"};
constexpr QLatin1String sceneFolder{"$HIP"};
constexpr QLatin1String frameVariable{"$F"};

/// Slot number between the family's name and the TAB; 0 when it is none of 1 .. 19.
int slotOf(const QString& line, const _aovFamily& family) {
    const qint32 slot = integerOf(parameterName(line).mid(family.name.size()));
    return slot >= 1 && slot < aovSlotCount ? slot : 0;
}

void joinParts(_aovSlot& slot, const QString& imageName) {
    if (slot.prefix.isEmpty() && slot.suffix.isEmpty()) return;
    const bool hasToken = holds(imageName, aovToken) || holds(slot.prefix, aovToken);
    if (slot.prefix.isEmpty())
        slot.prefix = vxS::vxGetDirName(imageName, u'/') + vxS::vxGetFileNameBase(imageName, u'/');
    if (hasToken) {
        slot.fileName = slot.prefix + slot.fileFormat;
        replaceInName(slot.fileName, aovToken, slot.suffix, Qt::CaseSensitive);
    } else {
        slot.fileName = slot.prefix + QLatin1Char('.') + slot.suffix + slot.fileFormat;
    }
    spendWork(passNameCost, slot.fileName.size());
    slot.prefix.clear();
    slot.suffix.clear();
    slot.fileFormat.clear();
}

}  // namespace

bool readAovParameter(std::array<_aovSlot, aovSlotCount>& slots, const QString& line) {
    for (const auto& family : aovFamilies) {
        if (!isNamed(line, family.name)) continue;
        const int slot = slotOf(line, family);
        if (slot == 0) return false;
        const QString value = family.valueOf(line);
        if (holds(value, sceneFolder, Qt::CaseInsensitive)) HIPFound_DisableLocalScene = true;
        if (!value.isEmpty() || !family.keepsOldWhenEmpty) slots[static_cast<std::size_t>(slot)].*family.part = value;
        return true;
    }
    return false;
}

void assembleAovFileNames(std::array<_aovSlot, aovSlotCount>& slots, const QString& imageName) {
    for (_aovSlot& slot : slots) {
        joinParts(slot, imageName);
        convertFrameVariable(slot.fileName, frameVariable);
    }
}

}  // namespace vxP
