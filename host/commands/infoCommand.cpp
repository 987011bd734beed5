// vxscene info
#include "host/access/askPlugin.h"
#include "host/base/displayText.h"
#include "host/base/terminal.h"
#include "host/commands/allCommands.h"
#include "host/results/sceneJson.h"

namespace vxH {
namespace {

struct _options {
    std::string plugin;
    std::chrono::milliseconds timeout{0};
    bool asJson = false;
};

QString shown(int number) {
    return QString::number(number);
}
QString shown(const QString& text) {
    return printable(text);
}

QStringList infoLines(const _pluginInfo& info) {
    QStringList lines;
    for (const auto& field : infoFields) {
        const auto value = std::visit([&](auto member) { return shown(info.*member); }, field.member);
        lines.append(field.name + QLatin1String{": "} + value);
    }
    return lines;
}

int run(const _options& options) {
    const auto plugin = QString::fromStdString(options.plugin);
    const auto [info, code, failure] = askForInfo({plugin, options.timeout});
    if (code == hostNoPlugin) return noPlugin(failure);
    if (code != 0) {
        writeError(plugin + QLatin1String{": "} + failure);
        return exitFailed;
    }
    if (options.asJson) {
        print(jsonText(infoToJson(info), true));
    } else {
        print(infoLines(info));
    }
    const auto problem = problemOfInfo(info);
    if (problem.isEmpty()) return exitSuccess;
    writeError(plugin + QLatin1String{": "} + problem);
    return exitFailed;
}

}  // namespace

_command infoCommand() {
    const auto options = std::make_shared<_options>();
    return {"info",
            "Print the plug-in's info record",
            "Examples:\n  vxscene info\n"
            "  vxscene info --plugin ./lx_vxSceneParserHoudini64.so --format json",
            {pluginOption(options->plugin), textOrJson(options->asJson),
             timeoutOption(options->timeout, "End a plug-in that takes longer to answer, 2.5 for example")},
            {},
            [options](const _submitterArguments&) { return run(*options); }};
}

}  // namespace vxH
