#include "host/results/sceneFilter.h"

#include <fnmatch.h>

#include <QSet>
#include <algorithm>

namespace vxH {
namespace {

class _nodeMatch {
 public:
    _nodeMatch(const _explanationFilter& asked, const _explainedScene& explainedScene)
        : filter(asked),
          scene(explainedScene),
          parts(asked.parts()),
          isOfName(asked.driver.find('/') == std::string::npos) {}

    bool takes(const vxE::_explainedSection& section) {
        const bool isTaken =
            (filter.reader.isEmpty() || section.readerName == filter.reader) && takesNode(section.node);
        if (isTaken) sectionNodes.insert(section.node);
        return isTaken && takesOutcome(section);
    }

    bool takes(const vxE::_unrecognisedSection& section) const {
        return filter.reader.isEmpty() && takesNode(section.node);
    }

    /// @pre all sections were looked at
    bool takes(const vxE::_warning& warning) const {
        if (!filter.asksForNodes() || takesWarned(warning.node)) return true;
        return std::any_of(warning.jobs.begin(), warning.jobs.end(), [this](int number) {
            const auto at = static_cast<std::size_t>(number) - 1;
            return at < scene.jobs.size() && takesWarned(scene.jobs[at].layer);
        });
    }

 private:
    bool takesNode(const QString& path) const {
        if (filter.driver.empty()) return true;
        const auto name = isOfName ? path.mid(path.lastIndexOf(QLatin1Char('/')) + 1) : path;
        return fnmatch(filter.driver.c_str(), name.toUtf8().constData(), 0) == 0;
    }

    bool takesOutcome(const vxE::_explainedSection& section) const {
        if (section.outcome == vxE::_outcomeKind::jobs) return parts.jobs;
        return isAside(section) ? parts.aside : parts.missing;
    }

    bool takesWarned(const QString& node) const {
        return filter.reader.isEmpty() ? !node.isEmpty() && takesNode(node) : sectionNodes.contains(node);
    }

    const _explanationFilter& filter;
    const _explainedScene& scene;
    _explanationParts parts;
    bool isOfName;
    QSet<QString> sectionNodes;
};

template <class _entries>
void keepTaken(_entries& entries, _nodeMatch& match) {
    entries.erase(
        std::remove_if(entries.begin(), entries.end(), [&](const auto& entry) { return !match.takes(entry); }),
        entries.end());
}

}  // namespace

void applyFilter(const _explanationFilter& filter, _explainedScene& scene) {
    scene.filter = filter;
    _nodeMatch match(filter, scene);
    keepTaken(scene.explanation.sections, match);
    keepTaken(scene.explanation.notRecognised, match);
    keepTaken(scene.explanation.warnings, match);
}

}  // namespace vxH
