#include "host/commands/command.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "host/base/terminal.h"

namespace vxH {

CLI::App* addCommand(CLI::App& program, const char* name, const char* description, const std::string& footer) {
    auto* const command = program.add_subcommand(name, description);
    command->footer(footer);
    return command;
}

void addPluginOption(CLI::App& command, std::string& plugin) {
    plugin = defaultPlugin().toStdString();
    addText(command, "--plugin", plugin, "Plug-in file instead of the program's own", "FILE");
}

void addText(CLI::App& command, const char* name, std::string& text, const char* description, const char* label) {
    command.add_option(name, text, description)->type_name(label);
}

void addNumber(CLI::App& command, const char* name, int& number, std::pair<int, int> leastAndMost,
               const char* description, const char* label) {
    command.add_option(name, number, description)
        ->check(CLI::Range(leastAndMost.first, leastAndMost.second).description(""))
        ->type_name(label);
}

/// CLI::Range lets "nan" pass.
void addSeconds(CLI::App& command, const char* name, double& seconds, double most, const char* description) {
    const auto problem = [most](const std::string& text) {
        double number = 0;
        const bool isGood = CLI::detail::lexical_cast(text, number) && number > 0 && number <= most;
        return isGood ? std::string{} : text + " is no number of seconds above 0";
    };
    command.add_option(name, seconds, description)->check(CLI::Validator(problem, ""))->type_name("SECONDS");
}

void addFlag(CLI::App& command, const char* name, bool& isGiven, const char* description) {
    command.add_flag(name, isGiven, description);
}

void addArgument(CLI::App& command, const char* label, std::string& text, const char* description) {
    command.add_option(label, text, description)->required()->type_name("");
}

void addArguments(CLI::App& command, const char* label, std::vector<std::string>& texts, const char* description) {
    command.add_option(label, texts, description)->required()->type_name("");
}

void addWords(CLI::App& command, const char* name, const std::vector<std::string>& words,
              const std::function<void(std::size_t)>& choose, const char* description) {
    std::string label;
    for (const auto& word : words) label += (label.empty() ? "" : choiceMark) + word;
    const auto find = [=](const std::string& word) {
        const auto found = std::find(words.begin(), words.end(), word);
        if (found == words.end()) throw CLI::ValidationError(name, word + " is not one of " + label);
        choose(static_cast<std::size_t>(found - words.begin()));
    };
    command.add_option_function<std::string>(name, find, description)->type_name(label);
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

int outputLost() {
    writeError(QStringLiteral("the output could not be written"));
    return exitFailed;
}

}  // namespace vxH
