#include "plugin/submitterArguments.h"

#include <algorithm>
#include <array>

#include "jobs/renderers.h"

namespace vxP {

namespace {

/// A switch for the whole load.
struct _loadSwitch {
    QLatin1String name;
    bool hasValue;  ///< the argument behind it is its own
    void (*take)(_sceneFacts& facts);
};
constexpr std::array loadSwitches{
    _loadSwitch{QLatin1String{"-houdiniBuildVersion"}, true, [](auto& facts) { facts.usesBuildVersion = false; }},
    _loadSwitch{QLatin1String{"-houdiniCompressedIFD"}, false, [](auto& facts) { facts.compressedIFD = true; }},
    _loadSwitch{QLatin1String{"-houdiniResolve"}, false, [](auto& facts) { facts.resolves = true; }},
};

const _loadSwitch* findLoadSwitch(const QString& argument) {
    const auto* const found = std::find_if(loadSwitches.begin(), loadSwitches.end(), [&](const auto& row) {
        return argument.compare(row.name, Qt::CaseInsensitive) == 0;
    });
    return found == loadSwitches.end() ? nullptr : found;
}

bool isVersionSwitch(const QString& argument) {
    return rowOfVersionSwitch(argument) < renderers.size();
}

}  // namespace

QStringList argumentsOf(const _submitterSettings& settings) {
    QStringList arguments;
    if (settings.arguments == nullptr) return arguments;
    for (qint32 i = 1; i < settings.argumentCount; ++i) arguments.append(QString::fromUtf8(settings.arguments[i]));
    return arguments;
}

void readSubmitterArguments(const _submitterSettings& settings, _sceneFacts& facts) {
    for (const QString& argument : argumentsOf(settings)) {
        if (const auto* const found = findLoadSwitch(argument); found != nullptr) found->take(facts);
    }
}

std::size_t rowOfVersionSwitch(const QString& argument) {
    const auto* const found = std::find_if(renderers.begin(), renderers.end(), [&](const _renderer& renderer) {
        return !renderer.versionSwitch.isEmpty() && argument.compare(renderer.versionSwitch, Qt::CaseInsensitive) == 0;
    });
    return static_cast<std::size_t>(found - renderers.begin());
}

QStringList submitterSwitches() {
    QStringList names;
    for (const auto& row : loadSwitches) names.append(row.name);
    for (const auto& renderer : renderers) {
        if (!renderer.versionSwitch.isEmpty()) names.append(renderer.versionSwitch.toString());
    }
    return names;
}

QStringList argumentsNotTaken(const _submitterSettings& settings) {
    QStringList left;
    bool hasValue = false;  // the argument before
    for (const QString& argument : argumentsOf(settings)) {
        const auto* const found = findLoadSwitch(argument);
        const bool isSwitch = found != nullptr || isVersionSwitch(argument);
        if (!isSwitch && !hasValue) left.append(argument);
        hasValue = isSwitch && (found == nullptr || found->hasValue);
    }
    return left;
}

}  // namespace vxP
