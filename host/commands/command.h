// What every command of vxscene has in common: how it stands on the command line, and how its scenes fail. The library
// that reads command lines is known to command.cpp and those that set up the whole line: it takes long to compile.
#pragma once

#include <QJsonObject>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "host/access/sceneLoad.h"
#include "host/base/resultCodes.h"

namespace CLI {
class App;
}

namespace vxH {

/// A command on the command line and what it does once the line has been read.
struct _command {
    CLI::App* line;
    std::function<int(const _submitterArguments&)> run;  ///< returns an `_exitStatus`
    int failure = exitFailed;                            ///< at least this where the output could not be written
};

// Each adds its command to the program.
_command addDiff(CLI::App& program);
_command addExplain(CLI::App& program);
_command addInfo(CLI::App& program);
_command addJobs(CLI::App& program);
_command addReport(CLI::App& program);
_command addVars(CLI::App& program);

/// Adds a command.
/// @param footer  stands at the end of its help: examples
CLI::App* addCommand(CLI::App& program, const char* name, const char* description, const std::string& footer);

/// Adds `--plugin`, with the program's own plug-in where it is not given.
void addPluginOption(CLI::App& command, std::string& plugin);
/// Adds an option with a text as value.
/// @param label  of the value in the help; it tells completions what to offer: FILE, SCENE, N ...
void addText(CLI::App& command, const char* name, std::string& text, const char* description, const char* label);
/// Adds an option with a whole number from `least` to `most` as value.
void addNumber(CLI::App& command, const char* name, int& number, std::pair<int, int> leastAndMost,
               const char* description, const char* label);
/// Adds an option with a number of seconds above 0, fractions included, as value.
void addSeconds(CLI::App& command, const char* name, double& seconds, double most, const char* description);
/// Adds an option without a value.
void addFlag(CLI::App& command, const char* name, bool& isGiven, const char* description);
/// Adds an argument without a name that has to be given.
void addArgument(CLI::App& command, const char* label, std::string& text, const char* description);
/// The same for one or more.
void addArguments(CLI::App& command, const char* label, std::vector<std::string>& texts, const char* description);

/// Stands between the words in the type name of an option that takes one of them.
inline constexpr const char* choiceMark = "|";

/// Adds an option that takes one of a few words. The help shows them: `--format table|json|jsonl`.
/// @param choose  called with the place of the word that is given
void addWords(CLI::App& command, const char* name, const std::vector<std::string>& words,
              const std::function<void(std::size_t)>& choose, const char* description);

/// The same with a value for each word.
template <class _value>
void addChoice(CLI::App& command, const char* name, _value& chosen,
               const std::vector<std::pair<std::string, _value>>& choices, const char* description) {
    std::vector<std::string> words;
    std::vector<_value> values;
    for (const auto& [word, value] : choices) {
        words.push_back(word);
        values.push_back(value);
    }
    addWords(
        command, name, words, [values, &chosen](std::size_t place) { chosen = values[place]; }, description);
}

/// Adds `--format text|json`.
void addTextOrJson(CLI::App& command, bool& asJson);

/// What statuses mean, a line each, for the help.
template <class _statuses>
std::string exitStatusHelp(const _statuses& statuses) {
    std::string text = "Exit status:\n";
    for (const auto& [status, meaning] : statuses) text += "  " + std::to_string(status) + "  " + meaning + '\n';
    return text;
}

/// The error line of a plug-in that cannot be loaded. @return the exit status
int noPlugin(const QString& problem);
/// The error line of a scene that failed. @return the exit status
int sceneFailed(const QJsonObject& result);
/// The error line of output that cannot be written. @return the exit status
int outputLost();

}  // namespace vxH
