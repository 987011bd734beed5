#include "input/candidateScan.h"

#include <immintrin.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>

#include "input/returnInText.h"
#include "input/searchedTexts.h"

namespace vxP {

namespace {

// ---- anchors

/// Which of eight sets of bytes an ASCII byte is in, one bit a set. Of a byte beyond ASCII its lower bits are looked
/// up, which costs a second look and no answer.
struct _byteSets {
    std::array<std::uint8_t, 128> byCode{};
    /// The same by the byte's two halves: a set is the product of its lower and its upper halves, and so may hold more
    /// bytes than were added. 16 entries, twice over, as vectors look them up.
    std::array<std::uint8_t, 32> byLowerHalf{};
    std::array<std::uint8_t, 32> byUpperHalf{};

    constexpr void add(char byte, std::uint8_t set) {
        byCode[code(byte)] |= set;
        for (std::size_t lane = 0; lane < 32; lane += 16) {
            byLowerHalf[lane + (code(byte) & 15U)] |= set;
            byUpperHalf[lane + (code(byte) >> 4U)] |= set;
        }
    }
    constexpr std::uint8_t setsOf(char byte) const { return byCode[code(byte) & 127U]; }
};

/// An anchor is where three successive bytes share a set, each looked up in the table of its place.
struct _anchorSets {
    std::array<_byteSets, 3> places;

    constexpr void add(std::size_t place, std::string_view bytes, int set) {
        for (const char byte : bytes) places[place].add(byte, static_cast<std::uint8_t>(1 << set));
    }
    constexpr void addText(const _searchedText& searched, int set) {
        for (std::size_t place = 0; place < places.size(); ++place) {
            const char byte = searched.text[searched.anchor + place];
            const char pair[] = {byte, searched.anyCase ? otherCase(byte) : byte};
            add(place, {pair, 2}, set);
        }
    }
    /// `behind` follows a carriage return that follows a byte of a text or another carriage return.
    constexpr void addJoin(std::string_view behind, int set) {
        constexpr std::string_view aReturn{&carriageReturn, 1};
        for (const std::string_view before : {textBytes[0], textBytes[1], aReturn}) add(0, before, set);
        add(1, aReturn, set);
        add(2, behind, set);
    }
    constexpr std::uint8_t setsAt(const char* bytes) const {
        return places[0].setsOf(bytes[0]) & places[1].setsOf(bytes[1]) & places[2].setsOf(bytes[2]);
    }
};

constexpr _anchorSets makeAnchorSets() {
    _anchorSets sets;
    int set = 0;
    for (const auto& searched : searchedTexts) sets.addText(searched, set++);
    for (const std::string_view behind : textBytes) sets.addJoin(behind, set++);
    return sets;
}

constexpr _anchorSets anchors = makeAnchorSets();

// ---- is it one?

/// However many carriage returns there are between two bytes of a text, there is an anchor.
constexpr bool everyJoinHasAnAnchor() {
    for (int before = 0; before < 128; ++before) {
        for (int behind = 0; behind < 128; ++behind) {
            const char one[] = {static_cast<char>(before), carriageReturn, static_cast<char>(behind)};
            const char several[] = {carriageReturn, carriageReturn, static_cast<char>(behind)};
            if (neighbours.has(one[0], one[2]) && (anchors.setsAt(one) == 0 || anchors.setsAt(several) == 0))
                return false;
        }
    }
    return true;
}
static_assert(everyJoinHasAnAnchor());

bool isCandidate(std::string_view bytes, std::size_t at) {
    if (bytes[at + 1] == carriageReturn) return mayBeReturnInText(bytes, at + 1);
    constexpr unsigned ofTexts = (1U << searchedTexts.size()) - 1;
    for (unsigned sets = anchors.setsAt(bytes.data() + at) & ofTexts; sets != 0; sets &= sets - 1)
        if (isTextAt(bytes, at, searchedTexts[static_cast<std::size_t>(std::countr_zero(sets))])) return true;
    return false;
}

// ---- the search for anchors

/// @return first candidate from `at` on whose anchor begins below `end`, or `end`
using _search = std::size_t (*)(std::string_view bytes, std::size_t at, std::size_t end);

std::size_t searchPortable(std::string_view bytes, std::size_t at, std::size_t end) {
    for (; at < end; ++at) {
        const bool mayBeAnchor = anchors.places[1].setsOf(bytes[at + 1]) != 0;  // few bytes are in the middle of one
        if (mayBeAnchor && anchors.setsAt(bytes.data() + at) != 0 && isCandidate(bytes, at)) return at;
    }
    return end;
}

/// First candidate among the anchors that a vector path found, one bit for each, or `end`.
template <typename Bits>
[[gnu::noinline]] std::size_t firstCandidate(std::string_view bytes, std::size_t at, Bits found, std::size_t end) {
    for (; found != 0; found &= found - 1) {
        const std::size_t anchor = at + static_cast<std::size_t>(std::countr_zero(found));
        if (isCandidate(bytes, anchor)) return anchor;
    }
    return end;
}

// The vector paths look up the sets of 32 or 64 bytes, and of the two bytes after each, in one go.

/// A lookup by the whole byte gives nothing for one beyond ASCII.
[[gnu::target("avx2")]] __m256i setsAvx2(const char* bytes, const _byteSets& sets) {
    const __m256i here = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(bytes));
    const __m256i upper = _mm256_and_si256(_mm256_srli_epi16(here, 4), _mm256_set1_epi8(15));
    const __m256i byLower = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(sets.byLowerHalf.data()));
    const __m256i byUpper = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(sets.byUpperHalf.data()));
    return _mm256_and_si256(_mm256_shuffle_epi8(byLower, here), _mm256_shuffle_epi8(byUpper, upper));
}

