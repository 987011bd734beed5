#include "jobs/jobIDs.h"

#include <bit>
#include <cstring>
#include <string_view>

namespace vxJ {

namespace {

constexpr std::string_view ID_letters{"ABCDEFGHJKLMNOPQRSTUVWXYZ123456789+-"};  // no "I", no "0"
constexpr std::string_view ID_letters_small{"abcdefghjklnopqrstuvwxyz"};        // no "i", no "m"

constexpr quint32 stampUnit = 10000;
constexpr quint32 base = ID_letters.size();
constexpr quint32 smallBase = ID_letters_small.size();
static_assert(base == 36 && smallBase == 24);
constexpr quint32 remainderUnit = 7;

QChar letter(quint32 digit) {
    return QLatin1Char(ID_letters[digit % base]);
}

QChar smallLetter(quint32 digit) {
    return QLatin1Char(ID_letters_small[digit % smallBase]);
}

QString threeLetters(quint32 number) {
    return QString(letter(number / (base * base))) + letter(number / base) + letter(number);
}

QString variantLetters(quint8 variantNo) {
    if (variantNo == 0) return {};
    const quint32 variant = variantNo - 1U;
    const QString last(smallLetter(variant));
    return variant / smallBase == 0 ? last : smallLetter(variant / smallBase) + last;
}

}  // namespace

_IDDecomp _IDDecomp::fromID(quint64 id) {
    return std::bit_cast<_IDDecomp>(id);
}

quint32 _IDDecomp::stamp() const {
    quint32 number = 0;
    std::memcpy(&number, stampBytes, sizeof number);
    return number;
}

void _IDDecomp::setStamp(quint32 stamp) {
    std::memcpy(stampBytes, &stamp, sizeof stamp);
}

QString _IDDecomp::str() const {
    const QString variant = variantNo == 0 ? QStringLiteral(" ") : variantLetters(variantNo);
    return QLatin1Char('{') + threeLetters(stamp() / stampUnit) + variant + QLatin1Char('}');
}

QString _IDDecomp::strFull() const {
    const quint32 rest = stamp() % stampUnit / remainderUnit;
    return threeLetters(stamp() / stampUnit) + variantLetters(variantNo) + QLatin1Char('_') + letter(rest / base) +
           letter(rest) + letter(extraB) + letter(extraA);
}

_IDShort _IDShort::fromIDDecomp(const _IDDecomp& id) {
    const quint32 number = id.stamp() / stampUnit;
    return {id.variantNo, static_cast<quint16>(number), static_cast<quint8>(number >> 16)};
}

_IDShort _IDShort::fromID(quint64 id) {
    return fromIDDecomp(_IDDecomp::fromID(id));
}

_IDShort _IDShort::fromInt32(quint32 packed) {
    return {static_cast<quint8>(packed), static_cast<quint16>(packed >> 8), static_cast<quint8>(packed >> 24)};
}

quint32 _IDShort::int32() const {
    return (quint32{stampHigh} << 24) + (quint32{stampLow} << 8) + variantNo;
}

QString _IDShort::str() const {
    _IDDecomp id;
    id.variantNo = variantNo;
    id.setStamp(((quint32{stampHigh} << 16) + stampLow) * stampUnit);
    return id.str();
}

QString ID2str(quint64 id) {
    return _IDDecomp::fromID(id).str();
}

QString ID2strFull(quint64 id) {
    return _IDDecomp::fromID(id).strFull();
}

}  // namespace vxJ
