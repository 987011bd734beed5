// What every command of vxscene has in common: how it stands on the command line, and how its scenes fail.
#pragma once

#include <CLI/CLI.hpp>
#include <QJsonObject>
#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "host/resultCodes.h"
#include "host/sceneLoad.h"

namespace vxH {

/// A command on the command line and what it does once the line has been read.
struct _command {
    CLI::App* line;
    std::function<int(const _submitterArguments&)> run;  ///< returns an `_exitStatus`
};

// Each adds its command to the program.
_command addInfo(CLI::App& program);
_command addJobs(CLI::App& program);
_command addVars(CLI::App& program);

/// Stands between the words in the type name of an option that takes one of them.
inline constexpr const char* choiceMark = "|";

/// Adds `--plugin`, with the program's own plug-in where it is not given.
void addPluginOption(CLI::App& command, std::string& plugin);
/// Adds an option that takes one of a few words. The help shows them: `--format table|json|jsonl`.
template <class _value>
void addChoice(CLI::App& command, const std::string& name, _value& chosen,
               const std::vector<std::pair<std::string, _value>>& choices, const std::string& description) {
    std::string words;
    for (const auto& choice : choices) words += (words.empty() ? "" : choiceMark) + choice.first;
    const auto choose = [=, &chosen](const std::string& word) {
        const auto found =
            std::find_if(choices.begin(), choices.end(), [&](const auto& choice) { return choice.first == word; });
        if (found == choices.end()) throw CLI::ValidationError(name, word + " is not one of " + words);
        chosen = found->second;
    };
    command.add_option_function<std::string>(name, choose, description)->type_name(words);
}

/// Adds `--format text|json`.
void addTextOrJson(CLI::App& command, bool& asJson);

/// The error line of a plug-in that cannot be loaded. @return the exit status
int noPlugin(const QString& problem);
/// The error line of a scene that failed. @return the exit status
int sceneFailed(const QJsonObject& result);

}  // namespace vxH
