// An answer travels as compact JSON: an object with one member, the answer or the reason for none.
#include "host/access/askPlugin.h"

#include <QJsonDocument>

#include "host/base/childProcess.h"

namespace vxH {
namespace {

constexpr QLatin1String answerKey{"answer"};
constexpr QLatin1String problemKey{"pluginProblem"};

QJsonObject answerFrom(const QString& pluginPath, const std::function<QJsonObject(const _pluginLibrary&)>& question) {
    _pluginLibrary plugin;
    const QString problem = plugin.load(pluginPath);
    if (!problem.isEmpty()) return {{problemKey, problem}};
    return {{answerKey, question(plugin)}};
}

}  // namespace

_pluginAnswer askPlugin(const QString& pluginPath, const std::function<QJsonObject(const _pluginLibrary&)>& question) {
    const auto result = collectChild(
        startChild([&] { return QJsonDocument(answerFrom(pluginPath, question)).toJson(QJsonDocument::Compact); }));
    if (result.code != 0) return {{}, result.code, result.failure};
    const auto message = QJsonDocument::fromJson(result.output).object();
    if (message.contains(problemKey)) return {{}, hostNoPlugin, message[problemKey].toString()};
    if (!message.contains(answerKey)) return {{}, hostNoResult, sentenceOfCode(hostNoResult)};
    return {message[answerKey].toObject(), 0, {}};
}

}  // namespace vxH
