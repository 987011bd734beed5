// The 64-bit ID of a job, taken apart, and the letter codes by which people know it.
#pragma once

#include <QString>

namespace vxJ {

/// An ID as its 8 bytes in memory order.
struct _IDDecomp {
    quint8 variantNo = 0;  ///< 0: none; shown as one or two small letters
    quint8 extraA = 0;     ///< shown only in the full form
    quint8 extraB = 0;     ///< shown only in the full form
    quint8 stampBytes[4] = {};
    quint8 notShown = 0;

    static _IDDecomp fromID(quint64 id);
    /// Main number: its ten thousands are shown in both forms, the rest in the full form.
    quint32 stamp() const;
    void setStamp(quint32 stamp);
    /// Short form, for lists: `{ABBa}`; a blank stands for no variant. Wraps at 46656 ten thousands.
    QString str() const;
    /// Full form, for exact reference: `ABBa_AAAA`.
    QString strFull() const;
};
static_assert(sizeof(_IDDecomp) == 8);

/// An ID reduced to 32 bits, in memory too: variant and main number / 10000.
#pragma pack(push, 1)
struct _IDShort {
    quint8 variantNo = 0;
    quint16 stampLow = 0;  ///< low 16 bits of the main number / 10000
    quint8 stampHigh = 0;  ///< the bits above

    static _IDShort fromIDDecomp(const _IDDecomp& id);
    static _IDShort fromID(quint64 id);
    static _IDShort fromInt32(quint32 packed);
    quint32 int32() const;
    /// Short form of the ID that these parts make.
    QString str() const;
};
#pragma pack(pop)
static_assert(sizeof(_IDShort) == 4);

/// Short and full form of a 64-bit ID.
QString ID2str(quint64 id);
QString ID2strFull(quint64 id);

}  // namespace vxJ
