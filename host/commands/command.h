// A command of vxscene: how it is given on the command line, and what it does. The library that reads command lines is
// known to commandLine.cpp alone: it takes long to compile.
#pragma once

#include <QStringList>
#include <chrono>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "host/base/resultCodes.h"
#include "host/base/submitterArguments.h"
#include "host/base/terminal.h"
#include "host/results/sceneResult.h"

namespace vxH {

/// What a shell offers as a value.
enum class _offered { nothing, words, files, folders, scenes };

/// An option, or an argument without a name.
struct _option {
    std::vector<std::string> names;  ///< "-o", "--output"; none: an argument, which has to be given
    std::string description;
    std::string label;  ///< of the value, as the help shows it: "FILE", "table|json"; empty: there is no value
    _offered offered = _offered::nothing;
    std::vector<std::string> words;  ///< with `_offered::words`
    bool repeats = false;
    /// Takes a value, of a flag the empty one. @return what is wrong with it, "x is no number"; empty: nothing
    std::function<std::string(const std::string& value)> take;
    bool isOptional = false;  ///< an argument that may be left out
};

struct _command {
    std::string name;
    std::string description;
    std::string footer;  ///< the end of its help: examples
    std::vector<_option> options;
    std::vector<_option> arguments;
    std::function<int(const _submitterArguments&)> run;  ///< returns an `_exitStatus`
    int failure = exitFailed;                            ///< at least this where the output could not be written
};

/// `--plugin`, with the program's own plug-in where it is not given.
_option pluginOption(std::string& plugin);

// Options take their names as "-o,--output", the long one last.

/// An option without a value.
_option flag(const char* names, bool& isGiven, const char* description);
/// An option with a file as value.
_option fileOption(const char* names, std::string& file, const char* description);
/// An option with a whole number from `least` to `most` as value.
_option numberOption(const char* names, int& number, std::pair<int, int> leastAndMost, const char* description);
/// An option that takes one of a few words. The help shows them: `--format table|json|jsonl`.
/// @param choose  called with the place of the word that is given
_option wordOption(const char* names, const std::vector<std::string>& words, std::function<void(std::size_t)> choose,
                   const char* description);
/// `--timeout`, with a number of seconds above 0, fractions included.
_option timeoutOption(std::chrono::milliseconds& timeout, const char* description);
/// `--color auto|always|never`
_option colourOption(_colour& choice);
/// The command with `--resolve`: the scenes are loaded as Houdini reads them.
_command resolving(_command command);
/// `--format text|json`
_option textOrJson(bool& asJson);
/// An argument that is a scene.
_option sceneArgument(const char* label, std::string& scene, const char* description);
/// The same for one or more, which may be folders.
_option scenesArgument(const char* label, std::vector<std::string>& scenes, const char* description);

/// What statuses mean, one per line, for the help.
template <class _statuses>
std::string exitStatusHelp(const _statuses& statuses) {
    std::string help = "Exit status:\n";
    for (const auto& [status, meaning] : statuses) help += "  " + std::to_string(status) + "  " + meaning + '\n';
    return help;
}

/// The error line of a plug-in that cannot be loaded. @return the exit status
int noPlugin(const QString& problem);
/// The error line of a scene that failed, or of one of which people have to be told something. @return the exit status
int tellOf(const _sceneHead& scene);
/// The error line of output that cannot be written. @param error  the errno. @return the exit status
int outputLost(int error);
/// Writes the text to the standard output, with a line end behind it.
/// @throw std::runtime_error  it cannot be written
void print(const QString& text);
/// The same for lines.
void print(const QStringList& lines);

}  // namespace vxH
