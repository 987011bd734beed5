// The files of a folder that have the names that jobs write, found by reading the folder once.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <ctime>
#include <functional>
#include <set>
#include <utility>
#include <vector>

#include "host/results/frameRange.h"

namespace vxH {

/// A name in a folder: one file, or one for each frame.
struct _wantedName {
    QByteArray prefix;  ///< of one file the whole name
    QByteArray suffix;
    int padding = 0;     ///< least digits of the frame number; 0: one file
    _frameRange frames;  ///< that are wanted
};

/// What a file is found to be.
struct _foundFile {
    qint64 place = 0;   ///< of its frame among those wanted, from 0
    qint64 bytes = -1;  ///< -1: nobody asked
    timespec changed{};
};

/// Takes what is found of the wanted name at this place.
using _takeFound = std::function<void(std::size_t wanted, const _foundFile& file)>;

enum class _folderAnswer { read, isMissing, failed };

class _folderScan {
 public:
    void add(const _wantedName& name);

    /// Reads the folder, once whatever the number of names. Names are compared as bytes and frame numbers as they are
    /// written: "0007" is frame 7 of four digits, "007" and "00007" are not. Folders, sockets and links that lead
    /// nowhere are no files.
    /// @param asksForSizes  otherwise only names are read; with it each file that is found is asked for its size and
    ///                      time: those that are not there cost nothing
    /// @param[out] error  the errno of a folder that cannot be read
    _folderAnswer read(const QString& folder, bool asksForSizes, const _takeFound& take, int& error) const;

 private:
    class _reading;
    struct _frameNumbers {
        int padding;
        _frameRange frames;
    };

    QHash<QByteArray, std::vector<std::size_t>> numbered;  // places by prefix, NUL and suffix
    QHash<QByteArray, std::vector<std::size_t>> whole;     // places by name
    std::set<std::pair<int, int>> lengths;                 // of the prefixes and suffixes of numbered ones
    std::vector<_frameNumbers> numbers;                    // by place
};

}  // namespace vxH
