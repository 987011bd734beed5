#include "resolve/frameGuard.h"

#include "jobs/recordImage.h"
#include "scan/scanState.h"

namespace vxP {

namespace {

constexpr QChar mark{u'$'};
constexpr QChar brace{u'{'};
constexpr QChar guard{u'\uFDD0'};  ///< a character that no text has

bool isNamePart(QChar character) {
    return character == QLatin1Char('_') || (character.unicode() < 128 && character.isLetterOrNumber());
}

QStringView nameAtStart(QStringView text) {
    _size end = 0;
    while (end < text.size() && isNamePart(text.at(end))) ++end;
    return text.left(end);
}

/// "FARM", not "F", "F4", "FF2", nor "F_v1", which people write for the frame.
bool isOtherVariable(QStringView name) {
    if (name.size() < 2 || name.at(0).toUpper() != QLatin1Char('F') || !name.at(1).isLetter()) return false;
    const bool isFraction = name.at(1).toUpper() == QLatin1Char('F') && (name.size() == 2 || !name.at(2).isLetter());
    return !isFraction && hVariables.valuesOf(name).isEmpty();
}

void remove(_vxString<1000>& text) {
    if (text.contains(QStringView(&guard, 1))) text = text.toQString().remove(guard);
}

}  // namespace

QString guardedFromFrames(const QString& name) {
    QString guarded = name;
    for (_size at = guarded.indexOf(mark); at >= 0; at = guarded.indexOf(mark, at + 1)) {
        const _size start = at + (QStringView(guarded).mid(at + 1).startsWith(brace) ? 2 : 1);
        if (isOtherVariable(nameAtStart(QStringView(guarded).mid(start)))) guarded.insert(start, guard);
    }
    return guarded;
}

void removeFrameGuards(vxJ::_JobBasics_largePath& job) {
    remove(job.imageDir);
    remove(job.imageFileName);
    const int end = vxJ::channelsEnd(job, vxJ::_writtenPages{});
    for (int slot = 0; slot < end; ++slot) remove(job.channels[slot].fileName);
}

}  // namespace vxP