/// Nineteen times out of twenty the first two places rule out all 32.
[[gnu::target("avx2")]] std::size_t searchAvx2(std::string_view bytes, std::size_t at, std::size_t end) {
    for (; at + sizeof(__m256i) <= end; at += sizeof(__m256i)) {
        const char* const here = bytes.data() + at;
        const __m256i two = _mm256_and_si256(setsAvx2(here, anchors.places[0]), setsAvx2(here + 1, anchors.places[1]));
        if (_mm256_testz_si256(two, two) != 0) continue;
        const __m256i hits = _mm256_and_si256(two, setsAvx2(here + 2, anchors.places[2]));
        const __m256i misses = _mm256_cmpeq_epi8(hits, _mm256_setzero_si256());
        const auto found = ~static_cast<std::uint32_t>(_mm256_movemask_epi8(misses));
        if (found == 0) continue;
        if (const std::size_t first = firstCandidate(bytes, at, found, end); first < end) return first;
    }
    return searchPortable(bytes, at, end);
}

/// All 128 codes in one lookup, of a byte's lower seven bits.
[[gnu::target("avx512bw,avx512vbmi")]] __m512i setsAvx512(const char* bytes, const _byteSets& sets) {
    const __m512i lower = _mm512_loadu_si512(sets.byCode.data());
    const __m512i upper = _mm512_loadu_si512(sets.byCode.data() + sizeof(__m512i));
    return _mm512_permutex2var_epi8(lower, _mm512_loadu_si512(bytes), upper);
}

[[gnu::target("avx512bw,avx512vbmi")]] std::size_t searchAvx512(std::string_view bytes, std::size_t at,
                                                                std::size_t end) {
    for (; at + sizeof(__m512i) <= end; at += sizeof(__m512i)) {
        const char* const here = bytes.data() + at;
        const __m512i two =
            _mm512_and_si512(setsAvx512(here, anchors.places[0]), setsAvx512(here + 1, anchors.places[1]));
        const std::uint64_t found = _mm512_test_epi8_mask(two, setsAvx512(here + 2, anchors.places[2]));
        if (found == 0) continue;
        if (const std::size_t first = firstCandidate(bytes, at, found, end); first < end) return first;
    }
    return searchPortable(bytes, at, end);
}

_search searchOf(_searchPath path) {
    if (path == _searchPath::portable) return searchPortable;
    const bool hasAvx512 = __builtin_cpu_supports("avx512bw") != 0 && __builtin_cpu_supports("avx512vbmi") != 0;
    if (path == _searchPath::automatic && hasAvx512) return searchAvx512;
    return __builtin_cpu_supports("avx2") != 0 ? searchAvx2 : searchPortable;
}

_search search = searchOf(_searchPath::automatic);

}  // namespace

std::size_t findCandidate(std::string_view bytes, std::size_t from, bool complete) {
    const std::size_t hidden = complete ? 2 : candidateLookAhead;  // of an anchor's three bytes
    const std::size_t end = bytes.size() > hidden ? bytes.size() - hidden : 0;
    const std::size_t found = from < end ? search(bytes, from, end) : end;
    return found < end ? found : bytes.size();
}

void chooseSearchPath(_searchPath path) {
    search = searchOf(path);
}

const char* searchPathName() {
    if (search == searchPortable) return "portable";
    return search == searchAvx2 ? "AVX2" : "AVX-512";
}

}  // namespace vxP
