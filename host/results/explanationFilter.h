// Which entries of an explanation somebody asks for.
#pragma once

#include <QJsonObject>
#include <QString>
#include <array>
#include <string>

namespace vxH {

/// What of an explanation was asked for. The rest is not shown: neither as text nor as JSON.
struct _explanationParts {
    bool jobs = true;     ///< sections that jobs came of
    bool missing = true;  ///< sections that somebody misses in the job list, and those that were not recognised
    bool aside = true;    ///< all other sections
    bool warnings = true;
    bool facts = true;

    bool anySections() const { return jobs || missing || aside; }
};

/// A part of an explanation that may be asked for alone.
struct _explanationPart {
    const char* name;
    _explanationParts parts;
};

inline constexpr std::array explanationParts{
    _explanationPart{"jobs", {true, false, false, false, false}},
    _explanationPart{"missing", {false, true, false, false, false}},
    _explanationPart{"warnings", {false, false, false, true, false}},
    _explanationPart{"facts", {false, false, false, false, true}},
};

struct _explanationFilter {
    /// Pattern of fnmatch(3), in which "*" may stand for "/", too. Without "/" it is compared with the last part of a
    /// node's path. Empty: any node
    std::string driver;
    QString reader;                          ///< name of one; empty: any
    const _explanationPart* only = nullptr;  ///< null: all parts

    bool isEmpty() const { return only == nullptr && !asksForNodes(); }
    bool asksForNodes() const { return !driver.empty() || !reader.isEmpty(); }
    /// Facts are those of the whole scene: for some nodes they are shown only where they are asked for.
    _explanationParts parts() const;
};

/// {driver, reader, only}, as far as they are given.
QJsonObject filterToJson(const _explanationFilter& filter);

}  // namespace vxH
