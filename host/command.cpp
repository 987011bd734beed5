#include "host/command.h"

#include "host/terminal.h"

namespace vxH {

void addPluginOption(CLI::App& command, std::string& plugin) {
    plugin = defaultPlugin().toStdString();
    command.add_option("--plugin", plugin, "Plug-in file instead of the program's own")->type_name("FILE");
}

void addTextOrJson(CLI::App& command, bool& asJson) {
    addChoice<bool>(command, "--format", asJson, {{"text", false}, {"json", true}}, "How to print it");
}

int noPlugin(const QString& problem) {
    writeError(QLatin1String{"the plug-in cannot be loaded: "} + problem);
    return exitNoPlugin;
}

int sceneFailed(const QJsonObject& result) {
    writeError(
        QStringLiteral("%1: %2 (code %3)")
            .arg(result[sceneKey].toString(), result[errorKey].toString(), QString::number(result[codeKey].toInt())));
    return exitFailed;
}

}  // namespace vxH
