// What was read last of nodes, kept for the next question.
#pragma once

#include <QtGlobal>
#include <array>
#include <memory>

#include "scene/limits.h"

namespace vxN {

/// Keeps little: a place for each of some nodes, and all of it goes when it takes too many bytes.
template <typename Read>
class _nodeCache {
 public:
    /// What is kept of a node, or else made and kept.
    /// @param make  gives a shared pointer to what is read
    template <typename Make>
    std::shared_ptr<const Read> get(qint32 node, Make make) {
        _place& place = places[static_cast<std::size_t>(node) % places.size()];
        if (place.node != node) keep(place, node, make());
        return place.read;
    }

    void clear() {
        places.fill({});
        bytes = 0;
    }

 private:
    struct _place {
        qint32 node = -1;
        std::shared_ptr<const Read> read;
    };

    void keep(_place& place, qint32 node, std::shared_ptr<const Read> read) {
        bytes += read->bytes() - (place.read ? place.read->bytes() : 0);
        if (bytes > largestCache) {
            places.fill({});
            bytes = read->bytes();
        }
        place = {node, std::move(read)};
    }

    std::array<_place, 256> places;
    qint64 bytes = 0;
};

}  // namespace vxN
