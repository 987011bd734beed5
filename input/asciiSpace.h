// White space within ASCII, as Qt trims it from the ends of a text.
#pragma once

namespace vxP {

constexpr bool isAsciiSpace(char byte) {
    return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

}  // namespace vxP
