// vxscene info
#include "host/access/askPlugin.h"
#include "host/base/displayText.h"
#include "host/base/terminal.h"
#include "host/commands/allCommands.h"
#include "host/results/sceneJson.h"
#include "jobs/VX_DataTypes_plugin.h"

namespace vxH {
namespace {

struct _options {
    std::string plugin;
    bool asJson = false;
};

QString shown(int number) {
    return QString::number(number);
}
QString shown(const QString& text) {
    return printable(text);
}

void printInfoLines(const _pluginInfo& info) {
    for (const auto& field : infoFields) {
        const auto value = std::visit([&](auto member) { return shown(info.*member); }, field.member);
        writeLine(stdout, field.name + QLatin1String{": "} + value);
    }
}

int run(const _options& options) {
    const auto plugin = QString::fromStdString(options.plugin);
    const auto [info, code, failure] = askForInfo(plugin);
    if (code == hostNoPlugin) return noPlugin(failure);
    if (code != 0) {
        writeError(plugin + QLatin1String{": "} + failure);
        return exitFailed;
    }
    if (options.asJson) {
        writeLine(stdout, jsonText(infoToJson(info), true));
    } else {
        printInfoLines(info);
    }
    if (info.code == vxP::resultSuccess) return exitSuccess;
    writeError(QStringLiteral("%1: %2 (code %3)").arg(plugin, sentenceOfCode(info.code), QString::number(info.code)));
    return exitFailed;
}

}  // namespace

_command infoCommand() {
    const auto options = std::make_shared<_options>();
    return {"info",
            "Print the plug-in's info record",
            "Examples:\n  vxscene info\n"
            "  vxscene info --plugin ./lx_vxSceneParserHoudini64.so --format json",
            {pluginOption(options->plugin), textOrJson(options->asJson)},
            {},
            [options](const _submitterArguments&) { return run(*options); }};
}

}  // namespace vxH
