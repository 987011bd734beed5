// What a scene may hold at most of what is read node by node. Real scenes stay far below; what is over a limit is left
// out, and the reader says so.
#pragma once

#include <QtGlobal>
#include <cstddef>

namespace vxN {

constexpr qint64 largestBody = qint64{8} * 1024 * 1024;  ///< bytes of one entry
constexpr std::size_t mostValues = 200'000;              ///< of one node, over all of its parameters
constexpr std::size_t mostParameters = 100'000;
constexpr std::size_t mostComponents = 64;     ///< of a parameter, to be found by the endings of their names
constexpr std::size_t mostSegments = 200'000;  ///< of one node, over all of its channels
constexpr std::size_t mostChannels = 100'000;
constexpr quint32 mostInputs = 10'000;    ///< of one node
constexpr int deepestNode = 256;          ///< nodes in one another
constexpr int longestWire = 256;          ///< dots and networks between a node and what is wired to it
constexpr qint64 largestCache = 8 << 20;  ///< bytes that the nodes read last may take, for each kind of entry

}  // namespace vxN
