// vxscene info
#include "host/access/askPlugin.h"
#include "host/base/displayText.h"
#include "host/commands/command.h"
#include "host/commands/resultOutput.h"

namespace vxH {
namespace {

struct _options {
    std::string plugin;
    bool asJson = false;
};

/// One "name: value" line for each member.
void printInfoLines(const QJsonObject& info) {
    for (auto member = info.begin(); member != info.end(); ++member) {
        const QString value = member->isString() ? member->toString() : QString::number(member->toInt());
        writeLine(stdout, member.key() + QLatin1String{": "} + printable(value));
    }
}

int run(const _options& options) {
    const auto plugin = QString::fromStdString(options.plugin);
    const auto [info, code, failure] = askPlugin(plugin, readPluginInfo);
    if (code == hostNoPlugin) return noPlugin(failure);
    if (code != 0) {
        writeError(plugin + QLatin1String{": "} + failure);
        return exitFailed;
    }
    if (options.asJson) {
        writeLine(stdout, jsonText(info, true));
    } else {
        printInfoLines(info);
    }
    const int answer = info[codeKey].toInt();
    if (answer == vxP::resultSuccess) return exitSuccess;
    writeError(QStringLiteral("%1: %2 (code %3)").arg(plugin, sentenceOfCode(answer), QString::number(answer)));
    return exitFailed;
}

}  // namespace

_command addInfo(CLI::App& program) {
    const auto options = std::make_shared<_options>();
    auto* const line = addCommand(program, "info", "Print the plug-in's info record",
                                  "Examples:\n  vxscene info\n"
                                  "  vxscene info --plugin ./lx_vxSceneParserHoudini64.so --format json");
    addPluginOption(*line, options->plugin);
    addTextOrJson(*line, options->asJson);
    return {line, [options](const _submitterArguments&) { return run(*options); }};
}

}  // namespace vxH
