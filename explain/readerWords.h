// What the readers of sections are called.
#pragma once

#include <QLatin1String>
#include <QStringView>
#include <array>

#include "scan/scanObserver.h"

namespace vxE {

struct _readerWords {
    vxP::_sectionReader reader;
    QLatin1String name;  ///< stays the same between versions
    QStringView kept;    ///< what is told of a section without jobs that came to something
};

constexpr std::array readerWords{
    // by their numbers
    _readerWords{vxP::_sectionReader::wedge, QLatin1String{"wedge"}, u"kept: its driver is repeated"},
    _readerWords{vxP::_sectionReader::camera, QLatin1String{"camera"}, u"kept as a camera"},
    _readerWords{vxP::_sectionReader::usdRenderSettings, QLatin1String{"usdRenderSettings"},
                 u"kept, but no driver refers to it"},
    _readerWords{vxP::_sectionReader::lop, QLatin1String{"lop"}, u"kept as a LOP node"},
    _readerWords{vxP::_sectionReader::driver, QLatin1String{"driver"}, {}},
};

constexpr bool everyReaderHasItsWords() {
    for (std::size_t number = 0; number < readerWords.size(); ++number)
        if (readerWords[number].reader != static_cast<vxP::_sectionReader>(number)) return false;
    return readerWords.size() == vxP::sectionReaderCount;
}
static_assert(everyReaderHasItsWords());

constexpr const _readerWords& wordsOf(vxP::_sectionReader reader) {
    return readerWords[static_cast<std::size_t>(reader)];
}

}  // namespace vxE
