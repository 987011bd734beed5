#include "input/lineParts.h"

#include <algorithm>
#include <utility>

namespace vxP {

namespace {

constexpr std::size_t letters = 128;

/// One state for each character of the parts, and the first one.
consteval std::size_t statesFor(const _partList& parts) {
    std::size_t states = 1;
    for (std::size_t i = 0; i < parts.count; ++i) states += parts.texts[i].size();
    return states;
}

/// For each state, which says how much of which parts the text ends with, and each letter the state that follows.
/// Source: Aho and Corasick, Efficient string matching, 1975.
template <std::size_t States>
struct _automaton {
    static_assert(States <= 256, "a state needs more than a byte");

    std::array<std::array<std::uint8_t, letters>, States> next{};
    std::array<_partSet, States> ends{};  ///< the parts that end here

    consteval _automaton(const _partList& parts, std::size_t firstBit, bool anyCase) {
        for (std::size_t i = 0; i < parts.count; ++i) add(parts.texts[i], _partSet{1} << (firstBit + i), anyCase);
        link();
        for (auto& row : next)
            for (char16_t upper = u'A'; anyCase && upper <= u'Z'; ++upper) row[upper] = row[foldedToAscii(upper)];
    }

 private:
    consteval void add(std::string_view text, _partSet bit, bool anyCase) {
        std::uint8_t state = 0;
        for (const char letter : text) {
            const auto character = static_cast<char16_t>(letter);
            std::uint8_t& following = next[state][anyCase ? foldedToAscii(character) : character];
            if (following == 0) following = ++lastState;
            state = following;
        }
        ends[state] |= bit;
    }

    /// Where no part goes on, the longest ending that begins a part does.
    consteval void link() {
        std::array<std::uint8_t, States> ending{};
        std::array<std::uint8_t, States> queue{};
        std::size_t queued = 1;
        for (std::size_t at = 0; at < queued; ++at) {
            const std::uint8_t state = queue[at];
            ends[state] |= ends[ending[state]];
            for (std::size_t letter = 0; letter < letters; ++letter) {
                std::uint8_t& following = next[state][letter];
                const std::uint8_t elsewhere = state == 0 ? std::uint8_t{0} : next[ending[state]][letter];
                if (following != 0) {
                    ending[following] = elsewhere;
                    queue[queued++] = following;
                } else {
                    following = elsewhere;
                }
            }
        }
    }

    std::uint8_t lastState = 0;
};

constexpr _automaton<statesFor(exactParts)> exactAutomaton(exactParts, 0, false);
constexpr _automaton<statesFor(foldedParts)> foldedAutomaton(foldedParts, firstFoldedBit, true);

/// No part holds a NUL, which stands for all that is beyond ASCII.
constexpr std::size_t code(char16_t character) {
    return character < letters ? character : 0;
}
constexpr std::size_t foldedCode(char16_t character) {
    return character < letters ? character : code(foldedToAscii(character));
}

/// Characters that no part begins with: most of an archive's header is digits.
constexpr auto beginsNone = []() consteval {
    std::array<bool, letters> none{};
    for (std::size_t letter = 0; letter < letters; ++letter)
        none[letter] = exactAutomaton.next[0][letter] == 0 && foldedAutomaton.next[0][letter] == 0;
    return none;
}
();

template <typename Char>
bool mayBegin(Char letter) {
    const auto character = static_cast<char16_t>(letter);
    return character >= letters || !beginsNone[character];
}

template <typename Char>
_partSet search(std::basic_string_view<Char> text) {
    _partSet found = 0;
    const auto end = text.end();
    for (auto at = std::find_if(text.begin(), end, mayBegin<Char>); at != end;
         at = std::find_if(at, end, mayBegin<Char>)) {
        std::uint8_t exact = 0;
        std::uint8_t folded = 0;
        do {
            const auto character = static_cast<char16_t>(*at);
            exact = exactAutomaton.next[exact][code(character)];
            folded = foldedAutomaton.next[folded][foldedCode(character)];
            found |= exactAutomaton.ends[exact] | foldedAutomaton.ends[folded];
        } while (++at != end && (exact | folded) != 0);
    }
    return found;
}

}  // namespace

_partSet partsOf(std::string_view text) {
    return search(text);
}

_partSet partsOf(std::u16string_view text) {
    return search(text);
}

}  // namespace vxP
