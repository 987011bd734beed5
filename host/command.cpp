#include "host/command.h"

#include <map>

#include "host/terminal.h"

namespace vxH {

void addPluginOption(CLI::App& command, std::string& plugin) {
    plugin = pluginBesideProgram().toStdString();
    command.add_option("--plugin", plugin, "Plug-in file instead of the one beside this program")->type_name("FILE");
}

void addTextOrJson(CLI::App& command, bool& asJson) {
    static const std::map<std::string, bool> formats{{"text", false}, {"json", true}};
    command.add_option("--format", asJson, "text or json")
        ->transform(CLI::CheckedTransformer(formats).description(""))
        ->type_name("FORMAT");
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

int outputLost() {
    writeError(QStringLiteral("the output could not be written"));
    return exitFailed;
}

}  // namespace vxH
