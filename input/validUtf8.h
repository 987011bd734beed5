// The bytes of a line as UTF-8 that every decoder reads alike.
#pragma once

#include <string>
#include <string_view>

namespace vxP {

/// The line with U+FFFD in the place of each byte that does not belong to a valid sequence: one of two to four bytes,
/// in the shortest form, for a character of Unicode that is no surrogate. Qt does the same, but its decoders lose track
/// where they are handed a broken sequence in two pieces, each version in its own way.
/// @param line    whole: a sequence that goes on in another one is broken
/// @param buffer  holds the result where the line is not valid; up to three times as long
std::string_view validUtf8(std::string_view line, std::string& buffer);

}  // namespace vxP
