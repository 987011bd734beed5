#include "plugin/wedgeNames.h"

#include <array>

#include "jobs/renderers.h"
#include "scan/scanBudget.h"

namespace vxP {

namespace {

using vxS::_vxString;

/// What replaces a placeholder.
struct _variant {
    std::optional<QString> number;
    std::optional<QString> name;
};

struct _wedgePlaceholder {
    QStringView text;
    std::optional<QString> _variant::*part;
};

constexpr std::array wedgePlaceholders{
    // a longer one comes before the one that it begins with
    _wedgePlaceholder{u"${WEDGENUM}", &_variant::number},
    _wedgePlaceholder{u"$WEDGENUM", &_variant::number},
    _wedgePlaceholder{u"${WEDGE}", &_variant::name},
    _wedgePlaceholder{u"$WEDGE", &_variant::name},
};

bool replacePlaceholders(_vxString<1000>& text, const _variant& variant) {
    spendWork(wedgeNameCost, text.length());
    bool found = false;
    for (const auto& placeholder : wedgePlaceholders) {
        const std::optional<QString>& known = variant.*placeholder.part;
        if (!known || !text.contains(placeholder.text)) continue;
        text.replaceCaseSen(placeholder.text, *known);
        found = true;
    }
    return found;
}

/// Calls `change` for every name of the job that may hold a placeholder.
template <typename Change>
void forEachName(vxJ::_JobBasics_largePath& job, int channelsEnd, Change change) {
    change(job.imageDir);
    change(job.imageFileName);
    for (int slot = 0; slot < channelsEnd; ++slot)
        if (!job.channels[slot].fileName.isEmpty()) change(job.channels[slot].fileName);
    if (job.app != appNameHoudini) change(job.sceneName);  // else the scene file itself
}

}  // namespace

void nameWedgeVariant(vxJ::_JobBasics_largePath& job, int channelsEnd, const QString& number,
                      const std::optional<QString>& name) {
    const _variant variant{number, name};
    forEachName(job, channelsEnd, [&](_vxString<1000>& text) { replacePlaceholders(text, variant); });
}

void removeWedgePlaceholders(vxJ::_JobBasics_largePath& job, int channelsEnd) {
    forEachName(job, channelsEnd, [](_vxString<1000>& text) {
        while (replacePlaceholders(text, {QString(), QString()})) continue;
    });
}

}  // namespace vxP
