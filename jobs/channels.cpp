// Output channels of the compact form: names and extensions one after the other in one pool of characters.
#include <algorithm>
#include <cstring>
#include <optional>

#include "jobs/VX_DataTypes_jobs0_Basics.h"

namespace vxJ {

namespace {

using _job = _JobBasics_noSettings;

/// Characters of the pool, checked to lie inside its part in use.
struct _poolRange {
    int start;
    int length;

    int end() const { return start + length; }
};

int channelsInUse(const _job& job) {
    return std::min<int>(job.channelCount, channelCapacity);
}

int poolInUse(const _job& job) {
    return std::min<int>(job.channelPoolUsed, channelPoolUsable);
}

std::optional<_poolRange> checkedRange(const _job& job, int start, int length) {
    if (start < 0 || length < 0 || start + length > poolInUse(job)) return {};
    return _poolRange{start, length};
}

std::optional<_poolRange> nameRange(const _job& job, int i) {
    if (i < 0 || i >= channelsInUse(job)) return {};
    return checkedRange(job, job.channelStart[i], job.channelNameLen[i]);
}

std::optional<_poolRange> extensionRange(const _job& job, int i) {
    const auto name = nameRange(job, i);
    return name ? checkedRange(job, name->end(), job.channelExtLen[i]) : name;
}

template <quint16 Capacity>
_vxString<Capacity> textOf(const _job& job, const std::optional<_poolRange>& range) {
    if (!range || range->length > Capacity) return {};
    return _vxString<Capacity>(QStringView(job.channelPool + range->start, range->length));
}

void copyToPool(_job& job, int start, QStringView text) {
    std::copy_n(text.utf16(), text.size(), job.channelPool + start);
}

/// Puts `text` in the place of `old`, moving what follows. Nothing happens when the pool has no room for it.
/// @return true when the text was replaced; its length is then still to be stored
bool replaceInPool(_job& job, int i, const std::optional<_poolRange>& old, QStringView text) {
    if (text.isEmpty() || !old) return false;
    const int shift = static_cast<int>(text.size()) - old->length;
    const int used = poolInUse(job);
    if (used + shift > channelPoolUsable) return false;
    char16_t* const tail = job.channelPool + old->end();
    std::memmove(tail + shift, tail, static_cast<std::size_t>(used - old->end()) * sizeof(char16_t));
    job.channelPoolUsed = static_cast<quint16>(used + shift);
    for (int later = i + 1; later < channelsInUse(job); ++later)
        job.channelStart[later] = static_cast<qint16>(job.channelStart[later] + shift);
    copyToPool(job, old->start, text);
    return true;
}

}  // namespace

void _JobBasics_noSettings::channelClear() {
    channelCount = 0;
    channelPoolUsed = 0;
    std::fill(std::begin(channelPool), std::end(channelPool), u'\0');
}

void _JobBasics_noSettings::channelClearUnusedBuffer() {
    std::fill(channelPool + poolInUse(*this), channelPool + channelPoolUsable, u'\0');
}

_vxString<500> _JobBasics_noSettings::channelFileName(int i) const {
    return textOf<500>(*this, nameRange(*this, i));
}

_vxString<25> _JobBasics_noSettings::channelExtension(int i) const {
    return textOf<25>(*this, extensionRange(*this, i));
}

void _JobBasics_noSettings::channelAdd(const _vxString<500>& name, const _vxString<25>& extension) {
    const _size used = channelPoolUsed;
    const _size usedAfter = used + name.length() + extension.length();
    if (name.isEmpty() || channelCount >= channelCapacity || usedAfter > channelPoolUsable) return;
    channelStart[channelCount] = static_cast<qint16>(used);
    channelNameLen[channelCount] = static_cast<qint16>(name.length());
    channelExtLen[channelCount] = static_cast<qint16>(extension.length());
    copyToPool(*this, static_cast<int>(used), name.view());
    copyToPool(*this, static_cast<int>(used + name.length()), extension.view());
    ++channelCount;
    channelPoolUsed = static_cast<quint16>(usedAfter);
}

void _JobBasics_noSettings::channelSetFileName(int i, const _vxString<500>& name) {
    if (replaceInPool(*this, i, nameRange(*this, i), name.view()))
        channelNameLen[i] = static_cast<qint16>(name.length());
}

void _JobBasics_noSettings::channelSetExtension(int i, const _vxString<25>& extension) {
    if (replaceInPool(*this, i, extensionRange(*this, i), extension.view()))
        channelExtLen[i] = static_cast<qint16>(extension.length());
}

void _JobBasics_noSettings::channelSet(int i, const _vxString<500>& name, const _vxString<25>& extension) {
    channelSetFileName(i, name);
    channelSetExtension(i, extension);
}

void _JobBasics_noSettings::channelRemove(int i) {
    const int last = channelsInUse(*this) - 1;
    if (i < 0 || i > last) return;
    for (int place = i; place < last; ++place)
        channelSet(place, channelFileName(place + 1), channelExtension(place + 1));
    channelCount = static_cast<quint8>(last);
}

}  // namespace vxJ
