// What an explanation may use up beside the load that it explains. Whatever a scene holds, it is explained in a time
// that its size explains and in little memory; what goes beyond is left out and counted.
#pragma once

#include <QString>
#include <algorithm>

#include "scan/scanBudget.h"
#include "shared/vxString.h"

namespace vxE {

/// An amount that is taken from bit by bit.
class _share {
 public:
    constexpr explicit _share(qint64 amount) : left(amount) {}

    /// @param amount  negative: given back
    /// @return false where that much is not left; then nothing is taken
    bool take(qint64 amount) {
        if (amount > left) return false;
        left -= amount;
        return true;
    }
    qint64 rest() const { return left; }

 private:
    qint64 left;
};

struct _explanationBudget {
    // Work, in steps of about a nanosecond: counted, so that an explanation never depends on the machine.
    _share surveySteps{500'000'000};
    qint64 surveyStepsPerByte = 7;  ///< more, for each byte of the scene
    _share warningSteps{300'000'000};

    // Bytes that are kept, the entries of the explanation and what leads to them.
    _share factBytes{qint64{8} * 1024 * 1024};
    _share sectionBytes{qint64{40} * 1024 * 1024};
    _share warningBytes{qint64{16} * 1024 * 1024};
};

/// Bytes that count for any entry of the explanation beside its texts: for itself and for what is made of it.
constexpr qint64 bytesPerEntry = 512;

/// Characters of a text out of the scene that are kept: enough for any name that a record can hold.
constexpr vxS::_size longestText = 2000;

/// A copy of its own, so that no longer text stays with it.
inline QString shortened(const QString& text) {
    return QString(text.constData(), std::min(text.size(), longestText));
}

}  // namespace vxE
