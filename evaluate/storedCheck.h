// Holds computed values against those that the scene stored when it was saved.
#pragma once

#include <QLatin1String>
#include <QtGlobal>
#include <array>
#include <functional>
#include <map>
#include <string>

#include "evaluate/evaluator.h"

namespace vxV {

/// What a stored value says of a computed one.
enum class _verdict : quint8 {
    agrees,
    otherFrame,    ///< it was computed at another frame
    otherPlace,    ///< it is a path, computed where the scene lay in another folder or had another name
    notEvaluated,  ///< stored is what a channel has before its first evaluation
    earlier,       ///< a channel that hands on the same value has the computed one: stored is of an earlier state
    stamped,       ///< stored is what a copying gave last
    differs,
    noValue,  ///< there is no computed value
};
constexpr std::size_t verdictCount = 8;
QLatin1String nameOf(_verdict verdict);

/// One channel that drives a component.
struct _checkedChannel {
    vxN::_node node;
    std::string_view channel;
    std::string_view expression;  ///< of the first segment
    std::string_view stored;
    _valueOutcome computed;
    _verdict verdict;
};

struct _storedCounts {
    qint64 pairs = 0;  ///< channels with a stored value
    std::array<qint64, verdictCount> verdicts{};
    std::map<_reason, qint64> reasons;

    qint64 of(_verdict verdict) const { return verdicts[static_cast<std::size_t>(verdict)]; }
    qint64 evaluated() const { return pairs - of(_verdict::noValue); }
    /// Those whose stored value was computed at the frame and in the state that the scene was saved in.
    qint64 judged() const { return of(_verdict::agrees) + of(_verdict::differs); }
    _storedCounts& operator+=(const _storedCounts& other);
};

/// Compares all channels of a scene, with the scene's place as it was saved. A stored value is that of the last
/// evaluation, whenever that was; the verdicts tell what can be made of that.
/// @param source  of the scene
/// @param tell  gets every channel, in the order of the scene; may be empty
/// Throws `_budgetExceeded`.
_storedCounts checkStoredValues(const vxN::_scene& scene, const vxN::_byteSource& source,
                                const std::function<void(const _checkedChannel&)>& tell);

}  // namespace vxV
